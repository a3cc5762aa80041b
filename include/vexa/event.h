#ifndef VEXA_EVENT_H
#define VEXA_EVENT_H

#include <cstddef>
#include <memory>
#include <string_view>

#include <vexa/date_time.h>
#include <vexa/export.h>
#include <vexa/policy.h>
#include <vexa/report.h>

/// \file
/// The seam between described objects and the formats that they are written in: a format hands over a text as a row of
/// events (CEventSource) and takes an object as one (CEventSink). JSON is built in; a further format is these two
/// classes over a library that knows its grammar, with vexa/format.h. See vexa/interchange.h for what reads and writes
/// through them.

namespace vexa {

enum class EventKind : unsigned char {
    END, ///< behind the last value
    NULL_VALUE,
    BOOL,
    SIGNED,
    UNSIGNED, ///< only what does not fit a SIGNED need be one
    FLOATING, ///< any other number
    STRING,
    BYTES,
    DATE_TIME,
    BEGIN_OBJECT,
    KEY, ///< before each value of an object; a STRING or an integer does as well
    END_OBJECT,
    BEGIN_ARRAY,
    END_ARRAY,
    ALIAS,    ///< the value that has had the Anchor, once more; also where a key is due, if that is a text or number
    NEGATIVE, ///< the integer -1 - Unsigned
    BEGIN_STRING, ///< STRINGs follow that together are one, up to END_PIECES
    BEGIN_BYTES,  ///< likewise BYTES
    END_PIECES,
    TAG ///< Unsigned is what the value behind it says it is: a ValueTag, any other is passed over
};

/// What a value is that no event of its own can tell, by the numbers of RFC 8949: whoever asks a source, or writes to a
/// sink with the ability, knows them.
enum class ValueTag : unsigned long long {
    TIME_TEXT = 0, ///< a text by RFC 3339
    SECONDS = 1,   ///< a number: seconds since 1970 in UTC, of the years 0 to 9999
    INTEGER = 2,   ///< bytes: an integer, the highest first, of 4,153 bytes at most (10,000 decimal digits)
    NEGATIVE = 3,  ///< bytes: likewise, -1 - that integer
    DECIMAL = 4    ///< an array: an exponent of ten and an integer, which may have a tag
};

/// One event. Only the fields of its kind mean anything.
struct CEvent {
    static constexpr std::size_t UNKNOWN_SIZE = static_cast<std::size_t>(-1);

