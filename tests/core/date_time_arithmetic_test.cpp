#include <vexa/date_time.h>

#include <climits>
#include <cstdint>

#include <gtest/gtest.h>

namespace {

using vexa::CDateTime;
using vexa::Enum::VS_ERROR;
using vexa::Enum::VS_NULL;
using vexa::Enum::VS_VALID;

constexpr std::uint64_t kTop = 1ULL << 63;

CDateTime OfWord(std::uint64_t word)
{
    CDateTime value(0, 0);
    value.TimeWord = word;
    return value;
}

/// Packed dates, in their order.
CDateTime Packed(std::uint64_t fields) { return OfWord(kTop | fields); }

TEST(DateTimeArithmetic, AddsEveryUnitInMilliseconds)
{
    EXPECT_EQ(1007U, (CDateTime(1, 0) += 7).msecs());
    EXPECT_EQ(1007U, CDateTime(1, 0).AddMSec(7).msecs());
    EXPECT_EQ(3000U, CDateTime(1, 0).AddSec(2).msecs());
    EXPECT_EQ(121000U, CDateTime(1, 0).AddMin(2).msecs());
    EXPECT_EQ(7201000U, CDateTime(1, 0).AddHour(2).msecs());
    EXPECT_EQ(172801000U, CDateTime(1, 0).AddDay(2).msecs());
}

TEST(DateTimeArithmetic, SubtractsEveryUnitInMilliseconds)
{
    constexpr std::uint64_t kStart = 500000000;
    const CDateTime start = OfWord(kStart);
    EXPECT_EQ(kStart - 7, (CDateTime(start) -= 7).msecs());
    EXPECT_EQ(kStart - 7, CDateTime(start).SubMSec(7).msecs());
    EXPECT_EQ(kStart - 2000, CDateTime(start).SubSec(2).msecs());
    EXPECT_EQ(kStart - 120000, CDateTime(start).SubMin(2).msecs());
    EXPECT_EQ(kStart - 7200000, CDateTime(start).SubHour(2).msecs());
    EXPECT_EQ(kStart - 172800000, CDateTime(start).SubDay(2).msecs());
}

TEST(DateTimeArithmetic, NegativeAmountsGoTheOtherWay)
{
    EXPECT_EQ(1000U, CDateTime(3, 0).AddSec(-2).msecs());
    EXPECT_EQ(5000U, CDateTime(3, 0).SubSec(-2).msecs());
}

TEST(DateTimeArithmetic, LargeAmountsDoNotOverflow32Bits)
{
    EXPECT_EQ(2147483647ULL * 86400000, CDateTime(0, 0).AddDay(INT_MAX).msecs());
    EXPECT_EQ(2147483648ULL * 86400000, CDateTime(0, 0).SubDay(INT_MIN).msecs());
    EXPECT_EQ(2147483647ULL * 3600000, CDateTime(0, 0).AddHour(INT_MAX).msecs());
    EXPECT_EQ(static_cast<unsigned long>(LONG_MAX), CDateTime(0, 0).AddMSec(LONG_MAX).msecs());
}

TEST(DateTimeArithmetic, GoingBackPast1970WrapsToTheFarFuture)
{
    CDateTime value(0, 0);
    value -= 1;
    EXPECT_EQ(kTop - 1, value.TimeWord);
    EXPECT_EQ(unsigned{VS_VALID}, value.State);
    EXPECT_EQ(0U, CDateTime(0, 0).SubMSec(LONG_MIN).TimeWord);
}

TEST(DateTimeArithmetic, ReturnsTheObjectItself)
{
    CDateTime value(0, 0);
    EXPECT_EQ(&value, &(value += 1));
    EXPECT_EQ(&value, &(value -= 1));
    EXPECT_EQ(&value, &value.AddDay(1).SubDay(1).AddHour(1).SubHour(1).AddMin(1).SubMin(1));
    EXPECT_EQ(&value, &value.AddSec(1).SubSec(1).AddMSec(1).SubMSec(1));
    EXPECT_EQ(0U, value.TimeWord);
}

TEST(DateTimeArithmetic, ADateBefore1970BecomesAnErrorAndKeepsItsWord)
{
    CDateTime (*const steps[])(CDateTime) = {
        [](CDateTime t) { return t += 1; },       [](CDateTime t) { return t -= 1; },
        [](CDateTime t) { return t.AddDay(1); },  [](CDateTime t) { return t.SubDay(1); },
        [](CDateTime t) { return t.AddHour(1); }, [](CDateTime t) { return t.SubHour(1); },
        [](CDateTime t) { return t.AddMin(1); },  [](CDateTime t) { return t.SubMin(1); },
        [](CDateTime t) { return t.AddSec(1); },  [](CDateTime t) { return t.SubSec(1); },
        [](CDateTime t) { return t.AddMSec(0); }, [](CDateTime t) { return t.SubMSec(0); },
    };
    for (const auto step : steps) {
        const CDateTime result = step(Packed(5));
        EXPECT_EQ(unsigned{VS_ERROR}, result.State);
        EXPECT_EQ(kTop | 5, result.TimeWord);
    }
}

TEST(DateTimeArithmetic, TheStateOfACountedTimeIsNotTouched)
{
    CDateTime null;
    null.AddSec(1);
    EXPECT_EQ(unsigned{VS_NULL}, null.State);
    EXPECT_EQ(1000U, null.TimeWord);
}

TEST(DateTimeOrder, IsThatOfTheInstants)
{
    // In ascending order: two packed dates, then counted times.
    const CDateTime times[] = {Packed(1), Packed(2), OfWord(0), OfWord(1), OfWord(kTop - 1)};
    for (int i = 0; i < 5; ++i) {
        for (int j = 0; j < 5; ++j) {
            EXPECT_EQ(i < j, times[i] < times[j]) << i << ' ' << j;
            EXPECT_EQ(i > j, times[i] > times[j]) << i << ' ' << j;
            EXPECT_EQ(i <= j, times[i] <= times[j]) << i << ' ' << j;
            EXPECT_EQ(i >= j, times[i] >= times[j]) << i << ' ' << j;
            EXPECT_EQ(i == j, times[i] == times[j]) << i << ' ' << j;
            EXPECT_EQ(i != j, times[i] != times[j]) << i << ' ' << j;
            EXPECT_EQ(i == j, times[i].EqualTo(times[j])) << i << ' ' << j;
            EXPECT_EQ((i > j) - (i < j), times[i].Cmp(times[j])) << i << ' ' << j;
            EXPECT_EQ((i > j) - (i < j), times[i].Cmp(&times[j])) << i << ' ' << j;
        }
    }
}

TEST(DateTimeOrder, TheStateTakesNoPart)
{
    CDateTime null;
    EXPECT_TRUE(null == CDateTime());
    EXPECT_TRUE(null == CDateTime(0, 0));
    EXPECT_EQ(-1, null.Cmp(CDateTime(0, 1)));
}

TEST(DateTimeOrder, AgainstANullPointerOnlyAValidOneIsGreater)
{
    EXPECT_EQ(1, CDateTime(0, 0).Cmp(nullptr));
    EXPECT_EQ(0, CDateTime().Cmp(nullptr));
    EXPECT_EQ(0, CDateTime(-1, 0).Cmp(nullptr));
}

} // namespace
