// Read-only values: nothing that writes changes them.

#include <vexa/vexa.h>

#include <gtest/gtest.h>

#include "support/captured_log.h"

namespace read_only {

struct Held {
    const vexa::MayNull<int> maybe{7};
    const vexa::CValue value{5};
    const std::string text = "kept";
    int free = 1;
};
VEXA_DESCRIBE(Held, maybe, value, text, free)

} // namespace read_only

namespace {

using vexa_test::LoggedLines;

constexpr char AS_IT_WAS[] = "\nmaybe: 7\nvalue: 5\ntext: kept\nfree: ";

TEST(ReadOnly, MembersStayWhenTheirObjectIsClearedOrRead)
{
    read_only::Held held;
    vexa::RefOf(held).Clear();
    EXPECT_EQ(std::string(AS_IT_WAS) + "0", vexa::AsString(held));
    EXPECT_EQ(0, vexa::FromJson(held, R"({"free":2})"));
    EXPECT_EQ(std::string(AS_IT_WAS) + "2", vexa::AsString(held));
    EXPECT_EQ(965, vexa::FromJson(held, R"({"free":3,"maybe":4})"));
    EXPECT_EQ(std::string(AS_IT_WAS) + "3", vexa::AsString(held));
}

TEST(ReadOnly, ANullSourceIsRefusedAndLogged)
{
    vexa::MayNull<int> number(7);
    vexa::CGnlTypeInfor type = vexa::TypeInforOf<vexa::MayNull<int>>();
    type.HoldingFlags |= vexa::Enum::HF_CONST;
    vexa::CStdBasicTypeRefrence target(type, &number);
    const char* const noText = nullptr;
    EXPECT_EQ("const char* type can not be converted to MayNull<int>\n", LoggedLines([&] { target.ReadFrom(noText); }));
    vexa::MayNull<long> noNumber;
    EXPECT_EQ("MayNull<long> type can not be converted to MayNull<int>\n",
              LoggedLines([&] { target.ReadFrom(vexa::RefOf(noNumber).AsStdBasicType()); }));
    EXPECT_EQ(7, number.value_or(0));
}

TEST(ReadOnly, AConstObjectInAGenericClassIsNotWritten)
{
    const int number = 3;
    vexa::CGnlClass record;
    record.Add("n", vexa::RefOf(number));
    EXPECT_EQ(965, vexa::FromJson(record, R"({"n":4})"));
    vexa::RefOf(record).Clear();
    EXPECT_EQ("\nn: 3", vexa::AsString(record));
}

TEST(ReadOnly, AStringBehindAPointerIsEmptiedWhereItLives)
{
    std::string text = "text";
    std::string* pointer = &text;
    vexa::CStdBasicTypeRefrence(vexa::CGnlTypeInfor(vexa::Enum::DT_STD_STRING, vexa::Enum::HF_POINTER), &pointer)
        .Clear();
    EXPECT_EQ(&text, pointer);
    EXPECT_EQ("", text);
}

TEST(ReadOnly, AnyNumberBehindAPointerZeroesThePointerAndNothingElse)
{
    long double number = 1;
    struct {
        long double* pointer;
        long after;
    } held{&number, 9};
    vexa::CStdBasicTypeRefrence(vexa::CGnlTypeInfor(vexa::Enum::DT_LONG_DOUBLE, vexa::Enum::HF_POINTER), &held).Clear();
    EXPECT_EQ(nullptr, held.pointer);
    EXPECT_EQ(9, held.after);
    EXPECT_EQ(1, number);
}

} // namespace
