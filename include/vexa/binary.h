#ifndef VEXA_BINARY_H
#define VEXA_BINARY_H

#include <cstddef>
#include <string>

#include <vexa/export.h>

namespace vexa {

/// A block of raw bytes, which owns them.
///
/// One zero byte always follows the bytes, so that the block can be read as C text. An empty block owns nothing and
/// points to the shared byte s_NullChar. Positions outside the block are ignored silently. An operation that cannot get
/// its memory throws std::bad_alloc and leaves the block as it was. Separate objects may be used from several threads;
/// one object belongs to one thread at a time.
class VEXA_API CBinary {
public:
    unsigned char* Data; ///< the bytes, then a zero byte; the address of s_NullChar while the block is empty
    unsigned long Size;  ///< number of bytes, without the zero byte

    /// The zero byte that all empty blocks share. Never to be written.
    static char s_NullChar;

    CBinary() noexcept;

    /// `n` zero bytes.
    explicit CBinary(unsigned long n);

    /// A copy of `len` bytes at `src`; empty when `src` is null.
    CBinary(const void* src, unsigned long len);

    /// The bytes of the string, embedded zeros included, without its terminator.
    CBinary(const std::string& s);

    CBinary(const CBinary& other);

    /// Takes the bytes over; `other` is left empty.
    CBinary(CBinary&& other) noexcept;

    ~CBinary();

    CBinary& operator=(const CBinary& other);
    CBinary& operator=(CBinary&& other) noexcept;

    /// The bytes of the string, embedded zeros included, without its terminator.
    CBinary& operator=(const std::string& s);

    /// The bytes, followed by a zero byte. Never null; nothing may be written through it while the block is empty.
    char* data() const { return reinterpret_cast<char*>(Data); }

    /// Makes the block `n` zero bytes long. A block that has this length already keeps its contents.
    void Reset(unsigned long n);

    /// Makes the block `n` bytes long and keeps the leading bytes; what is added is zero. Shortening keeps the memory,
    /// except for shortening to nothing, which releases it.
    void Resize(unsigned long n);

    /// Writes `len` bytes of `src` at `pos` and ends the block right after them: bytes before `pos` stay, whatever lay
    /// behind is cut off. Does nothing when `pos` is greater than Size. `src` may lie inside the block itself.
    void CopyFrom(const void* src, unsigned long len, unsigned long pos = 0);

    /// Copies the bytes from `pos` on to `dst`: `len` of them, or as many as there are. Does nothing when `pos` is
    /// greater than Size.
    void CopyTo(void* dst, unsigned long len, unsigned long pos = 0) const;

    /// Two lower-case hexadecimal digits for each byte, without prefix or separator.
    std::string AsHexString() const;
};

static_assert(sizeof(CBinary) == 16, "applications compile the size of a CBinary in");
static_assert(offsetof(CBinary, Data) == 0 && offsetof(CBinary, Size) == 8, "and the places of its fields");

/// True when both hold the same bytes.
VEXA_API bool operator==(const CBinary& left, const CBinary& right) noexcept;
VEXA_API bool operator!=(const CBinary& left, const CBinary& right) noexcept;

} // namespace vexa

#endif
