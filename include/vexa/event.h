#ifndef VEXA_EVENT_H
#define VEXA_EVENT_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/date_time.h>
#include <vexa/export.h>
#include <vexa/policy.h>
#include <vexa/report.h>

/// \file
/// The seam between described objects and the formats that they are written in: a format hands over a text as a row of
/// events (CEventSource) and takes an object as one (CEventSink). JSON is built in; a further format is these two
/// classes over a library that knows its grammar. See vexa/interchange.h for what reads and writes through them.

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
    KEY, ///< before each value of an object
    END_OBJECT,
    BEGIN_ARRAY,
    END_ARRAY,
    ALIAS ///< the value that has had the Anchor, once more; also where a key is due, if that is a text or number
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
    /// Line and column of a byte, for a place that an event of this source has told. Does nothing in a format without
    /// lines.
    virtual void Locate(CTextPlace& place);
};

/// Takes an object as events, in order. A size that is UNKNOWN_SIZE is not known beforehand; a sink whose format needs
/// it keeps what comes until the end.
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
    /// A number by its digits, in JSON's grammar: what no other event holds without loss (CNumeric, long double). Only
    /// with the ability; by default a String.
    virtual void Number(std::string_view digits);
    virtual void String(std::string_view text) = 0;
    virtual void Bytes(std::string_view bytes);      ///< only with the ability; by default a String of base64
    virtual void DateTime(const CDateTime& time);    ///< only with the ability; by default a TimeText
    virtual void TimeText(std::string_view rfc3339); ///< an instant without the ability; by default a String
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

// What formats have in common, for whoever writes a further one.

/// The arrays and objects that are open in a text, where the library below tells neither which value is a key nor what
/// ends with its last value.
class CNesting {
public:
    bool IsKeyDue() const { return m_levels.back().IsObject && !m_levels.back().IsValueDue; }
    bool IsValueDue() const { return m_levels.back().IsValueDue; } ///< behind a key
    /// Whether the innermost has as many values as the event that began it has told; outside of all, the one value.
    bool IsFull() const { return m_levels.back().Left == 0; }
    /// What ends the innermost: END outside of all.
    EventKind EndKind() const
    {
        if (m_levels.size() == 1) return EventKind::END;
        return m_levels.back().IsObject ? EventKind::END_OBJECT : EventKind::END_ARRAY;
    }
    /// Takes note of an event that is handed over.
    VEXA_API void Add(const CEvent& event);

private:
    struct CLevel {
        bool IsObject = false;
        bool IsValueDue = false;
        std::size_t Left = 1;
    };
    std::vector<CLevel> m_levels{1};
};

/// Places in a text whose library counts characters. The text must stay.
class CTextPlaces {
public:
    explicit CTextPlaces(std::string_view text) : m_text(text) {}
    /// The bytes from one character to another, which are fast to find if they come in order, or nearly so.
    VEXA_API CTextPlace OfCharacters(std::size_t first, std::size_t end);
    /// Fills line and column from the offset.
    VEXA_API void Locate(CTextPlace& place) const;

private:
    std::size_t ByteOf(std::size_t character);

    std::string_view m_text;
    std::size_t m_character = 0; ///< where the last place has ended, and its byte
    std::size_t m_byte = 0;
};

/// Makes the event what a word without quotation marks means: null (nothing, `~`, `null`), a bool, a number (also with
/// a plus sign, zeros in front, no digits on one side of the point, `0x1F`, `0o17`, `.inf`, `.nan`; of an infinity or
/// NaN without text), otherwise a STRING. It is the core schema of YAML 1.2. \p memory holds digits that JSON writes
/// otherwise, and must stay as long as the event.
VEXA_API void SetPlain(CEvent& event, std::string_view text, std::string& memory);
/// Whether a text may stand without quotation marks: letters, digits and ` ./-_` that mean nothing else to SetPlain,
/// nor to readers for which `yes`, `no`, `on`, `off`, `y` and `n` are bools.
VEXA_API bool IsPlainText(std::string_view text) noexcept;
/// The shortest digits that read back equal, `.inf`, `-.inf` or `.nan`; never those of an integer.
VEXA_API std::string PlainNumber(float value);
VEXA_API std::string PlainNumber(double value);
/// Seconds since 1970 in UTC as RFC 3339 has them, to the microsecond. Empty outside of the years 0 to 9999.
VEXA_API std::string TimeText(double seconds);

} // namespace vexa

#endif
