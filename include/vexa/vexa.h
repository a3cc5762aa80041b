#ifndef VEXA_VEXA_H
#define VEXA_VEXA_H

/// \file
/// The whole library.

#include <vexa/binary.h>
#include <vexa/class_infor.h>
#include <vexa/class_metadata.h>
#include <vexa/class_refrence.h>
#include <vexa/container_infor.h>
#include <vexa/container_refrence.h>
#include <vexa/custom_type_infor.h>
#include <vexa/data_type.h>
#include <vexa/date_time.h>
#include <vexa/describe.h>
#include <vexa/find_class.h>
#include <vexa/group.h>
#include <vexa/helper.h>
#include <vexa/json.h>
#include <vexa/may_null.h>
#include <vexa/metadata.h>
#include <vexa/numeric.h>
#include <vexa/refrence.h>
#include <vexa/table.h>
#include <vexa/text.h>
#include <vexa/type_infor.h>
#include <vexa/types.h>
#include <vexa/value.h>

#endif
