#ifndef VEXA_TEST_PLUGIN_H
#define VEXA_TEST_PLUGIN_H

#include <vexa/refrence.h>

// All that the program knows of the plugin: its classes are its own.

/// An object of a class of the plugin. It lives as long as the process.
vexa::CRefrence SensorOfPlugin();

const vexa::CClassInfor& PointOfPlugin();

#endif
