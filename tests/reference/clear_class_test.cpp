// Emptying objects of described classes, attribute by attribute.

#include <cstddef>
#include <list>
#include <string>

#include <gtest/gtest.h>

#include <vexa/class_refrence.h>
#include <vexa/refrence.h>

#include "support/clearing.h"
#include "support/described_class.h"
#include "support/described_container.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CClassInfor;
using vexa::CGnlTypeInfor;
using vexa_test::Add;
using vexa_test::AddUnionMember;
using vexa_test::Cleared;
using vexa_test::DescribedClass;
using vexa_test::Plain;
using vexa_test::Wrapped;

struct Inner {
    int Number = 5;
    std::string Text = "inner";
};

void DescribeInner(CClassInfor& about)
{
    Add(about, "number", offsetof(Inner, Number), Plain(DT_INT));
    Add(about, "text", offsetof(Inner, Text), Plain(DT_STD_STRING));
}

struct Outer {
    std::string Name = "outer";
    Inner Direct;
    Inner* Owned = nullptr;
    Wrapped<Inner> Wrapper{0, {}};
    std::list<int> Numbers = {1, 2};
    int NotDescribed = 9;
};

TEST(ClearClass, EmptiesNestedObjectsContainersAndTexts)
{
    DescribedClass inner("Inner", sizeof(Inner), &DescribeInner);
    inner.Writable().Deleter = [](void* object) { delete static_cast<Inner*>(object); };
    const auto list = vexa_test::SequenceContainer<std::list<int>>("std::list", Plain(DT_INT));
    const DescribedClass outer("Outer", sizeof(Outer), [&](CClassInfor& about) {
        Add(about, "name", vexa_test::OffsetOf(&Outer::Name), Plain(DT_STD_STRING));
        Add(about, "direct", vexa_test::OffsetOf(&Outer::Direct), Plain(DT_CLASS, &*inner));
        Add(about, "owned", vexa_test::OffsetOf(&Outer::Owned), vexa_test::OwnedPointer(DT_CLASS, &*inner));
        Add(about, "wrapper", vexa_test::OffsetOf(&Outer::Wrapper), vexa_test::MayNull<Inner>(DT_CLASS, &*inner));
        Add(about, "numbers", vexa_test::OffsetOf(&Outer::Numbers), Plain(DT_SEQUENCE_B, &list));
    });
    Outer object;
    object.Owned = new Inner();
    EXPECT_EQ("", Cleared(Plain(DT_CLASS, &*outer), &object));
    EXPECT_EQ("", object.Name);
    EXPECT_EQ(0, object.Direct.Number);
    EXPECT_EQ("", object.Direct.Text);
    EXPECT_EQ(nullptr, object.Owned);
    EXPECT_EQ(1, object.Wrapper.IsNull);
    EXPECT_EQ("inner", object.Wrapper.Value.Text) << "what may be null only becomes null";
    EXPECT_TRUE(object.Numbers.empty());
    EXPECT_EQ(9, object.NotDescribed);
}

TEST(ClearClass, NullsAnObjectThatMayBeNullInsteadOfEmptyingIt)
{
    const DescribedClass inner("Inner", sizeof(Inner), &DescribeInner);
    Wrapped<Inner> wrapper{0, {}};
    EXPECT_EQ("", Cleared(vexa_test::MayNull<Inner>(DT_CLASS, &*inner), &wrapper));
    EXPECT_EQ(1, wrapper.IsNull);
    EXPECT_EQ(5, wrapper.Value.Number);
    const Inner object;
    const Inner* pointer = &object;
    EXPECT_EQ("", Cleared(vexa_test::ConstPointer(DT_CLASS, &*inner), &pointer));
    EXPECT_EQ(nullptr, pointer);
    EXPECT_EQ("inner", object.Text);
}

TEST(ClearClass, LeavesAReadOnlyObjectAndReadOnlyAttributesAlone)
{
    const DescribedClass inner("Inner", sizeof(Inner), [](CClassInfor& about) {
        Add(about, "number", offsetof(Inner, Number), CGnlTypeInfor(DT_INT, HF_CONST));
        Add(about, "text", offsetof(Inner, Text), Plain(DT_STD_STRING));
    });
    Inner object;
    EXPECT_EQ("", Cleared(CGnlTypeInfor(DT_CLASS, HF_CONST, &*inner), &object));
    EXPECT_EQ("inner", object.Text);
    EXPECT_EQ("", Cleared(Plain(DT_CLASS, &*inner), &object));
    EXPECT_EQ(5, object.Number);
    EXPECT_EQ("", object.Text);
}

