// One attribute of all elements of a container, gathered into a container of basic values.

#include <cstddef>
#include <list>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/container_refrence.h>

#include "support/captured_log.h"
#include "support/described_container.h"
#include "support/resident_list.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CContainerConstRefrence;
using vexa::CContainerInfor;
using vexa::CContainerRefrence;
using vexa::CGnlTypeInfor;
using vexa_test::g_walks;
using vexa_test::LoggedLines;
using vexa_test::Plain;
using vexa_test::Resident;
using vexa_test::SequenceContainer;
using vexa_test::Wrapped;

class ValueList : public vexa_test::ResidentList {
protected:
    /// Gathers an attribute into a container, and expects this to succeed or to change nothing.
    template<class C>
    bool Gather(C& values, const CGnlTypeInfor& valueType, const char* flatName)
    {
        const CContainerInfor infor = SequenceContainer<C>("C", valueType);
        CContainerRefrence dst(Plain(DT_SEQUENCE_A, &infor), &values);
        const std::size_t before = values.size();
        g_walks = {};
        bool isDone = false;
        m_logged = LoggedLines([&] { isDone = vexa::GetValueListFromObjectList_i(dst, m_ref, flatName); });
        EXPECT_EQ(g_walks.Begun, g_walks.Released);
        EXPECT_EQ(isDone ? before + m_people.size() : before, values.size());
        return isDone;
    }

    std::string m_logged;
};

TEST_F(ValueList, AppendsTheAttributeOfEveryElement)
{
    std::vector<int> ages = {1};
    EXPECT_TRUE(Gather(ages, Plain(DT_INT), "age"));
    EXPECT_EQ((std::vector<int>{1, 30, 40}), ages);
    std::list<std::string> names;
    EXPECT_TRUE(Gather(names, Plain(DT_STD_STRING), "name"));
    EXPECT_EQ((std::list<std::string>{"Ann", "Bob"}), names);
    EXPECT_EQ("", m_logged);
}

TEST_F(ValueList, FindsTheAttributeByItsFlatNameAndFollowsNoPointer)
{
    for (const char* name : {"home_code", "home.code"}) {
        std::vector<int> codes;
        EXPECT_TRUE(Gather(codes, Plain(DT_INT), name)) << name;
        EXPECT_EQ((std::vector<int>{1030, 1040}), codes) << name;
    }
    std::vector<int> heights;
    EXPECT_TRUE(Gather(heights, Plain(DT_INT), "office.code"));
    EXPECT_EQ((std::vector<int>{130, 140}), heights) << "what lies at the leaf's offset in the element itself";
}

TEST_F(ValueList, ConvertsEachValue)
{
    std::vector<double> ages;
    EXPECT_TRUE(Gather(ages, Plain(DT_DOUBLE), "age"));
    EXPECT_EQ((std::vector<double>{30.0, 40.0}), ages);
    std::list<std::string> nicks;
    EXPECT_TRUE(Gather(nicks, Plain(DT_STD_STRING), "nick"));
    EXPECT_EQ((std::list<std::string>{"an", "bo"}), nicks);
}

TEST_F(ValueList, GoesOnAfterAValueThatCannotBeConverted)
{
    std::list<std::string> ages;
    EXPECT_TRUE(Gather(ages, Plain(DT_STD_STRING), "age"));
    EXPECT_EQ((std::list<std::string>{"", ""}), ages);
    EXPECT_EQ("int type CStdBasicTypeRefrence can not be converted to std::string\n"
              "int type CStdBasicTypeRefrence can not be converted to std::string\n",
              m_logged);
}

TEST_F(ValueList, GivesANullForANullAttribute)
{
    m_people.back().Title = {0, "Dr"};
    std::list<Wrapped<std::string>> titles;
    EXPECT_TRUE(Gather(titles, vexa_test::MayNull<std::string>(DT_STD_STRING), "title"));
    EXPECT_EQ(1, titles.front().IsNull);
    EXPECT_EQ(0, titles.back().IsNull);
    EXPECT_EQ("Dr", titles.back().Value);
}

