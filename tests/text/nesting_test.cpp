// Objects inside objects: to the greatest depth and beyond, and in circles.

#include <vexa/text.h>

#include <list>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/text_links.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::AsString;
using vexa::FromJson;
using vexa::MAX_NESTING_DEPTH;
using vexa::ToJson;

constexpr int TOO_DEEP = 999;

std::string RefusalOf(const std::string& type)
{
    return type + " type is nested in itself or deeper than 1000 levels\n";
}

/// The text of a linked list; a list that is cut off ends with its last name.
std::string TextOfLinks(std::size_t length, const std::string& end)
{
    std::string text;
    std::string blanks;
    for (std::size_t i = 1; i <= length; ++i) {
        text += "\n" + blanks + "value: " + std::to_string(i) + "\n" + blanks + "next: ";
        blanks += "  ";
    }
    return text + end;
}

std::string JsonOfLinks(std::size_t length)
{
    std::string text;
    for (std::size_t i = 1; i <= length; ++i)
        text += (i > 1 ? ",\"next\":{\"value\":" : "{\"value\":") + std::to_string(i);
    return text + std::string(length, '}');
}

/// "out" must be emptied, and one line logged.
template<class T>
void ExpectToJsonTooDeep(const T& value, const std::string& type)
{
    std::string out = "what was there before";
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(ToJson(out, value), TOO_DEEP); }), RefusalOf(type));
    EXPECT_EQ(out, "");
}

TEST(Nesting, EndsAtAThousandLevels) { EXPECT_EQ(MAX_NESTING_DEPTH, 1000U); }

TEST(Nesting, TextGoesOnWithTwoBlanksALevel)
{
    for (const std::size_t length : {39U, 40U, 41U, 42U, 43U, 100U}) {
        EXPECT_EQ(AsString(LinkedList(length)[0]), TextOfLinks(length, "NULL")) << length;
    }
}

TEST(Nesting, AsDeepAsAllowedIsWritten)
{
    const std::vector<Link> links = LinkedList(MAX_NESTING_DEPTH);
    EXPECT_EQ(LoggedLines([&] {
                  EXPECT_EQ(AsString(links[0]), TextOfLinks(MAX_NESTING_DEPTH, "NULL"));
                  EXPECT_EQ(Json(links[0]), JsonOfLinks(MAX_NESTING_DEPTH));
              }),
              "");
}

TEST(Nesting, DeeperThanAllowedIsLeftOutOfText)
{
    for (const std::size_t length : {MAX_NESTING_DEPTH + 1, 100000UL}) {
        const std::vector<Link> links = LinkedList(length);
        EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(links[0]), TextOfLinks(MAX_NESTING_DEPTH, "")); }),
                  RefusalOf("const Link*"));
    }
}

TEST(Nesting, DeeperThanAllowedIsNotWrittenAsJson)
{
    ExpectToJsonTooDeep(LinkedList(MAX_NESTING_DEPTH + 1)[0], "const Link*");
    const std::vector<Link> links = LinkedList(100000);
    ExpectToJsonTooDeep(links[0], "const Link*");
}

TEST(Nesting, ContainersCountAsLevels)
{
    const std::vector<Link> links = LinkedList(MAX_NESTING_DEPTH);
    const std::vector<const Link*> list{&links[0]};
    ExpectToJsonTooDeep(list, "const Link*");
    const std::vector<const Link*> shorter{&links[1]};
    std::string out;
    EXPECT_EQ(ToJson(out, shorter), 0);
}

// Circles

TEST(Nesting, AnObjectThatPointsToItselfIsLeftOutOfText)
{
    Link link;
    link.next = &link;
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(link), "\nvalue: 0\nnext: "); }), RefusalOf("const Link*"));
    ExpectToJsonTooDeep(link, "const Link*");
}

TEST(Nesting, ACircleIsWalkedOnce)
{
    std::vector<Link> links = LinkedList(3);
    links[2].next = &links[0];
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(links[0]), TextOfLinks(3, "")); }), RefusalOf("const Link*"));
    EXPECT_EQ(LoggedLines([&] {
                  EXPECT_EQ(AsString(links[1]), "\nvalue: 2\nnext: \n  value: 3\n  next: \n    value: 1\n    next: ");
              }),
              RefusalOf("const Link*"));
    ExpectToJsonTooDeep(links[0], "const Link*");
}

TEST(Nesting, ACircleBehindThePlaceWhereTheWalkBeganIsFound)
{
    std::vector<Link> links = LinkedList(3);
    links[2].next = &links[1];
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(links[0]), TextOfLinks(3, "")); }), RefusalOf("const Link*"));
    ExpectToJsonTooDeep(links[0], "const Link*");
}

struct Group {
    std::string name;
    std::vector<const Group*> members;
};
VEXA_DESCRIBE(Group, name, members)

TEST(Nesting, AContainerThatLeadsBackToItsOwnerIsLeftOutOfText)
{
    Group group{"all", {}};
    group.members = {&group, &group};
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(AsString(group), "\nname: all\nmembers: \n  - \n  - "); }),
              RefusalOf("const Group*") + RefusalOf("const Group*"));
    ExpectToJsonTooDeep(group, "const Group*");
}

struct Parent;
struct Child {
    int number = 0;
    const Parent* parent = nullptr;
};
struct Parent {
    std::string name = "p";
    std::vector<Child> children;
};
VEXA_DESCRIBE(Child, number, parent)
VEXA_DESCRIBE(Parent, name, children)

