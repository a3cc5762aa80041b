#ifndef VEXA_INTERCHANGE_PLACE_H
#define VEXA_INTERCHANGE_PLACE_H

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/report.h>

namespace vexa::interchange {

/// Tells line and column of bytes of a whole text, in any order. What it has counted once it does not count again, so
/// that many problems cost about one pass. Lines end at each newline.
class CLineFinder {
public:
    /// \p text must stay.
    explicit CLineFinder(std::string_view text) noexcept : m_text(text) {}

    /// Fills line and column from the offset; does nothing for no place. What lies behind the text is at its end.
    void Fill(CTextPlace& place)
    {
        if (place.Offset == CTextPlace::NOWHERE) return;
        const std::size_t offset = std::min(place.Offset, m_text.size());
        while (m_blocks.size() <= offset / BLOCK)
            m_blocks.push_back(m_blocks.empty() ? CBlock{} : AtBlock(m_blocks.size() * BLOCK));
        const CBlock found = Count(m_blocks[offset / BLOCK], offset / BLOCK * BLOCK, offset);
        place.Line = found.Line;
        place.Column = offset - found.LineStart + 1;
    }

private:
    static constexpr std::size_t BLOCK = 4096;

    /// Of the first byte of a block.
    struct CBlock {
        std::size_t Line = 1;
        std::size_t LineStart = 0;
    };

    CBlock AtBlock(std::size_t end) const { return Count(m_blocks.back(), end - BLOCK, end); }
    CBlock Count(CBlock block, std::size_t from, std::size_t to) const
    {
        while (from < to) {
            const void* const newline = std::memchr(m_text.data() + from, '\n', to - from);
            if (newline == nullptr) break;
            from = static_cast<std::size_t>(static_cast<const char*>(newline) - m_text.data()) + 1;
            ++block.Line;
            block.LineStart = from;
        }
        return block;
    }

    std::string_view m_text;
    std::vector<CBlock> m_blocks;
};

/// The value of CProblem::Excerpt for a place in a whole text, or in the part of it that starts at byte \p start: at
/// most EXCERPT_BYTES of the place's line around it, what is no text as escapes. As \p form allows, only the token, or
/// nothing.
inline constexpr std::size_t EXCERPT_BYTES = 60;
std::string ExcerptOf(std::string_view text, const CTextPlace& place, ExcerptForm form = ExcerptForm::LINE,
                      std::size_t start = 0);

} // namespace vexa::interchange

#endif
