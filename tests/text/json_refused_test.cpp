// Values that JSON text is not read into, whatever it holds: types that cannot be read, and read-only ones.

#include <vexa/json.h>

#include <bitset>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_container.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace std::string_literals;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CRefrence;
using vexa::FromJson;

/// A target of its own for the text. No failure logs anything.
template<class T>
void ExpectRefuses(const std::string& text, int code, const std::string& state)
{
    T target{};
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(FromJson(target, text), code) << text; }), "");
    EXPECT_EQ(Json(target), state) << text;
}

// Types that are not read

TEST(JsonRefused, ValueObjectsAreNotRead)
{
    ExpectRefuses<vexa::CBinary>("00ff", 656, "");
    ExpectRefuses<vexa::CNumeric>("5", 656, "(null)");
    ExpectRefuses<vexa::CDateTime>("2020-01-02 03:04:05", 656, "NULL");
    ExpectRefuses<vexa::CDateTime>("\"2020-01-02 03:04:05\"", 656, "NULL");
    ExpectRefuses<vexa::MayNull<vexa::CNumeric>>("5", 656, "");
    tm time{};
    time.tm_mday = 5;
    EXPECT_EQ(FromJson(time, "2020-01-02 03:04:05"), 656);
    EXPECT_EQ(time.tm_mday, 5);
}

struct Priced {
    int id = 0;
    vexa::CNumeric price;
};
VEXA_DESCRIBE(Priced, id, price)

TEST(JsonRefused, AValueObjectInsideAnObjectIsNotRead)
{
    ExpectRefuses<Priced>(R"({"id":1,"price":5})", 656, R"({"id":1,"price":(null)})");
}

TEST(JsonRefused, NoBasicCodeAboveTheNumbersIsReadButStrings)
{
    const char text[64] = "abc";
    for (unsigned code = 27; code <= 58; ++code) {
        if (code == DT_STD_STRING || code == DT_BINARY || code == DT_NUMERIC || code == DT_DATETIME) continue;
        char value[64] = "abc";
        EXPECT_EQ(FromJson(CRefrence(Plain(code), value), "\"x\""), 656) << code;
        EXPECT_EQ(std::string(value, sizeof value), std::string(text, sizeof text)) << code;
    }
}

TEST(JsonRefused, OnlyACustomValueOverAStringIsRead)
{
    const vexa::CCustomBasicTypeInfor label = CustomType<std::string>("Label", Plain(DT_STD_STRING));
    Custom<std::string> text;
    const auto readText = [&](const char* json) {
        text.Value = "what was there before";
        return FromJson(CRefrence(Plain(DT_CUSTOM_BASIC, &label), &text), json);
    };
    EXPECT_EQ(readText(R"("a\/b")"), 0);
    EXPECT_EQ(text.Value, "a/b");
    for (const char* json : {"5", "\"", "\"ab", "x\"ab\""}) {
        EXPECT_EQ(readText(json), 939) << json;
        EXPECT_EQ(text.Value, "") << json;
    }
    EXPECT_EQ(readText("\"ab\\"), 939);
    EXPECT_EQ(text.Value, "ab");

    const vexa::CCustomBasicTypeInfor grade = CustomType<int>("Grade", Plain(DT_INT));
    Custom<int> number;
    number.Value = 7;
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_CUSTOM_BASIC, &grade), &number), "5"), 656);
    EXPECT_EQ(number.Value, 0) << "only cleared";
    const vexa::CCustomBasicTypeInfor words = CustomType<const char*>("Words", ConstPointer(DT_CONST_CHAR_PTR));
    Custom<const char*> constant;
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_CUSTOM_BASIC, &words), &constant), "\"a\""), 656);
}

TEST(JsonRefused, ACustomValueBehindAPointerIsMade)
{
    const vexa::CCustomBasicTypeInfor label = CustomType<std::string>("Label", Plain(DT_STD_STRING));
    const vexa::CGnlTypeInfor type = OwnedPointer(DT_CUSTOM_BASIC, &label);
    void* pointer = nullptr;
    EXPECT_EQ(FromJson(CRefrence(type, &pointer), "\"a\""), 0);
    ASSERT_NE(pointer, nullptr);
    EXPECT_EQ(static_cast<Custom<std::string>*>(pointer)->Value, "a");
    type.Delete(pointer);
}

TEST(JsonRefused, OtherKindsAreNotRead)
{
    vexa::CGnlTypeInfor owned;
    owned.ChangeTypeTo_CustomType("shop::Price", 1, nullptr, nullptr, 7);
    for (const auto& type : {Plain(DT_UNKNOWN), Plain(DT_NULL), Plain(DT_VOID), Plain(5), Plain(59), Plain(99), owned,
                             Plain(DT_BITSET_NODE), Plain(255)}) {
        const vexa::CContainerInfor list = SequenceContainer<std::vector<int>>("Things", type);
        std::vector<int> things;
        EXPECT_EQ(
            LoggedLines([&] { EXPECT_EQ(FromJson(CRefrence(Plain(DT_SEQUENCE_A, &list), &things), "[5]"), 956); }), "");
        EXPECT_EQ(things, std::vector<int>{0}) << type.TypeName();

        int thing = 5;
        EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(FromJson(CRefrence(type, &thing), "6"), 956); }),
                  "Not supported type " + type.TypeName() + " In function CRefrence::Clear()\n");
        EXPECT_EQ(thing, 5);
    }
}

