// Reading into unions: members of plain values by name, members that hold pointers or objects only while active.

#include <vexa/json.h>

#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;

struct Variant {
    int kind = 1;
    union {
        long number;
        std::string* name;
    };
    Variant() : number(0) {}
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant()
    {
        if (kind == 2) delete name;
    }
};
VEXA_DESCRIBE_CLASS(Variant)
{
    about.Attrib("kind", &Variant::kind);
    about.Attrib("number", &Variant::number).ActiveWhen("kind", 1);
    about.Attrib("name", &Variant::name).ActiveWhen("kind", 2);
}

TEST(JsonUnion, ANumberIsNeverTakenForAPointer)
{
    Variant v;
    EXPECT_EQ(FromJson(v, R"({"number":1094795585,"name":"x"})"), 998);
    EXPECT_EQ(FromJson(v, R"({"kind":1,"number":1094795585,"name":"x"})"), 998);
    EXPECT_EQ(v.number, 1094795585);
    EXPECT_EQ(FromJson(v, R"({"kind":1,"number":1094795585,"kind":2})"), 0);
    EXPECT_EQ(v.name, nullptr);
    vexa::RefOf(v).Clear();
    EXPECT_EQ(FromJson(v, R"({"kind":2,"number":1094795585})"), 998);
    EXPECT_EQ(v.name, nullptr);
    EXPECT_EQ(FromJson(v, R"({"kind":1,"number":1094795585,"kind":2,"name":"x"})"), 0);
    EXPECT_EQ(Json(v), R"({"kind":2,"name":"x"})");
    EXPECT_EQ(FromJson(v, R"({"kind":2,"name":"x","kind":1})"), 0) << "the name is freed";
    EXPECT_EQ(Json(v), R"({"kind":1,"number":0})");
}

TEST(JsonUnion, AMemberThatBecomesActiveIsADefaultOne)
{
    Variant v;
    v.number = 0x4141414141414141;
    EXPECT_EQ(FromJson(v, R"({"kind":2})"), 0);
    EXPECT_EQ(v.name, nullptr);
    EXPECT_EQ(FromJson(v, R"({"kind":2,"name":"x","kind":3,"kind":1})"), 0);
    EXPECT_EQ(v.number, 0);
}

TEST(JsonUnion, AUnionWhoseSelectorStaysIsLeftAlone)
{
    Variant v;
    EXPECT_EQ(FromJson(v, R"({"kind":2,"name":"x","kind":2,"name":"y"})"), 0);
    EXPECT_EQ(Json(v), R"({"kind":2,"name":"xy"})");
    EXPECT_EQ(FromJson(v, R"({"kind":1,"number":7,"kind":65537})"), 0) << "selectors are compared as short";
    EXPECT_EQ(v.number, 7);
}

TEST(JsonUnion, TheOldMemberIsReleasedWhenTheTargetIsCleared)
{
    Variant v;
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(FromJson(v, R"({"kind":2,"name":"a text that is too long for its own place"})"), 0);
        ASSERT_EQ(FromJson(v, R"({"kind":1,"number":4702111234474983745})"), 0);
    }
    EXPECT_EQ(FromJson(v, " "), 0);
    EXPECT_EQ(Json(v), R"({"kind":0})");
}

TEST(JsonUnion, AMemberThatCannotBeReadIsToldBeforeItsState)
{
    struct Case {
        const char* Text;
        int Code;
    };
    Variant v;
    for (const Case& bad : {Case{R"({"number":)", 698}, Case{R"({"number"})", 693}, Case{R"({"numbers":1})", 722}})
        EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(FromJson(v, bad.Text), bad.Code); }), "") << bad.Text;
}

// Objects in unions

struct Point {
    int x = 5;
    int y = 0;
};
VEXA_DESCRIBE(Point, x, y)

struct Deep {
    int depth = 7;
    std::unique_ptr<Point> point;
    std::string text = "default";
};
VEXA_DESCRIBE(Deep, depth, point, text)

