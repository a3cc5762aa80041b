// Walking containers through references, and what references to containers do by themselves.

#include <vexa/container_refrence.h>

#include <list>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/described_container.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CConstRefrence;
using vexa::CContainerConstIterator;
using vexa::CContainerConstRefrence;
using vexa::CContainerConstReverseIterator;
using vexa::CContainerInfor;
using vexa::CContainerRefrence;
using vexa::CGnlTypeInfor;
using vexa_test::AssociativeContainer;
using vexa_test::g_walks;
using vexa_test::Plain;
using vexa_test::SequenceContainer;
using vexa_test::Wrapped;

static_assert(sizeof(CContainerConstIterator) == 48 && sizeof(CContainerConstReverseIterator) == 48);
static_assert(!std::is_copy_constructible_v<CContainerConstIterator> &&
                  !std::is_copy_constructible_v<CContainerConstReverseIterator>,
              "a cursor is released once");

using Numbers = std::list<int>;

/// Walks are counted afresh in each test, and every one that was begun must have been released.
class ContainerRefrence : public testing::Test {
protected:
    ContainerRefrence() { g_walks = {}; }
    ~ContainerRefrence() override
    {
        EXPECT_EQ(g_walks.Begun, g_walks.Released);
        EXPECT_EQ(g_walks.ReverseBegun, g_walks.ReverseReleased);
    }

    CContainerConstRefrence Of(Numbers& numbers) const { return {Plain(DT_SEQUENCE_B, &m_infor), &numbers}; }

    const CContainerInfor m_infor = SequenceContainer<Numbers>("std::list", Plain(DT_INT));
    Numbers m_numbers = {1, 2, 3};
    Numbers m_empty;
};

/// The elements from where the walk stands to its end, "1 2 3 ".
template<class Iterator>
std::string Rest(Iterator& it)
{
    std::string rest;
    for (; !it.IsEnd(); ++it) {
        EXPECT_EQ("int", it->TypeName());
        rest += std::to_string(*static_cast<const int*>((*it).Address)) + ' ';
    }
    return rest;
}

TEST_F(ContainerRefrence, TheIteratorsHaveTheirFieldsInOrder)
{
    const auto expectOrder = [](const auto& it) {
        const auto* const start = reinterpret_cast<const char*>(&it);
        EXPECT_EQ(start, reinterpret_cast<const char*>(&it.Owner));
        EXPECT_EQ(start + 8, reinterpret_cast<const char*>(&it.Container));
        EXPECT_EQ(start + 16, reinterpret_cast<const char*>(&it.Current));
        EXPECT_EQ(start + 40, reinterpret_cast<const char*>(&it.Cursor));
    };
    expectOrder(CContainerConstIterator());
    expectOrder(CContainerConstReverseIterator());
}

TEST_F(ContainerRefrence, AnIteratorWithoutAWalkIsAtTheEnd)
{
    const CContainerConstIterator it;
    EXPECT_TRUE(it.IsEnd());
    EXPECT_EQ(nullptr, it.Owner);
    EXPECT_EQ(nullptr, it.Cursor);
    EXPECT_TRUE(CContainerConstReverseIterator().IsEnd());
}

TEST_F(ContainerRefrence, AssignmentStartsAForwardWalk)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    CContainerConstIterator it;
    EXPECT_EQ(&it, &(it = ref));
    EXPECT_EQ(&ref, it.Owner);
    EXPECT_EQ(&m_numbers, it.Container);
    EXPECT_NE(nullptr, it.Cursor);
    EXPECT_EQ(&m_numbers.front(), it.Current.Address);
    EXPECT_EQ("int", it.Current.TypeName());
    EXPECT_EQ("1 2 3 ", Rest(it));
    EXPECT_EQ(1, g_walks.Begun);
    EXPECT_EQ(0, g_walks.Released) << "the destructor does it";
}

TEST_F(ContainerRefrence, AssignmentStartsAReverseWalk)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    CContainerConstReverseIterator it;
    EXPECT_EQ(&it, &(it = ref));
    EXPECT_EQ(&ref, it.Owner);
    EXPECT_EQ(&m_numbers, it.Container);
    EXPECT_EQ(&m_numbers.back(), it.Current.Address);
    EXPECT_EQ("3 2 1 ", Rest(it));
    EXPECT_EQ(1, g_walks.ReverseBegun);
    EXPECT_EQ(0, g_walks.Begun);
}

TEST_F(ContainerRefrence, AWalkLeftEarlyIsReleased)
{
    {
        const CContainerConstRefrence ref = Of(m_numbers);
        CContainerConstIterator it(ref);
        ++it;
        CContainerConstReverseIterator reverse(ref);
        ++reverse;
    }
    EXPECT_EQ(1, g_walks.Released);
    EXPECT_EQ(1, g_walks.ReverseReleased);
}

