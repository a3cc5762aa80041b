// Reading JSON text into any value: the value's description and the text are walked together.

#include "text/json_reader.h"

#include <cstring>

#include <vexa/group.h>
#include <vexa/json.h>

#include "reference/custom_value.h"
#include "reference/emptying.h"
#include "text/digits.h"
#include "text/json_code.h"
#include "text/json_keys.h"
#include "text/json_plan.h"

namespace vexa {
namespace text {

using namespace Enum;

namespace {

bool IsReadableBasic(unsigned char code) { return code == DT_STD_STRING || code <= DT_UNSIGNED_LONG_LONG; }

/// Why a value cannot be read, whatever the text holds: 0 or a code. Its kind is looked at before the right to change
/// it, so that a text pointer, which is never read, is told by its kind wherever it stands.
int RefusalOf(const CGnlTypeInfor& type)
{
    if (type.IsBasicType()) {
        if (!IsReadableBasic(type.DataType)) return BASIC_UNREADABLE;
    } else if (type.DataType == DT_CUSTOM_BASIC) {
        if (reference::CustomInfor(type).Underlying.DataType != DT_STD_STRING) return BASIC_UNREADABLE;
    } else if (type.DataType != DT_CLASS && type.DataType != DT_GNL_CLASS && !type.IsContainer()) {
        return KIND_UNREADABLE;
    }
    return type.Has(HF_CONST) ? TARGET_READ_ONLY : 0;
}

} // namespace

int CJsonReader::ReadValue(CRefrence& target)
{
    if (target.Address == nullptr) return 0;
    if (const int refusal = RefusalOf(target.TypeInfor)) return refusal;
    const unsigned char code = target.TypeInfor.DataType;
    if (code == DT_STD_STRING) return ReadString(target);
    if (code == DT_BOOL) return ReadBool(target);
    if (target.TypeInfor.IsBasicType()) return ReadNumber(target);
    return code == DT_CUSTOM_BASIC ? ReadCustom(target) : ReadNesting(target);
}

int CJsonReader::ReadNesting(CRefrence& target)
{
    if (m_depth == MAX_NESTING_DEPTH) return NESTED_TOO_DEEP;
    ++m_depth;
    int code = 0;
    if (target.TypeInfor.DataType == DT_CLASS)
        code = ReadClass(target);
    else if (target.TypeInfor.DataType == DT_GNL_CLASS)
        code = ReadGeneric(target);
    else
        code = ReadArray(target);
    --m_depth;
    return code;
}

int CJsonReader::ReadString(CRefrence& target)
{
    if (!reference::SetNotNullAndEmpty(target)) return VALUE_MISSING;
    auto* const string = static_cast<std::string*>(target.ValueAddress());
    return string != nullptr ? ReadJsonString(*string, m_cursor) : static_cast<int>(VALUE_MISSING);
}

int CJsonReader::ReadCustom(CRefrence& target)
{
    reference::SetNotNullAndEmpty(target);
    CRefrence standard = reference::StandardValueInPlace(target);
    auto* const string =
        standard.TypeInfor.Has(HF_CONST) ? nullptr : static_cast<std::string*>(standard.ValueAddress());
    const bool isRead = string != nullptr && ReadJsonString(*string, m_cursor) == 0;
    return isRead ? 0 : CUSTOM_STRING_UNREADABLE;
}

int CJsonReader::ReadNumber(CRefrence& target)
{
    target.AsStdBasicType().ReadFrom(ReadInteger());
    return 0;
}

int CJsonReader::ReadBool(CRefrence& target)
{
    bool truth = false;
    const int code = ReadTruth(truth);
    if (code == 0) target.AsStdBasicType().ReadFrom(truth);
    return code;
}

int CJsonReader::ReadTruth(bool& truth)
{
    const auto isNext = [this](const char* word, std::size_t length) {
        return m_cursor.Left() >= length && std::memcmp(m_cursor.Next(), word, length) == 0;
    };
    if (m_cursor.Left() < 4) return BOOL_TOO_SHORT;
    truth = isNext("true", 4);
    if (!truth && !isNext("false", 5)) return BOOL_UNKNOWN;
    m_cursor.MoveTo(m_cursor.Next() + (truth ? 4 : 5));
    return 0;
}

/// An optional minus and digits; more digits than fit wrap around.
long long CJsonReader::ReadInteger()
{
    const bool isNegative = m_cursor.Take('-');
    unsigned long long value = 0;
    m_cursor.MoveTo(ReadDigits(m_cursor.Next(), m_cursor.End(), value));
    return static_cast<long long>(isNegative ? 0 - value : value);
}

int CJsonReader::ReadClass(CRefrence& target)
{
    if (!m_cursor.IsAt('{')) return CLASS_CODES.NoBrace;
    if (!reference::SetNotNullAndEmpty(target) || target.ValueAddress() == nullptr) return VALUE_MISSING;
    const CClassConstRefrence& object = target.AsClass();
    if (const typeinfo::CPlan* const plan = ReadablePlanOf(object.ClassInfor()))
        return ReadAlongPlan(*plan, static_cast<char*>(object.ValueAddress()));
    return ReadMembers(CClassKeys(object), CLASS_CODES);
}

/// One that is null has no entries, and is no error until it is asked for one.
int CJsonReader::ReadGeneric(const CRefrence& target)
{
    if (!m_cursor.IsAt('{')) return GENERIC_CODES.NoBrace;
    return ReadMembers(CGenericKeys(static_cast<const CGnlClass*>(target.ValueAddress())), GENERIC_CODES);
}

/// Stands before the brace.
template<class Keys>
int CJsonReader::ReadMembers(Keys keys, const CObjectCodes& codes)
{
    m_cursor.Take('{');
    do {
        if (m_cursor.AtEnd()) return codes.EndsBeforeKey;
        CRefrence member;
        int code = ReadKey(member, keys, codes);
        if (code == 0) code = ReadMember(member, keys);
        if (code != 0) return code;
        if (!m_cursor.SkipBlanks()) return codes.EndsAfterValue;
        if (m_cursor.Take('}')) return 0;
    } while (m_cursor.Take(','));
    return codes.NoSeparator;
}

/// Unions with a member that must not be mistaken for another change hands where the selector does.
template<class Keys>
int CJsonReader::ReadMember(CRefrence& member, const Keys& keys)
{
    if constexpr (Keys::IS_CLASS) {
        if (keys.IsGuarded() && member.Address != nullptr) {
            if (const int refusal = RefusalOf(member.TypeInfor)) return refusal;
            if (!keys.IsFoundOpen()) return UNION_MEMBER_INACTIVE;
            reference::CUnionWatch watch = keys.Watch();
            const int code = ReadValue(member);
            return watch.Settle() || code != 0 ? code : static_cast<int>(VALUE_MISSING);
        }
    }
    return ReadValue(member);
}

template<class Keys>
int CJsonReader::ReadKey(CRefrence& member, Keys& keys, const CObjectCodes& codes)
{
    if (!m_cursor.SkipBlanks() || !m_cursor.Take('"')) return codes.NoKey;
    const char* const key = m_cursor.Next();
    const auto* const quote = static_cast<const char*>(std::memchr(key, '"', m_cursor.Left()));
    if (quote == nullptr) return codes.KeyNotClosed;
    member = keys.Find(key, static_cast<std::size_t>(quote - key));
    m_cursor.MoveTo(quote + 1);
    if (!m_cursor.SkipBlanks() || !m_cursor.Take(':')) return codes.NoColon;
    return m_cursor.SkipBlanks() ? 0 : codes.NoValue;
}

} // namespace text

int FromJson(CRefrence& target, const std::string& text)
{
    if (target.TypeInfor.Has(Enum::HF_CONST)) return text::TARGET_READ_ONLY;
    if (!reference::ClearAndSettle(target)) return text::VALUE_MISSING;
    return text::CJsonReader(text).ReadDocument(target);
}

} // namespace vexa
