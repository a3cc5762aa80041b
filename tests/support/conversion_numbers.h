#ifndef VEXA_TESTS_SUPPORT_CONVERSION_NUMBERS_H
#define VEXA_TESTS_SUPPORT_CONVERSION_NUMBERS_H

#include <cfloat>
#include <climits>
#include <tuple>
#include <variant>
#include <vector>

#include "support/conversion_types.h"

/// What every number is in every other number type. Reading and writing a number follow the same rules, so this one
/// table serves both: integers keep their low bits, floating values are cut toward zero, first to 32 bits for a target
/// up to int and to 64 bits for a larger one, where a value that does not fit becomes the lowest.

namespace vexa_test {

/// One value as each number type; of a char only the bits matter.
using AllNumbers = std::tuple<bool, char, short, int, long, long long, unsigned char, unsigned short, unsigned int,
                              unsigned long, unsigned long long, float, double, long double>;
using AnyNumber = std::variant<bool, char, short, int, long, long long, unsigned char, unsigned short, unsigned int,
                               unsigned long, unsigned long long, float, double, long double>;

struct NumberRow {
    AnyNumber Source;
    AllNumbers Expected;
};

/// The char that has the bits of an unsigned byte, whatever the sign of char.
constexpr char C(unsigned bits) { return static_cast<char>(static_cast<unsigned char>(bits)); }

constexpr float INF_F = std::numeric_limits<float>::infinity();
constexpr double INF_D = std::numeric_limits<double>::infinity();
constexpr long double INF_L = std::numeric_limits<long double>::infinity();

constexpr long MIN64 = LONG_MIN;
constexpr unsigned long TOP64 = 9223372036854775808UL;
constexpr unsigned long MAX64 = 18446744073709551615UL;

// clang-format off
inline const std::vector<NumberRow>& NumberRows()
{
    static const std::vector<NumberRow> rows = {
        // Each row: source, {bool, char, short, int, long, long long, unsigned char, unsigned short, unsigned int,
        //                    unsigned long, unsigned long long, float, double, long double}
        {false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {true, {true, C(1), 1, 1, 1, 1, 1, 1, 1, 1, 1, 1.F, 1., 1.L}},
        {C(0), {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {C(200), {true, C(200), 200, 200, 200, 200, 200, 200, 200, 200, 200, 200.F, 200., 200.L}},
        {C(255), {true, C(255), 255, 255, 255, 255, 255, 255, 255, 255, 255, 255.F, 255., 255.L}},

        {short{SHRT_MIN}, {true, C(0), -32768, -32768, -32768, -32768, 0, 32768, 4294934528U, 18446744073709518848UL,
            18446744073709518848ULL, -32768.F, -32768., -32768.L}},
        {short{SHRT_MAX}, {true, C(255), 32767, 32767, 32767, 32767, 255, 32767, 32767, 32767, 32767,
            32767.F, 32767., 32767.L}},
        {short{-1}, {true, C(255), -1, -1, -1, -1, 255, 65535, UINT_MAX, MAX64, MAX64, -1.F, -1., -1.L}},
        {0, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {300, {true, C(44), 300, 300, 300, 300, 44, 300, 300, 300, 300, 300.F, 300., 300.L}},
        {-7, {true, C(249), -7, -7, -7, -7, 249, 65529, 4294967289U, 18446744073709551609UL, 18446744073709551609ULL,
            -7.F, -7., -7.L}},
        {INT_MIN, {true, C(0), 0, INT_MIN, -2147483648L, -2147483648L, 0, 0, 2147483648U, 18446744071562067968UL,
            18446744071562067968ULL, -2147483648.F, -2147483648., -2147483648.L}},
        {INT_MAX, {true, C(255), -1, 2147483647, 2147483647, 2147483647, 255, 65535, 2147483647U, 2147483647UL,
            2147483647ULL, 2147483648.F, 2147483647., 2147483647.L}},
        {MIN64, {true, C(0), 0, 0, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64,
            -9223372036854775808.F, -9223372036854775808., -9223372036854775808.L}},
        {LONG_MAX, {true, C(255), -1, -1, LONG_MAX, LLONG_MAX, 255, 65535, UINT_MAX, 9223372036854775807UL,
            9223372036854775807ULL, 9223372036854775808.F, 9223372036854775808., 9223372036854775807.L}},
        {0x0102030405060708L, {true, C(8), 0x0708, 0x05060708, 0x0102030405060708L, 0x0102030405060708LL, 8, 0x0708,
            0x05060708, 0x0102030405060708UL, 0x0102030405060708ULL, 0x1.020304p56F, 0x1.0203040506070p56,
            0x1.02030405060708p56L}},
        {9007199254740993L, {true, C(1), 1, 1, 9007199254740993L, 9007199254740993LL, 1, 1, 1, 9007199254740993UL,
            9007199254740993ULL, 9007199254740992.F, 9007199254740992., 9007199254740993.L}},
        {LLONG_MIN, {true, C(0), 0, 0, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64,
            -9223372036854775808.F, -9223372036854775808., -9223372036854775808.L}},
        {LLONG_MAX, {true, C(255), -1, -1, LONG_MAX, LLONG_MAX, 255, 65535, UINT_MAX, 9223372036854775807UL,
            9223372036854775807ULL, 9223372036854775808.F, 9223372036854775808., 9223372036854775807.L}},

        {static_cast<unsigned char>(0), {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {static_cast<unsigned char>(255), {true, C(255), 255, 255, 255, 255, 255, 255, 255, 255, 255,
            255.F, 255., 255.L}},
        {static_cast<unsigned short>(0), {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {static_cast<unsigned short>(65535), {true, C(255), -1, 65535, 65535, 65535, 255, 65535, 65535, 65535, 65535,
            65535.F, 65535., 65535.L}},
        {0U, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {UINT_MAX, {true, C(255), -1, -1, 4294967295L, 4294967295LL, 255, 65535, 4294967295U, 4294967295UL,
            4294967295ULL, 4294967296.F, 4294967295., 4294967295.L}},
        {0UL, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {ULONG_MAX, {true, C(255), -1, -1, -1, -1, 255, 65535, UINT_MAX, MAX64, MAX64,
            18446744073709551616.F, 18446744073709551616., 18446744073709551615.L}},
        {0ULL, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {ULLONG_MAX, {true, C(255), -1, -1, -1, -1, 255, 65535, UINT_MAX, MAX64, MAX64,
            18446744073709551616.F, 18446744073709551616., 18446744073709551615.L}},

        {0.F, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {-0.F, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, -0.F, -0., -0.L}},
        {0.1F, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.1F, 0.100000001490116119384765625,
            0.100000001490116119384765625L}},
        {-2.75F, {true, C(254), -2, -2, -2, -2, 254, 65534, 4294967294U, 18446744073709551614UL,
            18446744073709551614ULL, -2.75F, -2.75, -2.75L}},
        {FLT_MIN, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x1p-126F, 0x1p-126, 0x1p-126L}},
        {FLT_MAX, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, 0, 0,
            FLT_MAX, 0x1.fffffep127, 0x1.fffffep127L}},
        {-FLT_MAX, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64,
            -FLT_MAX, -0x1.fffffep127, -0x1.fffffep127L}},

        {0., {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {0.5, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.5F, 0.5, 0.5L}},
        {2.9, {true, C(2), 2, 2, 2, 2, 2, 2, 2, 2, 2, 2.9F, 2.9, static_cast<long double>(2.9)}},
        {-2.9, {true, C(254), -2, -2, -2, -2, 254, 65534, 4294967294U, 18446744073709551614UL, 18446744073709551614ULL,
            -2.9F, -2.9, static_cast<long double>(-2.9)}},
        {-0.9, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, -0.9F, -0.9, static_cast<long double>(-0.9)}},
        {300.75, {true, C(44), 300, 300, 300, 300, 44, 300, 300, 300, 300, 300.75F, 300.75, 300.75L}},
        {70000., {true, C(0x70), 4464, 70000, 70000, 70000, 0x70, 4464, 70000, 70000, 70000, 70000.F, 70000., 70000.L}},
        {2147483647.5, {true, C(255), -1, 2147483647, 2147483647, 2147483647, 255, 65535, 2147483647, 2147483647,
            2147483647, 2147483648.F, 2147483647.5, 2147483647.5L}},
        {-2147483648.5, {true, C(0), 0, INT_MIN, -2147483648L, -2147483648L, 0, 0, 2147483648U, 18446744071562067968UL,
            18446744071562067968ULL, -2147483648.F, -2147483648.5, -2147483648.5L}},
        {3000000001., {true, C(0), 0, INT_MIN, 3000000001L, 3000000001L, 0, 0, 3000000001U, 3000000001UL, 3000000001UL,
            3000000000.F, 3000000001., 3000000001.L}},
        {4294967297., {true, C(0), 0, INT_MIN, 4294967297L, 4294967297L, 0, 0, 1, 4294967297UL, 4294967297UL,
            4294967296.F, 4294967297., 4294967297.L}},
        {9223372036854775808., {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64,
            9223372036854775808.F, 9223372036854775808., 9223372036854775808.L}},
        {1e19, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, 10000000000000000000UL, 10000000000000000000UL,
            1e19F, 1e19, 1e19L}},
        {DBL_MIN, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0x1p-1022, 0x1p-1022L}},
        {DBL_MAX, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, 0, 0, INF_F, DBL_MAX,
            0x1.fffffffffffffp1023L}},
        {-DBL_MAX, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64, -INF_F, -DBL_MAX,
            -0x1.fffffffffffffp1023L}},
        {INF_D, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, 0, 0, INF_F, INF_D, INF_L}},
        {-INF_D, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64, -INF_F, -INF_D, -INF_L}},

        {0.L, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {0.1L, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.1F, 0.1, 0.1L}},
        {-7.999L, {true, C(249), -7, -7, -7, -7, 249, 65529, 4294967289U, 18446744073709551609UL,
            18446744073709551609ULL, -7.999F, -7.999, -7.999L}},
        {9223372036854775807.L, {true, C(0), 0, INT_MIN, LONG_MAX, LLONG_MAX, 0, 0, UINT_MAX, 9223372036854775807UL,
            9223372036854775807ULL, 9223372036854775808.F, 9223372036854775808., 9223372036854775807.L}},
        {18446744073709551615.L, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, MAX64, MAX64,
            18446744073709551616.F, 18446744073709551616., 18446744073709551615.L}},
        {LDBL_MIN, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., LDBL_MIN}},
        {LDBL_MAX, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, 0, 0, INF_F, INF_D, LDBL_MAX}},
        {-LDBL_MAX, {true, C(0), 0, INT_MIN, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64, -INF_F, -INF_D, -LDBL_MAX}},
    };
    return rows;
}
// clang-format on

} // namespace vexa_test

#endif
