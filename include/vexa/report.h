#ifndef VEXA_REPORT_H
#define VEXA_REPORT_H

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/export.h>

/// \file
/// What went wrong while a text was read or written, problem by problem: for people, and for programs.

namespace vexa {

/// What kind of problem it is. The numbers are stable: a new problem gets a new one.
enum class ProblemCode : unsigned short {
    NONE = 0,

    // Of grammar: they end the reading.
    SYNTAX = 1,            ///< something else stands where `Expected` should
    UNEXPECTED_END = 2,    ///< the text ends inside a value
    TEXT_AFTER_VALUE = 3,  ///< more follows the value
    BAD_NUMBER = 4,        ///< not a number of the format's grammar
    BAD_ESCAPE = 5,        ///< not an escape of the format's grammar
    LONE_SURROGATE = 6,    ///< half of a pair of `\u` escapes
    CONTROL_CHARACTER = 7, ///< a raw control character in a string
    BAD_UTF8 = 8,          ///< bytes that are no UTF-8
    TOO_DEEP = 9,          ///< nested deeper than the policy allows
    TOO_LONG = 10,         ///< more bytes, elements or text than the policy allows
    INPUT_FAILED = 11,     ///< the callback for more input, or the library below, has failed

    // Of meaning: the reading goes on behind the value.
    WRONG_KIND = 20,        ///< a value of another kind than the target takes
    OUT_OF_RANGE = 21,      ///< a number that the target's type cannot hold
    NOT_AN_INTEGER = 22,    ///< a number with a fraction where an integer is wanted
    BAD_TEXT = 23,          ///< a text that is not of the form that the target takes (date, base64, bits, ...)
    UNKNOWN_KEY = 24,       ///< the class has no such attribute
    DUPLICATE_KEY = 25,     ///< the attribute has been given before; `Second` is where
    MISSING_KEY = 26,       ///< a required attribute is not given; `Second` is the object's brace
    UNKNOWN_NAME = 27,      ///< no enumerator of that name
    BELOW_RANGE = 28,       ///< below the range that the attribute allows
    ABOVE_RANGE = 29,       ///< above it
    TOO_SHORT = 30,         ///< fewer characters or elements than the attribute allows
    TOO_MANY = 31,          ///< more of them
    NULL_NOT_ALLOWED = 32,  ///< null where the target cannot be null
    READ_ONLY = 33,         ///< the target is const, or its attribute only written
    CANNOT_BE_MADE = 34,    ///< there is no way to make a value of the type, or to put it there
    INACTIVE_MEMBER = 35,   ///< the union member is not the active one
    UNKNOWN_TAG = 36,       ///< no class, or no alternative, has this tag
    MISSING_TAG = 37,       ///< the object does not say what it is
    NO_ALTERNATIVE = 38,    ///< the value fits no alternative of the variant
    MANY_ALTERNATIVES = 39, ///< it fits several
    CHECK_FAILED = 40,      ///< the class's own check says so; `Found` is what it says
    TOO_MANY_ELEMENTS = 41, ///< more elements than a fixed array has places
    TOO_FEW_ELEMENTS = 42,  ///< fewer than it has
    CANNOT_BE_WRITTEN = 43, ///< a value that the format has no form for
    CONVERTER_FAILED = 44,  ///< an application's converter has thrown; `Found` is what it says

    // Of paths and values in memory (vexa/access.h).
    BAD_PATH = 45,          ///< not a path by its grammar; `Path` is what is one
    NULL_ON_THE_WAY = 46,   ///< a value that the path leads through is null
    NO_ELEMENT = 47,        ///< the index is beyond the end
    NO_ENTRY = 48,          ///< a map, group, table or tree has no such key, name or column
    NO_ADDRESS = 49,        ///< there is such a value, but it has no address of its own: a bit
    MANY_VALUES = 50,       ///< the path leads to many values where one is wanted
    CANNOT_BE_CHANGED = 51, ///< the value is const or a key, lies behind a pointer to const, or is never read
    CANNOT_BE_REMOVED = 52, ///< the container's elements stay as many as they are

    MORE_PROBLEMS = 99 ///< the last one of a full report: there were more
};

/// A place in a text.
struct CTextPlace {
    static constexpr std::size_t NOWHERE = static_cast<std::size_t>(-1);

    std::size_t Offset = NOWHERE; ///< bytes from the start of the text
    std::size_t Length = 0;       ///< bytes of what is meant
    std::size_t Line = 0;         ///< from 1; 0 in a format without lines
    std::size_t Column = 0;       ///< from 1, in bytes of the line
};

/// How much of the text around a place may be shown to people. Where confidential attributes may be near, less is.
enum class ExcerptForm : unsigned char {
    LINE,  ///< the whole line
    TOKEN, ///< only what is meant
    NOTHING
};

/// One problem.
struct CProblem {
    ProblemCode Code = ProblemCode::NONE;
    CTextPlace Place;
    CTextPlace Second;   ///< where it helps: see the codes
    std::string Path;    ///< of C++: `orders[2].address.zip`; empty at the top
    std::string Pointer; ///< the same as a JSON Pointer (RFC 6901): `/orders/2/address/zip`
    std::string Class;   ///< the class concerned, by its qualified name; may be empty
    std::string Attrib;  ///< the attribute or key concerned; may be empty
    /// What would have been right, as a phrase that goes on from "expected": `a string`, `-128 to 127`,
    /// `at most 1000 levels`, `one of "circle", "square"`; may be empty.
    std::string Expected;
    /// What is there, as a phrase that goes on from "found": `an object`, `300`, `"blu"`. Of INPUT_FAILED, CHECK_FAILED
    /// and CONVERTER_FAILED what was said, of MORE_PROBLEMS their number. Never a confidential value; may be empty.
    std::string Found;
    std::string Nearest; ///< the known name most like it; may be empty
    std::string Excerpt; ///< a short piece of the line around the place; never a confidential value
    ExcerptForm Shown = ExcerptForm::LINE;

    /// One sentence, without the place and the path.
    VEXA_API std::string Sentence() const;
};

/// The problems of one reading or writing. Belongs to one thread at a time. Nothing is allocated before there is one.
class VEXA_API CReport {
public:
    static constexpr std::size_t DEFAULT_LIMIT = 100;

    /// \p limit is the number of problems that are kept; where there are more, a last one says so.
    explicit CReport(std::size_t limit = DEFAULT_LIMIT) noexcept : m_limit(limit) {}

    /// The name of the text in AsString, for example of its file; empty by default.
    void SetName(std::string_view name) { m_name = name; }
    const std::string& Name() const noexcept { return m_name; }

    bool IsEmpty() const noexcept { return m_problems.empty(); }
    const std::vector<CProblem>& Problems() const noexcept { return m_problems; }
    /// Forgets the problems; the name and the limit stay.
    void Clear() noexcept;
    /// Takes a problem in. What is beyond the limit is only counted. Throws std::bad_alloc; the report is then as
    /// before.
    void Add(CProblem problem);

    /// Every problem on a line: the name, line and column, the path and the sentence. What is confidential is never
    /// shown, but for what a check or a converter of the application says of an attribute that is not.
    std::string AsString() const;
    /// The same, each followed by the line of the text and a mark under what is meant. \p text must be the text that
    /// was read, whole and unchanged: what may be shown of it is known by its places, so that of another text anything,
    /// confidential values too, would be.
    std::string AsString(std::string_view text) const;

private:
    std::size_t m_limit;
    std::string m_name;
    std::vector<CProblem> m_problems;
};

VEXA_API std::ostream& operator<<(std::ostream& stream, const CReport& report);

} // namespace vexa

#endif
