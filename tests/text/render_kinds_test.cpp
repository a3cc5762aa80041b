// What each kind of value becomes in text, null values and values without text included.

#include <vexa/text.h>

#include <deque>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/decimal_comma.h"
#include "support/described_class.h"
#include "support/described_container.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::AsString;
using vexa::CConstRefrence;
using vexa::CGnlTypeInfor;

template<class T>
void ExpectText(const char* text, const T& value)
{
    EXPECT_EQ(AsString(value), text);
    EXPECT_EQ(AsString(value, ASF_TYPE_AND_VALUE), vexa::RefOf(value).TypeName() + ": " + text);
    EXPECT_EQ(AsString(value, ASF_TYPE_ONLY), vexa::RefOf(value).TypeName() + ": ");
}

TEST(RenderKinds, BasicValues)
{
    ExpectText("true", true);
    ExpectText("false", false);
    ExpectText("A", 'A');
    ExpectText("-32768", static_cast<short>(-32768));
    ExpectText("0", 0);
    ExpectText("-9223372036854775808", std::numeric_limits<long>::min());
    ExpectText("9223372036854775807", std::numeric_limits<long long>::max());
    ExpectText("65", static_cast<unsigned char>('A'));
    ExpectText("65535", static_cast<unsigned short>(65535));
    ExpectText("4294967295", 4294967295U);
    ExpectText("18446744073709551615", 18446744073709551615UL);
    ExpectText("18446744073709551615", 18446744073709551615ULL);
    ExpectText("0.100000", 0.1F);
    ExpectText("100000000000000000000.000000", 1e20);
    ExpectText("2.500000", 2.5L);
}

TEST(RenderKinds, TextsAndValueObjects)
{
    tm time{};
    time.tm_year = 120;
    time.tm_mday = 2;
    time.tm_hour = 3;
    ExpectText("a\"/\\\n\xC3", std::string("a\"/\\\n\xC3"));
    ExpectText("", std::string());
    ExpectText("00ff7a", vexa::CBinary("\0\xFFz", 3));
    ExpectText("-1.50", vexa::CNumeric("-1.50"));
    ExpectText("(null)", vexa::CNumeric());
    ExpectText("2020-01-02 03:00:00", time);
    ExpectText("NULL", vexa::CDateTime());
    ExpectText("(Error)", vexa::CDateTime("x"));
}

TEST(RenderKinds, AConstantText)
{
    const char* text = "a\"b";
    ExpectText("a\"b", text);
    text = nullptr;
    ExpectText("NULL", text);
}

TEST(RenderKinds, NumbersAreTheSameInAnyLocaleOfCpp)
{
    const DecimalComma comma;
    EXPECT_EQ(AsString(1234567.5), "1234567.500000");
    EXPECT_EQ(AsString(1234567), "1234567");
}

TEST(RenderKinds, NumbersAreTheSameInAnyLocaleOfC)
{
    const CDecimalComma comma;
    if (!comma.Found()) GTEST_SKIP() << "this machine has no locale with a decimal comma";
    EXPECT_EQ(AsString(-1234567.5), "-1234567.500000");
    EXPECT_EQ(AsString(2.5F), "2.500000");
    EXPECT_EQ(AsString(2.5L), "2.500000");
}

TEST(RenderKinds, ANullValueIsTheWordNull)
{
    ExpectText("NULL", std::unique_ptr<Person>());
    ExpectText("NULL", vexa::MayNull<int>());
    ExpectText("NULL", vexa::MayNull<std::vector<int>>());
    ExpectText("NULL", static_cast<const int*>(nullptr));
    ExpectText("NULL", vexa::null);
}

TEST(RenderKinds, AValueIsTheSameHoweverItIsHeld)
{
    const int five = 5;
    ExpectText("5", vexa::MayNull<int>(5));
    ExpectText("5", &five);
    ExpectText("5", std::make_unique<int>(5));
    ExpectText("5", vexa::NonNullPointer<int>(5));
    EXPECT_EQ(AsString(std::make_unique<std::deque<int>>(1, 5)), "\n- 5");
}

TEST(RenderKinds, AReferenceThatDesignatesNothingIsNull)
{
    EXPECT_EQ(AsString(CConstRefrence()), "NULL");
    EXPECT_EQ(AsString(CConstRefrence(), ASF_TYPE_AND_VALUE), "unkown type: NULL");
    EXPECT_EQ(AsString(CConstRefrence(), ASF_TYPE_ONLY), "unkown type: ");
    EXPECT_EQ(AsString(CConstRefrence(vexa::TypeInforOf<Person>(), nullptr)), "NULL");
}