TEST(ClearClass, DoesNothingWithoutAnObject)
{
    const DescribedClass inner("Inner", sizeof(Inner), &DescribeInner);
    EXPECT_EQ("", Cleared(Plain(DT_CLASS, &*inner), nullptr));
    void* pointer = nullptr;
    EXPECT_EQ("", Cleared(vexa_test::NonNullPointer(DT_CLASS, &*inner), &pointer));
}

/// A type that cannot be cleared and whose name shows in the log when it is met.
CGnlTypeInfor Marker(const char* name)
{
    CGnlTypeInfor type;
    type.ChangeTypeTo_CustomType(name, 1, nullptr, nullptr, 0);
    return type;
}

TEST(ClearClass, GoesDepthFirstInAttributeOrderBasesFirst)
{
    const DescribedClass base("Base", 1, [](CClassInfor& about) { Add(about, "z", 0, Marker("A")); });
    const DescribedClass inner("Inner", 2, [](CClassInfor& about) {
        Add(about, "y", 0, Marker("C"));
        Add(about, "x", 1, Marker("D"));
    });
    const DescribedClass outer(
        "Outer", 8,
        [&](CClassInfor& about) {
            Add(about, "w", 1, Marker("B"));
            Add(about, "inner", 2, Plain(DT_CLASS, &*inner));
            Add(about, "a", 4, Marker("E"));
        },
        base, 0);
    char object[8] = {};
    std::string expected;
    for (const char* name : {"A", "B", "C", "D", "E"}) {
        expected += std::string("Not supported type ") + name + " In function CRefrence::Clear()\n";
    }
    EXPECT_EQ(expected, Cleared(Plain(DT_CLASS, &*outer), object));
}

/// An object whose selector is a text in place, which clearing leaves alone.
struct TextChoice {
    char Kind[4] = "3";
    int One = 1;
    int Three = 3;
    int After = 4;
};

TEST(ClearClass, ClearsOnlyTheActiveMemberOfAUnion)
{
    const DescribedClass choice("TextChoice", sizeof(TextChoice), [](CClassInfor& about) {
        const CAttribInfor& kind = Add(about, "kind", offsetof(TextChoice, Kind), Plain(DT_CONST_CHAR_PTR));
        AddUnionMember(about, "one", offsetof(TextChoice, One), Plain(DT_INT), kind, 1);
        AddUnionMember(about, "three", offsetof(TextChoice, Three), Plain(DT_INT), kind, 3);
        Add(about, "after", offsetof(TextChoice, After), Plain(DT_INT));
    });
    TextChoice object;
    EXPECT_EQ("", Cleared(Plain(DT_CLASS, &*choice), &object));
    EXPECT_EQ(1, object.One);
    EXPECT_EQ(0, object.Three);
    EXPECT_EQ(0, object.After);
}

TEST(ClearClass, ClearsNoMemberOfAUnionWhoseSelectorNamesNone)
{
    const DescribedClass choice("TextChoice", sizeof(TextChoice), [](CClassInfor& about) {
        const CAttribInfor& kind = Add(about, "kind", offsetof(TextChoice, Kind), Plain(DT_CONST_CHAR_PTR));
        AddUnionMember(about, "one", offsetof(TextChoice, One), Plain(DT_INT), kind, 1);
        AddUnionMember(about, "three", offsetof(TextChoice, Three), Plain(DT_INT), kind, 2);
    });
    TextChoice object;
    EXPECT_EQ("", Cleared(Plain(DT_CLASS, &*choice), &object));
    EXPECT_EQ(1, object.One);
    EXPECT_EQ(3, object.Three);
}

/// An object whose selector is a number, which is cleared before its union.
struct Choice {
    short Kind = 3;
    int Zero = 1;
    int Three = 3;
};

TEST(ClearClass, TheMemberThatWasActiveIsClearedThoughItsSelectorIsClearedFirst)
{
    const DescribedClass choice("Choice", sizeof(Choice), [](CClassInfor& about) {
        const CAttribInfor& kind = Add(about, "kind", offsetof(Choice, Kind), Plain(DT_SHORT));
        AddUnionMember(about, "zero", offsetof(Choice, Zero), Plain(DT_INT), kind, 0);
        AddUnionMember(about, "three", offsetof(Choice, Three), Plain(DT_INT), kind, 3);
    });
    Choice object;
    EXPECT_EQ("", Cleared(Plain(DT_CLASS, &*choice), &object));
    EXPECT_EQ(0, object.Kind);
    EXPECT_EQ(1, object.Zero);
    EXPECT_EQ(0, object.Three);
}

} // namespace
