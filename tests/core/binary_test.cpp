#include <vexa/binary.h>

#include <climits>
#include <cstring>
#include <new>
#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;
using vexa::CBinary;

std::string BytesOf(const CBinary& binary)
{
    EXPECT_EQ('\0', binary.data()[binary.Size]) << "the byte behind the block is not zero";
    return std::string(binary.data(), binary.Size);
}

void ExpectEmpty(const CBinary& binary)
{
    EXPECT_EQ(0U, binary.Size);
    EXPECT_EQ(&CBinary::s_NullChar, binary.data());
    EXPECT_EQ('\0', CBinary::s_NullChar);
}

CBinary Of(const std::string& bytes) { return CBinary(bytes); }

TEST(BinaryConstruction, OfNothingIsEmpty)
{
    ExpectEmpty(CBinary());
    ExpectEmpty(CBinary(0));
    ExpectEmpty(CBinary(nullptr, 5));
    ExpectEmpty(CBinary("abc", 0));
    ExpectEmpty(CBinary(""s));
}

TEST(BinaryConstruction, OfALengthGivesZeroBytes) { EXPECT_EQ("\0\0\0"s, BytesOf(CBinary(3))); }

TEST(BinaryConstruction, OfMemoryCopiesIt) { EXPECT_EQ("ab\0c"s, BytesOf(CBinary("ab\0cd", 4))); }

TEST(BinaryConstruction, OfAnotherCopiesTheBytes)
{
    const CBinary original = Of("abc");
    const CBinary copy(original);
    EXPECT_EQ("abc", BytesOf(copy));
    EXPECT_NE(original.data(), copy.data());
    ExpectEmpty(CBinary(CBinary()));
}

TEST(BinaryConstruction, MovingTakesTheBlockAndLeavesTheSourceEmpty)
{
    CBinary source = Of("abc");
    const char* block = source.data();
    const CBinary target(std::move(source));
    EXPECT_EQ(block, target.data());
    EXPECT_EQ("abc", BytesOf(target));
    ExpectEmpty(source);
}

TEST(BinaryAssignment, CopiesTheBytes)
{
    const CBinary source = Of("xyz");
    CBinary target = Of("abcd");
    target = source;
    EXPECT_EQ("xyz", BytesOf(target));
    EXPECT_EQ("xyz", BytesOf(source));
}

TEST(BinaryAssignment, ToItselfDoesNothing)
{
    CBinary binary = Of("abc");
    const char* block = binary.data();
    const CBinary& same = binary;
    binary = same;
    EXPECT_EQ(block, binary.data());
    EXPECT_EQ("abc", BytesOf(binary));
}

TEST(BinaryAssignment, OfAnEmptyOneEmpties)
{
    CBinary binary = Of("abc");
    const CBinary empty;
    binary = empty;
    ExpectEmpty(binary);
}

TEST(BinaryAssignment, MovingLeavesTheSourceEmptyAndToItselfKeepsTheBytes)
{
    CBinary source = Of("xyz");
    CBinary target = Of("abcd");
    target = std::move(source);
    EXPECT_EQ("xyz", BytesOf(target));
    ExpectEmpty(source);
    CBinary& same = target;
    target = std::move(same);
    EXPECT_EQ("xyz", BytesOf(target));
}

TEST(BinaryAssignment, OfAStringKeepsEmbeddedZeros)
{
    CBinary binary;
    binary = "a\0b\0"s;
    EXPECT_EQ("a\0b\0"s, BytesOf(binary));
    binary = ""s;
    ExpectEmpty(binary);
}

TEST(BinaryReset, ToTheSameLengthKeepsTheBytes)
{
    CBinary binary = Of("abc");
    const char* block = binary.data();
    binary.Reset(3);
    EXPECT_EQ("abc", BytesOf(binary));
    EXPECT_EQ(block, binary.data());
}

TEST(BinaryReset, ToAnotherLengthGivesZeroBytes)
{
    CBinary binary = Of("abc");
    binary.Reset(4);
    EXPECT_EQ("\0\0\0\0"s, BytesOf(binary));
    binary.Reset(2);
    EXPECT_EQ("\0\0"s, BytesOf(binary));
    binary.Reset(0);
    ExpectEmpty(binary);
}

TEST(BinaryResize, ShorteningKeepsTheLeadingBytesInTheSameBlock)
{
    CBinary binary = Of("abcd");
    const char* block = binary.data();
    binary.Resize(2);
    EXPECT_EQ(block, binary.data());
    EXPECT_EQ("ab", BytesOf(binary));
}

TEST(BinaryResize, LengtheningAddsZeroBytes)
{
    CBinary binary = Of("abcd");
    binary.Resize(6);
    EXPECT_EQ("abcd\0\0"s, BytesOf(binary));
    CBinary empty;
    empty.Resize(2);
    EXPECT_EQ("\0\0"s, BytesOf(empty));
}

TEST(BinaryResize, LengtheningAfterShorteningDoesNotBringBytesBack)
{
    CBinary binary = Of("abcd");
    binary.Resize(1);
    binary.Resize(4);
    EXPECT_EQ("a\0\0\0"s, BytesOf(binary));
}

