#include "interchange/utf8.h"

#include "interchange/json_scan.h"

namespace vexa::interchange {

std::size_t FindBadUtf8(std::string_view text) noexcept
{
    const char* const end = text.data() + text.size();
    for (const char* next = text.data(); (next = FindByte<CNonAscii>(next, end)) != end;) {
        const std::size_t length = LongCharacterLength(next, end);
        if (length == 0) return static_cast<std::size_t>(next - text.data());
        next += length;
    }
    return text.size();
}

void AppendMended(std::string& out, std::string_view text, BadText policy)
{
    while (true) {
        const std::size_t bad = FindBadUtf8(text);
        out.append(text, 0, bad);
        if (bad == text.size()) return;
        char bytes[MAX_CHARACTER_LENGTH];
        out.append(bytes, Encode(bytes, CharacterOfBadByte(text[bad], policy)));
        text.remove_prefix(bad + 1);
    }
}

} // namespace vexa::interchange
