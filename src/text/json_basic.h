#ifndef VEXA_TEXT_JSON_BASIC_H
#define VEXA_TEXT_JSON_BASIC_H

#include <cassert>
#include <cstring>

#include "text/json_measure.h"
#include "text/ready_text.h"

/// \file
/// The JSON text of basic values, into memory that has been measured for them.

namespace vexa::text {

/// Bytes behind the measured room that writing may touch: blocks of 16 are written whole.
inline constexpr unsigned long SPARE_ROOM = core::DECIMAL_ROOM;
static_assert(SPARE_ROOM >= core::ESCAPE_SPARE && SPARE_ROOM >= READY_SPARE);

/// Without a jump, which half of all values would take by surprise.
inline char* WriteTruth(char* at, bool value)
{
    static constexpr char TEXTS[2][8] = {"false", "true"};
    std::memcpy(at, TEXTS[value ? 1 : 0], sizeof TEXTS[0]);
    return at + (value ? 4 : 5);
}

template<class T>
__attribute__((always_inline)) inline char* WriteNumber(char* at, T value)
{
    if constexpr (std::is_same_v<T, bool>)
        return WriteTruth(at, value);
    else if constexpr (std::is_floating_point_v<T>)
        return core::WriteFixed(at, value);
    else
        return core::WriteDecimal(at, value);
}

char* WriteObject(char* at, const CBinary& value);
char* WriteObject(char* at, const CNumeric& value);
char* WriteObject(char* at, const tm& value);
char* WriteObject(char* at, const CDateTime& value);

/// Texts stand between quotes where \p isQuoted says so, and are escaped anyway. \return the end of the text.
template<class Type>
__attribute__((always_inline)) inline char* WriteValue(Type, char* at, const void* address, bool isQuoted)
{
    using T = typename Type::Type;
    constexpr bool IS_TEXT = std::is_same_v<T, std::string> || std::is_same_v<T, core::CTextAtAddress>;
    decltype(auto) value = core::Load<T>(address);
    if constexpr (Type::IS_NUMBER) {
        at = WriteNumber(at, value);
    } else if constexpr (IS_TEXT) {
        if (isQuoted) *at++ = '"';
        if constexpr (std::is_same_v<T, std::string>)
            at = core::WriteEscaped(at, value);
        else
            at = core::WriteEscaped(at, static_cast<const char*>(address),
                                    std::strlen(static_cast<const char*>(address)));
        if (isQuoted) *at++ = '"';
    } else {
        at = WriteObject(at, value);
    }
    return at;
}

/// The same, held to its room.
template<class Type>
__attribute__((always_inline)) inline char* WriteMeasured(Type type, char* at, const void* address,
                                                          bool isQuoted = true)
{
    char* const end = WriteValue(type, at, address, isQuoted);
    assert(static_cast<unsigned long>(end - at) <= RoomOf(type, address));
    return end;
}

} // namespace vexa::text

#endif
