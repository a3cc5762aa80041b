#ifndef VEXA_NUMERIC_H
#define VEXA_NUMERIC_H

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <type_traits>

#include <vexa/export.h>
#include <vexa/value_state.h>

namespace vexa {

/// A decimal number, kept as its digits in text so that no binary rounding enters.
///
/// The digits are kept as they were given, leading and trailing zeros included; only comparisons look past those zeros.
/// Text that is no number is not thrown or logged: it makes the state VS_ERROR, which renders as "(NaN)". Separate
/// objects may be used from several threads; one object belongs to one thread at a time.
class VEXA_API CNumeric {
public:
    std::uint32_t State = Enum::VS_NULL; ///< one of Enum::ValueStateEnum
    std::uint8_t Negative = 0;           ///< 1 for a negative number
    std::string IntegerDigits;           ///< digits before the decimal point; may be empty
    std::string FractionDigits;          ///< digits after the decimal point; may be empty

    /// Null.
    CNumeric() = default;

    /// Reads the text, as operator= does.
    CNumeric(const std::string& text);

    CNumeric(long value);
    CNumeric(int value);

    /// Every digit of the binary value's exact decimal expansion, up to 256 of them after the point, without trailing
    /// zeros. NaN and the infinities give VS_ERROR.
    CNumeric(long double value);
    CNumeric(double value);
    CNumeric(float value);

    /// Reads the text up to its first zero byte: blanks, a sign, blanks, then digits and points to the very end. Of
    /// several points the first one counts. An exponent, a trailing blank, an empty text or any other character gives
    /// VS_ERROR, without digits.
    CNumeric& operator=(const std::string& text);

    /// Makes the number null.
    void Init();

    /// "(null)", "(NaN)", or the sign, the digits and the point as they were given; no point without fraction digits.
    std::string AsString() const;

    /// True for a valid number all of whose digits are zero, whatever its sign.
    bool IsZero() const;

    /// True when both are valid and have the same value, or are not valid and have the same state.
    ///
    /// A valid number and one that is not are equal when their signs are the same: a null number equals every valid
    /// number that is not negative.
    bool IsEqu(const CNumeric& other) const;
};

static_assert(sizeof(CNumeric) == 72, "applications compile the size of a CNumeric in");
static_assert(offsetof(CNumeric, State) == 0 && offsetof(CNumeric, Negative) == 4 &&
                  offsetof(CNumeric, IntegerDigits) == 8 && offsetof(CNumeric, FractionDigits) == 40,
              "and the places of its fields");

/// IsEqu and its opposite.
VEXA_API bool operator==(const CNumeric& left, const CNumeric& right);
VEXA_API bool operator!=(const CNumeric& left, const CNumeric& right);
namespace detail {

/// Takes a C text; never a number, not even 0, which would pass for a null pointer.
template<class T>
using IfNumericText =
    std::enable_if_t<std::is_pointer_v<std::decay_t<const T&>> && std::is_convertible_v<const T&, const char*>>;

} // namespace detail

/// Against a C text, read as a number. The text must not be null.
template<class Text, class = detail::IfNumericText<Text>>
bool operator==(const CNumeric& left, const Text& right)
{
    return left == CNumeric(std::string(right));
}
template<class Text, class = detail::IfNumericText<Text>>
bool operator!=(const CNumeric& left, const Text& right)
{
    return !(left == right);
}
template<class Text, class = detail::IfNumericText<Text>>
bool operator==(const Text& left, const CNumeric& right)
{
    return right == left;
}
template<class Text, class = detail::IfNumericText<Text>>
bool operator!=(const Text& left, const CNumeric& right)
{
    return !(right == left);
}

/// Writes AsString().
VEXA_API std::ostream& operator<<(std::ostream& out, const CNumeric& value);

/// Reads one word, delimited by white space, and assigns it as text. When there is no word, the number is VS_ERROR.
VEXA_API std::istream& operator>>(std::istream& in, CNumeric& value);

} // namespace vexa

#endif
