#ifndef VEXA_INTERCHANGE_DECIMAL_DIGITS_H
#define VEXA_INTERCHANGE_DECIMAL_DIGITS_H

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace vexa::interchange {

/// A decimal text of JSON's grammar, taken apart.
struct CDecimalDigits {
    static constexpr long long MOST_EXPONENT = 100'000'000'000'000'000; // with room to calculate

    bool IsNegative = false;
    std::string_view Integer;
    std::string_view Fraction;
    long long Exponent = 0; ///< held within MOST_EXPONENT

    explicit CDecimalDigits(std::string_view digits)
    {
        IsNegative = !digits.empty() && digits.front() == '-';
        if (IsNegative) digits.remove_prefix(1);
        const std::size_t mark = std::min(digits.find_first_of("eE"), digits.size());
        if (mark < digits.size()) ReadExponent(digits.substr(mark + 1));
        const std::string_view mantissa = digits.substr(0, mark);
        const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
        Integer = mantissa.substr(0, point);
        if (point < mantissa.size()) Fraction = mantissa.substr(point + 1);
    }

    void ReadExponent(std::string_view text)
    {
        const bool isNegative = text.front() == '-';
        if (isNegative || text.front() == '+') text.remove_prefix(1);
        for (const char digit : text)
            Exponent = std::min(MOST_EXPONENT, Exponent * 10 + (digit - '0'));
        if (isNegative) Exponent = -Exponent;
    }
    std::size_t Count() const { return Integer.size() + Fraction.size(); }
    char At(std::size_t i) const { return i < Integer.size() ? Integer[i] : Fraction[i - Integer.size()]; }
    /// Where the point stands, counted from the first digit.
    long long Point() const { return static_cast<long long>(Integer.size()) + Exponent; }
    /// The number of the first digit that is not 0; Count() where there is none.
    std::size_t First() const
    {
        std::size_t first = 0;
        while (first < Count() && At(first) == '0')
            ++first;
        return first;
    }
};

} // namespace vexa::interchange

#endif
