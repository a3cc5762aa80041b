#ifndef VEXA_INTERCHANGE_TREE_NUMBER_H
#define VEXA_INTERCHANGE_TREE_NUMBER_H

#include <string_view>

/// \file
/// Numbers by their decimal digits, without loss and without memory.

namespace vexa::interchange {

/// A number of JSON's grammar taken apart: 0.D1D2D3... times ten to the exponent, where the first and the last digit
/// are not 0.
struct CDecimalText {
    bool IsNegative = false;
    std::string_view Digits; ///< with the point where it stands; empty for zero
    long long Exponent = 0;
    bool IsExponentExact = true; ///< else it is beyond any number that is calculated with
};

CDecimalText TakeApart(std::string_view number) noexcept;
/// Whether the decimal values are equal.
bool IsSameNumber(std::string_view left, std::string_view right) noexcept;
/// Less than 0 where the value of the left one is the smaller, 0 where they are equal, else more than 0. Of exponents
/// beyond any number that is calculated with, only the sign counts.
int CompareNumbers(std::string_view left, std::string_view right) noexcept;
/// The absolute value of a whole number. \return false where it has a fraction or is beyond the type.
bool ToMagnitude(const CDecimalText& number, unsigned long long& magnitude) noexcept;

} // namespace vexa::interchange

#endif
