#ifndef VEXA_CORE_VALUE_TEXT_H
#define VEXA_CORE_VALUE_TEXT_H

#include <array>
#include <cstddef>
#include <string_view>

#include <vexa/binary.h>
#include <vexa/date_time.h>
#include <vexa/numeric.h>

/// \file
/// The texts of the value types, into memory that somebody else has made.

namespace vexa::core {

/// Bytes of CBinary::AsHexString().
inline std::size_t TextLength(const CBinary& value) noexcept { return 2 * value.Size; }
/// Bytes of CNumeric::AsString().
std::size_t TextLength(const CNumeric& value) noexcept;
/// Writes as many bytes as TextLength() says. \return their end.
char* WriteText(char* at, const CBinary& value) noexcept;
char* WriteText(char* at, const CNumeric& value) noexcept;

/// Where the text of a time is formed.
using CTimeText = std::array<char, 512>;

/// What Tm2String gives, in \p room.
std::string_view FormatTm(CTimeText& room, const tm& t, const char* format);
/// What CDateTime::AsString gives, in \p room or for good.
std::string_view TextOf(CTimeText& room, const CDateTime& value, const char* format, bool utc);

} // namespace vexa::core

#endif
