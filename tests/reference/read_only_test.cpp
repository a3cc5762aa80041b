// Read-only values: nothing that writes changes them.

#include <vexa/vexa.h>

#include <list>
#include <vector>

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

/// A reference that is read-only by its descriptor, as a look-up of a const member gives it.
template<class T>
vexa::CRefrence ReadOnlyRef(T& object)
{
    vexa::CRefrence ref = vexa::RefOf(object);
    ref.TypeInfor.HoldingFlags |= vexa::Enum::HF_CONST;
    return ref;
}

TEST(ReadOnly, AContainerIsNotAppendedToOrCleared)
{
    const std::string refusal = "std::vector<int> type CContainerRefrence is read-only and can not be changed\n";
    std::vector<int> numbers{1, 2};
    vexa::CContainerRefrence container = ReadOnlyRef(numbers).AsContainer();
    EXPECT_EQ(refusal, LoggedLines([&] {
                  const vexa::CRefrence added = container.Append();
                  EXPECT_EQ(nullptr, added.Address);
                  EXPECT_EQ("int", added.TypeName());
              }));
    EXPECT_EQ(refusal, LoggedLines([&] { container.Clear(); }));
    EXPECT_EQ((std::vector<int>{1, 2}), numbers);
}

TEST(ReadOnly, AContainerBehindAConstPointerStaysButThePointerCanBeForgotten)
{
    const std::vector<int> numbers{1, 2};
    const std::vector<int>* pointer = &numbers;
    vexa::CContainerRefrence container = vexa::RefOf(pointer).AsContainer();
    EXPECT_EQ("const std::vector<int>* type CContainerRefrence is read-only and can not be changed\n",
              LoggedLines([&] { container.Clear(); }));
    EXPECT_EQ(&numbers, pointer);
    vexa::RefOf(pointer).Clear();
    EXPECT_EQ(nullptr, pointer);
    EXPECT_EQ((std::vector<int>{1, 2}), numbers);
}

struct Point {
    int x = 0;
};
VEXA_DESCRIBE(Point, x)

TEST(ReadOnly, AContainerTakesNoListOfValuesAndNoTableAndSaysSoByItsResultOnly)
{
    std::list<Point> points{{3}};
    std::vector<long> numbers{7};
    vexa::CContainerRefrence target = ReadOnlyRef(numbers).AsContainer();
    vexa::CTable table;
    EXPECT_TRUE(vexa::TableFromObjects(table, points));
    vexa::CContainerRefrence objects = ReadOnlyRef(points).AsContainer();
    std::vector<std::string> unknown{"untouched"};
    EXPECT_EQ("", LoggedLines([&] {
                  EXPECT_FALSE(vexa::GetValueListFromObjectList_i(target, vexa::RefOf(points).AsContainer(), "x"));
                  EXPECT_FALSE(vexa::ObjectsFromTable(objects, table, &unknown));
              }));
    EXPECT_EQ(std::vector<long>{7}, numbers);
    EXPECT_EQ(1U, points.size());
    EXPECT_EQ(std::vector<std::string>{"untouched"}, unknown);
}

/// The target's text after each kind of text has been put into what a const pointer designates.
template<class T>
void ExpectTextRefused(const T& pointee, bool isForgotten, const std::string& typeName)
{
    for (const bool isCText : {false, true}) {
        const T* pointer = &pointee;
        vexa::CStdBasicTypeRefrence target = vexa::RefOf(pointer).AsStdBasicType();
        const std::string log =
            LoggedLines([&] { isCText ? target.ReadFrom("12") : target.ReadFrom(std::string("12")); });
        EXPECT_EQ((isCText ? "const char*" : "std::string") + (" type can not be converted to " + typeName) + "\n",
                  log);
        EXPECT_EQ(isForgotten ? nullptr : &pointee, pointer);
    }
}

TEST(ReadOnly, TextSetsAConstPointerToNullUnlessItDesignatesWhatTakesText)
{
    ExpectTextRefused(5, true, "const int*");
    ExpectTextRefused(true, true, "const bool*");
    ExpectTextRefused(1.5, true, "const double*");
    ExpectTextRefused(tm{}, true, "const tm*");
    ExpectTextRefused(std::string("kept"), false, "const std::string*");
    ExpectTextRefused(vexa::CBinary(std::string("kept")), false, "const vexa::CBinary*");
    ExpectTextRefused(vexa::CDateTime(5, 0), false, "const vexa::CDateTime*");
    ExpectTextRefused(vexa::CNumeric("5"), false, "const vexa::CNumeric*");
    const char* text = "kept";
    vexa::CStdBasicTypeRefrence target = vexa::RefOf(text).AsStdBasicType();
    EXPECT_EQ("std::string type can not be converted to const char*\n",
              LoggedLines([&] { target.ReadFrom(std::string("12")); }));
    EXPECT_EQ(nullptr, text);
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