TEST_F(ValueList, GivesANullForANullElement)
{
    std::vector<Resident*> pointers = {nullptr, &m_people.front()};
    const CContainerInfor srcInfor =
        SequenceContainer<std::vector<Resident*>>("std::vector", vexa_test::ConstPointer(DT_CLASS, &*m_resident));
    const CContainerConstRefrence src(Plain(DT_SEQUENCE_A, &srcInfor), &pointers);
    std::vector<Wrapped<int>> ages;
    const CContainerInfor infor = SequenceContainer<std::vector<Wrapped<int>>>("C", vexa_test::MayNull<int>(DT_INT));
    CContainerRefrence dst(Plain(DT_SEQUENCE_A, &infor), &ages);
    EXPECT_TRUE(vexa::GetValueListFromObjectList_i(dst, src, "age"));
    ASSERT_EQ(2U, ages.size());
    EXPECT_EQ(1, ages[0].IsNull);
    EXPECT_EQ(0, ages[1].IsNull);
    EXPECT_EQ(30, ages[1].Value);
}

TEST_F(ValueList, OfNoObjectsAppendsNothing)
{
    m_people.clear();
    std::vector<int> ages = {1};
    EXPECT_TRUE(Gather(ages, Plain(DT_INT), "age"));
    EXPECT_EQ((std::vector<int>{1}), ages);
}

TEST_F(ValueList, IsRefusedSilentlyForATargetThatHoldsNoBasicValues)
{
    std::list<Resident> people;
    EXPECT_FALSE(Gather(people, Plain(DT_CLASS, &*m_resident), "age"));
    std::vector<int> numbers = {1};
    for (const unsigned int code : {0U, 2U, 3U, 10U, 59U, 60U, 112U}) {
        EXPECT_FALSE(Gather(numbers, Plain(code), "age")) << code;
    }
    EXPECT_EQ("", m_logged);
    EXPECT_EQ((std::vector<int>{1}), numbers);
}

TEST_F(ValueList, IsRefusedSilentlyForASourceThatHoldsNoObjects)
{
    const CContainerInfor infor = SequenceContainer<std::vector<int>>("C", Plain(DT_INT));
    std::vector<int> source = {5};
    std::vector<int> target = {1};
    CContainerRefrence dst(Plain(DT_SEQUENCE_A, &infor), &target);
    EXPECT_EQ("", LoggedLines([&] {
                  const CContainerConstRefrence src(Plain(DT_SEQUENCE_A, &infor), &source);
                  EXPECT_FALSE(vexa::GetValueListFromObjectList_i(dst, src, "age"));
              }));
    EXPECT_EQ((std::vector<int>{1}), target);
}

TEST_F(ValueList, IsRefusedSilentlyForAnAttributeThatIsNotThere)
{
    std::vector<int> ages = {1};
    for (const char* name : {"", "Age", "home", "home.none", "office"}) {
        EXPECT_FALSE(Gather(ages, Plain(DT_INT), name)) << name;
        EXPECT_EQ("", m_logged);
    }
    EXPECT_EQ((std::vector<int>{1}), ages);
}

TEST_F(ValueList, IsRefusedForATargetThatCannotBeAppendedTo)
{
    const CContainerInfor setInfor = vexa_test::AssociativeContainer<std::set<int>>("std::set", Plain(DT_INT));
    std::set<int> set;
    CContainerRefrence dst(Plain(DT_ASSOCIATIVE_A, &setInfor), &set);
    EXPECT_FALSE(vexa::GetValueListFromObjectList_i(dst, m_ref, "age"));
    EXPECT_TRUE(set.empty());
    const CContainerInfor infor = SequenceContainer<std::vector<int>>("C", Plain(DT_INT));
    CContainerRefrence none(Plain(DT_SEQUENCE_A, &infor), nullptr);
    EXPECT_FALSE(vexa::GetValueListFromObjectList_i(none, m_ref, "age"));
}

} // namespace
