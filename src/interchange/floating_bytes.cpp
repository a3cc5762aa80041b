// Floating values in the fewest bytes.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include <vexa/format.h>

namespace vexa {
namespace {

constexpr int HALF_DIGITS = 11;  // of two bytes, in binary; the first is not written
constexpr int HALF_LOWEST = -24; // the power of two of its last digit at least
constexpr double HALF_MOST = 65504;

bool IsHalf(double value) noexcept
{
    if (!std::isfinite(value)) return true;
    int exponent = 0;
    std::frexp(value, &exponent);
    const double digits = std::ldexp(value, -std::max(exponent - HALF_DIGITS, HALF_LOWEST));
    return std::fabs(value) <= HALF_MOST && digits == std::trunc(digits);
}

bool IsSingle(double value) noexcept
{
    constexpr auto MOST = static_cast<double>(std::numeric_limits<float>::max());
    return std::fabs(value) <= MOST && static_cast<double>(static_cast<float>(value)) == value;
}

/// Of a value that two bytes hold.
std::uint64_t HalfBits(double value) noexcept
{
    constexpr std::uint64_t INFINITE = 0x7C00;
    const std::uint64_t sign = std::signbit(value) ? 0x8000 : 0;
    if (std::isnan(value)) return INFINITE | 0x200U;
    if (std::isinf(value)) return sign | INFINITE;
    if (value == 0) return sign;
    int exponent = 0;
    std::frexp(value, &exponent);
    const auto biased = static_cast<std::uint64_t>(std::max(exponent + 14, 0)); // with 0 the first digit is written too
    const double digits = std::ldexp(std::fabs(value), biased == 0 ? -HALF_LOWEST : HALF_DIGITS - exponent);
    return sign | biased << 10U | (static_cast<std::uint64_t>(digits) & 0x3FFU);
}

template<class Bits, class T>
std::uint64_t BitsOf(T value) noexcept
{
    Bits bits;
    static_assert(sizeof bits == sizeof value);
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

std::string HighestFirst(std::uint64_t bits, std::size_t size)
{
    std::string bytes;
    while (size-- > 0)
        bytes += static_cast<char>(bits >> (size * 8) & 0xFFU);
    return bytes;
}

} // namespace

std::string FloatingBytes(double value)
{
    if (IsHalf(value)) return HighestFirst(HalfBits(value), 2);
    if (IsSingle(value)) return HighestFirst(BitsOf<std::uint32_t>(static_cast<float>(value)), 4);
    return HighestFirst(BitsOf<std::uint64_t>(value), 8);
}

} // namespace vexa
