// Unions that are guarded although their class does not show it: members with names that are taken, members with parts
// that are not described, selectors inside unions.

#include <vexa/json.h>

#include <string>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;

const std::string LONG_TEXT = "a text that is too long for its own place";

// Hidden members

struct Taking {
    int text = 4;
    int kindless = 0;
};
VEXA_DESCRIBE(Taking, text, kindless)

struct Hiding {
    short kind = 1;
    union {
        long number;
        std::string* text;
    };
    Hiding() : number(0) {}
    Hiding(const Hiding&) = delete;
    Hiding& operator=(const Hiding&) = delete;
    ~Hiding()
    {
        if (kind == 2) delete text;
    }
};
VEXA_DESCRIBE_CLASS(Hiding)
{
    about.Attrib("kind", &Hiding::kind);
    about.Attrib("number", &Hiding::number).ActiveWhen("kind", 1);
    about.Attrib("text", &Hiding::text).ActiveWhen("kind", 2);
}
struct Both : Taking, Hiding {};
VEXA_DESCRIBE_CLASS(Both)
{
    about.Base<Taking>();
    about.Base<Hiding>();
}
/// Not the class that hides the member, but one that has it for a base or a member.
struct Shift {
    long first = 0;
};
VEXA_DESCRIBE(Shift, first)
struct Below : Shift, Both {};
VEXA_DESCRIBE_CLASS(Below)
{
    about.Base<Shift>();
    about.Base<Both>();
}
struct Around {
    int which = 0;
    union {
        long words[5];
        Both both;
    };
    Around() : words{0, 0, 0, 0, 0} {}
    ~Around()
    {
        if (which == 2) both.~Both();
    }
};
VEXA_DESCRIBE_CLASS(Around)
{
    about.Attrib("which", &Around::which);
    about.Attrib("words", &Around::words).ActiveWhen("which", 1);
    about.Attrib("both", &Around::both).ActiveWhen("which", 2);
}

template<class Object>
void ExpectHiddenMemberIsGuarded()
{
    Object object;
    EXPECT_EQ(FromJson(object, R"({"number":1094795585,"kind":2})"), 998);
    EXPECT_EQ(FromJson(object, R"({"kind":1,"number":1094795585,"kind":2})"), 0);
    EXPECT_EQ(object.Hiding::text, nullptr);
    EXPECT_EQ(FromJson(static_cast<Hiding&>(object), R"({"kind":2,"text":")" + LONG_TEXT + "\"}"), 0);
    EXPECT_EQ(*object.Hiding::text, LONG_TEXT);
    EXPECT_EQ(FromJson(object, R"({"kind":1,"number":7,"text":3})"), 0) << "the hidden text is freed";
    EXPECT_EQ(object.number, 7);
    EXPECT_EQ(object.Taking::text, 3);
}

TEST(JsonUnionGuard, AMemberWhoseNameIsTakenGuardsItsUnionAllTheSame)
{
    ExpectHiddenMemberIsGuarded<Both>();
    ExpectHiddenMemberIsGuarded<Below>();
}

TEST(JsonUnionGuard, AHiddenMemberIsNeitherVisitedNorFound)
{
    Both both;
    both.Hiding::text = new std::string("x");
    both.kind = 2;
    EXPECT_EQ(Json(both), R"({"text":4,"kindless":0,"kind":2})");
    vexa::CConstRefrence found;
    EXPECT_FALSE(vexa::RefOf(both).AsClass().FindAttribByUnionAttribEnum(found, 2));
    EXPECT_EQ(vexa::ClassInforOf<Both>().AttribList.size(), 4U);
}

TEST(JsonUnionGuard, AClassThatHidesAMemberIsOneThatHoldsResources)
{
    Around around;
    EXPECT_EQ(FromJson(around, R"({"words":[1094795585]})"), 998);
    EXPECT_EQ(FromJson(around, R"({"which":1,"words":[1094795585,1094795585,1094795585],"which":2})"), 0);
    EXPECT_EQ(Json(around), R"({"which":2,"both":{"text":4,"kindless":0,"kind":1,"number":0}})");
    around.both.kind = 2;
    around.both.Hiding::text = new std::string(LONG_TEXT);
    EXPECT_EQ(FromJson(around, R"({"which":1,"words":[1094795585]})"), 0) << "the hidden text is freed";
}

