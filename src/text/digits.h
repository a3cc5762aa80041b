#ifndef VEXA_TEXT_DIGITS_H
#define VEXA_TEXT_DIGITS_H

#include <cstdint>
#include <cstring>

namespace vexa::text {

/// What a hexadecimal digit stands for; -1 for any other byte.
inline int HexDigit(char byte) noexcept
{
    if (byte >= '0' && byte <= '9') return byte - '0';
    if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
    return -1;
}

/// The number that eight digits form, each a byte of 0 to 9, the first one lowest.
inline std::uint64_t NumberOfDigits(std::uint64_t digits) noexcept
{
    constexpr std::uint64_t PAIRS = 0x000000FF000000FF;
    digits = digits * 10 + (digits >> 8); // in every second byte two digits
    return ((digits & PAIRS) * (100 + (1000000ULL << 32)) + ((digits >> 16) & PAIRS) * (1 + (10000ULL << 32))) >> 32;
}

/// Reads the decimal digits from \p next on, modulo 2 to the 64. \return where they end, at the latest at \p end. Does
/// not look at what is there.
///
/// Eight bytes are taken at a time, without a branch for each: how many digits a number has is what a processor cannot
/// guess.
inline const char* ReadDigits(const char* next, const char* end, unsigned long long& value) noexcept
{
    unsigned long long sum = 0;
#if __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    static constexpr std::uint64_t POWERS[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    while (end - next >= 8) {
        std::uint64_t digits = 0;
        std::memcpy(&digits, next, sizeof digits);
        digits ^= 0x3030303030303030;
        // The top bit of the first byte that is no digit is set; those above it may be wrong.
        const std::uint64_t others = (digits | (digits + 0x7676767676767676)) & 0x8080808080808080;
        if (others == 0) {
            sum = sum * POWERS[8] + NumberOfDigits(digits);
            next += 8;
            continue;
        }
        const int bits = __builtin_ctzll(others) & ~7;
        value = sum * POWERS[bits / 8] + NumberOfDigits(digits << (56 - bits) << 8);
        return next + bits / 8;
    }
#endif
    for (; next != end && *next >= '0' && *next <= '9'; ++next)
        sum = sum * 10 + static_cast<unsigned>(*next - '0');
    value = sum;
    return next;
}

} // namespace vexa::text

#endif
