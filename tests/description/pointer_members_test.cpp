// Members held through pointers: owned, not owned, never null, untyped.

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_text.h"

namespace pointer_members {

struct Point {
    int x = 1;
};
VEXA_DESCRIBE(Point, x)

/// Owns its raw pointers, as the description says.
struct Pointers {
    Pointers() = default;
    Pointers(const Pointers&) = delete;
    Pointers& operator=(const Pointers&) = delete;
    ~Pointers()
    {
        delete raw;
        delete rawText;
        delete rawPoint;
    }

    int* raw = nullptr;
    std::string* rawText = nullptr;
    Point* rawPoint = nullptr;
    const int* seen = nullptr;
    const Point* seenPoint = nullptr;
    std::unique_ptr<int> owned;
    std::unique_ptr<std::string> ownedText;
    std::unique_ptr<Point> ownedPoint;
    std::unique_ptr<std::vector<int>> ownedList;
};
VEXA_DESCRIBE(Pointers, raw, rawText, rawPoint, seen, seenPoint, owned, ownedText, ownedPoint, ownedList)

struct Untyped {
    void* writable = nullptr;
    const void* readable = nullptr;
};
VEXA_DESCRIBE(Untyped, writable, readable)

struct Ensured {
    vexa::NonNullPointer<int> whole;
    vexa::NonNullPointer<std::string> text;
    vexa::NonNullPointer<Point> point;
};
VEXA_DESCRIBE(Ensured, whole, text, point)

struct Constant {
    explicit Constant(int* pointee) : pointer(pointee), owned(new int(2)) {}
    int* const pointer;
    const std::unique_ptr<int> owned;
};
VEXA_DESCRIBE(Constant, pointer, owned)

} // namespace pointer_members

namespace {

using namespace pointer_members;
using vexa_test::Json;
using vexa_test::Line;
using vexa_test::LoggedLines;
using vexa_test::MembersOf;

constexpr char FILLED[] = R"({"raw":1,"rawText":"a","rawPoint":{"x":2},"owned":3,"ownedText":"b",)"
                          R"("ownedPoint":{"x":4},"ownedList":[5,6]})";

TEST(PointerMembers, HaveTheFlagsOfTheirOwnership)
{
    const Pointers p;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Pointers>()),
              Line(p, p.raw, "raw", "int*, 14, 0x18") + Line(p, p.rawText, "rawText", "std::string*, 41, 0x18") +
                  Line(p, p.rawPoint, "rawPoint", "Point*, 1, 0x18") + Line(p, p.seen, "seen", "const int*, 14, 0x38") +
                  Line(p, p.seenPoint, "seenPoint", "const Point*, 1, 0x38") +
                  Line(p, p.owned, "owned", "int*, 14, 0x18") +
                  Line(p, p.ownedText, "ownedText", "std::string*, 41, 0x18") +
                  Line(p, p.ownedPoint, "ownedPoint", "Point*, 1, 0x18") +
                  Line(p, p.ownedList, "ownedList", "std::vector<int>*, 61, 0x18"));
}

TEST(PointerMembers, NullsRenderAsNullAndAreLeftOutOfJson)
{
    EXPECT_EQ(vexa::AsString(Pointers()), "\nraw: NULL\nrawText: NULL\nrawPoint: NULL\nseen: NULL\nseenPoint: NULL"
                                          "\nowned: NULL\nownedText: NULL\nownedPoint: NULL\nownedList: NULL");
    EXPECT_EQ(Json(Pointers()), "{}");
}

TEST(PointerMembers, ReadingJsonMakesThePointees)
{
    Pointers p;
    ASSERT_EQ(vexa::FromJson(p, FILLED), 0);
    EXPECT_EQ(Json(p), FILLED);
    EXPECT_EQ(*p.raw, 1);
    EXPECT_EQ(*p.ownedList, (std::vector<int>{5, 6}));
    EXPECT_EQ(vexa::AsString(p), "\nraw: 1\nrawText: a\nrawPoint: \n  x: 2\nseen: NULL\nseenPoint: NULL\nowned: 3"
                                 "\nownedText: b\nownedPoint: \n  x: 4\nownedList: \n  - 5\n  - 6");
}

TEST(PointerMembers, ReadingAgainReplacesThePointees)
{
    Pointers p;
    ASSERT_EQ(vexa::FromJson(p, FILLED), 0);
    ASSERT_EQ(vexa::FromJson(p, R"({"owned":9})"), 0);
    EXPECT_EQ(Json(p), R"({,"owned":9})");
}

TEST(PointerMembers, ClearingFreesWhatIsOwnedAndForgetsWhatIsNot)
{
    const int number = 7;
    const Point point;
    Pointers p;
    ASSERT_EQ(vexa::FromJson(p, FILLED), 0);
    p.seen = &number;
    p.seenPoint = &point;
    EXPECT_NE(vexa::AsString(p).find("\nseen: 7\nseenPoint: \n  x: 1\n"), std::string::npos);
    vexa::RefOf(p).Clear();
    EXPECT_EQ(p.raw, nullptr);
    EXPECT_EQ(p.seen, nullptr);
    EXPECT_EQ(p.seenPoint, nullptr);
    EXPECT_EQ(p.ownedPoint, nullptr);
    EXPECT_EQ(Json(p), "{}");
}

