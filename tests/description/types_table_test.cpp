// What the types of the standard library are to the look-ups, texts, tables and to the dialect of JSON.

#include "description/types_table.h"

#include <list>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/described_text.h"

namespace {

using namespace types_table;
using vexa_test::LoggedLines;

template<class T>
std::unique_ptr<Holder<T>> HolderOf(const CRow<T>& row)
{
    auto holder = std::make_unique<Holder<T>>();
    row.Set(holder->value);
    return holder;
}

#define EXPECT_ROW(actual, expected) EXPECT_EQ(actual, expected) << row.Type << ": " << row.Case

TEST(TypesTable, EachIsOneCustomValueOfItsName)
{
    ForEachRow([](const auto& row) {
        using T = decltype(HolderOf(row)->value);
        const vexa::CGnlTypeInfor& type = vexa::TypeInforOf<T>();
        EXPECT_ROW(vexa_test::TypeText(type), row.Name + std::string(", 112, 0x00"));
        EXPECT_ROW(type.Sizeof(), sizeof(T));
        EXPECT_ROW(type.GetCustomTypeID(), 0U);
        EXPECT_ROW(type.GetStdTypeInforFromCustomType().DataType, vexa::Enum::DT_UNKNOWN);
        EXPECT_ROW(type.IsStringTypeEx() || type.IsNumericTypeEx() || type.IsBasicType(), false);
        void* made = type.New();
        EXPECT_ROW(made != nullptr, true);
        type.Delete(made);
    });
}

TEST(TypesTable, EachHasItsTextAndItsJson)
{
    ForEachRow([](const auto& row) {
        auto object = HolderOf(row);
        EXPECT_ROW(vexa::AsString(object->value), row.Text);
        EXPECT_ROW(vexa::AsString(*object), std::string("\nvalue: ") + row.Text);
        EXPECT_ROW(vexa_test::Json(*object), row.Json);
    });
}

TEST(TypesTable, NoneIsReadByFromJson)
{
    ForEachRow([](const auto& row) {
        auto object = HolderOf(row);
        EXPECT_ROW(vexa::FromJson(*object, R"({"value":"7"})"), 656);
        EXPECT_ROW(vexa::AsString(object->value), row.Emptied) << "as FromJson clears the object first";
    });
}

TEST(TypesTable, EachIsEmptiedByClear)
{
    ForEachRow([](const auto& row) {
        auto object = HolderOf(row);
        vexa::RefOf(object->value).Clear();
        EXPECT_ROW(vexa::AsString(object->value), row.Emptied);
    });
}

TEST(TypesTable, EachIsACellOfATable)
{
    ForEachRow([](const auto& row) {
        auto object = HolderOf(row);
        using Object = std::remove_reference_t<decltype(*object)>;
        std::list<Object> objects(1);
        row.Set(objects.front().value);
        vexa::CTable table;
        ASSERT_TRUE(vexa::TableFromObjects(table, objects));
        const std::string text = row.Text;
        EXPECT_ROW(table.AsString(), text == "NULL" ? "NULL,\n" : text + ",\n");
    });
}

TEST(TypesTable, EachTakesTheTextOfACell)
{
    ForEachRow([](const auto& row) {
        if (row.Cell == nullptr) return;
        auto object = HolderOf(row);
        auto& infor = *static_cast<const vexa::CCustomBasicTypeInfor*>(
            vexa::TypeInforOf<std::remove_reference_t<decltype(object->value)>>().DetailInfor);
        const std::string log = LoggedLines([&] { infor.FromValue(&object->value, vexa::CValue(row.Cell)); });
        EXPECT_ROW(vexa::AsString(object->value), row.Stored != nullptr ? row.Stored : row.Text);
        EXPECT_ROW(log, row.Stored != nullptr
                            ? ""
                            : std::string("std::string type vexa::CValue can not be converted to ") + row.Name + "\n");
    });
}

} // namespace
