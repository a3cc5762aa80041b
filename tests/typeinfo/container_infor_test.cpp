#include <vexa/container_infor.h>

#include <list>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/described_container.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CContainerInfor;
using vexa_test::AssociativeContainer;
using vexa_test::Plain;
using vexa_test::SequenceContainer;

static_assert(sizeof(CContainerInfor) == 64 + 12 * 8 + 16);

template<class Field>
long PlaceOf(const CContainerInfor& infor, const Field& field)
{
    return reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&infor);
}

TEST(ContainerInfor, HasItsTwelveOperationsInOrderBehindTheCommonHead)
{
    const CContainerInfor infor;
    EXPECT_EQ(0, PlaceOf(infor, static_cast<const vexa::CTypeInforBase&>(infor)));
    EXPECT_EQ(64, PlaceOf(infor, infor.Append));
    EXPECT_EQ(72, PlaceOf(infor, infor.Reserved2));
    EXPECT_EQ(80, PlaceOf(infor, infor.Insert));
    EXPECT_EQ(88, PlaceOf(infor, infor.Clear));
    EXPECT_EQ(96, PlaceOf(infor, infor.Count));
    EXPECT_EQ(104, PlaceOf(infor, infor.Begin));
    EXPECT_EQ(112, PlaceOf(infor, infor.Release));
    EXPECT_EQ(120, PlaceOf(infor, infor.Reserved8));
    EXPECT_EQ(128, PlaceOf(infor, infor.Next));
    EXPECT_EQ(136, PlaceOf(infor, infor.RBegin));
    EXPECT_EQ(144, PlaceOf(infor, infor.RRelease));
    EXPECT_EQ(152, PlaceOf(infor, infor.RNext));
    EXPECT_EQ(160, PlaceOf(infor, infor.ElementType));
}

/// A descriptor whose operations all are set, each to a function of its own.
CContainerInfor FullInfor()
{
    CContainerInfor infor = AssociativeContainer<std::set<int>>("Ids", Plain(DT_INT));
    infor.CustomTypeID = 3;
    infor.Append = [](void*) -> void* { return nullptr; };
    infor.Reserved2 = [] {};
    infor.Reserved8 = [] {};
    return infor;
}

TEST(ContainerInforAssignment, CopiesNameOperationsAndElementType)
{
    const CContainerInfor source = FullInfor();
    CContainerInfor target;
    target = source;
    EXPECT_EQ("Ids", target.Name);
    EXPECT_NE(nullptr, source.Reserved2);
    EXPECT_NE(source.Reserved2, source.Reserved8);
    EXPECT_EQ(source.Append, target.Append);
    EXPECT_EQ(source.Reserved2, target.Reserved2);
    EXPECT_EQ(source.Insert, target.Insert);
    EXPECT_EQ(source.Clear, target.Clear);
    EXPECT_EQ(source.Count, target.Count);
    EXPECT_EQ(source.Begin, target.Begin);
    EXPECT_EQ(source.Release, target.Release);
    EXPECT_EQ(source.Reserved8, target.Reserved8);
    EXPECT_EQ(source.Next, target.Next);
    EXPECT_EQ(source.RBegin, target.RBegin);
    EXPECT_EQ(source.RRelease, target.RRelease);
    EXPECT_EQ(source.RNext, target.RNext);
    EXPECT_EQ(DT_INT, target.ElementType.DataType);
}

TEST(ContainerInforAssignment, LeavesSizeIDFactoryAndDeleterAsTheyWere)
{
    void* (*const factory)() = []() -> void* { return nullptr; };
    void (*const deleter)(void*) = [](void*) {};
    CContainerInfor target;
    target.SetBaseTypeInfor("Old", 5, factory, deleter, 6);
    target = FullInfor();
    EXPECT_EQ("Ids", target.Name);
    EXPECT_EQ(5U, target.Size);
    EXPECT_EQ(6U, target.CustomTypeID);
    EXPECT_EQ(factory, target.Factory);
    EXPECT_EQ(deleter, target.Deleter);
}