/// Members of every kind that can be made where it lies.
struct Choice {
    vexa::MayNull<short> kind;
    union {
        long number;
        std::string text;
        Deep deep;
        vexa::MayNull<std::string> maybe;
        std::unique_ptr<std::string> owned;
        Deep array[2];
        const char* words;
        vexa::NonNullPointer<int> always;
        vexa::CNumeric exact;
    };
    Choice() : number(0) {}
    Choice(const Choice&) = delete;
    Choice& operator=(const Choice&) = delete;
    ~Choice()
    {
        switch (kind.value_or(0)) {
        case 2: text.~basic_string(); break;
        case 3: deep.~Deep(); break;
        case 4: maybe.~MayNull(); break;
        case 5: owned.~unique_ptr(); break;
        case 6: array[0].~Deep(), array[1].~Deep(); break;
        case 8: always.~NonNullPointer(); break;
        case 9: exact.~CNumeric(); break;
        default: break;
        }
    }
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("number", &Choice::number).ActiveWhen("kind", 1);
    about.Attrib("text", &Choice::text).ActiveWhen("kind", 2);
    about.Attrib("deep", &Choice::deep).ActiveWhen("kind", 3);
    about.Attrib("maybe", &Choice::maybe).ActiveWhen("kind", 4);
    about.Attrib("owned", &Choice::owned).ActiveWhen("kind", 5);
    about.Attrib("array", &Choice::array).ActiveWhen("kind", 6);
    about.Attrib("words", &Choice::words).ActiveWhen("kind", 7);
    about.Attrib("always", &Choice::always).ActiveWhen("kind", 8);
    about.Attrib("exact", &Choice::exact).ActiveWhen("kind", 9);
}

std::string ReadChoice(const std::string& text)
{
    Choice choice;
    const int code = FromJson(choice, text);
    return std::to_string(code) + ' ' + Json(choice);
}

TEST(JsonUnion, EveryKindOfMemberIsMadeAndDestroyedWhereItLies)
{
    const std::string fill = R"({"kind":1,"number":4702111234474983745,"kind":)";
    EXPECT_EQ(ReadChoice(fill + "2}"), R"(0 {"kind":2,"text":""})");
    EXPECT_EQ(ReadChoice(fill + "3}"), R"(0 {"kind":3,"deep":{"depth":7,"text":"default"}})");
    EXPECT_EQ(ReadChoice(fill + "4}"), R"(0 {"kind":4})");
    EXPECT_EQ(ReadChoice(fill + "5}"), R"(0 {"kind":5})");
    EXPECT_EQ(ReadChoice(fill + "6}"),
              R"(0 {"kind":6,"array":[{"depth":7,"text":"default"},{"depth":7,"text":"default"}]})");
    EXPECT_EQ(ReadChoice(fill + "7}"), R"(0 {"kind":7})");
    EXPECT_EQ(ReadChoice(fill + "8}"), R"(0 {"kind":8})");
    EXPECT_EQ(ReadChoice(fill + "9}"), R"(0 {"kind":9,"exact":(null)})");

    const std::string all = R"({"kind":2,"text":"a text that is too long for its own place","kind":3,)"
                            R"("deep":{"point":{"x":1},"text":" and more of it, on the heap"},"kind":4,)"
                            R"("maybe":"also a text that is too long for its place","kind":5,"owned":"own",)"
                            R"("kind":6,"array":[{"point":{"y":2}}],"kind":8,"always":9,"kind":9,"kind":)";
    EXPECT_EQ(ReadChoice(all + "1}"), R"(0 {"kind":1,"number":0})");
    EXPECT_EQ(ReadChoice(all + R"(2,"text":"x"})"), R"(0 {"kind":2,"text":"x"})");
    EXPECT_EQ(ReadChoice(all + R"(3,"text":"x"})"), R"(998 {"kind":3,"deep":{"depth":7,"text":"default"}})");
    EXPECT_EQ(ReadChoice(all + R"(7,"words":"x"})"), R"(656 {"kind":7})");
    EXPECT_EQ(ReadChoice(R"({"kind":9,"exact":5})"), R"(656 {"kind":9,"exact":(null)})");
}

