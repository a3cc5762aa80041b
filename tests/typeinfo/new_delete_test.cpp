// Making and freeing values through the general descriptor.

#include <cstdlib>
#include <cstring>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <vexa/binary.h>
#include <vexa/container_infor.h>
#include <vexa/date_time.h>
#include <vexa/group.h>
#include <vexa/numeric.h>
#include <vexa/table.h>
#include <vexa/type_infor.h>
#include <vexa/value.h>

#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CGnlTypeInfor;
using vexa_test::Plain;

int g_made = 0;
int g_deleted = 0;
void* g_lastDeleted = nullptr;
int g_thing = 0;

void* NewThing()
{
    ++g_made;
    return &g_thing;
}

void DeleteThing(void* thing)
{
    ++g_deleted;
    g_lastDeleted = thing;
}

/// A detailed descriptor that counts what it makes and deletes.
class Counted : public testing::Test {
protected:
    Counted()
    {
        m_infor.SetBaseTypeInfor("Thing", 3, &NewThing, &DeleteThing, 0);
        g_made = g_deleted = 0;
        g_lastDeleted = &g_deleted;
    }

    void ExpectUsesDetail(const CGnlTypeInfor& type)
    {
        g_made = g_deleted = 0;
        void* object = type.New();
        EXPECT_EQ(&g_thing, object);
        EXPECT_EQ(1, g_made);
        type.Delete(object);
        EXPECT_EQ(nullptr, object);
        EXPECT_EQ(&g_thing, g_lastDeleted);
        type.Delete(object);
        EXPECT_EQ(nullptr, g_lastDeleted) << "a null object is handed to the deleter, too";
        EXPECT_EQ(2, g_deleted);
    }

    vexa::CContainerInfor m_infor;
};

TEST_F(Counted, ClassesAndCustomTypesUseTheirFactoryAndDeleter)
{
    ExpectUsesDetail(Plain(DT_CLASS, &m_infor));
    ExpectUsesDetail(Plain(DT_CUSTOM_BASIC, &m_infor));
    CGnlTypeInfor owned;
    owned.ChangeTypeTo_CustomType("Thing", 3, &NewThing, &DeleteThing, 0);
    ExpectUsesDetail(owned);
}

TEST_F(Counted, EveryCodeOfTheContainerBandUsesTheFactoryAndDeleter)
{
    for (unsigned int code = 61; code <= 98; ++code) {
        SCOPED_TRACE(code);
        ExpectUsesDetail(Plain(code, &m_infor));
    }
}

TEST_F(Counted, Code65HasNoSizeButCallsTheFactory)
{
    EXPECT_EQ(0U, Plain(65, &m_infor).Sizeof());
    ExpectUsesDetail(Plain(65, &m_infor));
}

TEST_F(Counted, DeleteOfAClassCallsTheDeleterEvenWithANullObject)
{
    void* object = nullptr;
    Plain(DT_CLASS, &m_infor).Delete(object);
    EXPECT_EQ(1, g_deleted);
    EXPECT_EQ(nullptr, g_lastDeleted);
    EXPECT_EQ(nullptr, object);
}

class RawCode : public testing::TestWithParam<unsigned int> {};

TEST_P(RawCode, IsMadeAsMemoryOfItsSize)
{
    const CGnlTypeInfor type = Plain(GetParam());
    void* object = type.New();
    ASSERT_NE(nullptr, object);
    std::memset(object, 0xA5, type.Sizeof()); // the address sanitizer finds a block that is too short
    type.Delete(object);
    EXPECT_EQ(nullptr, object);
    type.Delete(object);
    EXPECT_EQ(nullptr, object);
}

INSTANTIATE_TEST_SUITE_P(NewDelete, RawCode,
                         testing::Values(2U, 11U, 12U, 13U, 14U, 15U, 16U, 17U, 18U, 19U, 22U, 23U, 24U, 25U, 26U, 42U,
                                         51U),
                         testing::PrintToStringParamName());

/// Makes a value, hands it to the check, and deletes it; then deletes a null.
template<class T, class Check>
void MakeAndDelete(unsigned int code, Check check)
{
    const CGnlTypeInfor type = Plain(code);
    void* object = type.New();
    ASSERT_NE(nullptr, object);
    check(*static_cast<T*>(object));
    type.Delete(object);
    EXPECT_EQ(nullptr, object);
    type.Delete(object);
    EXPECT_EQ(nullptr, object);
}

TEST(NewDelete, MakesAnEmptyString)
{
    MakeAndDelete<std::string>(DT_STD_STRING, [](std::string& text) {
        EXPECT_EQ("", text);
        text.assign(1000, 'x'); // its own destructor must free this
    });
}

