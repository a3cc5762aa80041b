// Elements of the basic types, of which the commonest are read without their descriptors: all alike.

#include <cstdint>
#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

namespace {

/// What is told of an array, which must not depend on the container, and what is read of it.
template<class T>
void ExpectSame(const std::string& text)
{
    std::vector<T> vector(2);
    std::list<T> list(2);
    vexa::CReport ofVector, ofList;
    const bool isRead = vexa::ReadJson(vector, text, ofVector);
    EXPECT_EQ(isRead, vexa::ReadJson(list, text, ofList)) << text;
    EXPECT_EQ(test::LinesOf(ofVector), test::LinesOf(ofList)) << text;
    if (!isRead && ofList.Problems().front().Code < vexa::ProblemCode::WRONG_KIND) return; // holds what had been read
    EXPECT_EQ(std::vector<T>(list.begin(), list.end()), vector) << text;
}

template<class T>
class PlainElements : public testing::Test {
};
using Types = testing::Types<int, unsigned int, long, long long, unsigned long, unsigned long long, float, double, char,
                             unsigned char, short, unsigned short, long double, std::string>;
TYPED_TEST_SUITE(PlainElements, Types, );

TYPED_TEST(PlainElements, AreReadAndToldAlikeInEveryContainer)
{
    for (const char* const text : {"[]",
                                   "[1]",
                                   "[0,1,2,3]",
                                   "[-1,1]",
                                   "[1e3,1e40]",
                                   "[1.5]",
                                   "[300,70000,5000000000,1e19]",
                                   "[1,null,2]",
                                   "[\"1\",\"\\u00e9\"]",
                                   "[true]",
                                   "[[1]]",
                                   "[{}]",
                                   "{}",
                                   "null",
                                   "7",
                                   "[1,",
                                   "[1 2]",
                                   "[1,]",
                                   "[01]",
                                   "[1]x",
                                   "[-9223372036854775808,18446744073709551615,18446744073709551616]",
                                   "[1e-400,1e400]"})
        ExpectSame<TypeParam>(text);
}

TEST(PlainElementsOf, UnsignedLongsAreWhatTheTextSays)
{
    std::vector<unsigned long> vector;
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(vector, "[0,18446744073709551615,1e3]", report));
    EXPECT_EQ((std::vector<unsigned long>{0, UINT64_MAX, 1000}), vector);
}

TEST(CharArray, TakesNoTextWithANulInside)
{
    char text[4] = {'a', 'b', 'c', 'd'};
    const std::string json = R"("a\u0000b")";
    EXPECT_EQ("23 0+10 1:1 expected=a string without NUL excerpt=\"a\\u0000b\"\n",
              test::ProblemsOf(
                  text, [&](auto& object, vexa::CReport& report) { return vexa::ReadJson(object, json, report); }));
    EXPECT_EQ("abcd", std::string(text, 4));
}

} // namespace
