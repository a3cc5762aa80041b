// Numbers from floating values, compared with the text of 256 places that they are told by.

#include <vexa/numeric.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace {

using vexa::CNumeric;

constexpr std::uint64_t SEED = 20240229;

/// Fixed text with 256 places without the zeros at its end, and without a point that nothing follows.
template<class Floating>
std::string ExpectedText(Floating value)
{
    static std::array<char, 5300> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 256).ptr;
    std::string expected(text.data(), static_cast<std::size_t>(end - text.data()));
    if (expected.find('.') == std::string::npos) return "(NaN)";
    expected.erase(expected.find_last_not_of('0') + 1);
    if (expected.back() == '.') expected.pop_back();
    return expected;
}

/// Counts, so that a million of them are not a million assertions, and names the first that differs.
class CComparison {
public:
    template<class Floating>
    void Compare(Floating value)
    {
        const CNumeric number(value);
        const std::string expected = ExpectedText(value);
        ++m_compared;
        const bool hasDigits = number.IntegerDigits.find_first_not_of("0123456789") == std::string::npos &&
                               number.FractionDigits.find_first_not_of("0123456789") == std::string::npos;
        if (number.AsString() == expected && hasDigits) return;
        if (++m_different == 1) m_first = "got " + number.AsString() + ", expected " + expected;
    }
    void ExpectNoneDiffers(std::uint64_t compared) const
    {
        EXPECT_EQ(compared, m_compared);
        EXPECT_EQ(0U, m_different) << "seed " << SEED << ": " << m_first;
    }

private:
    std::uint64_t m_compared = 0;
    std::uint64_t m_different = 0;
    std::string m_first;
};

template<class Floating, class Bits>
Floating FromBits(Bits bits)
{
    static_assert(sizeof(Floating) == sizeof(Bits));
    Floating value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

TEST(NumericDigits, OfRandomBitPatternsOfDouble)
{
    std::mt19937_64 random(SEED);
    CComparison comparison;
    for (int i = 0; i < 500000; ++i) {
        comparison.Compare(FromBits<double>(std::uint64_t{random()}));
    }
    comparison.ExpectNoneDiffers(500000);
}

/// All bit patterns are mostly huge or tiny: here the exponents around 1, where the digits fill one to four words.
TEST(NumericDigits, OfRandomDoublesWithin256Places)
{
    std::mt19937_64 random(SEED + 1);
    CComparison comparison;
    for (int i = 0; i < 500000; ++i) {
        const int exponent = static_cast<int>(random() % 380) - 290;
        const auto kept = static_cast<unsigned>(random() % 64); // short mantissas end in fewer places
        const std::uint64_t mantissa = std::uint64_t{random()} >> kept;
        const double value = std::ldexp(static_cast<double>(mantissa), exponent);
        comparison.Compare((random() & 1U) != 0 ? value : -value);
    }
    comparison.ExpectNoneDiffers(500000);
}

TEST(NumericDigits, OfSubnormalsAndTheEdgesOfEveryExponent)
{
    std::mt19937_64 random(SEED + 2);
    CComparison comparison;
    for (std::uint64_t exponent = 0; exponent < 2047; ++exponent) {
        const std::uint64_t bits = exponent << 52U;
        comparison.Compare(FromBits<double>(bits));
        comparison.Compare(FromBits<double>(bits | 1U));
        comparison.Compare(FromBits<double>(bits | ((std::uint64_t{1} << 52U) - 1)));
        comparison.Compare(FromBits<double>(std::uint64_t{random()} >> 12U)); // a subnormal
        comparison.Compare(-FromBits<double>(bits));
    }
    comparison.ExpectNoneDiffers(std::uint64_t{5} * 2047);
}

TEST(NumericDigits, OfDecimalFractionsAsTheyAreTyped)
{
    std::mt19937_64 random(SEED + 3);
    CComparison comparison;
    for (int i = 0; i < 100000; ++i) {
        comparison.Compare(static_cast<double>(random() % 100000000) / 10000);
        comparison.Compare(static_cast<float>(random() % 100000) / 100);
    }
    comparison.ExpectNoneDiffers(200000);
}

TEST(NumericDigits, OfRandomBitPatternsOfFloat)
{
    std::mt19937_64 random(SEED + 4);
    CComparison comparison;
    for (int i = 0; i < 200000; ++i) {
        comparison.Compare(FromBits<float>(static_cast<std::uint32_t>(random())));
    }
    comparison.ExpectNoneDiffers(200000);
}

TEST(NumericDigits, OfRandomLongDoubles)
{
    std::mt19937_64 random(SEED + 5);
    CComparison comparison;
    for (int i = 0; i < 20000; ++i) {
        const int exponent =
            (i & 1) != 0 ? static_cast<int>(random() % 32900) - 16509 : static_cast<int>(random() % 380) - 290;
        const auto kept = static_cast<unsigned>(random() % 64);
        const auto mantissa = static_cast<long double>(std::uint64_t{random()} >> kept);
        comparison.Compare((random() & 1U) != 0 ? std::ldexp(mantissa, exponent) : -std::ldexp(mantissa, exponent));
    }
    comparison.Compare(std::numeric_limits<long double>::max());
    comparison.Compare(std::numeric_limits<long double>::denorm_min());
    comparison.Compare(-0.0L);
    comparison.Compare(0x1p64L);
    comparison.Compare(0x1p64L - 1);
    comparison.ExpectNoneDiffers(20005);
}

} // namespace
