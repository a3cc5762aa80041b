#ifndef VEXA_TEXT_DIGITS_H
#define VEXA_TEXT_DIGITS_H

namespace vexa::text {

/// Adds the decimal digits from \p next on to \p value, modulo 2 to the 64. \return where they end; behind the last
/// one there must be a byte.
inline const char* ReadDigits(const char* next, unsigned long long& value) noexcept
{
    unsigned long long sum = 0;
    for (unsigned digit = static_cast<unsigned char>(*next) - '0'; digit <= 9;
         digit = static_cast<unsigned char>(*++next) - '0')
        sum = sum * 10 + digit;
    value = sum;
    return next;
}

} // namespace vexa::text

#endif