/// Every member of the union is hidden.
struct TakingAll {
    int number = 0;
    int text = 0;
};
VEXA_DESCRIBE(TakingAll, number, text)
struct AllHidden : TakingAll, Hiding {};
VEXA_DESCRIBE_CLASS(AllHidden)
{
    about.Base<TakingAll>();
    about.Base<Hiding>();
}

TEST(JsonUnionGuard, AUnionThatIsHiddenWhollyIsHandedOver)
{
    AllHidden object;
    object.kind = 1;
    object.Hiding::number = 1094795585;
    EXPECT_EQ(FromJson(object, R"({"kind":2})"), 0);
    EXPECT_EQ(object.Hiding::text, nullptr);
}

// Parts that are not described

struct PartlyDescribed {
    int x = 7;
    std::string hidden = LONG_TEXT;
};
VEXA_DESCRIBE(PartlyDescribed, x)
struct Virtual {
    int x = 7;
    virtual ~Virtual() = default;
};
VEXA_DESCRIBE(Virtual, x)
struct CodeWithMore {
    int code = 0;
    std::string more = LONG_TEXT;
};
VEXA_DESCRIBE_CUSTOM_STD(CodeWithMore, &CodeWithMore::code)
struct Deeper {
    PartlyDescribed inside[1];
};
VEXA_DESCRIBE(Deeper, inside)

/// A union of plain numbers beside one member with more than is described.
template<class Part>
struct Beside {
    int kind = 1;
    union {
        long numbers[5];
        Part part;
    };
    Beside() : numbers{1, 2, 3, 4, 5} {}
    ~Beside() {}
};

template<class Part>
void DescribeBeside(vexa::CDescription<Beside<Part>>& about)
{
    about.Attrib("kind", &Beside<Part>::kind);
    about.Attrib("numbers", &Beside<Part>::numbers).ActiveWhen("kind", 1);
    about.Attrib("part", &Beside<Part>::part).ActiveWhen("kind", 2);
}

using BesidePartlyDescribed = Beside<PartlyDescribed>;
VEXA_DESCRIBE_CLASS(BesidePartlyDescribed) { DescribeBeside(about); }
using BesideVirtual = Beside<Virtual>;
VEXA_DESCRIBE_CLASS(BesideVirtual) { DescribeBeside(about); }
using BesideCodeWithMore = Beside<CodeWithMore>;
VEXA_DESCRIBE_CLASS(BesideCodeWithMore) { DescribeBeside(about); }
using BesideDeeper = Beside<Deeper>;
VEXA_DESCRIBE_CLASS(BesideDeeper) { DescribeBeside(about); }

template<class Part>
void ExpectPartIsNotMadeOfNumbers()
{
    Beside<Part> object;
    EXPECT_EQ(FromJson(object, R"({"numbers":[1094795585,1094795585],"kind":2})"), 998);
    EXPECT_EQ(FromJson(object, R"({"kind":1,"numbers":[1094795585,1094795585],"kind":2})"), 997);
    EXPECT_EQ(Json(object), R"({"kind":1,"numbers":[1094795585,1094795585,0,0,0]})") << "as it was";

    object.kind = 2;
    new (&object.part) Part();
    EXPECT_EQ(FromJson(object, R"({"kind":1})"), 997);
    EXPECT_EQ(object.kind, 2);
    object.part.~Part();
}

TEST(JsonUnionGuard, AMemberThatIsNotDescribedWhollyIsNeverMadeOfWhatAnotherLeft)
{
    ExpectPartIsNotMadeOfNumbers<PartlyDescribed>();
    ExpectPartIsNotMadeOfNumbers<Virtual>();
    ExpectPartIsNotMadeOfNumbers<CodeWithMore>();
    ExpectPartIsNotMadeOfNumbers<Deeper>();
}

/// Less room than a pointer's size is left out, and records need not come as they lie.
struct Gaps {
    char small = 1;
    short notDescribed = 3;
    int after = 2;
    long last[2] = {};
};
VEXA_DESCRIBE(Gaps, last, after, small)
using BesideGaps = Beside<Gaps>;
VEXA_DESCRIBE_CLASS(BesideGaps) { DescribeBeside(about); }

