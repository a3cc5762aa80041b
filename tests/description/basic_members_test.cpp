// Members of every basic type, held directly.

#include <cstring>
#include <ctime>
#include <string>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_text.h"

namespace basic_members {

struct Numbers {
    bool truth = true;
    char letter = 'A';
    short small = -2;
    int whole = -3;
    long wide = -4;
    long long wider = -5;
    float single = 1.5F;
    double twice = -2.25;
    long double extended = 0.5L;
    unsigned char byte = 200;
    unsigned short uShort = 60000;
    unsigned int uInt = 4000000000U;
    unsigned long uLong = 6;
    unsigned long long uLonger = 7;
};
VEXA_DESCRIBE(Numbers, truth, letter, small, whole, wide, wider, single, twice, extended, byte, uShort, uInt, uLong,
              uLonger)

struct Values {
    std::string text = "Ann \"B\"";
    const char* fixed = "Oslo";
    vexa::CBinary bytes{std::string("\x01\xff")};
    vexa::CNumeric number{std::string("-12.50")};
    tm broken{};
    vexa::CDateTime instant;
};
VEXA_DESCRIBE(Values, text, fixed, bytes, number, broken, instant)

struct Read {
    std::string text;
    bool truth = false;
};
VEXA_DESCRIBE(Read, text, truth)

struct Nothing {
    vexa::NullType nothing;
    int last = 1;
};
VEXA_DESCRIBE(Nothing, nothing, last)

struct Fixed {
    const int whole = 5;
    const std::string text = "set";
    const char* const pointer = "at";
};
VEXA_DESCRIBE(Fixed, whole, text, pointer)

} // namespace basic_members

namespace {

using namespace basic_members;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::LoggedLines;
using vexa_test::MembersOf;
using vexa_test::ReadBack;

TEST(BasicMembers, EachNumberHasItsCodeNoFlagsAndItsOffset)
{
    const Numbers n;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Numbers>()),
              Line(n, n.truth, "truth", "bool, 11, 0x00") + Line(n, n.letter, "letter", "char, 12, 0x00") +
                  Line(n, n.small, "small", "short, 13, 0x00") + Line(n, n.whole, "whole", "int, 14, 0x00") +
                  Line(n, n.wide, "wide", "long, 15, 0x00") + Line(n, n.wider, "wider", "long long, 16, 0x00") +
                  Line(n, n.single, "single", "float, 17, 0x00") + Line(n, n.twice, "twice", "double, 18, 0x00") +
                  Line(n, n.extended, "extended", "long double, 19, 0x00") +
                  Line(n, n.byte, "byte", "unsigned char, 22, 0x00") +
                  Line(n, n.uShort, "uShort", "unsigned short, 23, 0x00") +
                  Line(n, n.uInt, "uInt", "unsigned int, 24, 0x00") +
                  Line(n, n.uLong, "uLong", "unsigned long, 25, 0x00") +
                  Line(n, n.uLonger, "uLonger", "unsigned long long, 26, 0x00"));
}

TEST(BasicMembers, EachValueTypeHasItsCodeFlagsAndOffset)
{
    const Values v;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Values>()), Line(v, v.text, "text", "std::string, 41, 0x00") +
                                                           Line(v, v.fixed, "fixed", "const char*, 42, 0x38") +
                                                           Line(v, v.bytes, "bytes", "vexa::CBinary, 45, 0x00") +
                                                           Line(v, v.number, "number", "vexa::CNumeric, 47, 0x00") +
                                                           Line(v, v.broken, "broken", "tm, 51, 0x00") +
                                                           Line(v, v.instant, "instant", "vexa::CDateTime, 52, 0x00"));
}

TEST(BasicMembers, NumbersRenderAsText)
{
    EXPECT_EQ(vexa::AsString(Numbers()), "\ntruth: true\nletter: A\nsmall: -2\nwhole: -3\nwide: -4\nwider: -5"
                                         "\nsingle: 1.500000\ntwice: -2.250000\nextended: 0.500000\nbyte: 200"
                                         "\nuShort: 60000\nuInt: 4000000000\nuLong: 6\nuLonger: 7");
}

Values SomeValues()
{
    Values values;
    values.broken.tm_year = 120;
    values.broken.tm_mday = 2;
    values.broken.tm_hour = 3;
    values.instant = std::string("2020-01-02 03:04:05");
    return values;
}

TEST(BasicMembers, ValuesRenderAsText)
{
    EXPECT_EQ(vexa::AsString(SomeValues()), "\ntext: Ann \"B\"\nfixed: Oslo\nbytes: 01ff\nnumber: -12.50"
                                            "\nbroken: 2020-01-02 03:00:00\ninstant: 2020-01-02 03:04:05");
}

TEST(BasicMembers, NumbersAreWrittenAsJson)
{
    EXPECT_EQ(Json(Numbers()), R"({"truth":true,"letter":65,"small":-2,"whole":-3,"wide":-4,"wider":-5,)"
                               R"("single":1.500000,"twice":-2.250000,"extended":0.500000,"byte":200,"uShort":60000,)"
                               R"("uInt":4000000000,"uLong":6,"uLonger":7})");
}

