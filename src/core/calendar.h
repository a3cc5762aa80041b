#ifndef VEXA_CORE_CALENDAR_H
#define VEXA_CORE_CALENDAR_H

namespace vexa::core {

/// How date and time stand in text. A plain array, which is there before any static object is.
constexpr char DATE_TIME_FORMAT[] = "%Y-%m-%d %H:%M:%S";

} // namespace vexa::core

#endif
