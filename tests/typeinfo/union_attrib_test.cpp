// The choice among the members of a union, by the value of its selector.

#include <array>
#include <cstddef>
#include <string>

#include <gtest/gtest.h>

#include <vexa/class_infor.h>
#include <vexa/refrence.h>

#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CClassInfor;
using vexa::CConstRefrence;
using vexa_test::Add;
using vexa_test::AddUnionMember;
using vexa_test::DescribedClass;
using vexa_test::Plain;
using vexa_test::RecordAt;

/// An object with a union of three members, active for the kinds 1, 3 and 5.
struct Choice {
    short Kind;
    int Value;
    int After;
};

void DescribeChoice(CClassInfor& about)
{
    const CAttribInfor& kind = Add(about, "kind", offsetof(Choice, Kind), Plain(DT_SHORT));
    AddUnionMember(about, "one", offsetof(Choice, Value), Plain(DT_INT), kind, 1);
    AddUnionMember(about, "three", offsetof(Choice, Value), Plain(DT_UNSIGNED_INT), kind, 3);
    AddUnionMember(about, "five", offsetof(Choice, Value), Plain(DT_FLOAT), kind, 5);
}

/// What GetUnionAttrib gives from a place on: the name of the record it stops at, or "end".
std::string UnionAttribFrom(const CClassInfor& infor, std::size_t place, const void* object, CConstRefrence& out)
{
    auto position = infor.AttribList.begin();
    while (place-- > 0)
        ++position;
    infor.GetUnionAttrib(out, object, position);
    return position == infor.AttribList.end() ? "end" : position->Name;
}

TEST(UnionAttrib, IsTheMemberThatTheSelectorNames)
{
    const DescribedClass infor("Choice", sizeof(Choice), &DescribeChoice);
    const Choice object{3, 4711, 0};
    CConstRefrence out;
    EXPECT_EQ("three", UnionAttribFrom(*infor, 1, &object, out));
    EXPECT_EQ("unsigned int", out.TypeName());
    EXPECT_EQ(&object.Value, out.Address);
    EXPECT_EQ("three", UnionAttribFrom(*infor, 2, &object, out));
}

TEST(UnionAttrib, IsTheRecordAfterTheUnionWhenNoMemberIsActive)
{
    const DescribedClass infor("Choice", sizeof(Choice), [](CClassInfor& about) {
        DescribeChoice(about);
        Add(about, "after", offsetof(Choice, After), Plain(DT_INT));
    });
    for (const int kind : {0, 2, 4, 6, -1}) {
        const Choice object{static_cast<short>(kind), 0, 0};
        CConstRefrence out;
        EXPECT_EQ("after", UnionAttribFrom(*infor, 1, &object, out)) << kind;
        EXPECT_EQ(&object.After, out.Address);
    }
}

TEST(UnionAttrib, LeavesTheResultUntouchedAtTheEnd)
{
    const DescribedClass infor("Choice", sizeof(Choice), &DescribeChoice);
    const Choice object{4, 0, 0};
    int other = 0;
    CConstRefrence out(Plain(DT_INT), &other);
    EXPECT_EQ("end", UnionAttribFrom(*infor, 1, &object, out));
    EXPECT_EQ("end", UnionAttribFrom(*infor, 4, &object, out)) << "from the end itself";
    EXPECT_EQ(&other, out.Address);
    EXPECT_EQ("int", out.TypeName());
    const Choice passed{1, 0, 0};
    EXPECT_EQ("end", UnionAttribFrom(*infor, 2, &passed, out)) << "the active member lies before";
    EXPECT_EQ(&other, out.Address);
}

TEST(UnionAttrib, IsAnOrdinaryRecordAsItStands)
{
    const DescribedClass infor("Choice", sizeof(Choice), &DescribeChoice);
    const Choice object{5, 0, 0};
    CConstRefrence out;
    EXPECT_EQ("kind", UnionAttribFrom(*infor, 0, &object, out));
    EXPECT_EQ(&object.Kind, out.Address);
}

TEST(UnionAttrib, ReadsTheSelectorOfEachMemberAfresh)
{
    struct Two {
        short First;
        short Second;
        int FirstValue;
        int SecondValue;
    };
    const DescribedClass infor("Two", sizeof(Two), [](CClassInfor& about) {
        const CAttribInfor& first = Add(about, "first", offsetof(Two, First), Plain(DT_SHORT));
        const CAttribInfor& second = Add(about, "second", offsetof(Two, Second), Plain(DT_SHORT));
        AddUnionMember(about, "first1", offsetof(Two, FirstValue), Plain(DT_INT), first, 1);
        AddUnionMember(about, "second3", offsetof(Two, SecondValue), Plain(DT_INT), second, 3);
        AddUnionMember(about, "second2", offsetof(Two, SecondValue), Plain(DT_INT), second, 2);
    });
    const Two object{2, 2, 0, 0};
    CConstRefrence out;
    EXPECT_EQ("second2", UnionAttribFrom(*infor, 2, &object, out));
    EXPECT_EQ(&object.SecondValue, out.Address);
}

