#ifndef VEXA_EXAMPLE_STEPS_H
#define VEXA_EXAMPLE_STEPS_H

#include "orders.h"
#include "service_config.h"

/// \file
/// The steps of the demonstration. Each writes a heading and what it finds to standard output, and returns whether all
/// that it checked held.

namespace shop {

/// What the steps hand on to each other.
struct Service {
    ServiceConfig config;
    Order order;
};

void Heading(const char* text);

/// Writes what was checked, and how that went.
/// \return \p held.
bool Check(const char* what, bool held);

// What arrives, in reading.cpp.
bool ReadConfig(Service& service);
bool ReadBrokenConfig(Service& service);
bool ReadPartnerOrder(Service& service);
bool ReadBrokenOrder(Service& service);
bool ReadLog(Service& service);

// What leaves, in writing.cpp.
bool WriteForPeople(Service& service);
bool WriteAndReadAgain(Service& service);
bool WriteReport(Service& service);
bool ListClasses(Service& service);

} // namespace shop

#endif
