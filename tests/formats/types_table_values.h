#ifndef VEXA_TESTS_FORMATS_TYPES_TABLE_VALUES_H
#define VEXA_TESTS_FORMATS_TYPES_TABLE_VALUES_H

#include <array>
#include <atomic>
#include <bitset>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <string>
#include <string_view>

#include "formats/types_table.h"

/// \file
/// The rows of single values.

namespace vexa_test::types_table {

enum Level { quiet = 1, loud = 3 };
enum class Color : short { red = 1, green, blue };
VEXA_DESCRIBE_ENUM(Color, red, green, blue)

/// One value in place, and one that converts itself.
struct Meters {
    int count = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Meters, &Meters::count)
struct Celsius {
    double degrees = 0;
    void ToValue(vexa::CValue& out) const { out = degrees; }
    void FromValue(const vexa::CValue& in) { degrees = in.As_double(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Celsius, 21)

inline CGroup Numbers()
{
    CGroup group{"Numbers", {}};
    group.Rows = {
        TYPE_ROW(bool, true, {"true", "true", "true", "f5"}),
        TYPE_ROW(char, 'A', {"65", "65", "65", "18 41"}),
        TYPE_ROW(signed char, -5, {"-5", "-5", "-5", "24"}),
        TYPE_ROW(unsigned char, 200, {"200", "200", "200", "18 c8"}),
        TYPE_ROW(short, -300, {"-300", "-300", "-300", "39 01 2b"}),
        TYPE_ROW(int, 1000, {"1000", "1000", "1000", "19 03 e8"}),
        TYPE_ROW(
            long long, -9223372036854775807LL - 1,
            {"-9223372036854775808", "-9223372036854775808", "-9223372036854775808", "3b 7f ff ff ff ff ff ff ff"}),
        TYPE_ROW(
            unsigned long, 18446744073709551615UL,
            {"18446744073709551615", "18446744073709551615", "18446744073709551615", "1b ff ff ff ff ff ff ff ff"}),
        TYPE_ROW(float, 0.1F, {"0.100000", "0.1", "0.1", "fa 3d cc cc cd"}),
        TYPE_ROW(double, 1e21, {"1000000000000000000000.000000", "1e+21", "1e+21", "fb 44 4b 1a e4 d6 e2 ef 50"}),
        TYPE_ROW(double, 2, {"2.000000", "2.0", "2.0", "f9 40 00"}),
        TYPE_ROW(long double, 0.1L, {"0.100000", "0.1", "0.1", "c4 82 20 01"}),
        TYPE_ROW(vexa::CNumeric, std::string("1.50"), {"1.50", "1.50", "1.50", "c4 82 21 18 96"}),
        TYPE_ROW(Level, loud, {"3", "3", "3", "03"}),
        TYPE_ROW(Color, Color::green, {"2", "\"green\"", "green", "65 67 72 65 65 6e"}),
        TYPE_ROW(std::atomic<int>, 7, {"7", "7", "7", "07"}),
    };
    group.Rows[13].Type = "enumeration without names";
    group.Rows[14].Type = "enumeration with VEXA_DESCRIBE_ENUM";
    return group;
}

inline CGroup Texts()
{
    CGroup group{"Text and bytes", {}};
    group.Rows = {
        TYPE_ROW(std::string, "Zo\u00eb / 7",
                 {"\"Zo\\u00c3\\u00ab \\/ 7\"", "\"Zoë / 7\"", "\"Zoë / 7\"", "68 5a 6f c3 ab 20 2f 20 37"}),
        Row<char[8]>("char[8]", [](auto& held) { std::strcpy(held, "abc"); },
                     {"[97,98,99,0,0,0,0,0]", "\"abc\"", "abc", "63 61 62 63"}),
        TYPE_ROW(const char*, "abc", {"\"abc\"", "\"abc\"", "abc", "63 61 62 63"}, false),
        TYPE_ROW(std::string_view, "abc", {"\"abc\"", "\"abc\"", "abc", "63 61 62 63"}, false),
        TYPE_ROW(std::filesystem::path, "/etc/hosts",
                 {"\"\\/etc\\/hosts\"", "\"/etc/hosts\"", "\"/etc/hosts\"", "6a 2f 65 74 63 2f 68 6f 73 74 73"}),
        TYPE_ROW(vexa::CBinary, std::string("\x00\xFF\x10", 3), {"00ff10", "\"AP8Q\"", "AP8Q", "43 00 ff 10"}),
        TYPE_ROW(std::bitset<8>, 5, {"[,,,,,,,]", "\"00000101\"", "\"00000101\"", "68 30 30 30 30 30 31 30 31"}),
        Row<vexa::CRawJson>("vexa::CRawJson", [](auto& held) { held.Set("[1,2.5]"); },
                            {"\"[1,2.5]\"", "[1,2.5]", "- 1\n- 2.5", "82 01 f9 41 00"}),
        Row<vexa::CJsonTree>("vexa::CJsonTree", [](auto& held) { held["a"] = 1.5; },
                             {"\"{\\\"a\\\":1.5}\"", "{\"a\":1.5}", "  a: 1.5", "a1 61 61 f9 3e 00"}),
    };
    return group;
}

inline CGroup Times()
{
    using Seconds = std::chrono::seconds;
    const auto noon = [](auto& held) {
        std::tm time{};
        time.tm_year = 126;
        time.tm_mon = 2;
        time.tm_mday = 1;
        time.tm_hour = 12;
        held = time;
    };
    CGroup group{"Time", {}};
    group.Rows = {
        TYPE_ROW(vexa::CDateTime, vexa::CDateTime(1772366400, 250),
                 {"2026-03-01 12:00:00", "\"2026-03-01T12:00:00.25Z\"", "\"2026-03-01T12:00:00.25Z\"",
                  "c0 77 32 30 32 36 2d 30 33 2d 30 31 54 31 32 3a 30 30 3a 30 30 2e 32 35 5a"}),
        Row<std::tm>("std::tm", noon,
                     {"2026-03-01 12:00:00", "\"2026-03-01T12:00:00\"", "\"2026-03-01T12:00:00\"",
                      "73 32 30 32 36 2d 30 33 2d 30 31 54 31 32 3a 30 30 3a 30 30"}),
        TYPE_ROW(std::chrono::system_clock::time_point,
                 std::chrono::system_clock::time_point(Seconds(1772366400) + std::chrono::milliseconds(250)),
                 {"\"2026-03-01T12:00:00.25Z\"", "\"2026-03-01T12:00:00.25Z\"", "\"2026-03-01T12:00:00.25Z\"",
                  "77 32 30 32 36 2d 30 33 2d 30 31 54 31 32 3a 30 30 3a 30 30 2e 32 35 5a"}),
        TYPE_ROW(std::chrono::milliseconds, Seconds(3), {"3000", "3000", "3000", "19 0b b8"}),
    };
    return group;
}

inline CGroup Customs()
{
    CGroup group{"Types of your own", {}};
    group.Rows = {
        Row<Meters>("VEXA_DESCRIBE_CUSTOM_STD over an int", [](auto& held) { held.count = 7; }, {"7", "7", "7", "07"}),
        Row<Celsius>("VEXA_DESCRIBE_CUSTOM_ANY that gives a double", [](auto& held) { held.degrees = 36.6; },
                     {"36.600000", "36.6", "36.6", "fb 40 42 4c cc cc cc cc cd"}),
    };
    return group;
}

} // namespace vexa_test::types_table

#endif
