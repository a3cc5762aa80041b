#ifndef VEXA_CORE_DECIMAL_H
#define VEXA_CORE_DECIMAL_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

/// \file
/// Integers as decimal text, as "%d" and its kin give it, in any locale.

namespace vexa::core {

/// For each highest bit what is added to a value of 32 bits so that its digits stand in the upper half of the sum.
constexpr std::array<std::uint64_t, 32> MakeDigitSteps()
{
    std::array<std::uint64_t, 32> steps{};
    std::uint64_t power = 1; // the lowest value with one digit more than the lowest that has the bit
    std::uint64_t digits = 0;
    for (unsigned int bit = 0; bit < 32; ++bit) {
        while (power <= (std::uint64_t{1} << bit)) {
            power *= 10;
            ++digits;
        }
        const bool isCrossed = power < (std::uint64_t{2} << bit);
        steps[bit] = isCrossed ? ((digits + 1) << 32U) - power : digits << 32U;
    }
    return steps;
}

/// Digits of a value in decimal.
inline unsigned int DigitCount(std::uint64_t value) noexcept
{
    static constexpr std::uint64_t POWERS[] = {0ULL,
                                               10ULL,
                                               100ULL,
                                               1000ULL,
                                               10000ULL,
                                               100000ULL,
                                               1000000ULL,
                                               10000000ULL,
                                               100000000ULL,
                                               1000000000ULL,
                                               10000000000ULL,
                                               100000000000ULL,
                                               1000000000000ULL,
                                               10000000000000ULL,
                                               100000000000000ULL,
                                               1000000000000000ULL,
                                               10000000000000000ULL,
                                               100000000000000000ULL,
                                               1000000000000000000ULL,
                                               10000000000000000000ULL};
    const auto bits = static_cast<unsigned int>(64 - __builtin_clzll(value | 1U));
    const unsigned int digits = bits * 1233U >> 12U; // 1233 / 4096 is log10(2), near enough for 64 bits
    return digits + (value >= POWERS[digits] ? 1U : 0U);
}

/// The same of 32 bits: the upper half of the sum with an entry of a table that goes by the highest bit.
inline unsigned int DigitCount(std::uint32_t value) noexcept
{
    static constexpr std::array<std::uint64_t, 32> STEPS = MakeDigitSteps();
    return static_cast<unsigned int>((value + STEPS[31U ^ static_cast<unsigned int>(__builtin_clz(value | 1U))]) >>
                                     32U);
}

/// The distance of an integer from zero.
template<class T>
auto Magnitude(T value) noexcept
{
    static_assert(std::is_integral_v<T>);
    using Wide = std::conditional_t<sizeof(T) <= 4, std::uint32_t, std::uint64_t>;
    return value < T() ? Wide{0} - static_cast<Wide>(value) : static_cast<Wide>(value);
}

/// Bytes of an integer's text, its sign included.
template<class T>
unsigned int DecimalLength(T value) noexcept
{
    return DigitCount(Magnitude(value)) + (value < T() ? 1U : 0U);
}

/// The eight digits of a value below 100,000,000, with leading zeros, the first in the lowest byte; to each the
/// character '0' is yet to be added. All at once: the halves, the pairs, then the digits of each are split side by
/// side, where `high | (all - high * n) << bits` is `(all << bits) - high * ((n << bits) - 1)`.
inline std::uint64_t EightDigits(std::uint64_t value) noexcept
{
    const std::uint64_t high = (value * 3518437209U) >> 45U; // a ten-thousandth
    const std::uint64_t halves = (value << 32U) - high * ((std::uint64_t{10000} << 32U) - 1U);
    const std::uint64_t hundreds = (halves * 10486U >> 20U) & 0x0000007F0000007FU;
    const std::uint64_t pairs = (halves << 16U) - hundreds * ((100U << 16U) - 1U);
    const std::uint64_t tens = (pairs * 103U >> 10U) & 0x000F000F000F000FU;
    return (pairs << 8U) - tens * ((10U << 8U) - 1U);
}

inline constexpr std::uint64_t EIGHT_ZEROS = 0x3030303030303030;
inline constexpr std::uint64_t EIGHT_DIGITS_END = 100000000;

/// Room for the text of any integer, and for what is written beyond a short one.
inline constexpr std::size_t DECIMAL_ROOM = 24;

inline char* WriteEightDigits(char* at, std::uint64_t value) noexcept
{
    const std::uint64_t digits = EightDigits(value) | EIGHT_ZEROS;
    std::memcpy(at, &digits, sizeof digits);
    return at + 8;
}

/// Two digits for each value below 100; in the second half without a leading zero.
struct CDigitPairs {
    char Pairs[100][2];
    char Leading[100][2];
};

constexpr CDigitPairs MakeDigitPairs()
{
    CDigitPairs digits{};
    for (unsigned int value = 0; value < 100; ++value) {
        const char tens = static_cast<char>('0' + value / 10);
        const char ones = static_cast<char>('0' + value % 10);
        digits.Pairs[value][0] = tens;
        digits.Pairs[value][1] = ones;
        digits.Leading[value][0] = value < 10 ? ones : tens;
        digits.Leading[value][1] = ones;
    }
    return digits;
}

inline constexpr CDigitPairs DIGIT_PAIRS = MakeDigitPairs();

/// Writes the one or two digits of a value below 100.
inline char* WriteLeading(char* at, std::uint64_t value) noexcept
{
    std::memcpy(at, DIGIT_PAIRS.Leading[value], 2);
    return at + (value < 10 ? 1 : 2);
}

/// The whole part of \p fixed, whose lower 32 bits are a fraction, is below 100. Writes its digits and those of so many
/// pairs behind the point.
template<int PAIRS>
__attribute__((always_inline)) inline char* WritePairs(char* at, std::uint64_t fixed) noexcept
{
    at = WriteLeading(at, fixed >> 32U);
    for (int i = 0; i < PAIRS; ++i, at += 2) {
        fixed = (fixed & 0xFFFFFFFFU) * 100U;
        std::memcpy(at, DIGIT_PAIRS.Pairs[fixed >> 32U], 2);
    }
    return at;
}

/// Writes a value below 100,000,000, and up to 9 bytes: as a fraction of a power of a hundred, from which two digits
/// are split off by each multiplication. The inverse powers are rounded up, little enough for values below the stated
/// ends. \return the end of its digits.
__attribute__((always_inline)) inline char* WriteUpToEightDigits(char* at, std::uint64_t value) noexcept
{
    constexpr std::uint64_t ONE = std::uint64_t{1} << 32U;
    if (value < 100) return WriteLeading(at, value);
    if (value < 10000) return WritePairs<1>(at, value * (ONE / 100 + 1));
    if (value < 1000000) return WritePairs<2>(at, value * (ONE / 10000 + 1));
    return WritePairs<3>(at, value * ((ONE << 16U) / 1000000 + 1) >> 16U);
}

/// Writes a value from 100,000,000 on, up to 20 bytes. \return the end of its digits.
__attribute__((noinline)) inline char* WriteManyDigits(char* at, std::uint64_t value) noexcept
{
    const std::uint64_t upper = value / EIGHT_DIGITS_END;
    if (upper < EIGHT_DIGITS_END) {
        at = WriteUpToEightDigits(at, upper);
    } else {
        at = WriteUpToEightDigits(at, upper / EIGHT_DIGITS_END);
        at = WriteEightDigits(at, upper % EIGHT_DIGITS_END);
    }
    return WriteEightDigits(at, value % EIGHT_DIGITS_END);
}

/// Writes the digits of a value, DECIMAL_ROOM bytes at most. \return the end of the text.
__attribute__((always_inline)) inline char* WriteDigits(char* at, std::uint64_t value) noexcept
{
    return __builtin_expect(value < EIGHT_DIGITS_END, 1) ? WriteUpToEightDigits(at, value) : WriteManyDigits(at, value);
}

/// Writes an integer, DECIMAL_ROOM bytes at most. \return the end of the text, DecimalLength(value) bytes behind \p at.
template<class T>
__attribute__((always_inline)) inline char* WriteDecimal(char* at, T value) noexcept
{
    if constexpr (std::is_signed_v<T>) {
        *at = '-';
        at += value < T() ? 1 : 0;
    }
    return WriteDigits(at, Magnitude(value));
}

} // namespace vexa::core

#endif