TEST(RenderKinds, NothingIsReadBehindANullPointerThatIsNotMarkedNullable)
{
    const void* nowhere = nullptr;
    for (const CGnlTypeInfor& type :
         {NonNullPointer(DT_INT), NonNullPointer(DT_STD_STRING),
          NonNullPointer(DT_CLASS, vexa::TypeInforOf<Person>().DetailInfor),
          NonNullPointer(DT_SEQUENCE_A, vexa::TypeInforOf<std::vector<int>>().DetailInfor)}) {
        EXPECT_EQ(AsString(CConstRefrence(type, &nowhere)), "NULL") << type.TypeName();
    }
}

TEST(RenderKinds, AnUnknownTypeIsUnkown)
{
    const char something = 1;
    const CConstRefrence unknown(Plain(DT_UNKNOWN), &something);
    EXPECT_EQ(LoggedLines([&] {
                  EXPECT_EQ(AsString(unknown), "unkown");
                  EXPECT_EQ(AsString(unknown, ASF_TYPE_AND_VALUE), "unkown type: unkown");
                  EXPECT_EQ(AsString(unknown, ASF_TYPE_ONLY), "unkown type: ");
              }),
              "");
}

TEST(RenderKinds, ABasicCodeWithoutATypeIsEmpty)
{
    const char something = 1;
    for (const unsigned code : {20U, 43U, 58U}) {
        const CConstRefrence unnamed(Plain(code), &something);
        EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(unnamed, ASF_TYPE_AND_VALUE), "unkown type: "); }), "");
    }
}

TEST(RenderKinds, UntypedMemoryIsItsAddress)
{
    void* memory = reinterpret_cast<void*>(1234567890123UL);
    const CConstRefrence pointer(OwnedPointer(DT_VOID), &memory);
    EXPECT_EQ(AsString(pointer), "1234567890123");
    EXPECT_EQ(AsString(pointer, ASF_TYPE_AND_VALUE), "void*: 1234567890123");
    EXPECT_EQ(AsString(pointer, ASF_TYPE_ONLY), "void*: ");
    memory = nullptr;
    EXPECT_EQ(AsString(pointer), "NULL");
    EXPECT_EQ(AsString(CConstRefrence(CGnlTypeInfor(DT_VOID, HF_POINTER), &memory)), "0") << "never null";
}

std::string RefusalOf(const std::string& type)
{
    return "It is not currently supported to convert " + type + " types to strings\n";
}

TEST(RenderKinds, AKindWithoutTextIsLoggedAndLeftOut)
{
    const char something = 1;
    CGnlTypeInfor owned;
    owned.ChangeTypeTo_CustomType("shop::Price", 1, nullptr, nullptr, 7);
    const std::pair<CGnlTypeInfor, std::string> kinds[] = {
        {Plain(DT_VOID), "void"},  {owned, "shop::Price"},     {Plain(DT_BITSET_NODE), "std_bitset_node"},
        {Plain(5), "unkown type"}, {Plain(59), "unkown type"}, {Plain(255), "unkown type"}};
    for (const auto& [type, name] : kinds) {
        const CConstRefrence ref(type, &something);
        std::string text[3];
        EXPECT_EQ(LoggedLines([&] { text[0] = AsString(ref); }), RefusalOf(name));
        EXPECT_EQ(LoggedLines([&] { text[1] = AsString(ref, ASF_TYPE_AND_VALUE); }), RefusalOf(name));
        EXPECT_EQ(LoggedLines([&] { text[2] = AsString(ref, ASF_TYPE_ONLY); }), "");
        EXPECT_EQ(text[0], "");
        EXPECT_EQ(text[1], name + ": ");
        EXPECT_EQ(text[2], name + ": ");
    }
}

struct Triple {
    int First = 1;
    int Second = 2;
    int Third = 3;
};

TEST(RenderKinds, TheNextAttributeFollowsOneWithoutText)
{
    const DescribedClass described("Triple", sizeof(Triple), [](vexa::CClassInfor& about) {
        Add(about, "a", offsetof(Triple, First), Plain(DT_INT));
        Add(about, "b", offsetof(Triple, Second), Plain(DT_VOID));
        Add(about, "c", offsetof(Triple, Third), Plain(DT_INT));
    });
    const Triple triple;
    const CConstRefrence ref(Plain(DT_CLASS, &*described), &triple);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(ref), "\na: 1\nb: \nc: 3"); }), RefusalOf("void"));
}

// Containers described by hand

TEST(RenderKinds, EveryContainerCodeIsAList)
{
    std::vector<int> numbers{1, 2};
    const vexa::CContainerInfor infor = SequenceContainer<std::vector<int>>("Numbers", Plain(DT_INT));
    for (const unsigned code : {61U, 65U, 78U, 80U, 81U, 98U}) {
        EXPECT_EQ(AsString(CConstRefrence(Plain(code, &infor), &numbers)), "\n- 1\n- 2") << code;
    }
}

