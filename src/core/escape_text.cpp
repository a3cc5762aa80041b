#include "core/escape_text.h"

#include <cstring>

namespace vexa::core {

#ifdef __SSE2__

namespace {

/// Writes byte after byte, whatever it is: a jump that depends on each would cost more.
char* WriteBytes(char* at, const char* p, std::size_t n)
{
    for (std::size_t i = 0; i < n; ++i) {
        const CEscape& escape = ESCAPES[BytesOf(p)[i]];
        std::memcpy(at, &escape, sizeof escape);
        at += escape.Length;
    }
    return at;
}

/// Copies `n` bytes, more than 16, as they are. Returns whether none of them needs escaping.
bool CopyPlain(char* at, const char* p, std::size_t n)
{
    const Block last = LoadBlock(p + n - BLOCK);
    Block hits = NeedsEscape(last);
    for (std::size_t i = 0; i + BLOCK < n; i += BLOCK) {
        const Block block = LoadBlock(p + i);
        StoreBlock(at + i, block);
        hits = _mm_or_si128(hits, NeedsEscape(block));
    }
    StoreBlock(at + n - BLOCK, last);
    return BitsOf(hits) == 0;
}

} // namespace

unsigned long EscapedRoomOfLong(const std::string& text) noexcept
{
    const std::size_t n = text.size();
    if (n <= BLOCK) return n + ExtraOf(LoadBlock(text.data()), FirstBytes(n));
    unsigned long room = n;
    std::size_t i = 0;
    for (; n - i > BLOCK; i += BLOCK)
        room += ExtraOf(LoadBlock(text.data() + i), FirstBytes(BLOCK));
    // The last block overlaps the one before.
    return room + ExtraOf(LoadBlock(text.data() + n - BLOCK), LastBytes(n - i));
}

char* WriteEscaped(char* at, const char* p, std::size_t n) noexcept
{
    if (n > BLOCK && CopyPlain(at, p, n)) return at + n;
    for (; n >= BLOCK; n -= BLOCK, p += BLOCK) {
        const Block block = LoadBlock(p);
        StoreBlock(at, block);
        at = BitsOf(NeedsEscape(block)) == 0 ? at + BLOCK : WriteBytes(at, p, BLOCK);
    }
    return WriteBytes(at, p, n);
}

#else

unsigned long EscapedRoomOfLong(const std::string& text) noexcept { return EscapedRoom(text.data(), text.size()); }

char* WriteEscaped(char* at, const char* p, std::size_t n) noexcept
{
    for (std::size_t i = 0; i < n; ++i) {
        const std::size_t run = FindByteToEscape(BytesOf(p) + i, n - i);
        std::memcpy(at, p + i, run);
        at += run;
        i += run;
        if (i == n) break;
        const CEscape& escape = ESCAPES[BytesOf(p)[i]];
        std::memcpy(at, &escape, sizeof escape);
        at += escape.Length;
    }
    return at;
}

#endif

char* WriteEscapedLong(char* at, const std::string& text) noexcept
{
    return WriteEscaped(at, text.data(), text.size());
}

} // namespace vexa::core
