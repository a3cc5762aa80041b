#ifndef ORDANA_BENCH_REFERENCE_TEXT_H
#define ORDANA_BENCH_REFERENCE_TEXT_H

// What both references share: strings, numbers and lists to and from JSON text. UTF-8 is passed through unchecked.

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <emmintrin.h>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace reference {
namespace detail {

// Quotes, backslashes and control bytes: what has to be escaped, and what ends a plain stretch of a string.
inline bool IsSpecial(char c) { return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\'; }

// The same for 16 bytes: bit i stands for byte i.
inline unsigned SpecialMask(const char* from)
{
    const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    const __m128i control = _mm_cmpeq_epi8(_mm_min_epu8(block, _mm_set1_epi8(0x1F)), block);
    const __m128i quote = _mm_cmpeq_epi8(block, _mm_set1_epi8('"'));
    const __m128i backslash = _mm_cmpeq_epi8(block, _mm_set1_epi8('\\'));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_or_si128(_mm_or_si128(quote, backslash), control)));
}

// ---------------------------------------------------------------------------------------------------------- writing

// While a document is written, `out` is longer than its text, which ends at `at`. The writers return the new end of the
// text. Strings and lists leave kRoom bytes behind it: enough for the keys and numbers up to the next one.
constexpr std::size_t kRoom = 128;

// The capacity grows geometrically, but no more than a few kilobytes at a time are zero-filled, and none where `out`
// has been as long before.
inline char* Reserve(std::string& out, char* at, std::size_t need)
{
    if (static_cast<std::size_t>(out.data() + out.size() - at) < need) {
        const std::size_t used = static_cast<std::size_t>(at - out.data());
        out.resize(used + std::max<std::size_t>(need, 4096));
        at = out.data() + used;
    }
    return at;
}

template<std::size_t N>
char* Put(char* at, const char (&piece)[N])
{
    std::memcpy(at, piece, N - 1);
    return at + N - 1;
}

inline char* PutEscape(char* at, char c)
{
    const unsigned byte = static_cast<unsigned char>(c);
    const char letter = byte < 0x20 ? "uuuuuuuubtnufruuuuuuuuuuuuuuuuuu"[byte] : c;
    *at++ = '\\';
    *at++ = letter;
    if (letter == 'u') {
        at = Put(at, "00");
        *at++ = "0123456789abcdef"[byte >> 4];
        *at++ = "0123456789abcdef"[byte & 15];
    }
    return at;
}

// Without the quotes.
inline char* PutText(std::string& out, char* at, const std::string& text)
{
    const char* from = text.data();
    const char* const end = from + text.size();
    for (;;) {
        at = Reserve(out, at, static_cast<std::size_t>(end - from) + kRoom);
        for (; end - from >= 16 && SpecialMask(from) == 0; from += 16, at += 16) {
            std::memcpy(at, from, 16);
        }
        for (; from != end && !IsSpecial(*from); ++from) {
            *at++ = *from;
        }
        if (from == end) {
            return at;
        }
        at = PutEscape(at, *from++);
    }
}

template<class Integer>
char* PutInteger(char* at, Integer value)
{
    return std::to_chars(at, at + 20, value).ptr;
}

// Calls `putOne(at, element)` with kRoom bytes to use.
template<class Element, class PutOne>
char* PutList(std::string& out, char* at, const std::vector<Element>& list, PutOne putOne)
{
    *at++ = '[';
    for (const Element& element : list) {
        at = putOne(Reserve(out, at, kRoom), element);
        *at++ = ',';
    }
    at = Reserve(out, list.empty() ? at : at - 1, kRoom + 1);
    *at++ = ']';
    return at;
}

inline char* PutInts(std::string& out, char* at, const std::vector<int>& list)
{
    return PutList(out, at, list, [](char* to, int value) { return PutInteger(to, value); });
}

// ---------------------------------------------------------------------------------------------------------- reading

// The readers return whether they succeeded, and move `at` behind what they have read.

inline const char* SkipSpace(const char* at, const char* end)
{
    while (at != end && (*at == ' ' || *at == '\n' || *at == '\r' || *at == '\t')) {
        ++at;
    }
    return at;
}

inline bool Expect(const char*& at, const char* end, std::string_view piece)
{
    const std::size_t size = piece.size();
    const bool found = static_cast<std::size_t>(end - at) >= size && std::memcmp(at, piece.data(), size) == 0;
    at += found ? size : 0;
    return found;
}

// With any space before it.
inline bool Expect(const char*& at, const char* end, char c)
{
    at = SkipSpace(at, end);
    const bool found = at != end && *at == c;
    at += found ? 1 : 0;
    return found;
}

// from_chars() alone would take fewer digits.
inline bool ReadHex4(const char*& at, const char* end, unsigned& unit)
{
    const bool good = end - at >= 4 && std::from_chars(at, at + 4, unit, 16).ptr == at + 4;
    at += good ? 4 : 0;
    return good;
}

inline void AppendUtf8(std::string& to, unsigned code)
{
    const int more = code < 0x80 ? 0 : code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    const unsigned marks[] = {0, 0xC0, 0xE0, 0xF0};
    to.push_back(static_cast<char>(marks[more] | code >> 6 * more));
    for (int shift = 6 * (more - 1); shift >= 0; shift -= 6) {
        to.push_back(static_cast<char>(0x80 | (code >> shift & 0x3F)));
    }
}

inline const char* FindSpecial(const char* at, const char* end)
{
    for (; end - at >= 16; at += 16) {
        if (const unsigned mask = SpecialMask(at)) {
            return at + __builtin_ctz(mask);
        }
    }
    while (at != end && !IsSpecial(*at)) {
        ++at;
    }
    return at;
}

// From behind the backslash on.
inline bool ReadEscape(const char*& at, const char* end, std::string& to)
{
    if (!Expect(at, end, "u")) {
        const std::size_t index = at == end ? std::string_view::npos : std::string_view("\"\\/bfnrt").find(*at);
        if (index == std::string_view::npos) {
            return false;
        }
        to.push_back("\"\\/\b\f\n\r\t"[index]);
        ++at;
        return true;
    }
    unsigned code = 0;
    if (!ReadHex4(at, end, code)) {
        return false;
    }
    if (code >= 0xD800 && code < 0xE000) {
        // Only both halves of a surrogate pair together have a UTF-8 form.
        unsigned low = 0;
        if (code >= 0xDC00 || !Expect(at, end, "\\u") || !ReadHex4(at, end, low) || low < 0xDC00 || low >= 0xE000) {
            return false;
        }
        code = 0x10000 + (code - 0xD800) * 0x400 + (low - 0xDC00);
    }
    AppendUtf8(to, code);
    return true;
}

inline bool ReadValue(const char*& at, const char* end, std::string& to)
{
    if (!Expect(at, end, '"')) {
        return false;
    }
    to.clear();
    for (;;) {
        const char* const from = at;
        at = FindSpecial(at, end);
        to.append(from, static_cast<std::size_t>(at - from));
        const char special = at != end ? *at++ : '\0';
        if (special != '\\') {
            return special == '"';
        }
        if (!ReadEscape(at, end, to)) {
            return false;
        }
    }
}

inline bool ReadValue(const char*& at, const char* end, bool& to)
{
    to = Expect(at, end, "true");
    return to || Expect(at, end, "false");
}

template<class Integer>
bool ReadValue(const char*& at, const char* end, Integer& to)
{
    const std::from_chars_result result = std::from_chars(at, end, to);
    if (result.ec != std::errc()) {
        return false;
    }
    // from_chars() takes leading zeros, which JSON does not have.
    const char* const digits = at + (*at == '-' ? 1 : 0);
    at = result.ptr;
    return *digits != '0' || at - digits == 1;
}

// Calls `readOne()` at the start of each element, or each key.
template<class ReadOne>
bool ReadSequence(const char*& at, const char* end, char open, char close, ReadOne readOne)
{
    if (!Expect(at, end, open)) {
        return false;
    }
    if (Expect(at, end, close)) {
        return true;
    }
    do {
        at = SkipSpace(at, end);
        if (!readOne()) {
            return false;
        }
    } while (Expect(at, end, ','));
    return Expect(at, end, close);
}

inline bool ReadValue(const char*& at, const char* end, std::vector<int>& to)
{
    to.clear();
    return ReadSequence(at, end, '[', ']', [&] { return ReadValue(at, end, to.emplace_back()); });
}

// Calls `readMember(index)` for each member. `keys` are spelled `"name":`, and each is expected behind the one before
// until another key is found there. Unknown ones are refused.
template<class Keys, class ReadMember>
bool ReadObject(const char*& at, const char* end, const Keys& keys, ReadMember readMember)
{
    auto next = std::begin(keys);
    return ReadSequence(at, end, '{', '}', [&] {
        if (next == std::end(keys) || !Expect(at, end, std::string_view(*next))) {
            std::string name;
            if (!ReadValue(at, end, name) || !Expect(at, end, ':')) {
                return false;
            }
            name = '"' + name + "\":";
            next = std::find_if(std::begin(keys), std::end(keys), [&](std::string_view key) { return key == name; });
        }
        at = SkipSpace(at, end);
        return next != std::end(keys) && readMember(static_cast<std::size_t>(next++ - std::begin(keys)));
    });
}

// ------------------------------------------------------------------------------------------------- whole documents

// {"name":[...]}, `head` being all before the list.
template<std::size_t N, class Record, class PutOne>
void WriteRoot(std::string& out, const char (&head)[N], const std::vector<Record>& records, PutOne putOne)
{
    char* const at = Put(Reserve(out, out.data(), kRoom), head);
    out.resize(static_cast<std::size_t>(Put(PutList(out, at, records, putOne), "}") - out.data()));
}

template<class Record, class ReadOne>
bool ReadRoot(std::string_view text, std::string_view key, std::vector<Record>& to, ReadOne readOne)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    to.clear();
    const bool good = ReadObject(at, end, std::initializer_list<std::string_view>{key}, [&](std::size_t) {
        to.clear();
        return ReadSequence(at, end, '[', ']', [&] { return readOne(at, end, to.emplace_back()); });
    });
    return good && SkipSpace(at, end) == end;
}

} // namespace detail
} // namespace reference

#endif
