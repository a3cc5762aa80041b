#ifndef VEXA_INTERCHANGE_RAW_JSON_H
#define VEXA_INTERCHANGE_RAW_JSON_H

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <vexa/event.h>
#include <vexa/json_tree.h>
#include <vexa/policy.h>

#include "interchange/event_reader.h"
#include "interchange/json_tree_io.h"
#include "interchange/source.h"
#include "interchange/tree_access.h"

/// \file
/// Values handed from a source to a sink as they come, and raw JSON from any source.

namespace vexa::interchange {

/// What a number's digits are in a format of its own numbers: an integer of 64 bits, a double that is written with the
/// same value, or else, as for a larger integer, the digits.
struct CNumberChoice {
    enum class Form : unsigned char { SIGNED, UNSIGNED, FLOATING, DIGITS };

    Form Kind = Form::DIGITS;
    long long Signed = 0;
    unsigned long long Unsigned = 0;
    double Floating = 0;
};
CNumberChoice ChoiceOf(std::string_view digits);

/// Hands a number to a CEventSink.
inline void PutNumber(CEventSink& sink, std::string_view digits)
{
    const CNumberChoice choice = ChoiceOf(digits);
    switch (choice.Kind) {
    case CNumberChoice::Form::SIGNED: return sink.Signed(choice.Signed);
    case CNumberChoice::Form::UNSIGNED: return sink.Unsigned(choice.Unsigned);
    case CNumberChoice::Form::FLOATING: return sink.Floating(choice.Floating);
    case CNumberChoice::Form::DIGITS: return sink.Number(digits);
    }
}

/// Hands the next value to a sink, if it is no array or object; else enters it and begins it there.
template<class Source>
bool CopyOne(Source& source, CEventSink& sink, EventKind kind)
{
    CText text;
    switch (kind) {
    case EventKind::NULL_VALUE:
        if (!source.Null()) return false;
        sink.Null();
        return true;
    case EventKind::BOOL: {
        bool value = false;
        if (!source.Bool(value)) return false;
        sink.Bool(value);
        return true;
    }
    case EventKind::SIGNED:
    case EventKind::UNSIGNED:
    case EventKind::FLOATING: {
        CNumber number;
        std::string memory;
        if (!source.Number(number)) return false;
        PutNumber(sink, DigitsOf(number, memory));
        return true;
    }
    case EventKind::STRING:
        if (!source.String(text)) return false;
        sink.String(text.Text);
        return true;
    case EventKind::BYTES:
        if (!source.Bytes(text)) return false;
        sink.String(BytesAsText(text.Text));
        return true;
    case EventKind::DATE_TIME: {
        CDateTime time;
        if (!source.DateTime(time)) return false;
        sink.String(DateTimeAsText(time));
        return true;
    }
    case EventKind::BEGIN_ARRAY:
        if (!source.EnterArray()) return false;
        sink.BeginArray(CEvent::UNKNOWN_SIZE);
        return true;
    case EventKind::BEGIN_OBJECT:
        if (!source.EnterObject()) return false;
        sink.BeginObject(CEvent::UNKNOWN_SIZE);
        return true;
    default: return source.Skip() && false; // which tells the problem
    }
}

/// Goes on to the next value, ending what ends before it. \return false behind the last one and where the source has
/// failed.
template<class Source>
bool CopyToNext(Source& source, CEventSink& sink, std::vector<bool>& isObject)
{
    while (!isObject.empty()) {
        CText key;
        if (isObject.back() ? source.NextKey(key) : source.NextElement()) {
            if (isObject.back()) sink.Key(key.Text);
            return true;
        }
        if (source.HasFailed()) return false;
        isObject.back() ? sink.EndObject() : sink.EndArray();
        isObject.pop_back();
    }
    return false;
}

/// Hands the next value of a source to a sink, with keys that are given twice. \return false where the source has
/// failed, in the middle of the value.
template<class Source>
bool CopyValue(Source& source, CEventSink& sink)
{
    std::vector<bool> isObject; // of the arrays and objects that are open
    do {
        const EventKind kind = source.Peek();
        if (!CopyOne(source, sink, kind)) return false;
        if (kind == EventKind::BEGIN_ARRAY || kind == EventKind::BEGIN_OBJECT)
            isObject.push_back(kind == EventKind::BEGIN_OBJECT);
    } while (CopyToNext(source, sink, isObject));
    return !source.HasFailed();
}

/// Writes events as JSON without blanks. NaN and the infinities, which JSON has not, are null.
class CCompactJson : public CEventSink {
public:
    explicit CCompactJson(std::string& out) noexcept : m_out(out) {}

    CFormatAbilities Abilities() const override { return {}; }
    void Null() override { Put("null"); }
    void Bool(bool value) override { Put(value ? "true" : "false"); }
    void Signed(long long value) override;
    void Unsigned(unsigned long long value) override;
    void Floating(double value) override;
    void Number(std::string_view digits) override { Put(digits); }
    void String(std::string_view text) override;
    void Bytes(std::string_view bytes) override { String(BytesAsText(bytes)); }
    void DateTime(const CDateTime& time) override { String(DateTimeAsText(time)); }
    void BeginObject(std::size_t) override { Open('{'); }
    void Key(std::string_view name) override;
    void IntegerKey(long long key) override;
    void EndObject() override { Close('}'); }
    void BeginArray(std::size_t) override { Open('['); }
    void EndArray() override { Close(']'); }
    void RawJson(std::string_view json) override { Put(json); }
    /// Whether something was null that is none.
    bool HasLost() const noexcept { return m_hasLost; }

private:
    void Put(std::string_view text);
    void Open(char bracket);
    void Close(char bracket);

    std::string& m_out;
    bool m_isFirst = true; ///< nothing stands before what comes in its array or object
    bool m_hasLost = false;
};

inline constexpr const char* LINE_BREAKS = "\r\n";
/// A JSON text without its line breaks and the blanks behind them.
std::string JoinedLines(std::string_view json);
/// Whether arrays and objects are nested in each other to more levels than that.
bool IsDeeperThan(std::string_view json, std::size_t levels) noexcept;

/// Reads the next value of the source, whatever it is, in place of what \p raw holds. \p text is the whole text that a
/// JSON source reads, of which the bytes are taken as they stand. So are those of JSON that comes in pieces; where the
/// source is no JSON or is read again, or the policy lets more in than JSON, the value is written anew, without blanks.
/// \return false where the source has failed; the value is then as before. \p hasLost tells that it holds null for NaN
/// or an infinity.
template<class Source>
bool ReadRaw(Source& source, CRawJson& raw, std::string_view text, const CReadPolicy& policy, bool& hasLost)
{
    const bool isStrict = !policy.AllowComments && !policy.AllowTrailingCommas && !policy.AllowNan;
    const bool isKept = isStrict && policy.Text == BadText::PROBLEM;
    std::string value;
    bool isTaken = false;
    hasLost = false;
    if (isKept && !text.empty()) {
        source.Peek();
        const std::size_t offset = source.Offset();
        if (!source.Skip()) return false;
        value = text.substr(offset, source.EndOffset() - offset);
        isTaken = true;
    } else if constexpr (std::is_same_v<Source, CEventReader>) {
        if (isKept && !source.Raw(value, isTaken)) return false;
    }
    if (!isTaken) {
        CCompactJson sink(value);
        if (!CopyValue(source, sink)) return false;
        hasLost = sink.HasLost();
    }
    detail::CRawJsonAccess::TextOf(raw).swap(value);
    return true;
}

} // namespace vexa::interchange

#endif