TEST(Nesting, ChildrenThatPointBackToTheirParentAreWritten)
{
    Parent parent;
    parent.children.push_back({1, &parent});
    parent.children.push_back({2, &parent});
    EXPECT_EQ(LoggedLines([&] {
                  EXPECT_EQ(AsString(parent), "\nname: p"
                                              "\nchildren: "
                                              "\n  - number: 1"
                                              "\n    parent: "
                                              "\n  - number: 2"
                                              "\n    parent: ");
              }),
              RefusalOf("const Parent*") + RefusalOf("const Parent*"));
    ExpectToJsonTooDeep(parent, "const Parent*");
}

// What only looks like a circle

struct Pair {
    const Address* left = nullptr;
    const Address* right = nullptr;
};
VEXA_DESCRIBE(Pair, left, right)

TEST(Nesting, TheSameObjectInTwoPlacesIsWrittenTwice)
{
    const Address oslo{"Oslo"};
    const Pair pair{&oslo, &oslo};
    EXPECT_EQ(LoggedLines([&] {
                  EXPECT_EQ(AsString(pair), "\nleft: \n  city: Oslo\nright: \n  city: Oslo");
                  EXPECT_EQ(Json(pair), R"({"left":{"city":"Oslo"},"right":{"city":"Oslo"}})");
              }),
              "");
}

struct Inner {
    int number = 7;
};
struct Middle {
    Inner inner;
};
struct Outer {
    Middle middle;
    const Inner* chosen = nullptr;
};
VEXA_DESCRIBE(Inner, number)
VEXA_DESCRIBE(Middle, inner)
VEXA_DESCRIBE(Outer, middle, chosen)

TEST(Nesting, MembersAtTheAddressOfTheirOwnerAreNotTakenForIt)
{
    Outer outer;
    outer.chosen = &outer.middle.inner;
    EXPECT_EQ(LoggedLines([&] {
                  EXPECT_EQ(AsString(outer), "\nmiddle: \n  inner: \n    number: 7\nchosen: \n  number: 7");
                  EXPECT_EQ(Json(outer), R"({"middle":{"inner":{"number":7}},"chosen":{"number":7}})");
              }),
              "");
}

struct Base {
    int number = 3;
};
struct Derived : Base {
    const Base* self = this;
};
VEXA_DESCRIBE(Base, number)
VEXA_DESCRIBE_CLASS(Derived)
{
    about.Base<Base>();
    about.Attrib("self", &Derived::self);
}

TEST(Nesting, ABaseAtTheAddressOfItsOwnerIsNotTakenForIt)
{
    const Derived derived;
    EXPECT_EQ(Json(derived), R"({"number":3,"self":{"number":3}})");
}

// Reading

struct Chain {
    int value = 0;
    std::unique_ptr<Chain> next;
};
VEXA_DESCRIBE(Chain, value, next)

std::size_t LengthOf(const Chain& chain)
{
    std::size_t length = 1;
    for (const Chain* link = chain.next.get(); link != nullptr; link = link->next.get())
        ++length;
    return length;
}

TEST(Nesting, AsDeepAsAllowedIsRead)
{
    Chain chain;
    EXPECT_EQ(FromJson(chain, JsonOfLinks(MAX_NESTING_DEPTH)), 0);
    EXPECT_EQ(Json(chain), JsonOfLinks(MAX_NESTING_DEPTH));
}

TEST(Nesting, DeeperTextIsNotReadFurther)
{
    for (const std::size_t length : {MAX_NESTING_DEPTH + 1, 100000UL}) {
        Chain chain;
        EXPECT_EQ(FromJson(chain, JsonOfLinks(length)), TOO_DEEP);
        EXPECT_EQ(chain.value, 1);
        EXPECT_EQ(LengthOf(chain), MAX_NESTING_DEPTH) << "what was read stays";
    }
}

struct Tree {
    std::list<Tree> children;
};
VEXA_DESCRIBE(Tree, children)

TEST(Nesting, ContainersCountAsLevelsInTextToo)
{
    // Each tree and each list of children is a level.
    const auto nested = [](std::size_t trees) {
        std::string text;
        for (std::size_t i = 1; i < trees; ++i)
            text += "{\"children\":[";
        text += "{\"children\":[]}";
        for (std::size_t i = 1; i < trees; ++i)
            text += "]}";
        return text;
    };
    Tree tree;
    EXPECT_EQ(FromJson(tree, nested(MAX_NESTING_DEPTH / 2)), 0);
    EXPECT_EQ(Json(tree), nested(MAX_NESTING_DEPTH / 2));
    EXPECT_EQ(FromJson(tree, nested(MAX_NESTING_DEPTH / 2 + 1)), TOO_DEEP);
}

TEST(Nesting, NeitherDeepBracketsNorDeepBracesEndTheProcess)
{
    Tree tree;
    std::vector<std::vector<int>> lists;
    EXPECT_EQ(FromJson(tree, std::string(100000, '{')), 674);
    EXPECT_EQ(FromJson(tree, std::string(100000, '[')), 663);
    EXPECT_EQ(FromJson(lists, std::string(100000, '[')), 888) << "the third bracket stands where a comma should";
    std::string text;
    for (int i = 0; i < 100000; ++i)
        text += "{\"children\":[";
    EXPECT_EQ(FromJson(tree, text), TOO_DEEP);
}

TEST(Nesting, ManyValuesSideBySideAreNotDeep)
{
    Tree tree;
    std::string text = "{\"children\":[{\"children\":[]}";
    for (int i = 1; i < 5000; ++i)
        text += ",{\"children\":[]}";
    EXPECT_EQ(FromJson(tree, text + "]}"), 0);
    EXPECT_EQ(tree.children.size(), 5000U);
    EXPECT_EQ(Json(tree), text + "]}");
}

} // namespace
