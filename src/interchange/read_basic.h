#ifndef VEXA_INTERCHANGE_READ_BASIC_H
#define VEXA_INTERCHANGE_READ_BASIC_H

#include <algorithm>

#include "core/read_time.h"
#include "interchange/json_number.h"
#include "interchange/json_plain.h"
#include "interchange/nearest.h"
#include "interchange/read_key.h"
#include "interchange/read_problem.h"
#include "interchange/read_text.h"
#include "interchange/undo.h"

/// \file
/// Reading values of basic types and enumerations.

namespace vexa::interchange {

template<class Source>
inline bool CReader<Source>::ReadBasic(const CForm& form, char* place)
{
    using namespace Enum;
    switch (form.Code) {
    case DT_INT: return ReadNumber<int>(place);
    case DT_STD_STRING: return ReadString(*reinterpret_cast<std::string*>(place));
    case DT_DOUBLE: return ReadNumber<double>(place);
    case DT_LONG:
    case DT_LONG_LONG: return ReadNumber<long>(place);
    case DT_UNSIGNED_INT: return ReadNumber<unsigned int>(place);
    case DT_UNSIGNED_LONG:
    case DT_UNSIGNED_LONG_LONG: return ReadNumber<unsigned long>(place);
    case DT_BOOL: return ReadBool(place);
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return ReadNumber<unsigned char>(place);
    case DT_SHORT: return ReadNumber<short>(place);
    case DT_UNSIGNED_SHORT: return ReadNumber<unsigned short>(place);
    case DT_FLOAT: return ReadNumber<float>(place);
    case DT_LONG_DOUBLE: return ReadNumber<long double>(place);
    case DT_BINARY: return ReadBinary(*reinterpret_cast<CBinary*>(place));
    case DT_NUMERIC: return ReadNumeric(*reinterpret_cast<CNumeric*>(place));
    case DT_TM: return ReadTm(*reinterpret_cast<tm*>(place));
    case DT_DATETIME: return ReadDateTime(*reinterpret_cast<CDateTime*>(place));
    default: return Refuse(ProblemCode::READ_ONLY); // a text that is not the object's own
    }
}

/// A number, which may be a text of its digits in a format without such numbers.
/// \param isGood whether there is one; the problem is told otherwise.
template<class Source>
bool CReader<Source>::TakeDigits(CNumber& number, bool& isGood)
{
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    isGood = IsNumber(kind);
    if (isGood) return m_source.Number(number) || Broken();
    if (kind != EventKind::STRING || m_source.Abilities().HasDecimals) return WrongKind("a number");
    CText text;
    if (!m_source.String(text)) return Broken();
    const char* const end = text.Text.data() + text.Text.size();
    isGood = ScanNumber(text.Text.data(), end, number) == end;
    if (!isGood) Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), "a number", ShownText(text.Text));
    return true;
}

template<class Source>
template<class T>
inline bool CReader<Source>::ReadNumber(char* place)
{
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    CNumber number;
    if constexpr (std::is_same_v<T, long double>) {
        bool isGood = true;
        const bool isRead = TakeDigits(number, isGood);
        if (!isRead || !isGood) return isRead;
    } else {
        if (__builtin_expect(!IsNumber(kind), 0)) return WrongKind(std::is_integral_v<T> ? "an integer" : "a number");
        if (!m_source.Number(number)) return Broken();
    }
    T value;
    const NumberVerdict verdict = ConvertNumber(number, value);
    if (__builtin_expect(verdict != NumberVerdict::GOOD, 0)) return TellNumber(verdict, number, begin, RangeOf<T>());
    if (__builtin_expect(m_context.Undo != nullptr, 0)) m_context.Undo->SaveBytes(place, sizeof value);
    std::memcpy(place, &value, sizeof value);
    return true;
}

template<class Source>
inline bool CReader<Source>::ReadBool(char* place)
{
    if (m_source.Peek() != EventKind::BOOL) return WrongKind("true or false");
    bool value = false;
    if (!m_source.Bool(value)) return Broken();
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(place, 1);
    *place = value ? 1 : 0;
    return true;
}

template<class Source>
inline bool CReader<Source>::ReadString(std::string& string)
{
    if (m_source.Peek() != EventKind::STRING) return WrongKind("a string");
    CText text;
    if (!m_source.String(text)) return Broken();
    if (string.empty() && text.Text.empty()) return true;
    if (__builtin_expect(m_context.Undo != nullptr, 0)) m_context.Undo->SaveString(string);
    StoreText(string, text.Text);
    return true;
}

/// \param isGood whether there is a point of time in \p instant; the problem is told otherwise.
template<class Source>
bool CReader<Source>::TakeInstant(CInstant& instant, bool& isGood)
{
    const EventKind kind = m_source.Peek();
    const std::size_t begin = m_source.Offset();
    isGood = false;
    if (kind == EventKind::DATE_TIME) {
        CDateTime time;
        if (!m_source.DateTime(time)) return Broken();
        isGood = InstantOf(time, instant);
        if (!isGood) Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), "a date and time");
        isGood = isGood && IsInYears(instant, begin, {});
        return true;
    }
    if (kind != EventKind::STRING) return WrongKind("a date and time (RFC 3339)");
    CText text;
    if (!m_source.String(text)) return Broken();
    isGood = InstantOf(text.Text, instant);
    if (!isGood)
        Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), "a date and time (RFC 3339)", ShownText(text.Text));
    isGood = isGood && IsInYears(instant, begin, text.Text);
    return true;
}

