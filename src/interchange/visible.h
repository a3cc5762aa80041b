#ifndef VEXA_INTERCHANGE_VISIBLE_H
#define VEXA_INTERCHANGE_VISIBLE_H

#include <cstddef>
#include <string>
#include <string_view>

/// \file
/// Text of unknown origin, made so that a person can read it: it is valid UTF-8, says what it holds, and no terminal
/// takes any of it for a command. Characters that are not seen, or that change the order of others, are written as
/// `<U+202E>`, bytes that are no UTF-8 as `<0xFF>`.

namespace vexa::interchange {

/// What becomes of a tab.
enum class TabForm : unsigned char {
    ESCAPED,
    BLANKS ///< up to the next column that is a multiple of TAB_COLUMNS
};
inline constexpr std::size_t TAB_COLUMNS = 4;

/// Appends \p text, of which the first character stands in \p column (from 0). \return the column behind the last one:
/// a character takes one, two where it is wide, none where it joins the one before it.
std::size_t AppendVisible(std::string& out, std::string_view text, std::size_t column = 0,
                          TabForm tabs = TabForm::ESCAPED);

/// The first place at or after \p at that splits no character, if one is near: otherwise the text is no UTF-8, and
/// \p at does as well.
std::size_t CharacterFrom(std::string_view text, std::size_t at) noexcept;

} // namespace vexa::interchange

#endif
