// The text of basic values in a buffer that has too little room.

#include <vector>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/conversion_reading.h"
#include "support/time_zone.h"

namespace {

using namespace vexa_test;

/// What a write leaves: the whole buffer, which was filled with '#', and the position.
struct Written {
    std::string Buffer;
    unsigned long Position;
};

/// Writes at a position into a buffer of which only the first bytes are named as its capacity.
Written WriteWithRoom(const Ref& source, unsigned long position, unsigned long capacity, bool escape = false)
{
    std::string buffer(200, '#');
    source.AppendToString(buffer.data(), position, capacity, escape);
    return {buffer, position};
}

std::string Filled(const std::string& start) { return start + std::string(200 - start.size(), '#'); }

void ExpectWritten(const Written& written, const std::string& start, unsigned long position)
{
    EXPECT_EQ(written.Buffer, Filled(start));
    EXPECT_EQ(written.Position, position);
}

/// A reference to a directly held value, which must outlive it.
template<class T>
Ref RefTo(const T& value)
{
    return Ref(vexa::CGnlTypeInfor(BasicType<T>::Code), &value);
}

/// A text that is copied in one piece: written where it fits, and counted everywhere.
void ExpectCopied(const Ref& source, const std::string& text)
{
    SCOPED_TRACE(text);
    const unsigned long length = text.size();
    ExpectWritten(WriteWithRoom(source, 2, 2 + length), "##" + text, 2 + length);
    ExpectWritten(WriteWithRoom(source, 2, 2 + length - 1), "", 2 + length);
    ExpectWritten(WriteWithRoom(source, 2, 2), "", 2 + length);
    ExpectWritten(WriteWithRoom(source, 2, 0), "", 2 + length);
}

TEST(BasicTextRoomTest, ATextThatDoesNotFitIsLeftOutButCounted)
{
    const TimeZone zone("UTC0");
    ExpectCopied(Ref(), "NULL");
    const unsigned char memory[1] = {0};
    ExpectCopied(Ref(vexa::CGnlTypeInfor(0), memory), "unkown");
    ExpectCopied(RefTo(true), "true");
    ExpectCopied(RefTo(false), "false");
    ExpectCopied(RefTo(C('x')), "x");
    ExpectCopied(RefTo(std::string("a/b")), "a/b");
    ExpectCopied(RefTo(TextCharacters("a/b")), "a/b");
    ExpectCopied(RefTo(vexa::CBinary(std::string("ab"))), "6162");
    ExpectCopied(RefTo(vexa::CNumeric(std::string("-1.50"))), "-1.50");
    ExpectCopied(RefTo(vexa::CDateTime(1577934245L, 0L)), "2020-01-02 03:04:05");
}

TEST(BasicTextRoomTest, ANullAtTheEndOfTheCapacityMovesThePositionByFour)
{
    Held<int> null(HoldingForm::MayNull, 0, true);
    ExpectWritten(WriteWithRoom(null.Ref(), 10, 10), "", 14);
}

TEST(BasicTextRoomTest, TheDigitsOfAnIntegerAreWrittenBeyondTheCapacity)
{
    for (unsigned long capacity : {0UL, 2UL, 3UL}) {
        SCOPED_TRACE(capacity);
        ExpectWritten(WriteWithRoom(RefTo(short{-32768}), 2, capacity), "##-32768", 8);
        ExpectWritten(WriteWithRoom(RefTo(0), 2, capacity), "##0", 3);
        ExpectWritten(WriteWithRoom(RefTo(-12), 2, capacity), "##-12", 5);
        ExpectWritten(WriteWithRoom(RefTo(LONG_MIN), 2, capacity), "##-9223372036854775808", 22);
        ExpectWritten(WriteWithRoom(RefTo(static_cast<unsigned char>(255)), 2, capacity), "##255", 5);
        ExpectWritten(WriteWithRoom(RefTo(static_cast<unsigned short>(65535)), 2, capacity), "##65535", 7);
        ExpectWritten(WriteWithRoom(RefTo(4294967295U), 2, capacity), "##4294967295", 12);
        ExpectWritten(WriteWithRoom(RefTo(ULONG_MAX), 2, capacity), "##18446744073709551615", 22);
    }
}

TEST(BasicTextRoomTest, ATimeIsWrittenBeyondTheCapacity)
{
    const tm time = MakeTm(2020, 1, 2, 3, 4, 5);
    for (unsigned long capacity : {0UL, 2UL, 10UL}) {
        ExpectWritten(WriteWithRoom(RefTo(time), 2, capacity), "##2020-01-02 03:04:05", 21);
    }
}

/// A formatted number needs room for a zero behind it, though it leaves none; without that room the position goes back
/// by one.
template<class T>
void ExpectFormatted(T value, const std::string& text)
{
    SCOPED_TRACE(text);
    const Ref source = RefTo(value);
    const unsigned long length = text.size();
    ExpectWritten(WriteWithRoom(source, 2, 2 + length + 1), "##" + text, 2 + length);
    for (unsigned long room : {length, length - 1, 1UL}) {
        Written refused = WriteWithRoom(source, 2, 2 + room);
        EXPECT_EQ(refused.Position, 1U);
        // The first byte of the room may have become the end of an empty text.
        if (refused.Buffer[2] == '\0') refused.Buffer[2] = '#';
        EXPECT_EQ(refused.Buffer, Filled(""));
    }
    ExpectWritten(WriteWithRoom(source, 2, 2), "", 1);
    ExpectWritten(WriteWithRoom(source, 2, 0), "", 1);
    ExpectWritten(WriteWithRoom(source, 0, 0), "", ULONG_MAX);
}

TEST(BasicTextRoomTest, AFormattedNumberThatDoesNotFitMovesThePositionBackByOne)
{
    ExpectFormatted(LLONG_MIN, "-9223372036854775808");
    ExpectFormatted(ULLONG_MAX, "18446744073709551615");
    ExpectFormatted(1.5F, "1.500000");
    ExpectFormatted(-2.25, "-2.250000");
    ExpectFormatted(2.5L, "2.500000");
}

TEST(BasicTextRoomTest, EscapedTextIsWrittenPieceByPiece)
{
    const std::string text = "ab/cd";
    ExpectWritten(WriteWithRoom(RefTo(text), 2, 8, true), "##ab\\/cd", 8);
    ExpectWritten(WriteWithRoom(RefTo(text), 2, 7, true), "##ab\\/", 8);
    ExpectWritten(WriteWithRoom(RefTo(text), 2, 5, true), "##ab", 8);
    ExpectWritten(WriteWithRoom(RefTo(text), 2, 3, true), "", 8);
    ExpectWritten(WriteWithRoom(RefTo(text), 2, 0, true), "", 8);
    ExpectWritten(WriteWithRoom(RefTo(TextCharacters("ab/cd")), 2, 7, true), "##ab\\/", 8);
    ExpectWritten(WriteWithRoom(RefTo(C(1)), 2, 7, true), "", 8);
    ExpectWritten(WriteWithRoom(RefTo(C(1)), 2, 8, true), "##\\u0001", 8);
}

TEST(BasicTextRoomTest, AnEmptyTextNeedsNoRoom)
{
    for (bool escape : {false, true}) {
        ExpectWritten(WriteWithRoom(RefTo(std::string()), 2, 0, escape), "", 2);
        ExpectWritten(WriteWithRoom(RefTo(TextCharacters("")), 2, 0, escape), "", 2);
        ExpectWritten(WriteWithRoom(RefTo(vexa::CBinary()), 2, 0, escape), "", 2);
    }
}

} // namespace