// Read-only values

TEST(JsonRefused, AReadOnlyTargetIsNotEvenCleared)
{
    int number = 5;
    std::vector<int> numbers{1};
    for (const char* text : {"6", "", "[]"}) {
        EXPECT_EQ(FromJson(CRefrence(vexa::CGnlTypeInfor(DT_INT, HF_CONST), &number), text), 965);
        const vexa::CGnlTypeInfor list(DT_SEQUENCE_A, HF_CONST, vexa::TypeInforOf<std::vector<int>>().DetailInfor);
        EXPECT_EQ(FromJson(CRefrence(list, &numbers), text), 965);
        const int* pointer = &number;
        EXPECT_EQ(FromJson(pointer, text), 965);
        EXPECT_EQ(pointer, &number);
    }
    EXPECT_EQ(number, 5);
    EXPECT_EQ(numbers, std::vector<int>{1});
}

struct Sealed {
    int a = 1;
    const int b = 2;
    const std::string c = "c";
    const Address d{"d"};
    const std::vector<int> e{5};
    const char* text = "text";
    const Address* shared = nullptr;
    int last = 9;
};
VEXA_DESCRIBE(Sealed, a, b, c, d, e, text, shared, last)

TEST(JsonRefused, AReadOnlyMemberIsRefusedAndWhatWasReadStays)
{
    const std::string before = R"({"a":7,"b":2,"c":"c","d":{"city":"d"},"e":[5],"last":0})";
    const auto expectRefused = [&](const char* member, int code) {
        Sealed sealed;
        EXPECT_EQ(FromJson(sealed, R"({"a":7,)"s + member + R"(,"last":8})"), code) << member;
        EXPECT_EQ(Json(sealed), before) << member;
    };
    for (const char* member : {R"("b":3)", R"("b":x)", R"("c":"x")", R"("d":{"city":"x"})", R"("e":[1])", R"("e":[])",
                               R"("shared":{"city":"x"})", R"("shared":null)"})
        expectRefused(member, 965);
    expectRefused(R"("text":"x")", 656);
}

struct SealedKinds {
    const vexa::CNumeric exact{};
    const tm time{};
    const std::bitset<3> bits{};
    const vexa::CValue any{};
    const vexa::CGnlClass record{};
    const vexa::CNumeric* pointer = nullptr;
    const void* memory = nullptr;
    const Address* shared = nullptr;
};
VEXA_DESCRIBE(SealedKinds, exact, time, bits, any, record, pointer, memory, shared)

TEST(JsonRefused, AKindThatCannotBeReadIsToldBeforeTheRightToChangeIt)
{
    const auto code = [](const char* member) {
        SealedKinds sealed;
        return FromJson(sealed, "{\""s + member + "\":[1]}");
    };
    for (const char* basic : {"exact", "time", "pointer"})
        EXPECT_EQ(code(basic), 656) << basic;
    for (const char* other : {"any", "memory"})
        EXPECT_EQ(code(other), 956) << other;
    for (const char* readable : {"bits", "record", "shared"})
        EXPECT_EQ(code(readable), 965) << readable;

    std::vector<const vexa::CNumeric*> appended;
    EXPECT_EQ(FromJson(appended, "[1]"), 656);
    std::set<const vexa::CNumeric*> inserted;
    EXPECT_EQ(FromJson(inserted, "[1]"), 656);
    const vexa::CNumeric* top = nullptr;
    EXPECT_EQ(FromJson(top, "[1]"), 965) << "at the top the right comes first";
}

struct Outer {
    int a = 0;
    Sealed inner;
};
VEXA_DESCRIBE(Outer, a, inner)

TEST(JsonRefused, AReadOnlyValueIsRefusedAtEveryDepth)
{
    std::vector<std::unique_ptr<Outer>> outers;
    EXPECT_EQ(FromJson(outers, R"([{"a":1},{"a":2,"inner":{"last":3,"d":{"city":"x"},"a":4}}])"), 965);
    ASSERT_EQ(outers.size(), 2U);
    EXPECT_EQ(outers[1]->a, 2);
    EXPECT_EQ(outers[1]->inner.last, 3);
    EXPECT_EQ(outers[1]->inner.d.city, "d");
    EXPECT_EQ(outers[1]->inner.a, 1);
}

TEST(JsonRefused, AReadOnlyElementIsRefused)
{
    std::vector<const int*> appended;
    EXPECT_EQ(FromJson(appended, "[1,2]"), 965);
    EXPECT_EQ(appended, std::vector<const int*>{nullptr});
    std::set<const int*> inserted;
    EXPECT_EQ(FromJson(inserted, "[1,2]"), 965);
    EXPECT_TRUE(inserted.empty());
    EXPECT_EQ(FromJson(inserted, "[]"), 0);
}

TEST(JsonRefused, AConstantTextThatIsNotMarkedReadOnlyIsNoReadableType)
{
    const char* text = "abc";
    EXPECT_EQ(FromJson(CRefrence(vexa::CGnlTypeInfor(DT_CONST_CHAR_PTR, HF_POINTER), &text), "\"x\""), 656);
    EXPECT_STREQ(text, "abc");
    EXPECT_EQ(FromJson(text, "\"x\""), 965) << "as it is described";
    EXPECT_STREQ(text, "abc");
}

} // namespace
