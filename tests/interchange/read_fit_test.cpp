// Which kinds of value an alternative of each type takes. Whether what it takes is any good is told by the alternative.

#include <atomic>
#include <bitset>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace fit {

enum class Light { RED, GREEN };
VEXA_DESCRIBE_ENUM(Light, RED, GREEN)
enum class Small : std::int8_t { LOW = -1 };
VEXA_DESCRIBE_ENUM(Small, LOW)
enum class Nameless { ONE = 1 };

struct Point {
    int x = 0;
};
VEXA_DESCRIBE(Point, x)

struct Celsius {
    double degrees = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Celsius, &Celsius::degrees)

} // namespace fit

namespace {

struct CKind {
    char Letter;
    const char* Text;
};
constexpr CKind KINDS[] = {{'n', "null"},   {'b', "true"}, {'i', "7"}, {'f', "7.5"},
                           {'s', R"("x")"}, {'a', "[]"},   {'o', "{}"}};

/// The letters of the kinds that a variant of the one type takes.
template<class T>
std::string Taken()
{
    std::string letters;
    for (const CKind& kind : KINDS) {
        std::variant<T> object;
        vexa::CReport report;
        vexa::ReadJson(object, kind.Text, report);
        const bool isTaken = report.IsEmpty() || report.Problems().front().Code != vexa::ProblemCode::NO_ALTERNATIVE;
        if (isTaken) letters += kind.Letter;
    }
    return letters;
}

TEST(ReadFit, NumbersTakeNumbers)
{
    EXPECT_EQ(Taken<int>(), "if");
    EXPECT_EQ(Taken<unsigned long>(), "if");
    EXPECT_EQ(Taken<char>(), "if");
    EXPECT_EQ(Taken<signed char>(), "if");
    EXPECT_EQ(Taken<double>(), "if");
    EXPECT_EQ(Taken<long double>(), "if");
    EXPECT_EQ(Taken<fit::Nameless>(), "if");
    EXPECT_EQ(Taken<std::chrono::seconds>(), "if");
    EXPECT_EQ(Taken<vexa::CNumeric>(), "nif") << "a decimal may be null";
}

TEST(ReadFit, BoolsTakeBools) { EXPECT_EQ(Taken<bool>(), "b"); }

TEST(ReadFit, EnumerationsWithNamesTakeNamesAndNumbers)
{
    EXPECT_EQ(Taken<fit::Light>(), "ifs");
    EXPECT_EQ(Taken<fit::Small>(), "ifs");
}

TEST(ReadFit, TextsTakeStrings)
{
    EXPECT_EQ(Taken<std::string>(), "s");
    EXPECT_EQ(Taken<std::filesystem::path>(), "s");
    EXPECT_EQ(Taken<std::bitset<3>>(), "s");
    EXPECT_EQ(Taken<vexa::CBinary>(), "s");
    EXPECT_EQ(Taken<std::chrono::system_clock::time_point>(), "s");
    EXPECT_EQ(Taken<tm>(), "s");
    EXPECT_EQ(Taken<vexa::CDateTime>(), "ns") << "a point in time may be null";
}

TEST(ReadFit, SequencesTakeArrays)
{
    EXPECT_EQ(Taken<std::vector<int>>(), "a");
    EXPECT_EQ(Taken<std::vector<bool>>(), "a");
    EXPECT_EQ((Taken<std::tuple<int, int>>()), "a");
    EXPECT_EQ((Taken<std::map<double, int>>()), "a");
    EXPECT_EQ(Taken<vexa::CRow>(), "a");
    EXPECT_EQ(Taken<vexa::CTable>(), "a");
}

TEST(ReadFit, ObjectsTakeObjects)
{
    EXPECT_EQ(Taken<fit::Point>(), "o");
    EXPECT_EQ((Taken<std::map<std::string, int>>()), "o");
}

TEST(ReadFit, WhatHoldsAnotherTakesWhatThatTakes)
{
    EXPECT_EQ(Taken<std::optional<fit::Point>>(), "no");
    EXPECT_EQ(Taken<std::unique_ptr<fit::Point>>(), "no");
    EXPECT_EQ(Taken<std::shared_ptr<fit::Point>>(), "no");
    EXPECT_EQ(Taken<vexa::MayNull<int>>(), "nif");
    EXPECT_EQ((Taken<std::variant<int, std::string>>()), "ifs");
    EXPECT_EQ(Taken<std::monostate>(), "n");
}

TEST(ReadFit, ValuesOfAnyKindTakeAny)
{
    EXPECT_EQ(Taken<vexa::CRawJson>(), "nbifsao");
    EXPECT_EQ(Taken<vexa::CJsonTree>(), "nbifsao");
    EXPECT_EQ(Taken<vexa::CValue>(), "nbifs") << "which holds one value";
    EXPECT_EQ(Taken<fit::Celsius>(), "nbifs") << "which makes of a value what it can";
}

} // namespace
