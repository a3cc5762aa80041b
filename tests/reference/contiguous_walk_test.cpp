// Walking containers whose elements lie one behind the other: by their distance, without the container's operations.

#include <vexa/container_refrence.h>

#include <array>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_container.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CConstRefrence;
using vexa::CContainerConstIterator;
using vexa::CContainerConstRefrence;
using vexa::CContainerConstReverseIterator;
using vexa::CContainerInfor;
using vexa::detail::CFinishedMark;
using vexa_test::Plain;

/// Addresses of all elements, walked forward or backward.
template<class Iterator>
std::vector<const void*> Addresses(const CContainerConstRefrence& container, const std::string& typeName)
{
    std::vector<const void*> addresses;
    for (Iterator it(container); !it.IsEnd(); ++it) {
        EXPECT_EQ(typeName, it->TypeName());
        addresses.push_back(it->Address);
    }
    return addresses;
}

template<class Container>
void ExpectWalked(const Container& container, const std::string& typeName)
{
    std::vector<const void*> expected;
    for (const auto& element : container)
        expected.push_back(&element);
    const CContainerConstRefrence ref = vexa::RefOf(container).AsContainer();
    ASSERT_NE(0U, ref.ContainerInfor().Mark.Stride());
    EXPECT_EQ(expected, Addresses<CContainerConstIterator>(ref, typeName));
    std::vector<const void*> ranged;
    for (const CConstRefrence& element : ref)
        ranged.push_back(element.Address);
    EXPECT_EQ(expected, ranged);
    const std::vector<const void*> backward(expected.rbegin(), expected.rend());
    EXPECT_EQ(backward, Addresses<CContainerConstReverseIterator>(ref, typeName));
}

TEST(ContiguousWalk, VisitsEveryElementInOrder)
{
    ExpectWalked(std::vector<int>{1, 2, 3}, "int");
    ExpectWalked(std::vector<int>{7}, "int");
    ExpectWalked(std::vector<int>(), "int");
    ExpectWalked(std::vector<char>{'a', 'b', 'c'}, "char");
    ExpectWalked(std::vector<std::string>{"a", "", "c"}, "std::string");
    ExpectWalked(std::vector<std::vector<long>>(3), "std::vector<long>");
    ExpectWalked(std::array<double, 4>{1, 2, 3, 4}, "double");
    ExpectWalked(std::array<std::array<int, 3>, 2>(), "std::array<int>");
    const int table[2][3] = {{1, 2, 3}, {4, 5, 6}};
    ExpectWalked(table, "array<int>");
    ExpectWalked(table[1], "int");
}

TEST(ContiguousWalk, AnElementThatMayBeNullIsVisitedToo)
{
    std::vector<std::unique_ptr<int>> pointers(2);
    pointers[1] = std::make_unique<int>(5);
    ExpectWalked(pointers, "int*");
    std::string text;
    for (const CConstRefrence& element : vexa::RefOf(pointers).AsContainer())
        text += element.IsNull() ? "- " : element.AsStdBasicType().As_std_string() + ' ';
    EXPECT_EQ("- 5 ", text);
}

/// Marked, and without a single operation: whatever asked for one would fail.
class CMarkedWalk : public testing::Test {
protected:
    CMarkedWalk()
    {
        m_infor.Name = "marked";
        m_infor.Size = sizeof m_numbers;
        m_infor.ElementType = Plain(DT_INT);
        m_infor.Mark.Set(CFinishedMark::VECTOR, sizeof(int));
    }
    CContainerConstRefrence Of(const std::vector<int>& numbers) const
    {
        return {Plain(DT_SEQUENCE_A, &m_infor), &numbers};
    }

    CContainerInfor m_infor;
    const std::vector<int> m_numbers = {1, 2, 3};
    const std::vector<int> m_empty;
};

TEST_F(CMarkedWalk, CallsNoOperation)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    long sum = 0;
    for (const CConstRefrence& element : ref)
        sum = 10 * sum + element.AsStdBasicType().As_int();
    EXPECT_EQ(123, sum);
    for (CContainerConstReverseIterator it(ref); !it.IsEnd(); ++it)
        sum = 10 * sum + it->AsStdBasicType().As_int();
    EXPECT_EQ(123321, sum);
}

TEST_F(CMarkedWalk, HasItsFieldsAsAnyOther)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    CContainerConstIterator it;
    EXPECT_EQ(&it, &(it = ref));
    EXPECT_EQ(&ref, it.Owner);
    EXPECT_EQ(&m_numbers, it.Container);
    EXPECT_NE(nullptr, it.Cursor);
    EXPECT_EQ(&m_numbers[0], it.Current.Address);
    ++it;
    ++it;
    EXPECT_EQ(&m_numbers[2], it.Current.Address);
    EXPECT_FALSE(it.IsEnd());
    ++it;
    EXPECT_EQ(nullptr, it.Current.Address);
    EXPECT_NE(nullptr, it.Cursor) << "an ended walk has its cursor until it is released";
    it.Release();
    EXPECT_EQ(nullptr, it.Cursor);
}

TEST_F(CMarkedWalk, OfNothingLeavesTheElementOfTheWalkBefore)
{
    const CContainerConstRefrence ref = Of(m_numbers);
    const CContainerConstRefrence empty = Of(m_empty);
    const CContainerConstRefrence null(Plain(DT_SEQUENCE_A, &m_infor), nullptr);
    for (const CContainerConstRefrence* nothing : {&empty, &null}) {
        CContainerConstIterator it(ref);
        it = *nothing;
        EXPECT_TRUE(it.IsEnd());
        EXPECT_EQ(nothing, it.Owner);
        EXPECT_EQ(nothing->Address, it.Container);
        EXPECT_EQ(nullptr, it.Cursor);
        EXPECT_EQ(&m_numbers[0], it.Current.Address);
    }
}

/// One iterator after the other kind of container: each walk is ended by the rule of its own.
TEST_F(CMarkedWalk, MayFollowAndPrecedeOneWithOperations)
{
    vexa_test::g_walks = {};
    std::list<std::string> texts = {"a", "b"};
    const CContainerInfor listInfor =
        vexa_test::SequenceContainer<std::list<std::string>>("list", Plain(DT_STD_STRING));
    const CContainerConstRefrence list(Plain(DT_SEQUENCE_B, &listInfor), &texts);
    const CContainerConstRefrence ref = Of(m_numbers);
    {
        CContainerConstIterator it(list);
        it = ref;
        EXPECT_EQ(1, vexa_test::g_walks.Released);
        EXPECT_EQ("int", it->TypeName());
        it = list;
        EXPECT_EQ("std::string", it->TypeName());
        EXPECT_EQ(&texts.front(), it->Address);
    }
    EXPECT_EQ(2, vexa_test::g_walks.Begun);
    EXPECT_EQ(2, vexa_test::g_walks.Released);
}

/// A copy is a descriptor of the application's own, which is walked by its operations.
TEST_F(CMarkedWalk, ACopiedDescriptorIsNotMarked)
{
    const CContainerInfor copy(m_infor);
    CContainerInfor assigned;
    assigned = m_infor;
    EXPECT_EQ(0U, copy.Mark.Stride());
    EXPECT_EQ(0U, assigned.Mark.Stride());
    const CContainerConstRefrence ref(Plain(DT_SEQUENCE_A, &copy), &m_numbers);
    EXPECT_TRUE(CContainerConstIterator(ref).IsEnd()) << "it has no operation to walk with";
}

} // namespace