/// An object whose selector is a text, held in a wrapper.
struct TextChoice {
    vexa_test::Wrapped<std::string> Kind;
    int Value;
};

TEST(UnionAttrib, ConvertsTheSelectorToShort)
{
    const DescribedClass infor("TextChoice", sizeof(TextChoice), [](CClassInfor& about) {
        const CAttribInfor& kind =
            Add(about, "kind", offsetof(TextChoice, Kind), vexa_test::MayNull<std::string>(DT_STD_STRING));
        AddUnionMember(about, "zero", offsetof(TextChoice, Value), Plain(DT_INT), kind, 0);
        AddUnionMember(about, "twelve", offsetof(TextChoice, Value), Plain(DT_INT), kind, 12);
    });
    CConstRefrence out;
    TextChoice object{{0, "12"}, 0};
    EXPECT_EQ("twelve", UnionAttribFrom(*infor, 1, &object, out));
    object.Kind.IsNull = 1;
    EXPECT_EQ("zero", UnionAttribFrom(*infor, 1, &object, out)) << "a null reads as 0";
}

TEST(UnionAttrib, OfAnInheritedMemberReadsTheSelectorAtItsPlaceInTheBase)
{
    struct Derived {
        short Own;
        Choice Base;
    };
    const DescribedClass base("Choice", sizeof(Choice), &DescribeChoice);
    const DescribedClass infor(
        "Derived", sizeof(Derived), [](CClassInfor&) {}, base, offsetof(Derived, Base));
    EXPECT_EQ(&RecordAt(*base, 0), RecordAt(*infor, 1).UnionSelector);
    const Derived object{3, {1, 0, 0}};
    CConstRefrence out;
    EXPECT_EQ("three", UnionAttribFrom(*infor, 1, &object, out)) << "it finds Own where the base would have its kind";
    EXPECT_EQ(&object.Base.Value, out.Address);
}

TEST(UnionAttrib, OfASelectorWhoseNameIsTakenStillReadsTheSelector)
{
    struct Derived {
        Choice Base;
        short Kind;
        int Value;
    };
    const DescribedClass base("Choice", sizeof(Choice), &DescribeChoice);
    const DescribedClass infor(
        "Derived", sizeof(Derived),
        [](CClassInfor& about) {
            const CAttribInfor& kind = Add(about, "kind", offsetof(Derived, Kind), Plain(DT_SHORT));
            AddUnionMember(about, "own", offsetof(Derived, Value), Plain(DT_INT), kind, 7);
            AddUnionMember(about, "more", offsetof(Derived, Value), Plain(DT_INT), kind, 8);
        },
        base, 0);
    EXPECT_EQ("kind+@0 one+@4 three+@4 five+@4 own@16 more@16 ", vexa_test::ListOf(*infor));
    Derived object{{7, 0, 0}, 1, 0};
    CConstRefrence out;
    EXPECT_EQ("end", UnionAttribFrom(*infor, 4, &object, out)) << "the base's kind is not the one";
    object.Kind = 7;
    EXPECT_EQ("own", UnionAttribFrom(*infor, 4, &object, out));
    object.Kind = 8;
    EXPECT_EQ("more", UnionAttribFrom(*infor, 4, &object, out));
}

TEST(UnionAttrib, OfTwoSelectorsOfOneNameReadsItsOwn)
{
    struct Two {
        short First;
        short Second;
        int Value;
    };
    const DescribedClass infor("Two", sizeof(Two), [](CClassInfor& about) {
        Add(about, "kind", offsetof(Two, First), Plain(DT_SHORT));
        const CAttribInfor& second = Add(about, "kind", offsetof(Two, Second), Plain(DT_SHORT));
        AddUnionMember(about, "value", offsetof(Two, Value), Plain(DT_INT), second, 3);
        AddUnionMember(about, "value", offsetof(Two, Value), Plain(DT_INT), second, 3);
    });
    EXPECT_EQ("kind@0 value@4 ", vexa_test::ListOf(*infor));
    CConstRefrence out;
    EXPECT_EQ("end", UnionAttribFrom(*infor, 1, std::array<Two, 1>{{{3, 0, 0}}}.data(), out));
    EXPECT_EQ("value", UnionAttribFrom(*infor, 1, std::array<Two, 1>{{{0, 3, 0}}}.data(), out));
}

} // namespace