TEST(BasicMembers, ValuesAreWrittenAsJson)
{
    EXPECT_EQ(Json(SomeValues()), R"({"text":"Ann \"B\"","fixed":"Oslo","bytes":01ff,"number":-12.50,)"
                                  R"("broken":2020-01-02 03:00:00,"instant":2020-01-02 03:04:05})");
}

TEST(BasicMembers, NumbersAreReadFromJson)
{
    const char* const text = R"({"truth":true,"letter":255,"small":-20,"whole":-30,"wide":-40,"wider":-50,"single":2,)"
                             R"("twice":-3,"extended":4,"byte":255,"uShort":65535,"uInt":99,"uLong":98,"uLonger":97})";
    EXPECT_EQ(ReadBack<Numbers>(text),
              R"({"truth":true,"letter":255,"small":-20,"whole":-30,"wide":-40,"wider":-50,"single":2.000000,)"
              R"("twice":-3.000000,"extended":4.000000,"byte":255,"uShort":65535,"uInt":99,"uLong":98,"uLonger":97})");
}

TEST(BasicMembers, TextAndTruthAreReadFromJson)
{
    EXPECT_EQ(ReadBack<Read>(R"({"truth":true,"text":"Ann \"B\""})"), R"({"text":"Ann \"B\"","truth":true})");
}

TEST(BasicMembers, ValueTypesAreWrittenButNotReadBack)
{
    EXPECT_EQ(ReadBack<Values>(R"({"bytes":01ff})"), "code 656");
    EXPECT_EQ(ReadBack<Values>(R"({"number":-12.50})"), "code 656");
    EXPECT_EQ(ReadBack<Values>(R"({"broken":2020-01-02 03:00:00})"), "code 656");
    EXPECT_EQ(ReadBack<Values>(R"({"instant":2020-01-02 03:04:05})"), "code 656");
}

TEST(BasicMembers, ATextPointerIsNotReadFromJson) { EXPECT_EQ(ReadBack<Values>(R"({"fixed":"Bergen"})"), "code 656"); }

TEST(BasicMembers, ClearingEmptiesEachAndTouchesNoBrokenDownTime)
{
    Numbers numbers;
    vexa::RefOf(numbers).Clear();
    EXPECT_EQ(vexa::AsString(numbers),
              "\ntruth: false\nletter: \nsmall: 0\nwhole: 0\nwide: 0\nwider: 0\nsingle: 0.000000\ntwice: 0.000000"
              "\nextended: 0.000000\nbyte: 0\nuShort: 0\nuInt: 0\nuLong: 0\nuLonger: 0");
    Values values = SomeValues();
    vexa::RefOf(values).Clear();
    EXPECT_EQ(vexa::AsString(values), "\ntext: \nfixed: NULL\nbytes: \nnumber: (null)"
                                      "\nbroken: 2020-01-02 03:00:00\ninstant: NULL");
}

TEST(BasicMembers, ANullTextPointerIsLeftOut)
{
    Values values = SomeValues();
    values.fixed = nullptr;
    EXPECT_EQ(vexa::AsString(values).find("fixed: NULL"), std::strlen("\ntext: Ann \"B\"\n"));
    EXPECT_EQ(Json(values).find("fixed"), std::string::npos);
}

TEST(BasicMembers, TheNullMarkerIsAlwaysNull)
{
    const Nothing n;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Nothing>()),
              Line(n, n.nothing, "nothing", "vexa::NullType, 2, 0x00") + Line(n, n.last, "last", "int, 14, 0x00"));
    EXPECT_EQ(vexa::AsString(n), "\nnothing: NULL\nlast: 1");
    EXPECT_EQ(Json(n), R"({,"last":1})");
}

TEST(BasicMembers, AConstMemberIsReadOnly)
{
    Fixed f;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Fixed>()), Line(f, f.whole, "whole", "int, 14, 0x20") +
                                                          Line(f, f.text, "text", "std::string, 41, 0x20") +
                                                          Line(f, f.pointer, "pointer", "const char*, 42, 0x30"));
    EXPECT_EQ(Json(f), R"({"whole":5,"text":"set","pointer":"at"})");
    EXPECT_EQ(vexa::FromJson(f, R"({"whole":6})"), 965);
    EXPECT_EQ(vexa::FromJson(f, R"({"text":"x"})"), 965);
    EXPECT_EQ(f.whole, 5);
    EXPECT_EQ(f.text, "set");
    EXPECT_STREQ(f.pointer, "at");
}

TEST(BasicMembers, ATypeByItselfHasADescriptorOfTheSameKind)
{
    EXPECT_EQ(vexa_test::TypeText(vexa::TypeInforOf<int>()), "int, 14, 0x00");
    EXPECT_EQ(vexa_test::TypeText(vexa::TypeInforOf<std::string>()), "std::string, 41, 0x00");
    EXPECT_EQ(vexa_test::TypeText(vexa::TypeInforOf<const char*>()), "const char*, 42, 0x38");
    EXPECT_EQ(vexa_test::TypeText(vexa::TypeInforOf<const double>()), "double, 18, 0x20");
    EXPECT_EQ(vexa::AsString(7), "7");
    EXPECT_EQ(vexa::AsString(std::string("Ann"), vexa::Enum::ASF_TYPE_AND_VALUE), "std::string: Ann");
}

} // namespace