TEST(BinaryResize, ToTheSameLengthDoesNothingAndToNothingReleasesTheBlock)
{
    CBinary binary = Of("abcd");
    binary.Resize(4);
    EXPECT_EQ("abcd", BytesOf(binary));
    binary.Resize(0);
    ExpectEmpty(binary);
    binary.Resize(0);
    ExpectEmpty(binary);
}

TEST(BinaryCopyFrom, AtTheEndAppends)
{
    CBinary binary = Of("abcd");
    binary.CopyFrom("xy", 2, 4);
    EXPECT_EQ("abcdxy", BytesOf(binary));
}

TEST(BinaryCopyFrom, BehindTheEndDoesNothing)
{
    CBinary binary = Of("abcd");
    binary.CopyFrom("xy", 2, 5);
    EXPECT_EQ("abcd", BytesOf(binary));
    CBinary empty;
    empty.CopyFrom("xy", 2, 1);
    ExpectEmpty(empty);
}

TEST(BinaryCopyFrom, InTheMiddleCutsTheTailOff)
{
    CBinary binary = Of("abcd");
    binary.CopyFrom("xy", 2, 1);
    EXPECT_EQ("axy", BytesOf(binary));
}

TEST(BinaryCopyFrom, OfTheSameLengthOverwritesInPlace)
{
    CBinary binary = Of("abcd");
    const char* block = binary.data();
    binary.CopyFrom("wxyz", 4, 0);
    EXPECT_EQ(block, binary.data());
    EXPECT_EQ("wxyz", BytesOf(binary));
}

TEST(BinaryCopyFrom, OfNothingCutsAtThePosition)
{
    CBinary binary = Of("abcd");
    binary.CopyFrom(nullptr, 0, 2);
    EXPECT_EQ("ab", BytesOf(binary));
    binary.CopyFrom("xy", 0, 0);
    ExpectEmpty(binary);
}

TEST(BinaryCopyFrom, OfANullSourceLeavesZeroBytes)
{
    CBinary binary = Of("abcd");
    binary.CopyFrom(nullptr, 2, 4);
    EXPECT_EQ("abcd\0\0"s, BytesOf(binary));
}

TEST(BinaryCopyFrom, TheSourceMayLieInsideTheBlock)
{
    CBinary binary = Of("abcd");
    binary.CopyFrom(binary.data() + 1, 2, 0);
    EXPECT_EQ("bc", BytesOf(binary));
    CBinary grown = Of("abcd");
    grown.CopyFrom(grown.data(), 4, 4);
    EXPECT_EQ("abcdabcd", BytesOf(grown));
    CBinary shifted = Of("abcd");
    shifted.CopyFrom(shifted.data(), 3, 1);
    EXPECT_EQ("aabc", BytesOf(shifted));
}

TEST(BinaryCopyTo, CopiesNoMoreThanThereIs)
{
    char buffer[9] = "########";
    Of("abcd").CopyTo(buffer, 10, 2);
    EXPECT_STREQ("cd######", buffer);
}

TEST(BinaryCopyTo, CopiesTheLengthThatIsAskedFor)
{
    char buffer[9] = "########";
    Of("abcd").CopyTo(buffer, 2, 1);
    EXPECT_STREQ("bc######", buffer);
}

TEST(BinaryCopyTo, ALengthNearTheLargestNumberDoesNotWrap)
{
    char buffer[9] = "########";
    Of("abcd").CopyTo(buffer, ULONG_MAX, 1);
    EXPECT_STREQ("bcd#####", buffer);
}

TEST(BinaryCopyTo, DoesNothingWhereThereIsNothingToCopy)
{
    char buffer[9] = "########";
    Of("abcd").CopyTo(buffer, 0, 0);
    Of("abcd").CopyTo(buffer, 1, 4);
    Of("abcd").CopyTo(buffer, 1, 5);
    CBinary().CopyTo(buffer, 1, 0);
    EXPECT_STREQ("########", buffer);
}

TEST(BinaryHex, GivesTwoLowerCaseDigitsForEachByte)
{
    EXPECT_EQ("00ab7f", Of("\x00\xAB\x7F"s).AsHexString());
    EXPECT_EQ("ff0910", Of("\xFF\x09\x10"s).AsHexString());
    EXPECT_EQ("", CBinary().AsHexString());
}

TEST(BinaryEquality, ComparesTheBytes)
{
    EXPECT_TRUE(Of("a\0b"s) == Of("a\0b"s));
    EXPECT_FALSE(Of("a\0b"s) == Of("a\0c"s));
    EXPECT_TRUE(Of("ab") != Of("abc"));
    EXPECT_FALSE(CBinary() != CBinary());
}

TEST(BinaryMemory, WithoutMemoryTheBlockStaysAsItWas)
{
    CBinary binary = Of("abcd");
    EXPECT_THROW(binary.Reset(ULONG_MAX), std::bad_alloc);
    EXPECT_EQ("abcd", BytesOf(binary));
    EXPECT_THROW(binary.Resize(ULONG_MAX), std::bad_alloc);
    EXPECT_EQ("abcd", BytesOf(binary));
    EXPECT_THROW(binary.CopyFrom("x", ULONG_MAX - 1, 3), std::bad_alloc);
    EXPECT_EQ("abcd", BytesOf(binary));
}

} // namespace
