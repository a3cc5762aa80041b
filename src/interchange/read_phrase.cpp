#include "interchange/read_phrase.h"

#include <algorithm>
#include <charconv>

#include "interchange/path.h"

namespace vexa::interchange {

std::string_view PhraseOf(EventKind kind)
{
    switch (kind) {
    case EventKind::NULL_VALUE: return "null";
    case EventKind::BOOL: return "true or false";
    case EventKind::SIGNED:
    case EventKind::UNSIGNED:
    case EventKind::NEGATIVE:
    case EventKind::FLOATING: return "a number";
    case EventKind::STRING:
    case EventKind::BEGIN_STRING: return "a string";
    case EventKind::BYTES:
    case EventKind::BEGIN_BYTES: return "bytes";
    case EventKind::DATE_TIME: return "a date and time";
    case EventKind::BEGIN_OBJECT: return "an object";
    case EventKind::BEGIN_ARRAY: return "an array";
    case EventKind::KEY: return "a key";
    case EventKind::END_OBJECT: return "the end of an object";
    case EventKind::END_ARRAY: return "the end of an array";
    case EventKind::END_PIECES: return "the end of pieces";
    case EventKind::ALIAS: return "an alias";
    case EventKind::TAG: return "a tag";
    case EventKind::END: break;
    }
    return "the end of the text";
}

std::string ShownText(std::string_view text)
{
    constexpr std::size_t MOST = 40;
    std::size_t length = std::min(text.size(), MOST);
    while (length < text.size() && length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
        --length;
    std::string shown;
    AppendQuoted(shown, text.substr(0, length));
    return length < text.size() ? shown + "..." : shown;
}

std::string OneOf(const std::vector<std::string>& names)
{
    constexpr std::size_t MOST = 8;
    if (names.empty()) return {};
    std::string text = names.size() == 1 ? "" : "one of ";
    for (std::size_t i = 0; i < names.size() && i < MOST; ++i) {
        if (i != 0) text += ", ";
        AppendQuoted(text, names[i]);
    }
    return names.size() > MOST ? text + ", ..." : text;
}

std::vector<std::string> NamesOf(const detail::CEnumerationSlot& enumeration)
{
    std::vector<std::string> names;
    std::string_view left = enumeration.Names;
    while (names.size() < enumeration.Count) {
        left.remove_prefix(std::min(left.find_first_not_of(", "), left.size()));
        const std::size_t length = std::min(left.find_first_of(", "), left.size());
        names.emplace_back(left.substr(0, length));
        left.remove_prefix(length);
    }
    return names;
}

std::string BoundText(const typeinfo::CBound& bound)
{
    if (bound.IsInteger)
        return bound.IsUnsigned ? std::to_string(static_cast<unsigned long long>(bound.Integer))
                                : std::to_string(bound.Integer);
    char text[40];
    const auto result = std::to_chars(text, text + sizeof text, bound.Floating);
    return {text, result.ptr};
}

} // namespace vexa::interchange
