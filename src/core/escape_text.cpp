#include "core/escape_text.h"

#include <cstring>

namespace vexa::core {

#ifdef __SSE2__

namespace {

/// Up to 16 bytes, and as many behind them that may be read.
struct CLine {
    unsigned char Bytes[2 * BLOCK] = {};
};

/// Writes the first `n` bytes of a line, up to 16.
char* WriteLine(char* at, const CLine& line, std::size_t n)
{
    unsigned int bits = BitsOf(NeedsEscape(LoadBlock(line.Bytes))) & FIRST_BITS[n];
    std::size_t i = 0;
    for (; bits != 0; bits &= bits - 1U) {
        const auto next = static_cast<std::size_t>(__builtin_ctz(bits));
        StoreBlock(at, LoadBlock(line.Bytes + i));
        at += next - i;
        const CEscape& escape = ESCAPES[line.Bytes[next]];
        std::memcpy(at, &escape, sizeof escape);
        at += escape.Length;
        i = next + 1;
    }
    StoreBlock(at, LoadBlock(line.Bytes + i));
    return at + (n - i);
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
    if (n <= BLOCK) return n + ExtraOf(LoadBlock(text.data()), FIRST_BITS[n]);
    unsigned long room = n;
    std::size_t i = 0;
    for (; n - i > BLOCK; i += BLOCK)
        room += ExtraOf(LoadBlock(text.data() + i), ALL_BYTES);
    // The last block overlaps the one before.
    return room + ExtraOf(LoadBlock(text.data() + n - BLOCK), ALL_BYTES << (BLOCK - (n - i)));
}

char* WriteEscaped(char* at, const char* p, std::size_t n) noexcept
{
    if (n > BLOCK && CopyPlain(at, p, n)) return at + n;
    CLine line;
    for (; n >= BLOCK; n -= BLOCK, p += BLOCK) {
        StoreBlock(line.Bytes, LoadBlock(p));
        at = WriteLine(at, line, BLOCK);
    }
    if (n == 0) return at;
    std::memcpy(line.Bytes, p, n);
    return WriteLine(at, line, n);
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
