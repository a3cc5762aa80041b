// The record types as the descriptor operations and Clear see them.

#include <vexa/group.h>
#include <vexa/table.h>

#include <string>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/type_of.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CGnlClass;
using vexa::CGnlTypeInfor;
using vexa::CReferenceGroup;
using vexa::CRefrence;
using vexa::CRow;
using vexa::CTable;
using vexa::CValue;

/// Makes a record, fills it and has it destroyed.
template<class Record, class Fill>
void MakeFillAndDelete(DataTypeEnum code, const std::string& name, unsigned long size, Fill&& fill)
{
    const CGnlTypeInfor type = Plain(code);
    EXPECT_EQ(type.TypeName(), name);
    EXPECT_EQ(type.Sizeof(), size);
    EXPECT_EQ(sizeof(Record), size);
    void* object = type.New();
    ASSERT_NE(object, nullptr);
    fill(*static_cast<Record*>(object));
    type.Delete(object);
    EXPECT_EQ(object, nullptr);
    type.Delete(object);
    EXPECT_EQ(object, nullptr);
}

vexa::CRefrence OwnedCustom(void* object)
{
    CGnlTypeInfor type;
    type.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 7);
    return {type, object};
}

TEST(RecordType, GroupsAreMadeEmptyAndDestroyedWithTheDescriptorsTheyOwn)
{
    const auto fill = [](auto& group) {
        EXPECT_TRUE(group.Named.empty());
        EXPECT_TRUE(group.Indexed.empty());
        group.Add("money", OwnedCustom(nullptr));
        group.Add(OwnedCustom(nullptr));
    };
    MakeFillAndDelete<CGnlClass>(DT_GNL_CLASS, "vexa::CGnlClass", 72, fill);
    MakeFillAndDelete<CReferenceGroup>(DT_REFERENCE_GROUP, "vexa::CReferenceGroup", 72, fill);
}

TEST(RecordType, RowsAndTablesAreMadeEmptyAndDestroyedWithAllTheyHold)
{
    MakeFillAndDelete<CRow>(DT_ROW, "vexa::CRow", 24, [](CRow& row) {
        EXPECT_EQ(row, CRow());
        for (const auto code : STORED_CODES)
            row.Append(Sample(code));
    });
    MakeFillAndDelete<CTable>(DT_TABLE, "vexa::CTable", 48, [](CTable& table) {
        EXPECT_EQ(table, CTable());
        table.AddColumn(DT_STD_STRING, "a name that is too long to lie inside a std::string object");
        table.Append({Sample(DT_STD_STRING), Sample(DT_NUMERIC)});
    });
}

TEST(RecordType, ValuesAreMadeWithoutTypeAndDestroyedWithWhatTheyHold)
{
    for (const auto code : STORED_CODES) {
        MakeFillAndDelete<CValue>(DT_VALUE, "vexa::CValue", 64, [code](CValue& value) {
            EXPECT_EQ(Show(value), "0: NULL");
            value = Sample(code);
        });
    }
}

TEST(RecordType, AValueKeepsItsOwnNullState)
{
    const CGnlTypeInfor type = Plain(DT_VALUE);
    CValue value = 5;
    EXPECT_FALSE(type.IsNull(&value));
    type.SetNull(&value);
    EXPECT_EQ(Show(value), "14: NULL");
    EXPECT_TRUE(type.IsNull(&value));
    type.SetNotNull(&value);
    EXPECT_EQ(Show(value), "14: 0");
}

TEST(RecordType, AValueMarkedNullableStillKeepsItsOwnNullState)
{
    const CGnlTypeInfor type(DT_VALUE, HF_NULLABLE);
    CValue value = 5;
    EXPECT_FALSE(type.IsNull(&value));
    type.SetNull(&value);
    EXPECT_EQ(Show(value), "14: NULL");
    type.SetNotNull(&value);
    EXPECT_EQ(Show(value), "14: 0");
}