TEST(RenderKinds, EveryWalkThatIsBegunIsReleased)
{
    const vexa::CContainerInfor inner = SequenceContainer<std::vector<int>>("Inner", Plain(DT_INT));
    const vexa::CContainerInfor outer =
        SequenceContainer<std::vector<std::vector<int>>>("Outer", Plain(DT_SEQUENCE_A, &inner));
    std::vector<std::vector<int>> lists{{1, 2}, {}, {3}};
    g_walks = {};
    EXPECT_EQ(AsString(CConstRefrence(Plain(DT_SEQUENCE_A, &outer), &lists)), "\n- - 1- 2\n- \n- - 3");
    EXPECT_EQ(g_walks.Begun, 4) << "an empty container is walked too";
    EXPECT_EQ(g_walks.Released, 4);
}

TEST(RenderKinds, AContainerThatBeginsNoWalkIsEmpty)
{
    std::vector<int> numbers{1};
    vexa::CContainerInfor infor = SequenceContainer<std::vector<int>>("Numbers", Plain(DT_INT));
    infor.Begin = [](void*, void**) -> void* { return nullptr; };
    g_walks = {};
    EXPECT_EQ(AsString(CConstRefrence(Plain(DT_SEQUENCE_A, &infor), &numbers)), "");
    EXPECT_EQ(g_walks.Released, 0);
}

// Custom basic types

TEST(RenderKinds, ACustomValueIsItsStandardValue)
{
    const vexa::CCustomBasicTypeInfor infor = CustomType<std::string>("Label", Plain(DT_STD_STRING));
    Custom<std::string> label;
    label.Value = "a/b";
    const CConstRefrence ref(Plain(DT_CUSTOM_BASIC, &infor), &label);
    EXPECT_EQ(AsString(ref), "a/b");
    EXPECT_EQ(AsString(ref, ASF_TYPE_ONLY), "Label: ");
}

TEST(RenderKinds, ACustomValueNamesItsTypeAtEveryLevelInFormatOne)
{
    const vexa::CCustomBasicTypeInfor infor = CustomType<int>("Grade", Plain(DT_INT));
    const vexa::CContainerInfor list =
        SequenceContainer<std::vector<Custom<int>>>("Grades", Plain(DT_CUSTOM_BASIC, &infor));
    std::vector<Custom<int>> grades(2);
    grades[1].Value = 4;
    const CConstRefrence one(Plain(DT_CUSTOM_BASIC, &infor), &grades[1]);
    const CConstRefrence all(Plain(DT_SEQUENCE_A, &list), &grades);
    EXPECT_EQ(AsString(one, ASF_TYPE_AND_VALUE), "Grade: Grade: 4");
    EXPECT_EQ(AsString(all, ASF_TYPE_AND_VALUE), "Grades<Grade>: \n  - Grade: 0\n  - Grade: 4");
    EXPECT_EQ(AsString(all), "\n- 0\n- 4");
}

TEST(RenderKinds, ANullCustomValueIsNull)
{
    const vexa::CCustomBasicTypeInfor infor = CustomType<int>("Grade", Plain(DT_INT));
    const void* pointer = nullptr;
    const CConstRefrence ref(OwnedPointer(DT_CUSTOM_BASIC, &infor), &pointer);
    EXPECT_EQ(AsString(ref), "NULL");
    EXPECT_EQ(AsString(ref, ASF_TYPE_AND_VALUE), "Grade*: NULL");
    Custom<int> grade;
    pointer = &grade;
    EXPECT_EQ(AsString(ref), "0");
}

TEST(RenderKinds, ACustomValueCanHoldAnyKind)
{
    const vexa::CCustomBasicTypeInfor unknown = CustomType<int>("Opaque", Plain(DT_UNKNOWN));
    const vexa::CCustomBasicTypeInfor nullable = CustomType<Wrapped<int>>("Maybe", vexa_test::MayNull<int>(DT_INT));
    const vexa::CCustomBasicTypeInfor list = CustomType<std::vector<int>>("Bag", vexa::TypeInforOf<std::vector<int>>());
    Custom<int> opaque;
    Custom<Wrapped<int>> maybe;
    maybe.Value = {1, 5};
    Custom<std::vector<int>> bag;
    bag.Value = {1, 2};
    EXPECT_EQ(AsString(CConstRefrence(Plain(DT_CUSTOM_BASIC, &unknown), &opaque)), "unkown");
    EXPECT_EQ(AsString(CConstRefrence(Plain(DT_CUSTOM_BASIC, &nullable), &maybe)), "NULL");
    EXPECT_EQ(AsString(CConstRefrence(Plain(DT_CUSTOM_BASIC, &list), &bag)), "\n- 1\n- 2");
}

} // namespace
