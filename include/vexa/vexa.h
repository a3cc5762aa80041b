#ifndef VEXA_VEXA_H
#define VEXA_VEXA_H

/// \file
/// The library, but for what is asked for by itself: vexa/types.h, since the standard headers behind it cost a compiler
/// as much as all of this, and the formats that are libraries of their own (vexa/yaml.h, vexa/cbor.h).

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
#include <vexa/event.h>
#include <vexa/find_class.h>
#include <vexa/group.h>
#include <vexa/helper.h>
#include <vexa/interchange.h>
#include <vexa/json.h>
#include <vexa/json_tree.h>
#include <vexa/may_null.h>
#include <vexa/metadata.h>
#include <vexa/numeric.h>
#include <vexa/policy.h>
#include <vexa/refrence.h>
#include <vexa/report.h>
#include <vexa/table.h>
#include <vexa/text.h>
#include <vexa/type_infor.h>
#include <vexa/value.h>

#endif