TEST(JsonUnionGuard, AUnionOfPlainValuesStaysOne)
{
    BesideGaps object;
    EXPECT_EQ(FromJson(object, R"({"numbers":[65,0,7],"kind":2,"part":{"after":9}})"), 0);
    EXPECT_EQ(Json(object), R"({"kind":2,"part":{"last":[0,7],"after":9,"small":65}})");
    EXPECT_EQ(FromJson(object, R"({"part":{"last":[5]},"numbers":[1094795585],"kind":1})"), 0);
    EXPECT_EQ(object.numbers[0], 1094795585);
    EXPECT_EQ(object.numbers[1], 5);
}

// Selectors inside unions

struct Nested {
    short kind = 0;
    union {
        int sub;
        short less;
    };
    union {
        long number;
        std::string* text;
        std::string* name;
        long other;
    };
    Nested() : sub(0), number(0) {}
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;
    ~Nested()
    {
        if (kind == 1 && sub == 2) delete text;
        if (kind == 2) delete name;
    }
};
VEXA_DESCRIBE_CLASS(Nested)
{
    about.Attrib("kind", &Nested::kind);
    about.Attrib("sub", &Nested::sub).ActiveWhen("kind", 1);
    about.Attrib("number", &Nested::number).ActiveWhen("sub", 1);
    about.Attrib("text", &Nested::text).ActiveWhen("sub", 2);
    about.Attrib("name", &Nested::name).ActiveWhen("kind", 2);
    about.Attrib("other", &Nested::other).ActiveWhen("kind", 3);
}

TEST(JsonUnionGuard, ASelectorInsideAUnionIsFollowedWhileItIsActive)
{
    Nested object;
    object.kind = 1;
    object.sub = 0;
    EXPECT_EQ(FromJson(object, R"({"sub":1,"number":1094795585,"sub":2})"), 997) << "the clearing drops the kind";
    EXPECT_EQ(object.kind, 1) << "so it keeps its value";
    EXPECT_EQ(object.sub, 0);
    EXPECT_EQ(object.text, nullptr);
}

TEST(JsonUnionGuard, NoSelectorLeadsToOrFromAUnionInsideAUnion)
{
    Nested object;
    EXPECT_EQ(FromJson(object, R"({"kind":1})"), 997);
    EXPECT_EQ(object.kind, 0);
    EXPECT_EQ(FromJson(object, R"({"number":1094795585})"), 998);
    EXPECT_EQ(FromJson(object, R"({"other":1094795585})"), 998);
    EXPECT_EQ(FromJson(object, R"({"kind":3,"other":1094795585,"kind":1})"), 997);
    EXPECT_EQ(FromJson(object, R"({"kind":3,"other":1094795585,"number":1})"), 998);
    EXPECT_EQ(FromJson(object, R"({"kind":3,"other":1094795585,"kind":2})"), 0);
    EXPECT_EQ(object.name, nullptr);
    EXPECT_EQ(FromJson(object, R"({"kind":2,"name":")" + LONG_TEXT + R"(","number":1094795585})"), 998);
    EXPECT_EQ(*object.name, LONG_TEXT);
    EXPECT_EQ(FromJson(object, R"({"kind":3,"other":5})"), 0) << "the name is freed";
}

TEST(JsonUnionGuard, ATextNamesNoRecordThatTheIndexDoesNotHave)
{
    int numbers[3] = {1, 2, 3};
    vexa::CClassInfor byHand;
    byHand.SetBaseTypeInfor("ByHand", sizeof numbers, nullptr, nullptr, 0);
    const auto add = [&](const char* name, unsigned short offset) {
        byHand.AddAttribInfor(vexa::Enum::AS_PUBLIC, offset, name, -1).TypeInfor = vexa::TypeInforOf<int>();
    };
    add("first", 0);
    vexa::CRefrence object(vexa::CGnlTypeInfor(vexa::Enum::DT_CLASS, 0, &byHand), numbers);
    EXPECT_EQ(FromJson(object, R"({"first":5})"), 722);
    byHand.CreateIndex();
    EXPECT_EQ(FromJson(object, R"({"first":5})"), 0);
    add("second", 4);
    EXPECT_EQ(FromJson(object, R"({"first":6,"second":7})"), 722);
    EXPECT_EQ(numbers[0], 6);
    EXPECT_EQ(numbers[1], 0) << "cleared";
}

} // namespace