TEST_F(ContainerRefrence, AReverseWalkWithoutItsOwnOperationsIsReleasedLikeAForwardOne)
{
    CContainerInfor infor = SequenceContainer<Numbers>("std::list", Plain(DT_INT));
    infor.RBegin = infor.Begin;
    infor.RNext = nullptr;
    infor.RRelease = nullptr;
    {
        const CContainerConstRefrence ref(Plain(DT_SEQUENCE_B, &infor), &m_numbers);
        CContainerConstReverseIterator it(ref);
        EXPECT_EQ("1 ", Rest(it));
    }
    EXPECT_EQ(1, g_walks.Released);
}

TEST_F(ContainerRefrence, ReleaseEndsAWalkOnce)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    CContainerConstIterator it(ref);
    it.Release();
    EXPECT_TRUE(it.IsEnd());
    EXPECT_EQ(nullptr, it.Cursor);
    it.Release();
    EXPECT_EQ(1, g_walks.Released);
}

TEST_F(ContainerRefrence, ANewWalkReleasesTheOneBefore)
{
    Numbers others = {7, 8};
    const CContainerConstRefrence first = Of(m_numbers);
    const CContainerConstRefrence second = Of(others);
    CContainerConstIterator it(first);
    ++it;
    it = second;
    EXPECT_EQ(1, g_walks.Released);
    EXPECT_EQ("7 8 ", Rest(it));
    CContainerConstReverseIterator reverse(first);
    reverse = second;
    EXPECT_EQ(1, g_walks.ReverseReleased);
    EXPECT_EQ("8 7 ", Rest(reverse));
}

TEST_F(ContainerRefrence, AnEmptyContainerLeavesNoWalk)
{
    const CContainerConstRefrence ref = Of(m_empty);
    const CContainerConstIterator it(ref);
    EXPECT_TRUE(it.IsEnd());
    EXPECT_EQ(&ref, it.Owner);
    EXPECT_EQ(&m_empty, it.Container);
    EXPECT_EQ(nullptr, it.Cursor);
    EXPECT_EQ(nullptr, it.Current.Address);
    EXPECT_EQ(DT_UNKNOWN, it.Current.TypeInfor.DataType);
    EXPECT_EQ(1, g_walks.Begun);
    EXPECT_EQ(1, g_walks.Released) << "its cursor is not null and is released";
    const CContainerConstReverseIterator reverse(ref);
    EXPECT_TRUE(reverse.IsEnd());
    EXPECT_EQ(nullptr, reverse.Cursor);
    EXPECT_EQ(1, g_walks.ReverseReleased);
}

TEST_F(ContainerRefrence, ARestartOnAnEmptyContainerDoesNotShowTheElementOfTheWalkBefore)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    const CContainerConstRefrence empty = Of(m_empty);
    CContainerConstIterator it(ref);
    it = empty;
    EXPECT_TRUE(it.IsEnd());
    EXPECT_EQ(nullptr, it.Cursor);
    EXPECT_EQ(2, g_walks.Released);
}

TEST_F(ContainerRefrence, ANullContainerHasNoWalk)
{
    Numbers* pointer = nullptr;
    Wrapped<Numbers> wrapper{1, {1, 2}};
    const CContainerConstRefrence nulls[] = {
        {Plain(DT_SEQUENCE_B, &m_infor), nullptr},
        {vexa_test::OwnedPointer(DT_SEQUENCE_B, &m_infor), &pointer},
        {vexa_test::NonNullPointer(DT_SEQUENCE_B, &m_infor), &pointer},
        {vexa_test::MayNull<Numbers>(DT_SEQUENCE_B, &m_infor), &wrapper},
    };
    for (const CContainerConstRefrence& ref : nulls) {
        SCOPED_TRACE(ref.TypeName());
        const CContainerConstIterator it(ref);
        EXPECT_EQ(&ref, it.Owner);
        EXPECT_EQ(nullptr, it.Container);
        EXPECT_EQ(nullptr, it.Cursor);
        EXPECT_TRUE(it.IsEnd());
        const CContainerConstReverseIterator reverse(ref);
        EXPECT_EQ(nullptr, reverse.Container);
        EXPECT_TRUE(reverse.IsEnd());
        EXPECT_EQ(0U, ref.Count());
    }
    EXPECT_EQ(0, g_walks.Begun + g_walks.ReverseBegun);
}

TEST_F(ContainerRefrence, AContainerWhoseWalkCannotBeMadeIsAtTheEndAndReleasesNothing)
{
    CContainerInfor infor = m_infor;
    infor.Begin = [](void*, void** first) -> void* {
        *first = &g_walks;
        return nullptr;
    };
    const CContainerConstRefrence ref(Plain(DT_SEQUENCE_B, &infor), &m_numbers);
    const CContainerConstIterator it(ref);
    EXPECT_TRUE(it.IsEnd());
    EXPECT_EQ(nullptr, it.Current.Address);
    EXPECT_EQ(0, g_walks.Released);
}

