#ifndef VEXA_INTERCHANGE_H
#define VEXA_INTERCHANGE_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include <vexa/describe.h>
#include <vexa/event.h>
#include <vexa/report.h>

/// \file
/// Described objects in and out of standard formats without loss: JSON (RFC 8259) and, through vexa/event.h, others.
/// Where a peer of this library is at the other end, ToJson and FromJson of vexa/json.h speak its own dialect.

namespace vexa {

/// What becomes of a key that the class does not have.
enum class UnknownKeys : unsigned char {
    BY_CLASS, ///< as the class's description says; a problem where it says nothing
    PROBLEM,
    SKIP
};

/// What becomes of bytes that are no UTF-8, in a string that is read or written.
enum class BadText : unsigned char {
    PROBLEM,
    REPLACE, ///< U+FFFD for each byte that is part of no character
    LATIN_1  ///< each such byte is the character of its number
};

/// How a text is read.
struct CReadPolicy {
    static constexpr std::size_t NO_LIMIT = static_cast<std::size_t>(-1);

    UnknownKeys Unknown = UnknownKeys::BY_CLASS;
    BadText Text = BadText::PROBLEM;
    bool Transactional = false;     ///< after a problem the object is as it was before
    bool LastDuplicateWins = false; ///< a key given again is no problem
    bool AllowComments = false;     ///< JSON: `//` to the end of the line and `/* */`
    bool AllowTrailingCommas = false;
    bool AllowNan = false;           ///< JSON: `NaN`, `Infinity`, `-Infinity`
    bool IgnoreRequired = false;     ///< a missing attribute is no problem, for texts that change some attributes only
    std::size_t MaxDepth = 1000;     ///< of nesting
    std::size_t MaxBytes = NO_LIMIT; ///< of the text; of what YAML's aliases expand to
    std::size_t MaxElements = NO_LIMIT;   ///< of one container
    std::size_t MaxTextLength = NO_LIMIT; ///< bytes of one string
};

/// What becomes of confidential attributes when they are written.
enum class MaskedValues : unsigned char {
    WRITE,
    MASK, ///< `"***"`
    LEAVE_OUT
};

/// How an object is written.
struct CWritePolicy {
    unsigned int Indentation = 0;  ///< blanks a level; 0 for one line without blanks
    bool SortKeys = false;         ///< the keys of objects in the order of their bytes
    bool LeaveOutNulls = false;    ///< attributes that are null
    bool LeaveOutDefaults = false; ///< attributes as a new object has them
    bool AllowNan = false;         ///< JSON: `NaN`, `Infinity`, `-Infinity`, otherwise a problem and `null`
    bool AsciiOnly = false;        ///< JSON: every other character as \u escapes
    BadText Text = BadText::PROBLEM;
    MaskedValues Masked = MaskedValues::WRITE;
    std::size_t MaxDepth = 1000;
};

/// Where text comes from in pieces: gives the next one, which must stay until it is asked again, and an empty one at
/// the end.
using InputFunction = std::function<std::string_view()>;
/// Where text goes in pieces. \return false to stop.
using OutputFunction = std::function<bool(std::string_view)>;

// Of any described object by reference.

/// Reads one JSON value into an object that exists: what the text does not name stays as it is, what it names is
/// replaced whole. Problems of meaning do not end the reading. After a problem the object is valid and holds what could
/// be read, or with CReadPolicy::Transactional what it held before. \p text must not be part of the object.
/// \return whether there was no problem. Throws std::bad_alloc, and what the application's converters throw at
/// allocation; the object is then valid.
VEXA_API bool ReadJson(const CRefrence& target, std::string_view text, CReport& report, const CReadPolicy& policy = {});
VEXA_API bool ReadJson(const CRefrence& target, const InputFunction& input, CReport& report,
                       const CReadPolicy& policy = {});
/// The same from any format.
VEXA_API bool ReadEvents(const CRefrence& target, CEventSource& source, CReport& report,
                         const CReadPolicy& policy = {});

/// Writes an object as one JSON value. What has no form is `null` and a problem. \return whether there was none.
VEXA_API bool WriteJson(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy = {},
                        CReport* report = nullptr);
VEXA_API bool WriteJson(const OutputFunction& out, const CConstRefrence& ref, const CWritePolicy& policy = {},
                        CReport* report = nullptr);
VEXA_API bool WriteEvents(CEventSink& sink, const CConstRefrence& ref, const CWritePolicy& policy = {},
                          CReport* report = nullptr);

/// The problems as a JSON array of objects, for programs.
VEXA_API std::string WriteJson(const CReport& report, const CWritePolicy& policy = {});

// Of objects themselves.

template<class T, class = detail::IfObject<T>>
bool ReadJson(T& object, std::string_view text, CReport& report, const CReadPolicy& policy = {})
{
    return ReadJson(RefOf(object), text, report, policy);
}
template<class T, class = detail::IfObject<T>>
bool ReadJson(T& object, const InputFunction& input, CReport& report, const CReadPolicy& policy = {})
{
    return ReadJson(RefOf(object), input, report, policy);
}
template<class T, class = detail::IfObject<T>>
bool ReadEvents(T& object, CEventSource& source, CReport& report, const CReadPolicy& policy = {})
{
    return ReadEvents(RefOf(object), source, report, policy);
}
template<class T, class = detail::IfObject<T>>
bool WriteJson(std::string& out, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteJson(out, RefOf(object), policy, report);
}
template<class T, class = detail::IfObject<T>>
bool WriteJson(const OutputFunction& out, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteJson(out, RefOf(object), policy, report);
}
template<class T, class = detail::IfObject<T>>
std::string WriteJson(const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    std::string out;
    WriteJson(out, RefOf(object), policy, report);
    return out;
}
template<class T, class = detail::IfObject<T>>
bool WriteEvents(CEventSink& sink, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteEvents(sink, RefOf(object), policy, report);
}

/// Reads texts of one JSON value a line (empty lines are passed over): each is read into \p object, which is emptied to
/// a default one before by \p reset, and handed to \p take, which ends the reading with false. Problems have the lines
/// of the whole text; a line with a problem of grammar is passed over, one with any problem is not handed over.
VEXA_API bool ReadJsonLines(const CRefrence& object, const InputFunction& input, const std::function<void()>& reset,
                            const std::function<bool()>& take, CReport& report, const CReadPolicy& policy = {});
template<class T>
bool ReadJsonLines(const InputFunction& input, const std::function<bool(T&)>& take, CReport& report,
                   const CReadPolicy& policy = {})
{
    T object{};
    return ReadJsonLines(
        RefOf(object), input, [&object] { object = T{}; }, [&] { return take(object); }, report, policy);
}

} // namespace vexa

#endif
