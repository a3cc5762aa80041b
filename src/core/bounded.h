#ifndef VEXA_CORE_BOUNDED_H
#define VEXA_CORE_BOUNDED_H

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "core/c_locale.h"

// Copying and formatting that refuses instead of overrunning, in the manner of C11's Annex K. Our own, because packaged
// implementations refuse everything above 256 MiB and would drop a large text without a word.

namespace vexa::core {

/// The largest size that is believed. A room of capacity minus position wraps to more than this once the position has
/// passed the capacity, and is refused therefore.
constexpr std::size_t MAX_BOUNDED_SIZE = SIZE_MAX / 2;

/// True when `n` bytes at `a` and `n` bytes at `b` share a byte.
inline bool Overlap(const void* a, const void* b, std::size_t n) noexcept
{
    const auto first = reinterpret_cast<std::uintptr_t>(a);
    const auto second = reinterpret_cast<std::uintptr_t>(b);
    return first < second ? second - first < n : first - second < n;
}

/// Copies `n` bytes and returns 0, or leaves the destination as it was and returns EINVAL (a null pointer, overlapping
/// blocks) or ERANGE (a size over the limit, more bytes than the destination has).
inline int memcpy_s(void* dst, std::size_t dstSize, const void* src, std::size_t n) noexcept
{
    if (dst == nullptr || src == nullptr) {
        return EINVAL;
    }
    if (dstSize > MAX_BOUNDED_SIZE || n > dstSize) {
        return ERANGE;
    }
    if (Overlap(dst, src, n)) {
        return EINVAL;
    }
    // Not memcpy: GCC would warn of the very overlap that has just been refused.
    std::memmove(dst, src, n);
    return 0;
}

/// Sets `n` bytes to `c` and returns 0, or leaves the destination as it was and returns EINVAL or ERANGE, as memcpy_s.
inline int memset_s(void* dst, std::size_t dstSize, int c, std::size_t n) noexcept
{
    if (dst == nullptr) {
        return EINVAL;
    }
    if (dstSize > MAX_BOUNDED_SIZE || n > dstSize) {
        return ERANGE;
    }
    std::memset(dst, c, n);
    return 0;
}

/// True when a format asks for a store through one of its arguments ("%n" in any spelling): a text from outside that
/// was taken for a format would choose where to write.
inline bool StoresThroughArgument(const char* format) noexcept
{
    while ((format = std::strchr(format, '%')) != nullptr) {
        format += 1 + std::strspn(format + 1, "-+ #0'I123456789$*.");
        format += std::strspn(format, "hlLqjzt");
        if (*format == 'n') {
            return true;
        }
        if (*format != '\0') {
            ++format;
        }
    }
    return false;
}

/// Formats at most `count` characters and a terminating zero into `dst`, under the "C" locale. Returns the length, or
/// -1 when the text was cut or could not be formed, with `dst` terminated, or when the arguments are refused, as a
/// format with "%n" is.
__attribute__((format(printf, 4, 0))) inline int vsnprintf_s(char* dst, std::size_t dstSize, std::size_t count,
                                                             const char* format, std::va_list args) noexcept
{
    if (dst == nullptr || dstSize == 0 || dstSize > MAX_BOUNDED_SIZE) {
        return -1;
    }
    dst[0] = '\0';
    if (format == nullptr || count > MAX_BOUNDED_SIZE || StoresThroughArgument(format)) {
        return -1;
    }
    const std::size_t room = count < dstSize ? count + 1 : dstSize;
    const CLocaleScope scope;
    const int length = std::vsnprintf(dst, room, format, args);
    if (length < 0) {
        dst[room - 1] = '\0';
    }
    return length >= 0 && static_cast<std::size_t>(length) < room ? length : -1;
}

/// Formats a text and a terminating zero into `dst`, under the "C" locale, and returns the length. A text that does not
/// fit whole is refused: -1, and `dst` becomes the empty text if it has room for that.
__attribute__((format(printf, 3, 0))) inline int vsprintf_s(char* dst, std::size_t dstSize, const char* format,
                                                            std::va_list args) noexcept
{
    const int length = vsnprintf_s(dst, dstSize, dstSize, format, args);
    if (length < 0 && dst != nullptr && dstSize != 0 && dstSize <= MAX_BOUNDED_SIZE) {
        dst[0] = '\0';
    }
    return length;
}

} // namespace vexa::core

#endif
