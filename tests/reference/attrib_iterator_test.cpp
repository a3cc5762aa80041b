// Walking the attributes of an object, forward and backward.

#include <vexa/class_refrence.h>

#include <cstddef>
#include <list>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribConstIterator;
using vexa::CAttribConstReverseIterator;
using vexa::CAttribInfor;
using vexa::CClassConstRefrence;
using vexa::CClassInfor;
using vexa::CGnlTypeInfor;
using vexa_test::Add;
using vexa_test::AddUnionMember;
using vexa_test::DescribedClass;
using vexa_test::Plain;
using vexa_test::RecordAt;
using vexa_test::Wrapped;

static_assert(sizeof(CAttribConstIterator) == 48 && sizeof(CAttribConstReverseIterator) == 48);
static_assert(
    std::is_same_v<decltype(CAttribConstIterator::Pos), std::list<CAttribInfor>::const_iterator> &&
    std::is_same_v<decltype(CAttribConstReverseIterator::Pos), std::list<CAttribInfor>::const_reverse_iterator>);

/// An object with a union, whose members here have places of their own so that they can be told apart.
struct Choice {
    short Kind = 2;
    int One = 11;
    int Two = 12;
    int Three = 13;
    int After = 14;
};

void DescribeChoice(CClassInfor& about)
{
    const CAttribInfor& kind = Add(about, "kind", offsetof(Choice, Kind), Plain(DT_SHORT));
    AddUnionMember(about, "one", offsetof(Choice, One), Plain(DT_INT), kind, 1);
    AddUnionMember(about, "two", offsetof(Choice, Two), Plain(DT_INT), kind, 2);
    AddUnionMember(about, "three", offsetof(Choice, Three), Plain(DT_INT), kind, 3);
    Add(about, "after", offsetof(Choice, After), Plain(DT_INT));
}

/// "name@distance " for every attribute that a walk visits; the distance of its address from the object.
template<class Iterator>
std::string Walk(const CClassConstRefrence& ref, const void* object)
{
    std::string walk;
    for (Iterator it(ref); !it.IsEnd(); ++it) {
        EXPECT_EQ(it.Infor().TypeInfor.TypeName(), it.Value().TypeName());
        EXPECT_EQ(it.Infor().Name, it.Name());
        const auto distance = static_cast<const char*>(it.Value().Address) - static_cast<const char*>(object);
        walk += it.Name() + '@' + std::to_string(distance) + ' ';
    }
    return walk;
}

std::string Forward(const CClassConstRefrence& ref, const void* object)
{
    return Walk<CAttribConstIterator>(ref, object);
}
std::string Backward(const CClassConstRefrence& ref, const void* object)
{
    return Walk<CAttribConstReverseIterator>(ref, object);
}

TEST(AttribIterator, HasItsFieldsInOrder)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    const Choice object;
    const CClassConstRefrence ref(*choice, &object);
    const auto expectOrder = [](const auto& it) {
        const auto* const start = reinterpret_cast<const char*>(&it);
        EXPECT_EQ(start, reinterpret_cast<const char*>(&it.Owner));
        EXPECT_EQ(start + 8, reinterpret_cast<const char*>(&it.Object));
        EXPECT_EQ(start + 16, reinterpret_cast<const char*>(&it.Current));
        EXPECT_EQ(start + 40, reinterpret_cast<const char*>(&it.Pos));
    };
    expectOrder(CAttribConstIterator(ref));
    expectOrder(CAttribConstReverseIterator(ref));
}

TEST(AttribIterator, StartsOnTheFirstRecordTheReverseOneOnTheLast)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    const Choice object;
    const CClassConstRefrence ref(*choice, &object);
    const CAttribConstIterator first(ref);
    EXPECT_EQ(&ref, first.Owner);
    EXPECT_EQ(&object, first.Object);
    EXPECT_EQ(&RecordAt(*choice, 0), &*first.Pos);
    EXPECT_EQ(&object.Kind, first.Current.Address);
    EXPECT_EQ("short", first.Current.TypeName());
    const CAttribConstReverseIterator last(ref);
    EXPECT_EQ(&ref, last.Owner);
    EXPECT_EQ(&object, last.Object);
    EXPECT_EQ(&RecordAt(*choice, 4), &*last.Pos);
    EXPECT_EQ(&object.After, last.Current.Address);
    EXPECT_TRUE(last.Pos.base() == choice->AttribList.end()) << "held one past the record";
}

TEST(AttribIterator, OfAClassWithoutAttributesStartsAtTheEnd)
{
    const DescribedClass empty("Empty", 1, [](CClassInfor&) {});
    const char object = 0;
    const CClassConstRefrence ref(*empty, &object);
    const CAttribConstIterator forward(ref);
    EXPECT_TRUE(forward.IsEnd());
    EXPECT_EQ(nullptr, forward.Object);
    EXPECT_EQ(nullptr, forward.Current.Address);
    const CAttribConstReverseIterator backward(ref);
    EXPECT_TRUE(backward.IsEnd());
    EXPECT_EQ(nullptr, backward.Object);
    EXPECT_EQ("", Forward(ref, &object) + Backward(ref, &object));
}

