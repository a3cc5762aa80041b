// Reading JSON text along plans: what the reader by description does, with the keys, the places and the kinds of values
// ready-made. Values that are held in another way than directly, or are of an unusual kind, are read by description.
//
// The text is a std::string, so that a zero can be read behind its last byte: it is no blank, no digit and no mark, and
// most tests of the end are those of the byte.

#include "text/json_plan.h"

#include <cstring>

#include <vexa/json.h>

#include "core/scan.h"
#include "text/digits.h"
#include "text/json_code.h"
#include "text/json_reader.h"

namespace vexa::text {

using namespace Enum;
using typeinfo::CContainerPlan;
using typeinfo::CPlan;
using typeinfo::CRecordPlan;
using typeinfo::CValuePlan;
using typeinfo::Holding;
using typeinfo::Operation;

namespace {

/// How many records behind the last one are compared with a key before it is looked up.
constexpr std::ptrdiff_t NEAR_RECORDS = 4;

template<class T>
inline const char* ReadNumberInto(const char* next, const char* end, char* value)
{
    const bool isNegative = *next == '-';
    unsigned long long number = 0;
    next = ReadDigits(next + (isNegative ? 1 : 0), end, number);
    const auto stored = static_cast<T>(static_cast<long long>(isNegative ? 0 - number : number));
    std::memcpy(value, &stored, sizeof stored);
    return next;
}

/// Reads an integer into a number, or gives null for what is no number but a truth value.
const char* ReadNumberOf(Operation operation, const char* next, const char* end, char* value)
{
    switch (static_cast<unsigned>(operation)) {
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return ReadNumberInto<unsigned char>(next, end, value);
    case DT_SHORT:
    case DT_UNSIGNED_SHORT: return ReadNumberInto<unsigned short>(next, end, value);
    case DT_INT:
    case DT_UNSIGNED_INT: return ReadNumberInto<unsigned int>(next, end, value);
    case DT_LONG:
    case DT_UNSIGNED_LONG:
    case DT_LONG_LONG:
    case DT_UNSIGNED_LONG_LONG: return ReadNumberInto<unsigned long>(next, end, value);
    case DT_FLOAT: return ReadNumberInto<float>(next, end, value);
    case DT_DOUBLE: return ReadNumberInto<double>(next, end, value);
    case DT_LONG_DOUBLE: return ReadNumberInto<long double>(next, end, value);
    default: return nullptr;
    }
}

} // namespace

int CJsonReader::ReadAlongPlan(const CPlan& plan, char* object)
{
    const char* const next = ReadPlannedObject(m_cursor.Next(), plan, object);
    if (next == nullptr) return m_code;
    m_cursor.MoveTo(next);
    return 0;
}

int CJsonReader::ReadAlongPlan(const CContainerPlan& plan, char* container)
{
    const char* const next = ReadPlannedElements(m_cursor.Next(), plan, container);
    if (next == nullptr) return m_code;
    m_cursor.MoveTo(next);
    return 0;
}

/// Stands at the brace.
const char* CJsonReader::ReadPlannedObject(const char* next, const CPlan& plan, char* object)
{
    const char* const end = m_cursor.End();
    const CRecordPlan* expected = plan.begin();
    do {
        if (++next == end) return Fail(CLASS_ENDS_BEFORE_KEY);
        const CRecordPlan* record = expected;
        next = ReadPlannedKey(next, plan, record);
        if (next == nullptr) return nullptr;
        next = SkipBlanks(next);
        if (next == end) return Fail(CLASS_NO_VALUE);
        if (record != nullptr) {
            next = ReadPlannedValue(next, *record, object);
            if (next == nullptr) return nullptr;
            expected = record + 1;
        }
        next = SkipBlanks(next);
    } while (*next == ',');
    if (*next == '}') return next + 1;
    return Fail(next == end ? CLASS_ENDS_AFTER_VALUE : CLASS_NO_SEPARATOR);
}

/// Reads the key and its colon. \param record the one that comes next in the class; becomes the one of the key, or
/// null.
inline const char* CJsonReader::ReadPlannedKey(const char* next, const CPlan& plan, const CRecordPlan*& record)
{
    next = SkipBlanks(next);
    const CRecordPlan* const last = plan.end() - record > NEAR_RECORDS ? record + NEAR_RECORDS : plan.end();
    for (const CRecordPlan* near = record; near != last; ++near) {
        const std::string_view key = near->QuotedKey();
        if (!core::StartsWith(next, m_cursor.End(), key.data(), key.size())) continue;
        record = near;
        return next + key.size();
    }
    return ReadAnyKey(next, plan, record);
}

const char* CJsonReader::ReadAnyKey(const char* next, const CPlan& plan, const CRecordPlan*& record)
{
    if (*next != '"') return Fail(CLASS_NO_KEY);
    const char* const key = next + 1;
    const auto left = static_cast<std::size_t>(m_cursor.End() - key);
    const auto* const quote = static_cast<const char*>(std::memchr(key, '"', left));
    if (quote == nullptr) return Fail(CLASS_KEY_NOT_CLOSED);
    record = plan.Find(key, static_cast<std::size_t>(quote - key));
    next = SkipBlanks(quote + 1);
    return *next == ':' ? next + 1 : Fail(CLASS_NO_COLON);
}

inline const char* CJsonReader::ReadPlannedValue(const char* next, const CValuePlan& value, char* object)
{
    if (__builtin_expect(!value.IsPlain, 0)) return ReadFlaggedValue(next, value, object);
    char* const place = object + value.ValueOffset;
    switch (static_cast<unsigned>(value.Op)) {
    case DT_STD_STRING: return ReadPlannedString(next, *reinterpret_cast<std::string*>(place));
    case DT_INT:
    case DT_UNSIGNED_INT: return ReadNumberInto<unsigned int>(next, m_cursor.End(), place);
    case DT_LONG:
    case DT_UNSIGNED_LONG: return ReadNumberInto<unsigned long>(next, m_cursor.End(), place);
    case DT_BOOL: return ReadPlannedBool(next, place);
    case static_cast<unsigned>(Operation::CLASS): return ReadPlannedClass(next, value, object);
    case static_cast<unsigned>(Operation::CONTAINER): return ReadPlannedArray(next, value, object);
    default: break;
    }
    if (const char* const behind = ReadNumberOf(value.Op, next, m_cursor.End(), place)) return behind;
    return ReadPlainly(next, {*value.Type, object + value.HolderOffset}, &CJsonReader::ReadValue);
}

/// A number or a string in a wrapper; what is held in another way, or is read-only, is read by its description.
const char* CJsonReader::ReadFlaggedValue(const char* next, const CValuePlan& value, char* object)
{
    const bool isWritable = value.Held == Holding::FLAGGED && !value.Type->Has(HF_CONST);
    char* const place = object + value.ValueOffset;
    if (isWritable && value.Op == Operation::STD_STRING) {
        auto& string = *reinterpret_cast<std::string*>(place);
        if (object[value.FlagOffset] != 0) string.clear();
        object[value.FlagOffset] = 0;
        return ReadPlannedString(next, string);
    }
    if (isWritable) {
        if (const char* const behind = ReadNumberOf(value.Op, next, m_cursor.End(), place)) {
            object[value.FlagOffset] = 0;
            return behind;
        }
    }
    return ReadPlainly(next, {*value.Type, object + value.HolderOffset}, &CJsonReader::ReadValue);
}

const char* CJsonReader::ReadPlannedClass(const char* next, const CValuePlan& value, char* object)
{
    const CPlan* const plan = ReadablePlanOf(value.ClassInfor());
    if (plan == nullptr) return ReadPlainly(next, {*value.Type, object + value.HolderOffset}, &CJsonReader::ReadValue);
    if (m_depth == MAX_NESTING_DEPTH) return Fail(NESTED_TOO_DEEP);
    if (*next != '{') return Fail(CLASS_NO_BRACE);
    ++m_depth;
    next = ReadPlannedObject(next, *plan, object + value.ValueOffset);
    --m_depth;
    return next;
}

const char* CJsonReader::ReadPlannedArray(const char* next, const CValuePlan& value, char* object)
{
    if (m_depth == MAX_NESTING_DEPTH) return Fail(NESTED_TOO_DEEP);
    if (*next != '[') return Fail(ARRAY_NO_BRACKET);
    next = SkipBlanks(next + 1);
    if (next == m_cursor.End()) return Fail(ARRAY_ENDS_AFTER_BRACKET);
    if (*next == ']') return next + 1;
    ++m_depth;
    if (const CContainerPlan* const plan = ReadablePlanOf(*value.Type))
        next = ReadPlannedElements(next, *plan, object + value.ValueOffset);
    else
        next = ReadPlainly(next, {*value.Type, object + value.HolderOffset}, &CJsonReader::ReadOpenArray);
    --m_depth;
    return next;
}

/// Stands at the first element.
const char* CJsonReader::ReadPlannedElements(const char* next, const CContainerPlan& plan, char* container)
{
    const CValuePlan& element = plan.Element();
    const CContainerInfor& infor = plan.Infor();
    if (element.IsPlain && element.Op == static_cast<Operation>(DT_INT)) {
        const char* const end = m_cursor.End();
        return ReadElementsAlong(next, infor, container, [&](const char* at, char* slot) {
            return ReadNumberInto<int>(at, end, slot + element.ValueOffset);
        });
    }
    return ReadElementsAlong(next, infor, container,
                             [&](const char* at, char* slot) { return ReadPlannedValue(at, element, slot); });
}

template<class ReadElement>
inline const char* CJsonReader::ReadElementsAlong(const char* next, const CContainerInfor& infor, char* container,
                                                  ReadElement readOne)
{
    const char* const end = m_cursor.End();
    while (true) {
        auto* const slot = static_cast<char*>(infor.Append(container));
        if (slot != nullptr) next = readOne(next, slot);
        if (next == nullptr) return nullptr;
        next = SkipBlanks(next);
        if (*next != ',') break;
        if (++next == end) return Fail(ARRAY_NO_ELEMENT);
        next = SkipBlanks(next);
        if (next == end) return Fail(ARRAY_ENDS_BEFORE_ELEMENT);
    }
    if (*next == ']') return next + 1;
    return Fail(next == end ? ARRAY_ENDS_AFTER_ELEMENT : ARRAY_NO_SEPARATOR);
}

/// A string without escapes is taken in one piece.
const char* CJsonReader::ReadPlannedString(const char* next, std::string& out)
{
    if (*next == '"') {
        const char* const text = next + 1;
        const char* const stop = core::FindQuoteOrBackslash(text, m_cursor.End());
        if (stop != m_cursor.End() && *stop == '"') {
            if (stop != text) out.append(text, static_cast<std::size_t>(stop - text));
            return stop + 1;
        }
    }
    m_cursor.MoveTo(next);
    m_code = ReadJsonString(out, m_cursor);
    return m_code == 0 ? m_cursor.Next() : nullptr;
}

const char* CJsonReader::ReadPlannedBool(const char* next, char* value)
{
    m_cursor.MoveTo(next);
    bool truth = false;
    m_code = ReadTruth(truth);
    if (m_code != 0) return nullptr;
    *value = truth ? 1 : 0;
    return m_cursor.Next();
}

const char* CJsonReader::ReadPlainly(const char* next, const CRefrence& target, int (CJsonReader::*read)(CRefrence&))
{
    m_cursor.MoveTo(next);
    CRefrence value = target;
    m_code = (this->*read)(value);
    return m_code == 0 ? m_cursor.Next() : nullptr;
}

} // namespace vexa::text
