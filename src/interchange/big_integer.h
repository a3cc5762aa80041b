#ifndef VEXA_INTERCHANGE_BIG_INTEGER_H
#define VEXA_INTERCHANGE_BIG_INTEGER_H

#include <string>
#include <string_view>

/// \file
/// Integers of any size, of bytes and of decimal digits. The time grows with the square of the size.

namespace vexa::interchange {

/// The decimal digits of an integer by its bytes, the highest first.
std::string DigitsOfBytes(std::string_view bytes);
/// The other way round, without zeros in front.
std::string BytesOfDigits(std::string_view digits);
/// Adds one to decimal digits.
void Increment(std::string& digits);
/// Takes one from decimal digits that are not 0.
void Decrement(std::string& digits);

} // namespace vexa::interchange

#endif