TEST(JsonUnion, ANestedUnionIsReadByItsOwnSelector)
{
    std::list<Choice> listed;
    EXPECT_EQ(FromJson(listed, R"([{"kind":2,"text":"x"},{"kind":5,"owned":"y"},{"kind":1,"number":5,"kind":3}])"), 0);
    EXPECT_EQ(Json(listed), R"([{"kind":2,"text":"x"},{"kind":5,"owned":"y"},{"kind":3,"deep":{"depth":7,)"
                            R"("text":"default"}}])");
    std::unique_ptr<Choice> pointed;
    EXPECT_EQ(FromJson(pointed, R"({"number":4702111234474983745})"), 998);
    EXPECT_EQ(FromJson(pointed, R"({"kind":1,"number":4702111234474983745,"kind":5,"owned":"y"})"), 0);
    EXPECT_EQ(Json(pointed), R"({"kind":5,"owned":"y"})");
}

// Where the selector stands

struct Tagged {
    union {
        long number;
        std::string* name;
    };
    int kind = 0;
};
VEXA_DESCRIBE_CLASS(Tagged)
{
    about.Attrib("kind", &Tagged::kind);
    about.Attrib("number", &Tagged::number).ActiveWhen("kind", 1);
    about.Attrib("name", &Tagged::name).ActiveWhen("kind", 2);
}
struct Middle : Tagged {
    int middle = 0;
};
VEXA_DESCRIBE_CLASS(Middle)
{
    about.Base<Tagged>();
    about.Attrib("middle", &Middle::middle);
}
struct First {
    long kinds[3] = {};
    int first = 0;
};
VEXA_DESCRIBE(First, kinds, first)
struct Derived : First, Middle {
    int own = 0;
    ~Derived()
    {
        if (kind == 2) delete name;
    }
};
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<First>();
    about.Base<Middle>();
    about.Attrib("own", &Derived::own);
}

TEST(JsonUnion, IsFollowedThroughBasesOfBases)
{
    Derived derived;
    EXPECT_EQ(FromJson(derived, R"({"own":1,"kind":1,"number":4702111234474983745,"kind":2})"), 0);
    EXPECT_EQ(derived.name, nullptr);
    EXPECT_EQ(FromJson(derived, R"({"kind":2,"name":"x","own":3,"kinds":[1,2,3],"first":2})"), 0);
    EXPECT_EQ(*derived.name, "x");
    EXPECT_EQ(FromJson(derived, R"({"number":4702111234474983745})"), 998);
    EXPECT_EQ(FromJson(derived, R"({"kind":1,"number":4702111234474983745,"name":"y"})"), 998);
}

/// Structs in a union whose members are described one by one: several members are active at once.
struct SizedName {
    int size;
    std::string* name;
};
struct TwoWords {
    long low;
    long high;
};
struct Anonymous {
    std::unique_ptr<int> kind;
    union {
        SizedName pair;
        TwoWords words;
    };
    Anonymous() : words{0, 0} {}
    ~Anonymous()
    {
        if (kind != nullptr && *kind == 2) delete pair.name;
    }
};

TEST(JsonUnion, SeveralMembersMayBeActiveAtOnce)
{
    static vexa::CClassInfor* s_slot = nullptr;
    vexa::CClassInfor::InitClassInfor(
        s_slot, "Anonymous", sizeof(Anonymous), nullptr, nullptr,
        [](vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum) {
            const auto add = [&](const char* name, std::size_t offset, const vexa::CGnlTypeInfor& type) -> auto&
            {
                auto& record =
                    about.AddAttribInfor(vexa::Enum::AS_PUBLIC, static_cast<unsigned short>(offset), name, -1);
                record.TypeInfor = type;
                return record;
            };
            const auto& kind = add("kind", 0, vexa::TypeInforOf<std::unique_ptr<int>>());
            const auto member = [&](const char* name, std::size_t offset, const vexa::CGnlTypeInfor& type,
                                    short value) {
                auto& record = add(name, offset, type);
                record.UnionSelector = &kind;
                record.UnionAttribEnum = value;
            };
            member("low", 8, vexa::TypeInforOf<long>(), 1);
            member("high", 16, vexa::TypeInforOf<long>(), 1);
            member("size", 8, vexa::TypeInforOf<int>(), 2);
            member("name", 16, vexa::TypeInforOf<std::string*>(), 2);
        });
    Anonymous object;
    vexa::CRefrence ref(vexa::CGnlTypeInfor(vexa::Enum::DT_CLASS, 0, s_slot), &object);
    EXPECT_EQ(FromJson(ref, R"({"kind":1,"low":1094795585,"high":1094795585,"kind":2})"), 0);
    EXPECT_EQ(object.pair.size, 0);
    EXPECT_EQ(object.pair.name, nullptr);
    EXPECT_EQ(FromJson(ref, R"({"kind":2,"size":3,"name":"x"})"), 0);
    EXPECT_EQ(object.pair.size, 3);
    EXPECT_EQ(*object.pair.name, "x");
    EXPECT_EQ(FromJson(ref, R"({"kind":2,"size":3,"name":"x","high":1094795585})"), 998);
    EXPECT_EQ(FromJson(ref, ""), 0) << "a null selector reads as 0";
}