TEST(NewDelete, MakesAnEmptyBinary)
{
    MakeAndDelete<vexa::CBinary>(DT_BINARY, [](vexa::CBinary& binary) {
        EXPECT_EQ(0U, binary.Size);
        binary.Reset(1000);
    });
}

TEST(NewDelete, MakesADefaultNumeric)
{
    MakeAndDelete<vexa::CNumeric>(DT_NUMERIC, [](vexa::CNumeric& number) {
        EXPECT_EQ("(null)", number.AsString());
        number = std::string(1000, '7');
    });
}

TEST(NewDelete, MakesADefaultDateTime)
{
    MakeAndDelete<vexa::CDateTime>(DT_DATETIME, [](vexa::CDateTime& time) {
        EXPECT_EQ(VS_NULL, time.State);
        EXPECT_EQ(vexa::CDateTime().TimeWord, time.TimeWord);
    });
}

CGnlTypeInfor OwnedCustom()
{
    CGnlTypeInfor type;
    type.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    return type;
}

TEST(NewDelete, MakesEmptyGroupsOfReferencesAndFreesWhatTheyOwn)
{
    MakeAndDelete<vexa::CGnlClass>(DT_GNL_CLASS, [](vexa::CGnlClass& object) {
        EXPECT_TRUE(object.Named.empty() && object.Indexed.empty());
        object.Add("price", vexa::CConstRefrence(OwnedCustom(), nullptr)); // owns its descriptor
        object.Add(vexa::CConstRefrence(OwnedCustom(), nullptr));
    });
    MakeAndDelete<vexa::CReferenceGroup>(DT_REFERENCE_GROUP, [](vexa::CReferenceGroup& group) {
        EXPECT_TRUE(group.Named.empty() && group.Indexed.empty());
        group.Add("price", vexa::CRefrence(OwnedCustom(), nullptr));
        group.Add(vexa::CRefrence(OwnedCustom(), nullptr));
    });
}

TEST(NewDelete, MakesEmptyRowsAndTablesAndFreesTheirValues)
{
    MakeAndDelete<vexa::CRow>(DT_ROW, [](vexa::CRow& row) {
        EXPECT_EQ(0U, row.Size());
        row.Append(std::string(1000, 'x'));
    });
    MakeAndDelete<vexa::CTable>(DT_TABLE, [](vexa::CTable& table) {
        EXPECT_TRUE(table.Rows.empty() && table.Columns.empty());
        table.AddColumn(DT_STD_STRING, std::string(1000, 'n'));
        table.AddRow()[0] = std::string(1000, 'x');
    });
}

TEST(NewDelete, MakesATaggedValueWithoutTypeAndContents)
{
    MakeAndDelete<vexa::CValue>(DT_VALUE, [](vexa::CValue& value) {
        EXPECT_EQ(DT_UNKNOWN, value.Type());
        EXPECT_TRUE(value.IsNull());
        value = vexa::CNumeric(std::string(1000, '7'));
    });
}

TEST(NewDelete, VoidCannotBeMadeAndIsFreedWithFree)
{
    const CGnlTypeInfor type = Plain(DT_VOID);
    EXPECT_EQ(nullptr, type.New());
    void* object = std::malloc(7); // the address sanitizer reports any other way of freeing it, and a leak
    ASSERT_NE(nullptr, object);
    type.Delete(object);
    EXPECT_EQ(nullptr, object);
    type.Delete(object);
    EXPECT_EQ(nullptr, object);
}

TEST(NewDelete, WhatCannotBeMadeFreesNothing)
{
    const std::set<unsigned int> made = {1,  2,  3,  11, 12, 13, 14, 15, 16,  17,  18,  19,  22,  23,  24,
                                         25, 26, 41, 42, 45, 47, 51, 52, 101, 102, 105, 106, 111, 112, 114};
    for (unsigned int code = 0; code < 256; ++code) {
        if (made.count(code) != 0 || (code >= 61 && code <= 98)) continue;
        EXPECT_EQ(nullptr, Plain(code).New()) << code;
        int onTheStack = 0;
        void* object = &onTheStack; // freeing it would end the test
        Plain(code).Delete(object);
        EXPECT_EQ(nullptr, object) << code;
    }
}

TEST(NewDelete, ABitSetElementHasANameButCannotBeMade)
{
    EXPECT_EQ("std_bitset_node", Plain(121).RealTypeName());
    EXPECT_EQ(0U, Plain(121).Sizeof());
    EXPECT_EQ(nullptr, Plain(121).New());
}

} // namespace