TEST(AttribIterator, OfANullObjectStaysOnTheFirstRecordWithoutReference)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    Choice* pointer = nullptr;
    Wrapped<Choice> wrapper{1, {}};
    const CClassConstRefrence nulls[] = {
        {Plain(DT_CLASS, &*choice), nullptr},
        {vexa_test::OwnedPointer(DT_CLASS, &*choice), &pointer},
        {vexa_test::MayNull<Choice>(DT_CLASS, &*choice), &wrapper},
        {vexa_test::NonNullPointer(DT_CLASS, &*choice), &pointer},
    };
    for (const CClassConstRefrence& ref : nulls) {
        SCOPED_TRACE(ref.TypeName());
        CAttribConstIterator it(ref);
        EXPECT_EQ(nullptr, it.Object);
        EXPECT_EQ(nullptr, it.Current.Address);
        EXPECT_EQ(DT_UNKNOWN, it.Current.TypeInfor.DataType);
        EXPECT_EQ(&RecordAt(*choice, 0), &*it.Pos);
        CAttribConstReverseIterator reverse(ref);
        EXPECT_EQ(nullptr, reverse.Object);
        EXPECT_EQ(nullptr, reverse.Current.Address);
        for (; !it.IsEnd(); ++it)
            EXPECT_EQ(nullptr, it.Current.Address);
        for (; !reverse.IsEnd(); ++reverse)
            EXPECT_EQ(nullptr, reverse.Current.Address);
    }
}

TEST(AttribIterator, VisitsBaseAttributesFirstThenTheOwnInOrderAndNoRemovedOne)
{
    const DescribedClass left("Left", 8, [](CClassInfor& about) {
        Add(about, "z", 0, Plain(DT_INT));
        Add(about, "y", 4, Plain(DT_INT));
    });
    const DescribedClass right("Right", 8, [](CClassInfor& about) {
        Add(about, "y", 0, Plain(DT_LONG));
        Add(about, "x", 4, Plain(DT_INT));
    });
    const DescribedClass derived("Derived", 32, [&](CClassInfor& about) {
        about.InitBaseClass({{0, &*left}, {8, &*right}});
        Add(about, "b", 16, Plain(DT_INT));
        Add(about, "z", 20, Plain(DT_INT));
        Add(about, "a", 24, Plain(DT_INT));
    });
    const char object[32] = {};
    const CClassConstRefrence ref(*derived, object);
    EXPECT_EQ("z@0 y@4 x@12 b@16 a@24 ", Forward(ref, object));
    EXPECT_EQ("a@24 b@16 x@12 y@4 z@0 ", Backward(ref, object));
}

TEST(AttribIterator, VisitsTheActiveMemberOfAUnionOnly)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    Choice object;
    const CClassConstRefrence ref(*choice, &object);
    const struct {
        short Kind;
        const char* Forward;
        const char* Backward;
    } rows[] = {
        {1, "kind@0 one@4 after@16 ", "after@16 one@4 kind@0 "},
        {2, "kind@0 two@8 after@16 ", "after@16 two@8 kind@0 "},
        {3, "kind@0 three@12 after@16 ", "after@16 three@12 kind@0 "},
        {4, "kind@0 after@16 ", "after@16 kind@0 "},
        {-1, "kind@0 after@16 ", "after@16 kind@0 "},
    };
    for (const auto& row : rows) {
        object.Kind = row.Kind;
        EXPECT_EQ(row.Forward, Forward(ref, &object)) << row.Kind;
        EXPECT_EQ(row.Backward, Backward(ref, &object)) << row.Kind;
    }
}

TEST(AttribIterator, EndsBehindAUnionWithoutActiveMember)
{
    const DescribedClass choice("Choice", sizeof(Choice), [](CClassInfor& about) {
        const CAttribInfor& kind = Add(about, "kind", offsetof(Choice, Kind), Plain(DT_SHORT));
        AddUnionMember(about, "one", offsetof(Choice, One), Plain(DT_INT), kind, 1);
        AddUnionMember(about, "three", offsetof(Choice, Three), Plain(DT_INT), kind, 3);
    });
    const Choice object;
    const CClassConstRefrence ref(*choice, &object);
    EXPECT_EQ("kind@0 ", Forward(ref, &object));
    EXPECT_EQ("three@12 kind@0 ", Backward(ref, &object)) << "the reverse walk takes its first record as it is";
}

