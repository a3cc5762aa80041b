#ifndef VEXA_METADATA_H
#define VEXA_METADATA_H

#include <type_traits>

/// \file
/// What a description may say of a class beyond its attributes, for the standard formats (vexa/interchange.h).

namespace vexa {

/// How an attribute's name becomes its key.
///
/// A name is cut into words: underscores separate them; a capital letter begins one behind a small letter or a digit,
/// and so does the last of several capital letters when a small one follows. Digits belong to what is before them, and
/// underscores at either end are left out. `parseHTTPRequest_v2` has the words parse, HTTP, Request, v2. The letters
/// are those of ASCII; every other byte counts as a small one. A name of nothing but underscores stays as it is.
enum class KeyStyle : unsigned char {
    AS_IT_IS,
    CAMEL, ///< `parseHttpRequestV2`
    SNAKE, ///< `parse_http_request_v2`
    KEBAB  ///< `parse-http-request-v2`
};

/// What becomes of a key that the class does not have.
enum class UnknownKeys : unsigned char {
    BY_CLASS, ///< as the class's description says; a problem where it says nothing
    PROBLEM,
    SKIP,
    KEEP ///< it is kept in the attribute that KeepsUnknown() marks; a problem in a class without one
};

/// One end of a range, as it is given: integers keep every digit.
struct CBound {
    bool IsInteger = true;
    bool IsUnsigned = false; ///< Integer holds the bits of an unsigned long long
    long long Integer = 0;
    double Floating = 0;

    constexpr CBound() noexcept = default;
    template<class Number, class = std::enable_if_t<std::is_arithmetic_v<Number>>>
    constexpr CBound(Number number) noexcept
        : IsInteger(std::is_integral_v<Number>), IsUnsigned(std::is_unsigned_v<Number>)
    {
        if constexpr (std::is_integral_v<Number>)
            Integer = static_cast<long long>(number);
        else
            Floating = static_cast<double>(number);
    }
};

} // namespace vexa

#endif
