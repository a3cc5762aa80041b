#include "interchange/utf8.h"

namespace vexa::interchange {

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
