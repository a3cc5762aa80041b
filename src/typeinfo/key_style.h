#ifndef VEXA_TYPEINFO_KEY_STYLE_H
#define VEXA_TYPEINFO_KEY_STYLE_H

#include <string>
#include <string_view>

#include <vexa/metadata.h>

namespace vexa::typeinfo {

namespace key_style {

inline bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }
inline char ToSmall(char c) { return IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c; }
inline char ToCapital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// Whether a word begins at a capital letter, which has another byte before it.
inline bool BeginsAtCapital(std::string_view name, std::size_t place)
{
    if (!IsCapital(name[place - 1])) return true;
    const std::size_t next = place + 1;
    return next < name.size() && name[next] != '_' && !IsCapital(name[next]) && !IsDigit(name[next]);
}

inline void AppendFirstOfWord(std::string& key, KeyStyle style, char c)
{
    if (key.empty() || style == KeyStyle::CAMEL) {
        key += key.empty() ? ToSmall(c) : ToCapital(c);
    } else {
        key += style == KeyStyle::SNAKE ? '_' : '-';
        key += ToSmall(c);
    }
}

} // namespace key_style

/// The key that a style makes of an attribute's name; KeyStyle tells the rules.
inline std::string StyledKey(KeyStyle style, std::string_view name)
{
    if (style == KeyStyle::AS_IT_IS || name.find_first_not_of('_') == std::string_view::npos) return std::string(name);
    std::string key;
    bool isWordBegun = false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = name[i];
        if (c == '_') {
            isWordBegun = false;
        } else if (!isWordBegun || (key_style::IsCapital(c) && key_style::BeginsAtCapital(name, i))) {
            key_style::AppendFirstOfWord(key, style, c);
            isWordBegun = true;
        } else {
            key += key_style::ToSmall(c);
        }
    }
    return key;
}

} // namespace vexa::typeinfo

#endif
