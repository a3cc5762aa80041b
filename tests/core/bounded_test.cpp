#include "core/bounded.h"

#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

#include "support/decimal_comma.h"

namespace {

namespace core = vexa::core;

constexpr std::size_t kTooBig = SIZE_MAX / 2 + 1;

int Format(char* dst, std::size_t dstSize, std::size_t count, const char* format, ...)
{
    std::va_list args;
    va_start(args, format);
    const int result = core::vsnprintf_s(dst, dstSize, count, format, args);
    va_end(args);
    return result;
}

int FormatWhole(char* dst, std::size_t dstSize, const char* format, ...)
{
    std::va_list args;
    va_start(args, format);
    const int result = core::vsprintf_s(dst, dstSize, format, args);
    va_end(args);
    return result;
}

std::string Bytes(const char (&buffer)[9]) { return std::string(buffer, 8); }

TEST(BoundedCopy, CopiesWhatFitsExactly)
{
    char buffer[9] = "........";
    EXPECT_EQ(0, core::memcpy_s(buffer, 4, "abcd", 4));
    EXPECT_EQ("abcd....", Bytes(buffer));
}

TEST(BoundedCopy, RefusesMoreThanTheDestinationHoldsAndLeavesItAlone)
{
    char buffer[9] = "........";
    EXPECT_EQ(ERANGE, core::memcpy_s(buffer, 3, "abcd", 4));
    EXPECT_EQ("........", Bytes(buffer));
}

TEST(BoundedCopy, RefusesNullPointers)
{
    char buffer[9] = "........";
    EXPECT_EQ(EINVAL, core::memcpy_s(nullptr, 4, "abcd", 4));
    EXPECT_EQ(EINVAL, core::memcpy_s(buffer, 4, nullptr, 4));
    EXPECT_EQ("........", Bytes(buffer));
}

TEST(BoundedCopy, RefusesARoomOfMoreThanHalfTheAddressSpace)
{
    char buffer[9] = "........";
    EXPECT_EQ(ERANGE, core::memcpy_s(buffer, kTooBig, "abcd", 4));
    EXPECT_EQ("........", Bytes(buffer));
    EXPECT_EQ(0, core::memcpy_s(buffer, kTooBig - 1, "abcd", 4));
    EXPECT_EQ("abcd....", Bytes(buffer));
}

TEST(BoundedCopy, RefusesTheWrappedRoomOfAPositionBeyondTheCapacity)
{
    char buffer[9] = "........";
    const unsigned long capacity = 2;
    const unsigned long position = 3;
    EXPECT_EQ(ERANGE, core::memcpy_s(buffer + position, capacity - position, "a", 1));
    EXPECT_EQ("........", Bytes(buffer));
}

TEST(BoundedCopy, RefusesOverlappingBlocks)
{
    char buffer[9] = "abcdefgh";
    EXPECT_EQ(EINVAL, core::memcpy_s(buffer + 3, 4, buffer, 4));
    EXPECT_EQ(EINVAL, core::memcpy_s(buffer, 4, buffer + 3, 4));
    EXPECT_EQ("abcdefgh", Bytes(buffer));
    EXPECT_EQ(0, core::memcpy_s(buffer + 4, 4, buffer, 4));
    EXPECT_EQ("abcdabcd", Bytes(buffer));
}

TEST(BoundedSet, SetsTheBytes)
{
    char buffer[9] = "........";
    EXPECT_EQ(0, core::memset_s(buffer, 8, 'x', 3));
    EXPECT_EQ("xxx.....", Bytes(buffer));
}

TEST(BoundedSet, RefusesNullAndWhatDoesNotFit)
{
    char buffer[9] = "........";
    EXPECT_EQ(EINVAL, core::memset_s(nullptr, 8, 'x', 3));
    EXPECT_EQ(ERANGE, core::memset_s(buffer, 2, 'x', 3));
    EXPECT_EQ(ERANGE, core::memset_s(buffer, kTooBig, 'x', 3));
    EXPECT_EQ("........", Bytes(buffer));
}

TEST(BoundedFormat, ReturnsTheLengthOfATextThatFits)
{
    char buffer[9] = "........";
    EXPECT_EQ(4, Format(buffer, 8, 4, "%d", 1234));
    EXPECT_EQ(std::string("1234\0...", 8), Bytes(buffer));
}

TEST(BoundedFormat, KeepsCountCharactersOfALongerTextAndSaysSo)
{
    char buffer[9] = "........";
    EXPECT_EQ(-1, Format(buffer, 8, 4, "%d", 12345));
    EXPECT_EQ(std::string("1234\0...", 8), Bytes(buffer));
}

TEST(BoundedFormat, KeepsWhatTheBufferHoldsWhenCountIsGreater)
{
    char buffer[9] = "........";
    EXPECT_EQ(-1, Format(buffer, 4, 100, "%d", 12345));
    EXPECT_EQ(std::string("123\0....", 8), Bytes(buffer));
}

TEST(BoundedFormat, RefusesNullPointersAndSizesOverTheLimit)
{
    char buffer[9] = "........";
    EXPECT_EQ(-1, Format(nullptr, 8, 4, "a"));
    EXPECT_EQ(-1, Format(buffer, kTooBig, 4, "a"));
    EXPECT_EQ(-1, Format(buffer, 0, 4, "a"));
    EXPECT_EQ("........", Bytes(buffer));
    EXPECT_EQ(-1, Format(buffer, 8, 4, nullptr));
    EXPECT_EQ(std::string("\0.......", 8), Bytes(buffer));
}

TEST(BoundedFormat, DoesNotFollowTheLocaleOfTheCLibrary)
{
    const vexa_test::CDecimalComma comma;
    if (!comma.Found()) {
        GTEST_SKIP() << "no locale de_DE.UTF-8";
    }
    char buffer[9] = "........";
    EXPECT_EQ(3, Format(buffer, 8, 7, "%.1f", 1.5));
    EXPECT_EQ(std::string("1.5\0....", 8), Bytes(buffer));
}

TEST(BoundedFormat, LeavesTheThreadsOwnLocaleInPlace)
{
    const locale_t own = newlocale(LC_ALL_MASK, "C.UTF-8", nullptr);
    ASSERT_NE(locale_t{}, own);
    const locale_t previous = uselocale(own);
    char buffer[9] = "........";
    EXPECT_EQ(1, Format(buffer, 8, 7, "%d", 1));
    EXPECT_EQ(own, uselocale(previous));
    freelocale(own);
}

TEST(BoundedWholeFormat, FormatsATextThatFitsWithItsTerminator)
{
    char buffer[9] = "........";
    EXPECT_EQ(3, FormatWhole(buffer, 4, "%d", 123));
    EXPECT_EQ(std::string("123\0....", 8), Bytes(buffer));
}

TEST(BoundedWholeFormat, LeavesTheEmptyTextWhenTheTerminatorDoesNotFit)
{
    char buffer[9] = "........";
    EXPECT_EQ(-1, FormatWhole(buffer, 4, "%d", 1234));
    EXPECT_EQ('\0', buffer[0]);
    EXPECT_EQ("....", Bytes(buffer).substr(4));
}

TEST(BoundedWholeFormat, WritesNothingIntoAWrappedRoom)
{
    char buffer[9] = "........";
    EXPECT_EQ(-1, FormatWhole(buffer, SIZE_MAX, "%d", 1));
    EXPECT_EQ(-1, FormatWhole(buffer, 0, "%d", 1));
    EXPECT_EQ("........", Bytes(buffer));
}

} // namespace
