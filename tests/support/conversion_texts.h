#ifndef VEXA_TESTS_SUPPORT_CONVERSION_TEXTS_H
#define VEXA_TESTS_SUPPORT_CONVERSION_TEXTS_H

#include "support/conversion_numbers.h"

/// What texts read as in every number type. Integers take the leading decimal digits, within the range of a long, and
/// keep the low bits; long long, unsigned long long, float and double take the leading floating number; long double,
/// unlike double, takes the digits only.

namespace vexa_test {

struct TextRow {
    const char* Text;
    bool IsDecimal; ///< whether a CNumeric keeps the text as it is
    AllNumbers Expected;
};

// clang-format off
inline const std::vector<TextRow>& TextRows()
{
    static const std::vector<TextRow> rows = {
        // Each row: text, whether decimal, {bool, char, short, int, long, long long, unsigned char, unsigned short,
        //                  unsigned int, unsigned long, unsigned long long, float, double, long double}
        {"", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"abc", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"true", false, {true, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"True", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"TRUE", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"true ", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {" true", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"tru", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"1", true, {false, C(1), 1, 1, 1, 1, 1, 1, 1, 1, 1, 1.F, 1., 1.L}},
        {"42abc", false, {false, C(42), 42, 42, 42, 42, 42, 42, 42, 42, 42, 42.F, 42., 42.L}},
        {" -7", false, {false, C(249), -7, -7, -7, -7, 249, 65529, 4294967289U, 18446744073709551609UL,
            18446744073709551609ULL, -7.F, -7., -7.L}},
        {"-7", true, {false, C(249), -7, -7, -7, -7, 249, 65529, 4294967289U, 18446744073709551609UL,
            18446744073709551609ULL, -7.F, -7., -7.L}},
        {"\t\n+5", false, {false, C(5), 5, 5, 5, 5, 5, 5, 5, 5, 5, 5.F, 5., 5.L}},
        {"- 5", false, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.F, 0., 0.L}},
        {"300", true, {false, C(44), 300, 300, 300, 300, 44, 300, 300, 300, 300, 300.F, 300., 300.L}},
        {"007.500", true, {false, C(7), 7, 7, 7, 7, 7, 7, 7, 7, 7, 7.5F, 7.5, 7.L}},
        {".5", true, {false, C(0), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0.5F, 0.5, 0.L}},
        {"3.75", true, {false, C(3), 3, 3, 3, 3, 3, 3, 3, 3, 3, 3.75F, 3.75, 3.L}},
        {"-12.9", true, {false, C(244), -12, -12, -12, -12, 244, 65524, 4294967284U, 18446744073709551604UL,
            18446744073709551604ULL, -12.9F, -12.9, -12.L}},
        {"1,5", false, {false, C(1), 1, 1, 1, 1, 1, 1, 1, 1, 1, 1.F, 1., 1.L}},
        {"1e3", false, {false, C(1), 1, 1, 1, 1000, 1, 1, 1, 1, 1000, 1000.F, 1000., 1.L}},
        {"0x10", false, {false, C(0), 0, 0, 0, 16, 0, 0, 0, 0, 16, 16.F, 16., 0.L}},
        {"4294967297", true, {false, C(1), 1, 1, 4294967297L, 4294967297LL, 1, 1, 1, 4294967297UL, 4294967297ULL,
            4294967296.F, 4294967297., 4294967297.L}},
        {"9007199254740993", true, {false, C(1), 1, 1, 9007199254740993L, 9007199254740992LL, 1, 1, 1,
            9007199254740993UL, 9007199254740992ULL, 9007199254740992.F, 9007199254740992., 9007199254740993.L}},
        {"9223372036854775808", true, {false, C(255), -1, -1, LONG_MAX, LLONG_MIN, 255, 65535, UINT_MAX,
            9223372036854775807UL, TOP64, 9223372036854775808.F, 9223372036854775808., 9223372036854775807.L}},
        {"-9223372036854775809", true, {false, C(0), 0, 0, LONG_MIN, LLONG_MIN, 0, 0, 0, TOP64, TOP64,
            -9223372036854775808.F, -9223372036854775808., -9223372036854775808.L}},
        {"10000000000000000000", true, {false, C(255), -1, -1, LONG_MAX, LLONG_MIN, 255, 65535, UINT_MAX,
            9223372036854775807UL, 10000000000000000000UL, 1e19F, 1e19, 9223372036854775807.L}},
        {"-1e400", false, {false, C(255), -1, -1, -1, LLONG_MIN, 255, 65535, UINT_MAX, MAX64, TOP64, -INF_F, -INF_D,
            -1.L}},
        {"inf", false, {false, C(0), 0, 0, 0, LLONG_MIN, 0, 0, 0, 0, 0, INF_F, INF_D, 0.L}},
    };
    return rows;
}
// clang-format on

} // namespace vexa_test

#endif
