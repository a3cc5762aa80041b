// What of writing JSON is not short: texts with something special in them, bytes, indentation.

#include "interchange/json_sink.h"

#include <utility>

#include "interchange/base64.h"
#include "interchange/json_scan.h"
#include "interchange/utf8.h"

namespace vexa::interchange {

namespace {

/// The number of a character beyond ASCII.
std::uint32_t Decode(const char* character, std::size_t length)
{
    std::uint32_t number = static_cast<unsigned char>(*character) & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i)
        number = number << 6U | (static_cast<unsigned char>(character[i]) & 0x3FU);
    return number;
}

} // namespace

template<bool STYLED>
char* CJsonSink<STYLED>::Line(char* at)
{
    const std::size_t indentation = m_context.Policy().Indentation;
    at = Reserve(at, VALUE_ROOM + 1);
    if (indentation == 0) return at;
    *at++ = '\n';
    for (std::size_t left = indentation * m_level; left != 0;) {
        const std::size_t blanks = std::min(left, SLICE);
        at = Reserve(at, blanks + VALUE_ROOM);
        std::memset(at, ' ', blanks);
        at += blanks;
        left -= blanks;
    }
    return at;
}

template<bool STYLED>
char* CJsonSink<STYLED>::Copy(char* at, std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = std::min(text.size(), SLICE);
        at = text::WriteText(Reserve(at, length + VALUE_ROOM), text.data(), length);
        text.remove_prefix(length);
    }
    return at;
}

template<bool STYLED>
char* CJsonSink<STYLED>::Escaped(char* at, std::string_view text, const CPathStep& where)
{
    const char* next = text.data();
    const char* const end = next + text.size();
    bool isBad = false;
    while (next != end) {
        const std::size_t slice = std::min(static_cast<std::size_t>(end - next), SLICE);
        at = Reserve(at, slice);
        const std::size_t plain = CopyPlain(at, next, slice);
        at += plain;
        next += plain;
        while (next != end && IsSpecial(*next)) {
            if (TakesCharacters() && CNonAscii::Is(*next)) at = Characters(at, next, end);
            if (next != end && IsSpecial(*next)) at = Special(Reserve(at, ESCAPE_ROOM), next, end, isBad);
        }
    }
    if (isBad && m_context.Policy().Text == BadText::PROBLEM) m_context.Tell(ProblemCode::BAD_UTF8, where, {});
    return at;
}

/// The characters up to something else.
template<bool STYLED>
char* CJsonSink<STYLED>::Characters(char* at, const char*& next, const char* end)
{
    const char* const first = std::exchange(next, EndOfCharacters(next, end));
    const auto length = static_cast<std::size_t>(next - first);
    return Ready(Reserve(at, length), first, length);
}

/// One special byte, or the character that starts with it.
template<bool STYLED>
char* CJsonSink<STYLED>::Special(char* at, const char*& next, const char* end, bool& isBad)
{
    if (static_cast<unsigned char>(*next) < 0x80) return WriteEscape(at, *next++);
    const std::size_t length = LongCharacterLength(next, end);
    if (length != 0) {
        const char* const character = next;
        next += length;
        return Character(at, character, length);
    }
    if (m_context.IsComplete()) {
        *at = *next++;
        return at + 1;
    }
    isBad = true;
    char standIn[MAX_CHARACTER_LENGTH] = {};
    const char* const last = Encode(standIn, CharacterOfBadByte(*next++, m_context.Policy().Text));
    return Character(at, standIn, static_cast<std::size_t>(last - standIn));
}

template<bool STYLED>
char* CJsonSink<STYLED>::Character(char* at, const char* character, std::size_t length)
{
    if (!TakesCharacters()) return WriteUnits(at, Decode(character, length));
    at[0] = character[0];
    at[1] = character[1];
    if (length > 2) at[2] = character[2];
    if (length > 3) at[3] = character[3];
    return at + length;
}

template<bool STYLED>
char* CJsonSink<STYLED>::Bytes(char* at, const CBinary& bytes)
{
    constexpr std::size_t STEP = SLICE / 4 * 3;
    static_assert(STEP % 3 == 0, "only the last slice has padding");
    const unsigned char* next = bytes.Data;
    *at++ = '"';
    for (unsigned long left = bytes.Size; left != 0;) {
        const std::size_t length = std::min<std::size_t>(left, STEP);
        at = WriteBase64(Reserve(at, Base64Length(length)), next, length);
        next += length;
        left -= length;
    }
    return Ready(Reserve(at, 2), "\",", 2);
}

/// Outside of ASCII there are only characters inside strings.
template<bool STYLED>
char* CJsonSink<STYLED>::Raw(char* at, std::string_view json)
{
    if (TakesCharacters()) return Comma(Copy(at, json));
    const char* next = json.data();
    const char* const end = next + json.size();
    while (next != end) {
        at = Reserve(at, ESCAPE_ROOM);
        const std::size_t length = CharacterLength(next, end);
        at = length > 1 ? WriteUnits(at, Decode(next, length)) : text::WriteText(at, next, 1);
        next += std::max<std::size_t>(length, 1);
    }
    return Comma(Reserve(at, 1));
}

template class CJsonSink<false>;
template class CJsonSink<true>;

} // namespace vexa::interchange
