// A container as one line of text, of its elements or of one attribute of each.

#include <list>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/container_refrence.h>
#include <vexa/custom_type_infor.h>

#include "support/described_container.h"
#include "support/resident_list.h"
#include "support/type_of.h"

namespace {

using namespace std::string_literals;
using namespace vexa::Enum;
using vexa::CContainerConstRefrence;
using vexa::CContainerInfor;
using vexa::CGnlTypeInfor;
using vexa_test::g_walks;
using vexa_test::Plain;
using vexa_test::Resident;
using vexa_test::SequenceContainer;
using vexa_test::Wrapped;

/// The list text of a container whose elements are of this type.
template<class C>
std::string ListString(C& container, const CGnlTypeInfor& elementType, char separator = ',', char quote = '\'')
{
    const CContainerInfor infor = SequenceContainer<C>("C", elementType);
    std::string out = "what was there before";
    g_walks = {};
    CContainerConstRefrence(Plain(DT_SEQUENCE_B, &infor), &container).GetListString(out, separator, quote);
    EXPECT_GE(g_walks.Begun, 1);
    EXPECT_EQ(g_walks.Begun, g_walks.Released);
    return out;
}

TEST(ListString, OfAnEmptyContainerIsEmpty)
{
    std::list<int> numbers;
    EXPECT_EQ("", ListString(numbers, Plain(DT_INT)));
}

TEST(ListString, OfANullContainerIsEmpty)
{
    const CContainerInfor infor = SequenceContainer<std::list<int>>("C", Plain(DT_INT));
    std::string out = "what was there before";
    CContainerConstRefrence(Plain(DT_SEQUENCE_B, &infor), nullptr).GetListString(out, ',', '\'');
    EXPECT_EQ("", out);
}

TEST(ListString, SeparatesTheElements)
{
    std::list<int> one = {7};
    EXPECT_EQ("7", ListString(one, Plain(DT_INT)));
    std::list<int> numbers = {3, -1, 2};
    EXPECT_EQ("3,-1,2", ListString(numbers, Plain(DT_INT)));
    EXPECT_EQ("3;-1;2", ListString(numbers, Plain(DT_INT), ';'));
}

TEST(ListString, WritesNullElementsAsNULL)
{
    std::list<Wrapped<int>> wrapped = {{0, 1}, {1, 2}, {0, 3}};
    EXPECT_EQ("1,NULL,3", ListString(wrapped, vexa_test::MayNull<int>(DT_INT)));
    int number = 5;
    std::list<int*> pointers = {nullptr, &number, nullptr};
    EXPECT_EQ("NULL,5,NULL", ListString(pointers, vexa_test::ConstPointer(DT_INT)));
    EXPECT_EQ("NULL,5,NULL", ListString(pointers, vexa_test::NonNullPointer(DT_INT)));
    std::list<Wrapped<std::string>> texts = {{1, "a"}, {0, "b"}};
    EXPECT_EQ("NULL,'b'", ListString(texts, vexa_test::MayNull<std::string>(DT_STD_STRING)));
}

TEST(ListString, QuotesTexts)
{
    std::list<std::string> texts = {"a", "", "b'c"};
    EXPECT_EQ("'a','','b'c'", ListString(texts, Plain(DT_STD_STRING)));
    std::vector<const char*> pointers = {"a", nullptr, "b"};
    EXPECT_EQ("'a',NULL,'b'", ListString(pointers, vexa_test::ConstPointer(DT_CONST_CHAR_PTR)));
}

TEST(ListString, QuotesEveryStringTypeAndNoOther)
{
    vexa::CCustomBasicTypeInfor custom;
    custom.Underlying = Plain(DT_STD_STRING);
    std::list<std::string> texts = {"a", "b"};
    EXPECT_EQ("'a','b'", ListString(texts, Plain(DT_CUSTOM_BASIC, &custom)));
    std::vector<char> characters = {'a', 'b'};
    EXPECT_EQ("a,b", ListString(characters, Plain(DT_CHAR)));
    std::list<vexa::CBinary> binaries = {vexa::CBinary("ab", 2)};
    EXPECT_EQ("6162", ListString(binaries, Plain(DT_BINARY)));
}

TEST(ListString, TakesAZeroAsSeparatorOrQuote)
{
    std::list<std::string> texts = {"a", "b"};
    EXPECT_EQ("\0a\0\0\0b\0"s, ListString(texts, Plain(DT_STD_STRING), '\0', '\0'));
    std::list<int> numbers = {1, 2};
    EXPECT_EQ("1\0002"s, ListString(numbers, Plain(DT_INT), '\0', '\0'));
}

TEST(ListString, RendersTheElementsOfAContainerOfContainers)
{
    const CContainerInfor inner = SequenceContainer<std::vector<int>>("std::vector", Plain(DT_INT));
    std::list<std::vector<int>> lists = {{1, 2}, {}, {3}};
    EXPECT_EQ("\n- 1\n- 2,,\n- 3", ListString(lists, Plain(DT_SEQUENCE_A, &inner)));
}

class FlatListString : public vexa_test::ResidentList {
protected:
    std::string ListStringOf(const char* flatName)
    {
        std::string out = "what was there before";
        g_walks = {};
        m_ref.GetListString(out, *m_resident->FindAttribInforByFlatName(flatName), ',', '\'');
        EXPECT_EQ(1, g_walks.Released);
        return out;
    }
};

TEST_F(FlatListString, QuotesAStdStringButNoOtherText)
{
    EXPECT_EQ("30,40", ListStringOf("age"));
    EXPECT_EQ("'Ann','Bob'", ListStringOf("name"));
    EXPECT_EQ("an,bo", ListStringOf("nick"));
}

TEST_F(FlatListString, RendersANullAttributeAsAnyValue)
{
    m_people.back().Title = {0, "Dr"};
    EXPECT_EQ("'NULL','Dr'", ListStringOf("title"));
    m_people.front().Nick = nullptr;
    EXPECT_EQ("NULL,bo", ListStringOf("nick"));
}

TEST_F(FlatListString, ReachesIntoMemberObjectsButFollowsNoPointer)
{
    EXPECT_EQ("1030,1040", ListStringOf("home.code"));
    EXPECT_EQ("130,140", ListStringOf("office.code")) << "what lies at the leaf's offset in the element itself";
}

TEST_F(FlatListString, OfAnEmptyContainerIsEmpty)
{
    m_people.clear();
    EXPECT_EQ("", ListStringOf("name"));
}

TEST_F(FlatListString, WritesANullElementAsNULLWithoutQuotes)
{
    std::vector<Resident*> pointers = {&m_people.front(), nullptr};
    const CContainerInfor infor =
        SequenceContainer<std::vector<Resident*>>("std::vector", vexa_test::ConstPointer(DT_CLASS, &*m_resident));
    std::string out;
    CContainerConstRefrence(Plain(DT_SEQUENCE_A, &infor), &pointers)
        .GetListString(out, *m_resident->FindAttribInforByFlatName("name"), ';', '"');
    EXPECT_EQ("\"Ann\";NULL", out);
}

TEST_F(FlatListString, TakesTheAttributeWithinAWrappedElement)
{
    std::list<Wrapped<Resident>> wrapped = {{0, m_people.front()}, {1, m_people.back()}};
    const CContainerInfor infor = SequenceContainer<std::list<Wrapped<Resident>>>(
        "std::list", vexa_test::MayNull<Resident>(DT_CLASS, &*m_resident));
    std::string out;
    CContainerConstRefrence(Plain(DT_SEQUENCE_B, &infor), &wrapped)
        .GetListString(out, *m_resident->FindAttribInforByFlatName("home_code"), ',', '\'');
    EXPECT_EQ("1030,NULL", out);
}

} // namespace
