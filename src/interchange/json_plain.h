#ifndef VEXA_INTERCHANGE_JSON_PLAIN_H
#define VEXA_INTERCHANGE_JSON_PLAIN_H

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include <vexa/data_type.h>

#include "interchange/form.h"
#include "interchange/json_number.h"
#include "interchange/json_scan.h"
#include "interchange/read_number.h"
#include "interchange/utf8.h"

/// \file
/// What stands in most JSON texts, read with the place in a register. Nothing here has a state or knows a problem: each
/// function gives the end of what it has read, and null for what is written in another way, is wrong, or touches the
/// end of the text. Nothing has been stored then, and whoever asked goes the way that knows everything.

namespace vexa::interchange {

inline const char* PlainBlanks(const char* next, const char* end) noexcept
{
    if (__builtin_expect(next == end || !text::IsBlank(*next), 1)) return next;
    ++next;
    return next == end || !text::IsBlank(*next) ? next : FindByte<CNonBlank>(next, end);
}

/// Goes on at a byte beyond ASCII. \return the quotation mark behind the string; null where something else is next.
inline const char* PlainEndOfLong(const char* next, const char* end) noexcept
{
    const char* const quote = FindByte<CEscapeStop>(next, end);
    if (quote == end || *quote != '"') return nullptr;
    return AreCharacters(next, quote, end) ? quote : nullptr;
}

/// A string without escapes, \p text being what lies between its quotation marks.
inline const char* PlainText(const char* next, const char* end, std::string_view& text) noexcept
{
    if (next == end || *next != '"') return nullptr;
    const char* const first = next + 1;
    const char* last = FindByte<CStringStop>(first, end);
    if (last == end) return nullptr;
    if (__builtin_expect(*last != '"', 0)) {
        last = CNonAscii::Is(*last) ? PlainEndOfLong(last, end) : nullptr;
        if (last == nullptr) return nullptr;
    }
    text = std::string_view(first, static_cast<std::size_t>(last - first));
    return last + 1;
}

/// Every value of an integer type, without fraction or exponent.
template<class T>
inline const char* PlainNumber(const char* next, const char* end, T& value) noexcept
{
    if constexpr (std::is_floating_point_v<T>) {
        if (!IsDecimalBeginning(next, end)) return nullptr;
        T nearest = 0;
        const auto [behind, error] = std::from_chars(next, end, nearest);
        if (error != std::errc() || behind == end || IsWordPart(*behind)) return nullptr;
        value = nearest;
        return behind;
    } else {
        CNumber number;
        const char* const behind = ScanInteger(next, end, number);
        if (behind == nullptr || behind == end || IsWordPart(*behind)) return nullptr;
        if (number.Kind != CNumber::Form::INTEGER) return nullptr;
        const bool isGood = Narrow({number.IsNegative, number.Magnitude}, value) == NumberVerdict::GOOD;
        return isGood ? behind : nullptr;
    }
}

/// `true` or `false`, without a branch for which of them it is.
inline const char* PlainBool(const char* next, const char* end, bool& value) noexcept
{
    static constexpr char WORDS[2][9] = {"false", "true"};
    static constexpr char MASKS[2][9] = {"\xFF\xFF\xFF\xFF\xFF", "\xFF\xFF\xFF\xFF"};
    if (end - next < static_cast<std::ptrdiff_t>(sizeof(std::uint64_t))) return nullptr;
    const bool isTrue = *next == 't';
    std::uint64_t found = 0;
    std::uint64_t word = 0;
    std::uint64_t mask = 0;
    std::memcpy(&found, next, sizeof found);
    std::memcpy(&word, WORDS[isTrue ? 1 : 0], sizeof word);
    std::memcpy(&mask, MASKS[isTrue ? 1 : 0], sizeof mask);
    const char* const behind = next + (isTrue ? 4 : 5);
    if ((found & mask) != word || IsWordPart(*behind)) return nullptr;
    value = isTrue;
    return behind;
}

/// Appending to nothing costs less than assigning, and most strings are new.
inline void StoreText(std::string& string, std::string_view text)
{
    if (!string.empty())
        string.assign(text.data(), text.size());
    else if (!text.empty())
        string.append(text.data(), text.size());
}

template<class T>
inline const char* PlainNumberInto(char* place, const char* next, const char* end) noexcept
{
    T value;
    const char* const behind = PlainNumber(next, end, value);
    if (__builtin_expect(behind != nullptr, 1)) std::memcpy(place, &value, sizeof value);
    return behind;
}

/// Reads a basic value that stands just here.
inline const char* PlainBasicHere(const CForm& form, char* place, const char* next, const char* end)
{
    using namespace Enum;
    if (form.Code == DT_STD_STRING) { // the most usual of all
        std::string_view text;
        next = PlainText(next, end, text);
        if (next != nullptr) StoreText(*reinterpret_cast<std::string*>(place), text);
        return next;
    }
    switch (form.Code) {
    case DT_INT: return PlainNumberInto<int>(place, next, end);
    case DT_DOUBLE: return PlainNumberInto<double>(place, next, end);
    case DT_LONG:
    case DT_LONG_LONG: return PlainNumberInto<long>(place, next, end);
    case DT_UNSIGNED_INT: return PlainNumberInto<unsigned int>(place, next, end);
    case DT_UNSIGNED_LONG:
    case DT_UNSIGNED_LONG_LONG: return PlainNumberInto<unsigned long>(place, next, end);
    case DT_BOOL: return PlainBool(next, end, *reinterpret_cast<bool*>(place));
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return PlainNumberInto<unsigned char>(place, next, end);
    case DT_SHORT: return PlainNumberInto<short>(place, next, end);
    case DT_UNSIGNED_SHORT: return PlainNumberInto<unsigned short>(place, next, end);
    case DT_FLOAT: return PlainNumberInto<float>(place, next, end);
    default: return nullptr;
    }
}

/// Reads a basic value that is held directly into its place. Whether a blank stands before it is not asked beforehand:
/// where the value begins should not have to be waited for.
inline const char* PlainBasicInto(const CForm& form, char* place, const char* next, const char* end)
{
    while (true) {
        const char* const behind = PlainBasicHere(form, place, next, end);
        if (__builtin_expect(behind != nullptr, 1) || next == end || *next != ' ') return behind;
        ++next;
    }
}

} // namespace vexa::interchange

#endif
