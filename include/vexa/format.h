#ifndef VEXA_FORMAT_H
#define VEXA_FORMAT_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/event.h>
#include <vexa/export.h>
#include <vexa/report.h>

/// \file
/// What formats have in common, for whoever writes a further one over the seam of vexa/event.h.

namespace vexa {

/// The arrays, objects and pieces that are open in a text, where the library below tells neither which value is a key
/// nor what ends with its last value.
class CNesting {
public:
    bool IsKeyDue() const { return EndKind() == EventKind::END_OBJECT && !IsValueDue(); }
    bool IsValueDue() const { return m_levels.back().IsValueDue; } ///< behind a key
    /// Whether the innermost has as many values as the event that began it has told; outside of all, the one value.
    bool IsFull() const { return m_levels.back().Left == 0; }
    /// Whether the innermost may end before it is full: it has told no size, and neither a key nor a tag is the last.
    bool MayEnd() const { return m_levels.size() > 1 && !m_levels.back().IsSized && !IsValueDue() && !m_isTagged; }
    /// What ends the innermost: END outside of all.
    EventKind EndKind() const { return m_levels.back().End; }
    /// Takes note of an event that is handed over.
    VEXA_API void Add(const CEvent& event);

private:
    struct CLevel {
        EventKind End = EventKind::END;
        bool IsSized = true;
        std::size_t Left = 1;
        bool IsValueDue = false;
    };
    std::vector<CLevel> m_levels{1};
    bool m_isTagged = false;
};

/// The sizes of the arrays and objects that are open, for a sink of a format that has them in front.
class CSizes {
public:
    struct CLevel {
        std::size_t Begin = 0; ///< where its head belongs, in place of the byte that stands there
        std::size_t Items = 0; ///< values, and of an object keys
    };

    void AddItem() { ++m_levels.back().Items; } ///< a value that is neither array nor object, or a key; not a tag
    /// An array or object, which is an item itself: a byte in \p out keeps the place of its head.
    VEXA_API void Begin(std::string& out);
    /// Of the innermost one, which there must be.
    VEXA_API CLevel End();

private:
    std::vector<CLevel> m_levels{1};
};

/// Places in a text whose library counts characters. The text must stay.
class CTextPlaces {
public:
    explicit CTextPlaces(std::string_view text) : m_text(text) {}
    /// The bytes from one character to another, which are fast to find if they come in order, or nearly so.
    VEXA_API CTextPlace OfCharacters(std::size_t first, std::size_t end);
    /// Fills offset and length of an event.
    VEXA_API void SetPlace(CEvent& event, std::size_t first, std::size_t end);
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
VEXA_API std::string PlainNumber(long double value);
/// The fewest bytes that a value can have by IEEE 754, the highest first: 2, 4 or 8. Every NaN has the same.
VEXA_API std::string FloatingBytes(double value);

} // namespace vexa

#endif
