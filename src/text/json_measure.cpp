#include "text/json_measure.h"

#include <array>

#include "core/value_text.h"

namespace vexa::text {

using namespace Enum;

std::string TextOfObject(DataTypeEnum code, const void* address)
{
    std::string text;
    CStdBasicTypeConstRefrence(CGnlTypeInfor(code), address).AppendToString(text, true);
    return text;
}

namespace {

template<class T>
unsigned long LengthOf(T value)
{
    std::array<char, core::FIXED_ROOM<T>> text;
    return static_cast<unsigned long>(core::WriteFixed(text.data(), value) - text.data());
}

bool IsBetween(int value, int first, int last) { return value >= first && value <= last; }

/// Whether each part of a time has the digits that its text has room for.
bool IsOrdinary(const tm& value)
{
    return IsBetween(value.tm_year, -1900, 8099) && IsBetween(value.tm_mon, 0, 11) && IsBetween(value.tm_mday, 0, 31) &&
           IsBetween(value.tm_hour, 0, 23) && IsBetween(value.tm_min, 0, 59) && IsBetween(value.tm_sec, 0, 61);
}

/// The bound of both kinds of times.
constexpr unsigned long TIME_BOUND = 22;

/// Milliseconds from 1970 to a day before the year 10000; above are also the times before 1970, which are packed.
constexpr std::uint64_t LAST_ORDINARY_TIME = 253402214400000;

} // namespace

#ifdef __SSE2__

namespace {

/// The lengths of four int minus 1, negated: each comparison that holds counts -1.
__m128i NegatedExtraLengths(__m128i values)
{
    const __m128i signs = _mm_srai_epi32(values, 31);
    __m128i magnitudes = _mm_sub_epi32(_mm_xor_si128(values, signs), signs);
    // The lowest int has no positive counterpart; the one next to it is as long.
    magnitudes = _mm_add_epi32(magnitudes, _mm_srai_epi32(magnitudes, 31));
    __m128i lengths = signs;
    for (const int last : {9, 99, 999, 9999, 99999, 999999, 9999999, 99999999, 999999999})
        lengths = _mm_add_epi32(lengths, _mm_cmpgt_epi32(magnitudes, _mm_set1_epi32(last)));
    return lengths;
}

} // namespace

unsigned long RoomOfInts(const char* first, unsigned long count)
{
    constexpr unsigned long MOST_BLOCKS = 1UL << 24U; // ten times as many still fit a lane
    unsigned long room = count;
    while (count >= 4) {
        const unsigned long blocks = std::min(count / 4, MOST_BLOCKS);
        __m128i lengths = _mm_setzero_si128();
        for (unsigned long i = 0; i < blocks; ++i, first += sizeof(__m128i))
            lengths =
                _mm_add_epi32(lengths, NegatedExtraLengths(_mm_loadu_si128(reinterpret_cast<const __m128i*>(first))));
        lengths = _mm_add_epi32(lengths, _mm_shuffle_epi32(lengths, _MM_SHUFFLE(1, 0, 3, 2)));
        lengths = _mm_add_epi32(lengths, _mm_shuffle_epi32(lengths, _MM_SHUFFLE(2, 3, 0, 1)));
        room += static_cast<unsigned long>(-_mm_cvtsi128_si32(lengths));
        count -= 4 * blocks;
    }
    for (; count != 0; --count, first += sizeof(int))
        room += core::DecimalLength(core::Load<int>(first)) - 1;
    return room;
}

#else

unsigned long RoomOfInts(const char* first, unsigned long count)
{
    unsigned long room = 0;
    for (; count != 0; --count, first += sizeof(int))
        room += core::DecimalLength(core::Load<int>(first));
    return room;
}

#endif

unsigned long LengthOfLong(float value) { return LengthOf(value); }
unsigned long LengthOfLong(double value) { return LengthOf(value); }
unsigned long LengthOfLong(long double value) { return LengthOf(value); }

unsigned long RoomOfObject(const CBinary& value) { return 3 * value.Size + 2; }

unsigned long RoomOfObject(const CNumeric& value) { return core::TextLength(value) + 2; }

unsigned long RoomOfObject(const tm& value)
{
    return IsOrdinary(value) ? TIME_BOUND : std::max(TIME_BOUND, TextOfObject(DT_TM, &value).size());
}

unsigned long RoomOfObject(const CDateTime& value)
{
    return value.TimeWord < LAST_ORDINARY_TIME ? TIME_BOUND
                                               : std::max(TIME_BOUND, TextOfObject(DT_DATETIME, &value).size());
}

} // namespace vexa::text