TEST(AttribIterator, VisitsAFirstRecordThatIsAUnionMemberWhateverTheSelectorHolds)
{
    static const CAttribInfor* selector = nullptr;
    const DescribedClass kinds("Kinds", sizeof(Choice), [](CClassInfor& about) {
        selector = &Add(about, "kind", offsetof(Choice, Kind), Plain(DT_SHORT));
    });
    const DescribedClass choice("Choice", sizeof(Choice), [](CClassInfor& about) {
        AddUnionMember(about, "one", offsetof(Choice, One), Plain(DT_INT), *selector, 1);
        AddUnionMember(about, "two", offsetof(Choice, Two), Plain(DT_INT), *selector, 2);
        AddUnionMember(about, "three", offsetof(Choice, Three), Plain(DT_INT), *selector, 3);
    });
    Choice object;
    const CClassConstRefrence ref(*choice, &object);
    EXPECT_EQ("one@4 two@8 ", Forward(ref, &object));
    object.Kind = 3;
    EXPECT_EQ("one@4 three@12 ", Forward(ref, &object));
    object.Kind = 9;
    EXPECT_EQ("one@4 ", Forward(ref, &object));
}

TEST(AttribIterator, VisitsTheActiveMembersOfTwoUnionsInARow)
{
    const DescribedClass choice("Choice", sizeof(Choice), [](CClassInfor& about) {
        const CAttribInfor& kind = Add(about, "kind", offsetof(Choice, Kind), Plain(DT_SHORT));
        const CAttribInfor& other = Add(about, "other", offsetof(Choice, After), Plain(DT_INT));
        AddUnionMember(about, "a2", offsetof(Choice, One), Plain(DT_INT), kind, 2);
        AddUnionMember(about, "a3", offsetof(Choice, One), Plain(DT_INT), kind, 3);
        AddUnionMember(about, "b13", offsetof(Choice, Two), Plain(DT_INT), other, 13);
        AddUnionMember(about, "b14", offsetof(Choice, Two), Plain(DT_INT), other, 14);
    });
    const Choice object;
    const CClassConstRefrence ref(*choice, &object);
    EXPECT_EQ("kind@0 other@16 a2@4 b14@8 ", Forward(ref, &object));
    EXPECT_EQ("b14@8 a2@4 other@16 kind@0 ", Backward(ref, &object));
}

TEST(AttribIterator, WalksTheObjectHoweverItIsHeld)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    const char* const walk = "kind@0 two@8 after@16 ";
    Choice object;
    Choice* pointer = &object;
    EXPECT_EQ(walk, Forward({vexa_test::OwnedPointer(DT_CLASS, &*choice), &pointer}, &object));
    EXPECT_EQ(walk, Forward({vexa_test::ConstPointer(DT_CLASS, &*choice), &pointer}, &object));
    EXPECT_EQ(walk, Forward({vexa_test::NonNullPointer(DT_CLASS, &*choice), &pointer}, &object));
    Wrapped<Choice> wrapper{0, {}};
    EXPECT_EQ(walk, Forward({vexa_test::MayNull<Choice>(DT_CLASS, &*choice), &wrapper}, &wrapper.Value));
}

TEST(AttribIterator, HoldsADescriptorOfItsOwn)
{
    const DescribedClass priced("Priced", 16, [](CClassInfor& about) {
        Add(about, "price", 0, CGnlTypeInfor()).TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
        Add(about, "weight", 8, CGnlTypeInfor()).TypeInfor.ChangeTypeTo_CustomType("Weight", 8, nullptr, nullptr, 0);
    });
    const long object[2] = {};
    const CClassConstRefrence ref(*priced, object);
    CAttribConstIterator it(ref); // the address sanitizer finds a descriptor that is not released at the step
    EXPECT_NE(RecordAt(*priced, 0).TypeInfor.DetailInfor, it.Current.TypeInfor.DetailInfor);
    EXPECT_EQ("Money", it.Current.TypeName());
    ++it;
    EXPECT_EQ("Weight", it.Current.TypeName());
}

TEST(AttribRange, VisitsWhatTheIteratorVisits)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    const Choice object;
    std::string names;
    for (const auto& attrib : CClassConstRefrence(*choice, &object).Attribs()) {
        EXPECT_EQ(reinterpret_cast<const char*>(&object) + attrib.Infor().Offset, attrib.Value().Address);
        names += attrib.Name() + ' ';
    }
    EXPECT_EQ("kind two after ", names);
}

TEST(AttribRange, IsEmptyForANullObject)
{
    const DescribedClass choice("Choice", sizeof(Choice), &DescribeChoice);
    Choice* pointer = nullptr;
    for (const auto& attrib : CClassConstRefrence(*choice, nullptr).Attribs())
        ADD_FAILURE() << attrib.Name();
    for (const CGnlTypeInfor& type :
         {vexa_test::OwnedPointer(DT_CLASS, &*choice), vexa_test::NonNullPointer(DT_CLASS, &*choice)}) {
        for (const auto& attrib : CClassConstRefrence(type, &pointer).Attribs())
            ADD_FAILURE() << attrib.Name();
    }
}

} // namespace
