#include <vexa/binary.h>

#include <cstdint>
#include <cstring>
#include <functional>
#include <new>
#include <utility>

#include "core/bounded.h"
#include "core/value_text.h"

namespace vexa {

namespace {

unsigned char* SharedEmpty() noexcept { return reinterpret_cast<unsigned char*>(&CBinary::s_NullChar); }

void Release(unsigned char* data) noexcept
{
    if (data != SharedEmpty()) {
        delete[] data;
    }
}

/// `n` zero bytes and the zero byte behind them. The length is checked here because n + 1 may wrap to nothing.
unsigned char* Allocate(unsigned long n)
{
    if (n >= static_cast<unsigned long>(PTRDIFF_MAX)) {
        throw std::bad_array_new_length();
    }
    return new unsigned char[n + 1]();
}

} // namespace

char CBinary::s_NullChar = '\0';

CBinary::CBinary() noexcept : Data(SharedEmpty()), Size(0) {}

CBinary::CBinary(unsigned long n) : CBinary() { Reset(n); }

CBinary::CBinary(const void* src, unsigned long len) : CBinary()
{
    if (src != nullptr) {
        CopyFrom(src, len, 0);
    }
}

CBinary::CBinary(const std::string& s) : CBinary(s.data(), s.size()) {}

CBinary::CBinary(const CBinary& other) : CBinary(other.Data, other.Size) {}

CBinary::CBinary(CBinary&& other) noexcept : CBinary()
{
    std::swap(Data, other.Data);
    std::swap(Size, other.Size);
}

CBinary::~CBinary() { Release(Data); }

CBinary& CBinary::operator=(const CBinary& other)
{
    if (this != &other) {
        CopyFrom(other.Data, other.Size, 0);
    }
    return *this;
}

CBinary& CBinary::operator=(CBinary&& other) noexcept
{
    CBinary taken(std::move(other));
    std::swap(Data, taken.Data);
    std::swap(Size, taken.Size);
    return *this;
}

CBinary& CBinary::operator=(const std::string& s)
{
    CopyFrom(s.data(), s.size(), 0);
    return *this;
}

void CBinary::Reset(unsigned long n)
{
    if (n == Size) {
        return;
    }
    unsigned char* fresh = n != 0 ? Allocate(n) : SharedEmpty();
    Release(Data);
    Data = fresh;
    Size = n;
}

void CBinary::Resize(unsigned long n)
{
    if (n == 0 || n == Size) {
        Reset(n);
        return;
    }
    if (n > Size) {
        unsigned char* grown = Allocate(n);
        core::memcpy_s(grown, n + 1, Data, Size);
        Release(Data);
        Data = grown;
    }
    Size = n;
    Data[n] = 0;
}

void CBinary::CopyFrom(const void* src, unsigned long len, unsigned long pos)
{
    if (pos > Size) {
        return;
    }
    if (len > static_cast<unsigned long>(PTRDIFF_MAX) - pos) {
        throw std::bad_array_new_length();
    }
    const auto* first = static_cast<const unsigned char*>(src);
    const std::less_equal<const unsigned char*> notBehind;
    if (len != 0 && Size != 0 && notBehind(Data, first) && notBehind(first, Data + Size)) {
        // The block is about to be replaced or cut under its own bytes.
        const CBinary copy(src, len);
        CopyFrom(copy.Data, len, pos);
        return;
    }
    if (pos == 0) {
        Reset(len);
    } else {
        Resize(pos + len);
    }
    if (len != 0) {
        core::memcpy_s(Data + pos, Size - pos, src, len);
        Data[Size] = 0;
    }
}

void CBinary::CopyTo(void* dst, unsigned long len, unsigned long pos) const
{
    if (len == 0 || Size == 0 || pos > Size) {
        return;
    }
    const unsigned long available = Size - pos;
    const unsigned long n = len > available ? available : len;
    core::memcpy_s(dst, n, Data + pos, n);
}

std::string CBinary::AsHexString() const
{
    std::string text(core::TextLength(*this), '\0');
    core::WriteText(text.data(), *this);
    return text;
}

char* core::WriteText(char* at, const CBinary& value) noexcept
{
    static constexpr char DIGITS[] = "0123456789abcdef";
    for (unsigned long i = 0; i < value.Size; ++i) {
        *at++ = DIGITS[value.Data[i] >> 4U];
        *at++ = DIGITS[value.Data[i] & 0x0FU];
    }
    return at;
}

bool operator==(const CBinary& left, const CBinary& right) noexcept
{
    return left.Size == right.Size && std::memcmp(left.Data, right.Data, left.Size) == 0;
}

bool operator!=(const CBinary& left, const CBinary& right) noexcept { return !(left == right); }

} // namespace vexa