    EventKind Kind = EventKind::END;
    /// Whether Text stays as it is until the source is gone; otherwise until the next event.
    bool IsTextKept = false;
    bool Bool = false;
    long long Signed = 0;
    unsigned long long Unsigned = 0;
    double Floating = 0;
    /// STRING, KEY: in UTF-8, which whoever asks checks by the policy. BYTES: the bytes. Numbers: as they are written,
    /// in JSON's grammar, for targets that keep every digit; empty where the format has no text for them.
    std::string_view Text;
    CDateTime Time;                  ///< DATE_TIME: in UTC
    std::string_view Anchor;         ///< a name by which the value may come again (ALIAS); until the next event
    std::size_t Size = UNKNOWN_SIZE; ///< BEGIN_OBJECT, BEGIN_ARRAY: number of values, if the format tells
    std::size_t Offset = 0;          ///< where its first byte stands in the text
    std::size_t Length = 0;          ///< bytes that it takes there
};

/// What a format can tell apart. What it cannot is written in the form that JSON has for it.
struct CFormatAbilities {
    bool HasNull = true;
    bool HasBytes = false;                ///< else base64 text
    bool HasDateTime = false;             ///< else RFC 3339 text
    bool HasNan = false;                  ///< NaN and the infinities; else a problem and null, or by policy
    bool TellsIntegersFromFloats = false; ///< else a floating value without fraction may come back as an integer
    bool HasIntegerKeys = false;          ///< else integer keys are text
    bool HasDecimals = true;              ///< numbers of any digits; else what no integer or double holds is text
    bool HasTags = false;                 ///< those of ValueTag; only with HasBytes
    bool HasLines = true;                 ///< a place is told by line and column, else by its byte
};

/// Hands over a text as events. Whoever asks bounds nesting, which the source need not look at unless it recurses, and
/// everything else that CReadPolicy bounds; and tells again what an ALIAS stands for, which counts 8 bytes an event
/// beside its text: with the text it amounts to CReadPolicy::MaxBytes at most, without such a bound to 8 MiB or ten
/// times the text.
class VEXA_API CEventSource {
public:
    CEventSource() = default;
    CEventSource(const CEventSource&) = delete;
    CEventSource& operator=(const CEventSource&) = delete;
    virtual ~CEventSource();
    virtual CFormatAbilities Abilities() const = 0;
    /// The next event. \return false where the grammar is broken: \p problem may then have a code other than
    /// SYNTAX, a place other than the event's, and what was expected and found; nothing more may be asked for.
    virtual bool Next(CEvent& event, CProblem& problem) = 0;
    /// Where the format is JSON: the text, as it stands, of the value whose first event Next() has given last; the
    /// source is behind that value then. \return false where the text is not to be had: the value is still to be asked
    /// for, or, with a code in \p problem, the grammar is broken. By default it is not to be had.
    virtual bool RawJson(std::string& text, CProblem& problem);
    /// Line and column of a byte, for a place that an event of this source has told. Does nothing in a format without
    /// lines.
    virtual void Locate(CTextPlace& place);
};

/// Takes an object as events, in order. A size that is UNKNOWN_SIZE is not known beforehand; a sink whose format has it
/// in front puts it there at the end (see CSizes).
class VEXA_API CEventSink {
public:
    CEventSink() = default;
    CEventSink(const CEventSink&) = delete;
    CEventSink& operator=(const CEventSink&) = delete;
    virtual ~CEventSink();
    virtual CFormatAbilities Abilities() const = 0;
    virtual void Null() = 0;
    virtual void Bool(bool value) = 0;
    virtual void Signed(long long value) = 0;
    virtual void Unsigned(unsigned long long value) = 0;
    virtual void Float(float value); ///< by default Floating
    virtual void Floating(double value) = 0;
    virtual void LongDouble(long double value); ///< by default Floating where that is the same value, else its digits
    virtual void Negative(unsigned long long below); ///< the integer -1 - below; only with tags, by default one
    /// A number by its digits, in JSON's grammar: what no other event holds without loss (CNumeric, long double). Only
    /// with the ability; by default a number with tags where these are an ability and hold it (10,000 digits), else a
    /// String.
    virtual void Number(std::string_view digits);
    virtual void String(std::string_view text) = 0;
    virtual void Bytes(std::string_view bytes);   ///< only with the ability; by default a String of base64
    virtual void DateTime(const CDateTime& time); ///< only with the ability; by default a TimeText
    virtual void TimeText(std::string_view text); ///< an instant by RFC 3339; by default a String, tagged with tags
    virtual void Tag(ValueTag tag);               ///< of the value that comes next; only with the ability
    virtual void BeginObject(std::size_t size) = 0;
    virtual void Key(std::string_view name) = 0;
    virtual void IntegerKey(long long key); ///< only with the ability; by default a Key
    virtual void EndObject() = 0;
    virtual void BeginArray(std::size_t size) = 0;
    virtual void EndArray() = 0;
    /// A JSON value as it stands (CRawJson). By default it is parsed and comes as its events.
    virtual void RawJson(std::string_view json);
};

/// JSON as events: for a sink of another format, or a reader of one's own. A whole text must stay as long as the
/// source; one in pieces takes memory for one of them and one token, and an exception of \p input is a problem, but
/// std::bad_alloc, which goes through. Throws std::bad_alloc.
VEXA_API std::unique_ptr<CEventSource> JsonEvents(std::string_view text, const CReadPolicy& policy = {});
VEXA_API std::unique_ptr<CEventSource> JsonEvents(InputFunction input, const CReadPolicy& policy = {});

} // namespace vexa

#endif
