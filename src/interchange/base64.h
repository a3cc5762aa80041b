#ifndef VEXA_INTERCHANGE_BASE64_H
#define VEXA_INTERCHANGE_BASE64_H

#include <cstddef>

namespace vexa::interchange {

/// The alphabet of RFC 4648, section 4; what a text's last four characters lack is filled with '='.
inline constexpr char BASE64_DIGITS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

/// Characters that so many bytes take.
constexpr std::size_t Base64Length(std::size_t bytes) noexcept { return (bytes + 2) / 3 * 4; }

/// Writes Base64Length(\p length) characters. \return their end.
inline char* WriteBase64(char* at, const unsigned char* bytes, std::size_t length) noexcept
{
    for (; length != 0; bytes += 3) {
        const std::size_t taken = length < 3 ? length : 3;
        const unsigned int second = taken > 1 ? bytes[1] : 0U;
        const unsigned int third = taken > 2 ? bytes[2] : 0U;
        const unsigned int triple = static_cast<unsigned int>(bytes[0]) << 16U | second << 8U | third;
        at[0] = BASE64_DIGITS[triple >> 18U];
        at[1] = BASE64_DIGITS[triple >> 12U & 0x3FU];
        at[2] = taken > 1 ? BASE64_DIGITS[triple >> 6U & 0x3FU] : '=';
        at[3] = taken > 2 ? BASE64_DIGITS[triple & 0x3FU] : '=';
        at += 4;
        length -= taken;
    }
    return at;
}

} // namespace vexa::interchange

#endif
