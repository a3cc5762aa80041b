#ifndef VEXA_POLICY_H
#define VEXA_POLICY_H

#include <cstddef>
#include <functional>
#include <string_view>

#include <vexa/metadata.h>

/// \file
/// How texts of the standard formats are read and written, the same for all formats.

namespace vexa {

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
    /// Of the whole text: elements of arrays, entries of maps and of JSON trees, values in the rows of tables. Not
    /// counted are the keys of described classes, generic objects and groups, raw JSON, and what is passed over.
    std::size_t MaxElements = NO_LIMIT;
    std::size_t MaxTextLength = NO_LIMIT; ///< bytes of one string
};

/// What becomes of confidential attributes when they are written.
enum class MaskedValues : unsigned char {
    WRITE,
    MASK, ///< `"***"`; keys that a confidential attribute keeps (KeepsUnknown) are left out
    LEAVE_OUT
};

/// How an object is written.
struct CWritePolicy {
    unsigned int Indentation = 0;  ///< blanks a level; 0 for one line, without blanks but for those in a CRawJson
    bool SortKeys = false;         ///< the keys of objects in the order of their bytes
    bool LeaveOutNulls = false;    ///< attributes that are null
    bool LeaveOutDefaults = false; ///< attributes as a new object has them
    bool AllowNan = false;         ///< JSON: `NaN`, `Infinity`, `-Infinity`, otherwise a problem and `null`
    bool AsciiOnly = false;        ///< JSON: every other character as `\u` escapes
    BadText Text = BadText::PROBLEM;
    MaskedValues Masked = MaskedValues::WRITE;
    std::size_t MaxDepth = 1000;
};

/// Where text comes from in pieces: gives the next one, which must stay until it is asked again, and an empty one at
/// the end.
using InputFunction = std::function<std::string_view()>;
/// Where text goes in pieces. \return false to stop.
using OutputFunction = std::function<bool(std::string_view)>;

} // namespace vexa

#endif