TEST_F(ContainerRefrence, WalksTheContainerHoweverItIsHeld)
{
    Numbers* pointer = &m_numbers;
    Wrapped<Numbers> wrapper{0, {1, 2, 3}};
    const CContainerConstRefrence refs[] = {
        {vexa_test::OwnedPointer(DT_SEQUENCE_B, &m_infor), &pointer},
        {vexa_test::ConstPointer(DT_SEQUENCE_B, &m_infor), &pointer},
        {vexa_test::NonNullPointer(DT_SEQUENCE_B, &m_infor), &pointer},
        {vexa_test::MayNull<Numbers>(DT_SEQUENCE_B, &m_infor), &wrapper},
    };
    for (const CContainerConstRefrence& ref : refs) {
        SCOPED_TRACE(ref.TypeName());
        CContainerConstIterator it(ref);
        EXPECT_EQ("1 2 3 ", Rest(it));
        EXPECT_EQ(3U, ref.Count());
    }
}

TEST_F(ContainerRefrence, WalksOtherContainers)
{
    const CContainerInfor vectorInfor = SequenceContainer<std::vector<int>>("std::vector", Plain(DT_INT));
    std::vector<int> vector = {5, 4};
    const CContainerConstRefrence ofVector(Plain(DT_SEQUENCE_A, &vectorInfor), &vector);
    CContainerConstReverseIterator reverse(ofVector);
    EXPECT_EQ("4 5 ", Rest(reverse));
    const CContainerInfor setInfor = AssociativeContainer<std::set<int>>("std::set", Plain(DT_INT));
    std::set<int> set = {9, 8};
    const CContainerConstRefrence ofSet(Plain(DT_ASSOCIATIVE_A, &setInfor), &set);
    CContainerConstIterator it(ofSet);
    EXPECT_EQ("8 9 ", Rest(it));
}

TEST_F(ContainerRefrence, ARangeForVisitsEveryElement)
{
    int sum = 0;
    for (const CConstRefrence& element : Of(m_numbers))
        sum += element.AsStdBasicType().As_int();
    EXPECT_EQ(6, sum);
    for (const CConstRefrence& element : Of(m_empty))
        ADD_FAILURE() << element.TypeName();
    EXPECT_EQ(2, g_walks.Released);
}

TEST_F(ContainerRefrence, GivesEachElementTheElementType)
{
    CContainerInfor infor = m_infor;
    infor.ElementType.ChangeTypeTo_CustomType("Money", 4, nullptr, nullptr, 0);
    const CContainerConstRefrence ref(Plain(DT_SEQUENCE_B, &infor), &m_numbers);
    const CContainerConstIterator it(ref);
    EXPECT_EQ("Money", it.Current.TypeName());
    EXPECT_NE(infor.ElementType.DetailInfor, it.Current.TypeInfor.DetailInfor);
}

TEST_F(ContainerRefrence, AppendAddsADefaultElementAndRefersToIt)
{
    CContainerRefrence ref(Plain(DT_SEQUENCE_B, &m_infor), &m_numbers);
    const vexa::CRefrence added = ref.Append();
    EXPECT_EQ((Numbers{1, 2, 3, 0}), m_numbers);
    EXPECT_EQ(&m_numbers.back(), added.Address);
    EXPECT_EQ("int", added.TypeName());
    EXPECT_EQ(4U, ref.Count());
}

TEST_F(ContainerRefrence, AppendRefersToNothingWhereItCannotAdd)
{
    Numbers* pointer = nullptr;
    EXPECT_EQ(nullptr, CContainerRefrence(vexa_test::OwnedPointer(DT_SEQUENCE_B, &m_infor), &pointer).Append().Address);
    const CContainerInfor setInfor = AssociativeContainer<std::set<int>>("std::set", Plain(DT_INT));
    std::set<int> set;
    EXPECT_EQ(nullptr, CContainerRefrence(Plain(DT_ASSOCIATIVE_A, &setInfor), &set).Append().Address);
}

TEST_F(ContainerRefrence, ClearRemovesAllElementsWithoutMakingItNull)
{
    Wrapped<Numbers> wrapper{0, {1, 2}};
    CContainerRefrence(vexa_test::MayNull<Numbers>(DT_SEQUENCE_B, &m_infor), &wrapper).Clear();
    EXPECT_TRUE(wrapper.Value.empty());
    EXPECT_EQ(0, wrapper.IsNull);
    Numbers* pointer = nullptr;
    CContainerRefrence(vexa_test::OwnedPointer(DT_SEQUENCE_B, &m_infor), &pointer).Clear();
    EXPECT_EQ(nullptr, pointer);
}

} // namespace
