// Custom basic types in descriptions: as members, elements, keys, in wrappers, behind pointers and in unions.

#include <vexa/describe.h>

#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/described_text.h"
#include "support/value_text.h"

namespace custom_type_test {

/// Std over a string, behind another member.
struct Tag {
    long padding = -1;
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Tag, &Tag::text)

/// Std over a number.
struct Meters {
    int value = 0;
};
VEXA_DESCRIBE_CUSTOM_STD(Meters, &Meters::value)

/// Std over a value type.
struct Price {
    char currency = 'E';
    vexa::CNumeric amount;
};
VEXA_DESCRIBE_CUSTOM_STD(Price, &Price::amount)

/// Std over a value that lies almost as far into the object as a value offset reaches, in a class that is larger.
struct Sheet {
    char padding[32764] = {};
    int value = 3;
    char more[1000] = {};
};
VEXA_DESCRIBE_CUSTOM_STD(Sheet, &Sheet::value)

/// Any with members that convert.
struct Money {
    long cents = 0;
    char sign = '$';

    void ToValue(vexa::CValue& out) const { out = std::to_string(cents) + "c"; }
    void FromValue(const vexa::CValue& in) { cents = in.IsNull() ? -1 : in.As_long(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 17)
bool operator<(const Money& left, const Money& right) { return left.cents < right.cents; }

/// Any with functions beside it, and a layout that owns memory.
struct Words {
    std::vector<std::string> list;
};
void ToValue(const Words& words, vexa::CValue& out)
{
    std::string joined;
    for (const std::string& word : words.list)
        joined += (joined.empty() ? "" : " ") + word;
    out = joined;
}
void FromValue(Words& words, const vexa::CValue& in)
{
    words.list.clear();
    if (!in.IsNull()) words.list.push_back(in.As_std_string());
}
VEXA_DESCRIBE_CUSTOM_ANY(Words, 18)

/// Any that is an enumeration.
enum class Color { Red, Green };
void ToValue(const Color& color, vexa::CValue& out) { out = color == Color::Red ? "red" : "green"; }
void FromValue(Color& color, const vexa::CValue& in)
{
    color = !in.IsNull() && in.As_std_string() == "green" ? Color::Green : Color::Red;
}
VEXA_DESCRIBE_CUSTOM_ANY(Color, 19)

struct Item {
    Tag tag;
    Meters length;
    Price price;
    Money money;
    Words words;
    Color color = Color::Red;
};
VEXA_DESCRIBE(Item, tag, length, price, money, words, color)

struct Held {
    vexa::MayNull<Tag> tag;
    vexa::MayNull<Money> money;
    Money* raw = nullptr;
    const Money* seen = nullptr;
    std::unique_ptr<Words> words;
    vexa::NonNullPointer<Money> always;
};
VEXA_DESCRIBE(Held, tag, money, raw, seen, words, always)

struct Lists {
    std::vector<Tag> tags;
    std::list<Money> moneys;
    Color colors[2] = {Color::Green, Color::Red};
    std::set<Money> sorted;
    std::map<int, Money> byNumber;
};
VEXA_DESCRIBE(Lists, tags, moneys, colors, sorted, byNumber)

struct Choice {
    short kind = 0;
    union {
        Meters length;
        Money money = {};
    };
    Choice() {}
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("length", &Choice::length).ActiveWhen("kind", 1);
    about.Attrib("money", &Choice::money).ActiveWhen("kind", 2);
}

} // namespace custom_type_test

namespace {

using namespace custom_type_test;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::AsString;
using vexa::TypeInforOf;

const vexa::CCustomBasicTypeInfor& CustomOf(const vexa::CGnlTypeInfor& type)
{
    return *static_cast<const vexa::CCustomBasicTypeInfor*>(type.DetailInfor);
}

TEST(CustomType, OfTheStdVariantIsDescribedByItsMember)
{
    const auto& type = TypeInforOf<Tag>();
    EXPECT_EQ(TypeText(type), "Tag, 112, 0x00");
    EXPECT_EQ(type.Sizeof(), sizeof(Tag));
    EXPECT_EQ(type.GetCustomTypeID(), 0U);
    EXPECT_EQ(CustomOf(type).ValueOffset, static_cast<short>(offsetof(Tag, text)));
    EXPECT_EQ(TypeText(CustomOf(type).Underlying), "std::string, 41, 0x00");
    EXPECT_TRUE(type.IsStringTypeEx());
    EXPECT_EQ(TypeText(CustomOf(TypeInforOf<Price>()).Underlying), "vexa::CNumeric, 47, 0x00");
}

/// What the converters make of an object: its text, then that after it has been set from \p in, then after a null.
template<class T>
std::string ThroughConverters(T object, const vexa::CValue& in)
{
    const vexa::CCustomBasicTypeInfor& infor = CustomOf(TypeInforOf<T>());
    std::string texts = infor.AsString(&object);
    infor.FromValue(&object, in);
    texts += '|' + infor.AsString(&object);
    infor.FromValue(&object, vexa::CValue());
    return texts + '|' + infor.AsString(&object);
}

TEST(CustomType, OfTheStdVariantHasConverters)
{
    EXPECT_EQ(ThroughConverters(Tag{-1, "old"}, "new"), "old|new|");
    EXPECT_EQ(ThroughConverters(Tag{-1, "old"}, 17), "old|17|");
    EXPECT_EQ(ThroughConverters(Meters{12}, std::string("13")), "12|13|0");
    EXPECT_EQ(ThroughConverters(Price{'E', vexa::CNumeric("9.90")}, 2.5), "9.90|2.500000|(null)");
    EXPECT_EQ(ThroughConverters(Sheet(), 4), "3|4|0");
    vexa::CValue out;
    const Meters meters{12};
    CustomOf(TypeInforOf<Meters>()).ToValue(&meters, out);
    EXPECT_EQ(out.Type(), DT_INT);
}

TEST(CustomType, OfTheAnyVariantIsDescribedByItsIDAndConverters)
{
    const auto& type = TypeInforOf<Words>();
    EXPECT_EQ(TypeText(type), "Words, 112, 0x00");
    EXPECT_EQ(type.Sizeof(), sizeof(Words));
    EXPECT_EQ(type.GetCustomTypeID(), 18U);
    EXPECT_EQ(CustomOf(type).ValueOffset, 0);
    EXPECT_EQ(CustomOf(type).Underlying.DataType, DT_UNKNOWN);
    EXPECT_NE(CustomOf(type).ToValue, nullptr);
    EXPECT_NE(CustomOf(type).FromValue, nullptr);
    EXPECT_FALSE(type.IsStringTypeEx());
    EXPECT_EQ(TypeInforOf<Money>().GetCustomTypeID(), 17U);
    EXPECT_EQ(TypeInforOf<Color>().GetCustomTypeID(), 19U);
}

TEST(CustomType, HasOneDescriptorHoweverItIsHeld)
{
    const auto* const descriptor = TypeInforOf<Money>().DetailInfor;
    EXPECT_EQ(TypeText(TypeInforOf<vexa::MayNull<Money>>()), "MayNull<Money>, 112, 0x09, 0/8");
    EXPECT_EQ(TypeText(TypeInforOf<Money*>()), "Money*, 112, 0x18");
    EXPECT_EQ(TypeText(TypeInforOf<const Money*>()), "const Money*, 112, 0x38");
    EXPECT_EQ(TypeInforOf<vexa::MayNull<Money>>().DetailInfor, descriptor);
    EXPECT_EQ(TypeInforOf<Money*>().DetailInfor, descriptor);
}

TEST(CustomType, IsMadeAndDestroyedThroughItsDescriptor)
{
    const auto& type = TypeInforOf<Words>();
    void* object = type.New();
    static_cast<Words*>(object)->list.emplace_back("a text that is too long to lie inside a std::string object");
    type.Delete(object);
    EXPECT_EQ(object, nullptr);
}

Item Filled()
{
    Item item;
    item.tag.text = "new \"tag\"";
    item.length.value = 12;
    item.price.amount = vexa::CNumeric(std::string("9.90"));
    item.money.cents = 250;
    item.words.list = {"two", "words"};
    item.color = Color::Green;
    return item;
}

TEST(CustomType, AsAMemberIsRenderedByItsStandardValue)
{
    EXPECT_EQ(AsString(Filled()),
              "\ntag: new \"tag\"\nlength: 12\nprice: 9.90\nmoney: 250c\nwords: two words\ncolor: green");
    EXPECT_EQ(AsString(Filled(), ASF_TYPE_AND_VALUE), "Item: "
                                                      "\n  Tag tag: Tag: new \"tag\""
                                                      "\n  Meters length: Meters: 12"
                                                      "\n  Price price: Price: 9.90"
                                                      "\n  Money money: Money: 250c"
                                                      "\n  Words words: Words: two words"
                                                      "\n  Color color: Color: green");
    EXPECT_EQ(AsString(Filled(), ASF_TYPE_ONLY), "Item: ");
}

TEST(CustomType, AsAMemberIsWrittenAsItsStandardValue)
{
    EXPECT_EQ(Json(Filled()),
              R"({"tag":"new \"tag\"","length":12,"price":9.90,"money":"250c","words":"two words","color":"green"})");
}

TEST(CustomType, AsAMemberIsReadIfItIsOverAString)
{
    Item item = Filled();
    EXPECT_EQ(vexa::FromJson(item, R"({"tag":"x\ty"})"), 0);
    EXPECT_EQ(item.tag.text, "x\ty");
    EXPECT_EQ(item.tag.padding, -1);
    EXPECT_EQ(item.length.value, 0);
    for (const char* text : {R"({"color":"green"})", R"({"words":"a"})", R"({"money":"99c"})", R"({"length":5})"}) {
        EXPECT_EQ(vexa::FromJson(item, text), 656) << text;
        EXPECT_EQ(AsString(item), "\ntag: \nlength: 0\nprice: (null)\nmoney: -1c\nwords: \ncolor: red") << text;
    }
}

TEST(CustomType, AsAMemberIsClearedByItsMemberOrItsConverter)
{
    Item item = Filled();
    vexa::RefOf(item).Clear();
    EXPECT_EQ(AsString(item), "\ntag: \nlength: 0\nprice: (null)\nmoney: -1c\nwords: \ncolor: red");
}

TEST(CustomType, InAWrapperOrBehindAPointerMayBeNull)
{
    const Held held;
    EXPECT_EQ(AsString(held), "\ntag: NULL\nmoney: NULL\nraw: NULL\nseen: NULL\nwords: NULL\nalways: NULL");
    EXPECT_EQ(Json(held), "{}");
}

TEST(CustomType, InAWrapperOrBehindAPointerIsReachedWhereItLies)
{
    const Money seen{7, '$'};
    Held held;
    held.tag = Tag{0, "in"};
    held.money = Money{1, '$'};
    held.raw = new Money{2, '$'};
    held.seen = &seen;
    held.words = std::make_unique<Words>(Words{{"w"}});
    held.always->cents = 3;

    EXPECT_EQ(AsString(held), "\ntag: in\nmoney: 1c\nraw: 2c\nseen: 7c\nwords: w\nalways: 3c");
    EXPECT_EQ(Json(held), R"({"tag":"in","money":"1c","raw":"2c","seen":"7c","words":"w","always":"3c"})");
    vexa::RefOf(held).Clear();
    EXPECT_EQ(held.raw, nullptr);
    EXPECT_EQ(held.seen, nullptr);
    EXPECT_EQ(held.words, nullptr);
    EXPECT_FALSE(held.tag.has_value() || held.money.has_value());
    EXPECT_EQ(seen.cents, 7);
}

TEST(CustomType, InAWrapperOrBehindAPointerIsMadeByReading)
{
    Held held;
    EXPECT_EQ(vexa::FromJson(held, R"({"tag":"in"})"), 0);
    EXPECT_EQ(Json(held), R"({"tag":"in"})");
    for (const char* text : {R"({"money":"1c"})", R"({"raw":2})", R"({"words":"w"})", R"({"seen":"1"})"}) {
        EXPECT_EQ(vexa::FromJson(held, text), 656) << text;
        EXPECT_EQ(Json(held), "{}") << text;
    }
}

TEST(CustomType, AsAnElementIsRenderedWrittenAndRead)
{
    Lists lists;
    lists.tags = {{0, "a"}, {0, "b"}};
    lists.moneys = {{1, '$'}, {2, '$'}};
    lists.sorted = {{9, '$'}, {8, '$'}};
    lists.byNumber = {{5, {50, '$'}}};

    EXPECT_EQ(AsString(lists), "\ntags: \n  - a\n  - b\nmoneys: \n  - 1c\n  - 2c\ncolors: \n  - green\n  - red"
                               "\nsorted: \n  - 8c\n  - 9c\nbyNumber: \n  - first: 5\n    second: 50c");
    const std::string json = R"({"tags":["a","b"],"moneys":["1c","2c"],"colors":["green","red"],)"
                             R"("sorted":["8c","9c"],"byNumber":[{"first":5,"second":"50c"}]})";
    EXPECT_EQ(Json(lists), json);
    EXPECT_EQ(ReadBack<Lists>(R"({"tags":["a","b"]})"),
              R"({"tags":["a","b"],"moneys":[],"colors":["red","red"],"sorted":[],"byNumber":[]})");
    EXPECT_EQ(ReadBack<Lists>(json), "code 656");
}

TEST(CustomType, NamesItsTypeAtEachElementInFormatOne)
{
    const std::vector<Money> moneys = {{1, '$'}, {2, '$'}};
    EXPECT_EQ(AsString(moneys, ASF_TYPE_AND_VALUE), "std::vector<Money>: \n  - Money: 1c\n  - Money: 2c");
}

TEST(CustomType, InAUnionIsReachedWhileItIsActive)
{
    Choice choice;
    choice.kind = 2;
    choice.money = Money{250, '$'};
    EXPECT_EQ(AsString(choice), "\nkind: 2\nmoney: 250c");
    EXPECT_EQ(Json(choice), R"({"kind":2,"money":"250c"})");

    choice.kind = 1;
    choice.length = Meters{12};
    EXPECT_EQ(AsString(choice), "\nkind: 1\nlength: 12");
    EXPECT_EQ(Json(choice), R"({"kind":1,"length":12})");
    EXPECT_EQ(ReadBack<Choice>(R"({"kind":1,"money":"7"})"), "code 656");
}

} // namespace