/// An offset may lead beyond the years that RFC 3339 can tell. The problem is told.
template<class Source>
bool CReader<Source>::IsInYears(const CInstant& instant, std::size_t begin, std::string_view text)
{
    constexpr long long FIRST_SECOND = -62167219200; // 0000-01-01T00:00:00Z
    constexpr long long LAST_SECOND = 253402300799;  // 9999-12-31T23:59:59Z
    if (instant.Seconds >= FIRST_SECOND && instant.Seconds <= LAST_SECOND) return true;
    Tell(ProblemCode::OUT_OF_RANGE, begin, m_source.EndOffset(), "a time in the years 0000 to 9999 of UTC",
         text.empty() ? std::string() : ShownText(text));
    return false;
}

/// A null one is null.
template<class Source>
bool CReader<Source>::ReadDateTime(CDateTime& time)
{
    CDateTime read;
    const bool isNull = m_source.Peek() == EventKind::NULL_VALUE;
    const std::size_t begin = m_source.Offset();
    if (isNull) {
        if (!m_source.Null()) return Broken();
    } else {
        CInstant instant;
        bool isGood = false;
        if (!TakeInstant(instant, isGood)) return false;
        if (!isGood) return true;
        if (!DateTimeOf(instant, read)) {
            Tell(ProblemCode::OUT_OF_RANGE, begin, m_source.EndOffset(), "a time in whole milliseconds");
            return true;
        }
    }
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(&time, sizeof time);
    time = read;
    return true;
}

template<class Source>
bool CReader<Source>::ReadTm(tm& fields)
{
    if (m_source.Peek() != EventKind::STRING) return WrongKind("a date and time without zone");
    const std::size_t begin = m_source.Offset();
    CText text;
    if (!m_source.String(text)) return Broken();
    tm read{};
    if (!core::ReadTime(text.Text, read)) {
        Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), "a date and time without zone", ShownText(text.Text));
        return true;
    }
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(&fields, sizeof fields);
    fields = read;
    return true;
}

template<class Source>
bool CReader<Source>::ReadBinary(CBinary& bytes)
{
    const EventKind kind = m_source.Peek();
    if (kind != EventKind::STRING && kind != EventKind::BYTES) return WrongKind("base64 text");
    const std::size_t begin = m_source.Offset();
    CText text;
    if (!(kind == EventKind::BYTES ? m_source.Bytes(text) : m_source.String(text))) return Broken();
    CBinary read;
    if (kind == EventKind::BYTES) {
        read = CBinary(text.Text.data(), text.Text.size());
    } else if (!BytesOfBase64(text.Text, read)) {
        Tell(ProblemCode::BAD_TEXT, begin, m_source.EndOffset(), "base64 text", ShownText(text.Text));
        return true;
    }
    if (m_context.Undo != nullptr) m_context.Undo->SaveMoved(bytes);
    bytes = std::move(read);
    return true;
}

template<class Source>
bool CReader<Source>::ReadNumeric(CNumeric& number)
{
    const EventKind kind = m_source.Peek();
    CNumeric read;
    if (kind == EventKind::NULL_VALUE) {
        if (!m_source.Null()) return Broken();
    } else {
        const std::size_t begin = m_source.Offset();
        CNumber found;
        bool isGood = true;
        const bool isRead = TakeDigits(found, isGood);
        if (!isRead || !isGood) return isRead;
        const NumberVerdict verdict = NumericOf(found, read);
        if (verdict != NumberVerdict::GOOD)
            return TellNumber(verdict, found, begin, "at most " + std::to_string(MOST_DIGITS) + " digits");
    }
    if (m_context.Undo != nullptr) m_context.Undo->SaveMoved(number);
    number = std::move(read);
    return true;
}

template<class Source>
bool CReader<Source>::ReadEnumeration(const CForm& form, char* place)
{
    const EventKind kind = m_source.Peek();
    if (kind == EventKind::STRING) return ReadEnumerator(form, place);
    if (IsNumber(kind)) return ReadBasic(form, place);
    return WrongKind(OneOf(NamesOf(*form.Enumeration)));
}

template<class Source>
bool CReader<Source>::ReadEnumerator(const CForm& form, char* place)
{
    const std::size_t begin = m_source.Offset();
    CText text;
    if (!m_source.String(text)) return Broken();
    long long value = 0;
    if (!FindEnumerator(*form.Enumeration, text.Text, value)) {
        CProblem problem;
        const std::vector<std::string> names = NamesOf(*form.Enumeration);
        problem.Code = ProblemCode::UNKNOWN_NAME;
        problem.Expected = OneOf(names);
        problem.Found = ShownText(text.Text);
        problem.Nearest = NearestName(text.Text, names);
        Tell(std::move(problem), begin, m_source.EndOffset());
        return true;
    }
    const unsigned long size = form.Kind == FormKind::SHAPE ? 1 : form.Type->Sizeof();
    if (m_context.Undo != nullptr) m_context.Undo->SaveBytes(place, size);
    std::memcpy(place, &value, size); // the least bytes come first
    return true;
}

} // namespace vexa::interchange

#endif
