#ifndef VEXA_CORE_CALENDAR_H
#define VEXA_CORE_CALENDAR_H

#include <ctime>
#include <string>

namespace vexa::core {

/// How date and time stand in text. A plain array, which is there before any static object is.
constexpr char DATE_TIME_FORMAT[] = "%Y-%m-%d %H:%M:%S";

/// Tm2String for a format that is not in a string.
std::string FormatTm(const tm& t, const char* format);

} // namespace vexa::core

#endif