TEST(ContainerInforAssignment, CopiesAnOwnedElementTypeDeeplyAndReleasesTheOldOne)
{
    CContainerInfor source;
    source.ElementType.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    CContainerInfor target;
    target.ElementType.ChangeTypeTo_CustomType("Weight", 8, nullptr, nullptr, 0);
    target = source; // the address sanitizer finds what is not released
    EXPECT_EQ("Money", target.ElementType.RealTypeName());
    EXPECT_NE(source.ElementType.DetailInfor, target.ElementType.DetailInfor);
}

TEST(ContainerInforAssignment, ToItselfChangesNothing)
{
    CContainerInfor infor = FullInfor();
    infor.ElementType.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    const vexa::CTypeInforBase* const owned = infor.ElementType.DetailInfor;
    const CContainerInfor& same = infor;
    infor = same;
    EXPECT_EQ("Ids", infor.Name);
    EXPECT_EQ(owned, infor.ElementType.DetailInfor);
    EXPECT_EQ("Money", infor.ElementType.RealTypeName());
}

TEST(ContainerTypeName, ComposesTheNamesOfContainerAndElement)
{
    const CContainerInfor numbers = SequenceContainer<std::vector<int>>("std::vector", Plain(DT_INT));
    EXPECT_EQ("std::vector<int>", numbers.TypeName());
    CContainerInfor infor;
    infor.Name = "std::list";
    infor.ElementType = vexa_test::OwnedPointer(DT_SEQUENCE_A, &numbers);
    EXPECT_EQ("std::list<std::vector<int>*>", infor.TypeName());
    infor.ElementType = vexa_test::MayNull<long>(DT_LONG);
    EXPECT_EQ("std::list<MayNull<long>>", infor.TypeName());
}

TEST(ContainerTypeName, DoesNotTakeANameForAFormat)
{
    CContainerInfor infor;
    infor.Name = "100%s";
    infor.ElementType = Plain(DT_INT);
    EXPECT_EQ("100%s<int>", infor.TypeName());
}

TEST(ContainerTypeName, IsCutAt254Characters)
{
    CContainerInfor infor;
    infor.ElementType = Plain(DT_INT);
    infor.Name = std::string(249, 'n');
    EXPECT_EQ(infor.Name + "<int>", infor.TypeName()) << "254 characters fit";
    infor.Name = std::string(250, 'n');
    EXPECT_EQ(infor.Name + "<int", infor.TypeName());
    infor.Name = std::string(1000, 'n');
    EXPECT_EQ(std::string(254, 'n'), infor.TypeName());
    EXPECT_EQ(std::string(254, 'n'), Plain(DT_SEQUENCE_B, &infor).RealTypeName());
    EXPECT_EQ(std::string(254, 'n') + "*", vexa_test::OwnedPointer(DT_SEQUENCE_B, &infor).TypeName());
}

TEST(ContainerTypeName, IsCutAtEveryLevel)
{
    CContainerInfor inner;
    inner.Name = std::string(300, 'i');
    inner.ElementType = Plain(DT_INT);
    CContainerInfor outer;
    outer.Name = "o";
    outer.ElementType = Plain(DT_SEQUENCE_B, &inner);
    EXPECT_EQ("o<" + std::string(252, 'i'), outer.TypeName());
}

TEST(ContainerWalk, OfAnEmptyContainerHasACursorToRelease)
{
    const CContainerInfor infor = SequenceContainer<std::list<int>>("std::list", Plain(DT_INT));
    std::list<int> numbers;
    void* first = &numbers;
    void* const cursor = infor.Begin(&numbers, &first);
    EXPECT_NE(nullptr, cursor);
    EXPECT_EQ(nullptr, first);
    infor.Release(cursor);
}

TEST(ContainerWalk, StepsFromBeginToANullElement)
{
    const CContainerInfor infor = AssociativeContainer<std::set<int>>("std::set", Plain(DT_INT));
    std::set<int> numbers = {3, 1, 2};
    std::vector<int> walked;
    void* element = nullptr;
    void* const cursor = infor.Begin(&numbers, &element);
    for (; element != nullptr; element = infor.Next(&numbers, cursor))
        walked.push_back(*static_cast<int*>(element));
    infor.Release(cursor);
    EXPECT_EQ((std::vector<int>{1, 2, 3}), walked);
}

} // namespace
