#include "typeinfo/key_style.h"

namespace vexa::typeinfo {
namespace {

bool IsCapital(char c) { return c >= 'A' && c <= 'Z'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
char ToSmall(char c) { return IsCapital(c) ? static_cast<char>(c - 'A' + 'a') : c; }
char ToCapital(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// Whether a word begins at a capital letter, which has another byte before it.
bool BeginsAtCapital(std::string_view name, std::size_t place)
{
    if (!IsCapital(name[place - 1])) return true;
    const std::size_t next = place + 1;
    return next < name.size() && name[next] != '_' && !IsCapital(name[next]) && !IsDigit(name[next]);
}

void AppendFirstOfWord(std::string& key, KeyStyle style, char c)
{
    if (key.empty() || style == KeyStyle::CAMEL) {
        key += key.empty() ? ToSmall(c) : ToCapital(c);
    } else {
        key += style == KeyStyle::SNAKE ? '_' : '-';
        key += ToSmall(c);
    }
}

} // namespace

std::string StyledKey(KeyStyle style, std::string_view name)
{
    if (style == KeyStyle::AS_IT_IS || name.find_first_not_of('_') == std::string_view::npos) return std::string(name);
    std::string key;
    bool isWordBegun = false;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = name[i];
        if (c == '_') {
            isWordBegun = false;
        } else if (!isWordBegun || (IsCapital(c) && BeginsAtCapital(name, i))) {
            AppendFirstOfWord(key, style, c);
            isWordBegun = true;
        } else {
            key += ToSmall(c);
        }
    }
    return key;
}

} // namespace vexa::typeinfo