TEST(RecordType, TheNullTestOfAPointerToAValueTakesThePointerForTheValue)
{
    for (const unsigned int flags : {unsigned{HF_POINTER}, HF_POINTER | HF_NULLABLE}) {
        const CGnlTypeInfor type(DT_VALUE, flags);
        CValue value = 5;
        EXPECT_FALSE(type.IsNull(&value));
        value.SetNull();
        EXPECT_TRUE(type.IsNull(&value));
    }
}

TEST(RecordType, APointerToAValueIsMadeAndFreedByItsPointer)
{
    for (const unsigned int flags : {unsigned{HF_POINTER}, HF_POINTER | HF_NULLABLE}) {
        const CGnlTypeInfor type(DT_VALUE, flags);
        CValue* pointer = nullptr;
        type.SetNotNull(&pointer);
        ASSERT_NE(pointer, nullptr);
        *pointer = Sample(DT_NUMERIC);
        type.SetNull(&pointer);
        EXPECT_EQ(pointer, nullptr);
    }
}

TEST(RecordType, AConstPointerToAValueIsForgotten)
{
    CValue value = 5;
    const CValue* pointer = &value;
    const CGnlTypeInfor type(DT_VALUE, HF_POINTER | HF_NULLABLE | HF_CONST);
    type.SetNull(&pointer);
    EXPECT_EQ(pointer, nullptr);
    type.SetNotNull(&pointer);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(Show(value), "14: 5");
}

TEST(RecordType, RecordsBehindPointersAreMadeAndFreed)
{
    for (const auto code : {DT_GNL_CLASS, DT_REFERENCE_GROUP, DT_ROW, DT_TABLE}) {
        const CGnlTypeInfor type = OwnedPointer(code);
        void* pointer = nullptr;
        EXPECT_TRUE(type.IsNull(&pointer));
        type.SetNotNull(&pointer);
        EXPECT_FALSE(type.IsNull(&pointer));
        type.SetNull(&pointer);
        EXPECT_EQ(pointer, nullptr);
        EXPECT_FALSE(Plain(code).IsNull(&pointer));
    }
}

TEST(RecordType, ClearingAValueMakesItNull)
{
    CValue value = "text";
    CRefrence(Plain(DT_VALUE), &value).Clear();
    EXPECT_EQ(Show(value), "41: NULL");
}

TEST(RecordType, ClearingARowOrATableEmptiesIt)
{
    CRow row = {Sample(DT_STD_STRING), Sample(DT_NUMERIC)};
    CRefrence(Plain(DT_ROW), &row).Clear();
    EXPECT_EQ(row, CRow());

    CTable table;
    table.AddColumn(DT_INT, "id");
    table.Append({1});
    CRefrence(Plain(DT_TABLE), &table).Clear();
    EXPECT_EQ(table, CTable());
}

TEST(RecordType, ClearingANullableRowMakesItNull)
{
    auto* row = new CRow({1});
    CRefrence(OwnedPointer(DT_ROW), &row).Clear();
    EXPECT_EQ(row, nullptr);
}

TEST(RecordType, ClearingAGroupLeavesItAsItIs)
{
    int number = 5;
    CReferenceGroup group;
    group.Add("number", CRefrence(Plain(DT_INT), &number));
    const std::string log = LoggedLines([&] { CRefrence(Plain(DT_REFERENCE_GROUP), &group).Clear(); });

    EXPECT_EQ(group.Named.size(), 1U);
    EXPECT_EQ(number, 5);
    EXPECT_EQ(log, "");
}

TEST(RecordType, ClearingAnOwnedCustomTypeIsLogged)
{
    int number = 5;
    CRefrence ref = OwnedCustom(&number);
    const std::string log = LoggedLines([&] { ref.Clear(); });
    EXPECT_EQ(number, 5);
    EXPECT_EQ(log, "Not supported type Money In function CRefrence::Clear()\n");
}

} // namespace