// What cannot be made in place

struct Hidden {
    std::string* shown = nullptr;

private:
    std::string m_hidden;
};
VEXA_DESCRIBE(Hidden, shown)

struct Refusing {
    std::string kind;
    union {
        long number;
        std::map<int, int> map;
        Hidden hidden;
    };
    Refusing() : number(0) {}
    ~Refusing() {}
};
VEXA_DESCRIBE_CLASS(Refusing)
{
    about.Attrib("kind", &Refusing::kind);
    about.Attrib("number", &Refusing::number).ActiveWhen("kind", 1);
    about.Attrib("map", &Refusing::map).ActiveWhen("kind", 2);
    about.Attrib("hidden", &Refusing::hidden).ActiveWhen("kind", 3);
}

TEST(JsonUnion, ASelectorDoesNotLeadToAMemberThatCannotBeMadeInPlace)
{
    Refusing object;
    EXPECT_EQ(FromJson(object, R"({"kind":"1","number":5})"), 0);
    EXPECT_EQ(Json(object), R"({"kind":"1","number":5})");
    for (const char* text : {R"({"kind":"2"})", R"({"kind":"3"})", R"({"kind":"2)", R"({"kind":"2\)"}) {
        const int code = FromJson(object, text);
        EXPECT_TRUE(code == 997 || code == 596 || code == 531) << code << text;
        EXPECT_EQ(object.kind, "") << text;
    }
    EXPECT_EQ(FromJson(object, R"({"kind":"1","number":7,"kind":"5"})"), 0) << "a text is appended to: 15";
    EXPECT_EQ(Json(object), R"({"kind":"15"})");
}

TEST(JsonUnion, AMemberThatCannotBeDestroyedInPlaceKeepsItsSelector)
{
    Refusing object;
    object.kind = "2";
    new (&object.map) std::map<int, int>{{1, 2}};
    EXPECT_EQ(FromJson(object, R"({"kind":"1"})"), 997);
    EXPECT_EQ(object.kind, "2");
    EXPECT_EQ(object.map.size(), 0U) << "cleared";
    object.map.~map();
}

// Plain values

struct Plain {
    short kind = 0;
    union {
        int code;
        double rate;
        Point point;
    };
    Plain() : rate(0) {}
};
VEXA_DESCRIBE_CLASS(Plain)
{
    about.Attrib("kind", &Plain::kind);
    about.Attrib("code", &Plain::code).ActiveWhen("kind", 1);
    about.Attrib("rate", &Plain::rate).ActiveWhen("kind", 2);
    about.Attrib("point", &Plain::point).ActiveWhen("kind", 3);
}

TEST(JsonUnion, MembersOfAUnionOfPlainValuesAreReadByNameActiveOrNot)
{
    Plain plain;
    EXPECT_EQ(FromJson(plain, R"({"code":5,"kind":1})"), 0);
    EXPECT_EQ(Json(plain), R"({"kind":1,"code":5})");
    EXPECT_EQ(FromJson(plain, R"({"kind":1,"rate":2,"code":7,"point":{"y":3},"kind":3})"), 0);
    EXPECT_EQ(Json(plain), R"({"kind":3,"point":{"x":7,"y":3}})") << "nothing is made anew";
}

} // namespace
