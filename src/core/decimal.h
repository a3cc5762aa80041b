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

/// Two digits for each value below 100.
struct CDigitPairs {
    char Pairs[100][2];
};

constexpr CDigitPairs MakeDigitPairs()
{
    CDigitPairs digits{};
    for (unsigned int value = 0; value < 100; ++value) {
        digits.Pairs[value][0] = static_cast<char>('0' + value / 10);
        digits.Pairs[value][1] = static_cast<char>('0' + value % 10);
    }
    return digits;
}

inline constexpr CDigitPairs DIGIT_PAIRS = MakeDigitPairs();

/// Bits behind the point of a number that is split into pairs of digits: as many as leave room for a pair before it.
inline constexpr unsigned int FRACTION_BITS = 57;

/// By what a value of so many digits, up to 8, is multiplied to have two of them before the point. Rounded up, by less
/// than what makes a difference in the eighth digit.
constexpr std::array<std::uint64_t, 9> MakeScales()
{
    constexpr std::uint64_t ONE = std::uint64_t{1} << FRACTION_BITS;
    std::array<std::uint64_t, 9> scales{0, 10 * ONE, ONE};
    std::uint64_t divisor = 1;
    for (std::size_t digits = 3; digits <= 8; ++digits) {
        divisor *= 10;
        scales[digits] = ONE / divisor + 1;
    }
    return scales;
}

inline constexpr std::array<std::uint64_t, 9> SCALES = MakeScales();

/// Writes so many pairs of digits of a value that has been scaled: each multiplication brings the next before the
/// point.
template<int PAIRS>
__attribute__((always_inline)) inline void WritePairs(char* at, std::uint64_t scaled) noexcept
{
    constexpr std::uint64_t FRACTION = (std::uint64_t{1} << FRACTION_BITS) - 1;
    for (int i = 0; i < PAIRS; ++i) {
        std::memcpy(at + 2 * i, DIGIT_PAIRS.Pairs[scaled >> FRACTION_BITS], 2);
        scaled = (scaled & FRACTION) * 100U;
    }
}

inline constexpr std::uint64_t EIGHT_DIGITS_END = 100000000;

/// Room for the text of any integer, and for what is written beyond a short one.
inline constexpr std::size_t DECIMAL_ROOM = 24;

/// Writes the eight digits of a value below 100,000,000, leading zeros too.
inline char* WriteEightDigits(char* at, std::uint64_t value) noexcept
{
    WritePairs<4>(at, value * SCALES[8]);
    return at + 8;
}

/// Writes a value below 100,000,000, always 8 bytes: what is written does not depend on the number of digits, which is
/// hard to foretell, and only the end does. \return the end of its digits.
__attribute__((always_inline)) inline char* WriteUpToEightDigits(char* at, std::uint64_t value) noexcept
{
    const unsigned int count = DigitCount(static_cast<std::uint32_t>(value));
    WritePairs<4>(at, value * SCALES[count]);
    return at + count;
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