TEST(PointerMembers, WhatIsNotOwnedCannotBeReadFromJson)
{
    Pointers p;
    EXPECT_EQ(vexa::FromJson(p, R"({"seen":1})"), 965);
    EXPECT_EQ(vexa::FromJson(p, R"({"seenPoint":{"x":1}})"), 965);
    EXPECT_EQ(p.seen, nullptr);
}

TEST(PointerMembers, UntypedMemoryShowsItsAddressAndIsNeverFreed)
{
    Untyped u;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Untyped>()), Line(u, u.writable, "writable", "const void*, 3, 0x38") +
                                                            Line(u, u.readable, "readable", "const void*, 3, 0x38"));
    EXPECT_EQ(vexa::AsString(u), "\nwritable: NULL\nreadable: NULL");
    int memory = 0;
    u.writable = &memory;
    const auto address = std::to_string(reinterpret_cast<unsigned long>(&memory));
    EXPECT_EQ(vexa::AsString(u), "\nwritable: " + address + "\nreadable: NULL");
    vexa::RefOf(u).Clear();
    EXPECT_EQ(u.writable, nullptr);
}

TEST(PointerMembers, UntypedMemoryHasNoJson)
{
    int memory = 0;
    Untyped u;
    u.writable = &memory;
    std::string json;
    EXPECT_EQ(LoggedLines([&] { json = Json(u); }),
              "It is not currently supported to convert const void* types to pJson strings\n");
    EXPECT_EQ(json, R"({"writable":})");
    EXPECT_EQ(vexa::FromJson(u, R"({"writable":1})"), 956);
}

TEST(PointerMembers, ANonNullPointerHasTheWrapperKindAndMayBeNull)
{
    const Ensured e;
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Ensured>()),
              Line(e, e.whole, "whole", "NonNullPointer<int>, 14, 0x1a") +
                  Line(e, e.text, "text", "NonNullPointer<std::string>, 41, 0x1a") +
                  Line(e, e.point, "point", "NonNullPointer<Point>, 1, 0x1a"));
}

TEST(PointerMembers, ANonNullPointerHasNoObjectUntilItIsLookedAt)
{
    Ensured e;
    EXPECT_EQ(vexa::AsString(e), "\nwhole: NULL\ntext: NULL\npoint: NULL");
    EXPECT_EQ(*e.whole, 0);
    EXPECT_EQ(e.point->x, 1);
    EXPECT_EQ(vexa::AsString(e), "\nwhole: 0\ntext: NULL\npoint: \n  x: 1");
}

TEST(PointerMembers, ClearingANonNullPointerFreesItsObject)
{
    Ensured e;
    ASSERT_EQ(vexa::FromJson(e, R"({"whole":5,"text":"a","point":{"x":6}})"), 0);
    EXPECT_EQ(*e.whole, 5);
    EXPECT_EQ(Json(e), R"({"whole":5,"text":"a","point":{"x":6}})");
    vexa::RefOf(e).Clear();
    EXPECT_EQ(Json(e), "{}");
    EXPECT_EQ(*e.whole, 0) << "a new object, not the old one";
}

TEST(PointerMembers, AConstPointerKeepsPointingWhereItDoes)
{
    int pointee = 1;
    Constant c(&pointee);
    EXPECT_EQ(MembersOf(vexa::ClassInforOf<Constant>()), Line(c, c.pointer, "pointer", "const int*, 14, 0x30") +
                                                             Line(c, c.owned, "owned", "const int*, 14, 0x30"));
    vexa::RefOf(c).Clear();
    EXPECT_EQ(c.pointer, &pointee);
    ASSERT_NE(c.owned, nullptr);
    EXPECT_EQ(Json(c), R"({"pointer":1,"owned":2})");
    EXPECT_EQ(vexa::FromJson(c, R"({"pointer":3})"), 965);
    EXPECT_EQ(pointee, 1);
}

TEST(PointerMembers, AConstPointerThatIsNullShowsAsNull)
{
    const Constant c(nullptr);
    EXPECT_EQ(vexa::AsString(c), "\npointer: NULL\nowned: 2");
    EXPECT_EQ(Json(c), R"({,"owned":2})");
}

TEST(NonNullPointer, MakesItsObjectWhenItIsFirstLookedAt)
{
    const vexa::NonNullPointer<std::string> text;
    EXPECT_EQ(*text, "");
    EXPECT_NE(text.get(), nullptr);
    text->append("b");
    EXPECT_EQ(*text, "b");
    EXPECT_EQ(text.get(), &*text);
}

TEST(NonNullPointer, CopiesItsObjectAndMovesIt)
{
    vexa::NonNullPointer<std::string> first(std::string("a"));
    vexa::NonNullPointer<std::string> second(first);
    EXPECT_EQ(*second, "a");
    EXPECT_NE(first.get(), second.get());
    *second = "b";
    first = second;
    EXPECT_EQ(*first, "b");
    const std::string* const moved = first.get();
    const vexa::NonNullPointer<std::string> third(std::move(first));
    EXPECT_EQ(third.get(), moved);
}

} // namespace
