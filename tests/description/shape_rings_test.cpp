// Classes that hold themselves through optionals, shared pointers, variants and tuples: complete whichever is used
// first, on whichever thread, and their walks end.

#include <array>
#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/types.h>

#include "support/captured_log.h"
#include "support/described_text.h"

namespace shape_rings {

/// One ring for each type that is asked for first.
enum Order { CLASS, POINTER, LIST, VARIANT, THREADS };
template<Order ORDER>
struct Leaf;
template<Order ORDER>
struct Node {
    int n = 1;
    std::shared_ptr<Node> next;
    std::vector<std::optional<Node>> children;
    std::optional<std::vector<Node>> kids;
    std::variant<std::monostate, std::shared_ptr<Node>, std::vector<Leaf<ORDER>>> other;
    std::tuple<int, std::vector<Leaf<ORDER>>> pair;
};
template<Order ORDER>
struct Leaf {
    std::optional<std::vector<Node<ORDER>>> parents;
    std::shared_ptr<Leaf> next;
};

} // namespace shape_rings

template<shape_rings::Order ORDER>
struct vexa::Describes<shape_rings::Node<ORDER>> {
    using Node = shape_rings::Node<ORDER>;
    static void Describe(vexa::CDescription<Node>& about) { VEXA_MEMBERS(Node, n, next, children, kids, other, pair) }
};
template<shape_rings::Order ORDER>
struct vexa::Describes<shape_rings::Leaf<ORDER>> {
    using Leaf = shape_rings::Leaf<ORDER>;
    static constexpr const char* NAME = "Leaf";
    static void Describe(vexa::CDescription<Leaf>& about) { VEXA_MEMBERS(Leaf, parents, next) }
};

namespace {

using namespace shape_rings;
using vexa_test::LoggedLines;

/// Names that lead through the whole ring, with those of the classes at their places.
template<Order ORDER>
std::string TypesOf()
{
    std::string names;
    for (const vexa::CAttribInfor& record : vexa::ClassInforOf<Node<ORDER>>().AttribList)
        names += record.TypeInfor.TypeName() + '\n';
    for (const vexa::CAttribInfor& record : vexa::ClassInforOf<Leaf<ORDER>>().AttribList)
        names += record.TypeInfor.TypeName() + '\n';
    return names;
}

template<Order ORDER>
std::string ExpectedTypes()
{
    const std::string node = vexa::TypeInforOf<Node<ORDER>>().TypeName();
    const std::string leaf = vexa::TypeInforOf<Leaf<ORDER>>().TypeName();
    return "int\nstd::shared_ptr<" + node + ">\nstd::vector<std::optional<" + node + ">>\nstd::optional<std::vector<" +
           node + ">>\nstd::variant<vexa::NullType, std::shared_ptr<" + node + ">, std::vector<" + leaf +
           ">>\nstd::tuple<int, std::vector<" + leaf + ">>\nstd::optional<std::vector<" + node +
           ">>\nstd::shared_ptr<" + leaf + ">\n";
}

/// A node with everything inside.
template<Order ORDER>
std::string TextOfFull()
{
    Node<ORDER> node;
    node.next = std::make_shared<Node<ORDER>>();
    node.next->n = 2;
    node.children.resize(2);
    node.children[0].emplace().n = 3;
    node.kids.emplace(1);
    node.other = std::vector<Leaf<ORDER>>(1);
    std::get<1>(node.pair).resize(1);
    std::get<1>(node.pair)[0].parents.emplace(1);
    return vexa_test::Json(node);
}

template<Order ORDER>
void ExpectComplete()
{
    EXPECT_EQ(TypesOf<ORDER>(), ExpectedTypes<ORDER>());
    const std::string empty = "next: NULL, children: [], kids: NULL, other: NULL, pair: [0, []]}";
    EXPECT_EQ(TextOfFull<ORDER>(), R"({"n":1,"next":"{n: 2, )" + empty + R"(","children":["{n: 3, )" + empty +
                                       R"(",],"kids":"[{n: 1, )" + empty +
                                       R"(]","other":"[{parents: NULL, next: NULL}]",)" +
                                       R"("pair":"[0, [{parents: [{n: 1, )" + empty + R"(], next: NULL}]]"})");
}

TEST(ShapeRings, AreCompleteWithTheClassFirst) { ExpectComplete<CLASS>(); }

TEST(ShapeRings, AreCompleteWithAPointerFirst)
{
    EXPECT_EQ(vexa::TypeInforOf<std::shared_ptr<Leaf<POINTER>>>().TypeName(),
              "std::shared_ptr<" + vexa::TypeInforOf<Leaf<POINTER>>().TypeName() + ">");
    ExpectComplete<POINTER>();
}

TEST(ShapeRings, AreCompleteWithAListOfOptionalsFirst)
{
    EXPECT_EQ(vexa::AsString(std::optional<std::vector<Node<LIST>>>()), "NULL");
    ExpectComplete<LIST>();
}

TEST(ShapeRings, AreCompleteWithAVariantFirst)
{
    EXPECT_EQ(vexa::AsString(decltype(Node<VARIANT>::other)()), "NULL");
    ExpectComplete<VARIANT>();
}

TEST(ShapeRings, AreCompleteForThreadsThatComeAtOnce)
{
    constexpr std::size_t COUNT = 8;
    std::array<std::string, COUNT> texts;
    std::atomic<std::size_t> waiting{COUNT};
    std::vector<std::thread> threads;
    for (std::string& text : texts) {
        threads.emplace_back([&waiting, &text] {
            --waiting;
            while (waiting != 0)
                std::this_thread::yield();
            text = TextOfFull<THREADS>();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& text : texts)
        EXPECT_EQ(text, TextOfFull<THREADS>());
    ExpectComplete<THREADS>();
}

struct Link {
    int n = 1;
    std::shared_ptr<Link> next;
};
VEXA_DESCRIBE(Link, n, next)

TEST(ShapeRings, EndWhereAnObjectIsInItself)
{
    Link first;
    first.next = std::make_shared<Link>();
    first.next->n = 2;
    first.next->next = first.next;
    std::string text;
    const std::string log = LoggedLines([&] { text = vexa::AsString(first); });
    first.next->next.reset();
    EXPECT_EQ(text, "\nn: 1\nnext: {n: 2, next: }");
    EXPECT_EQ(log, "Link type is nested in itself or deeper than 1000 levels\n");
}

TEST(ShapeRings, EndBelowAThousandLevels)
{
    Link first;
    Link* last = &first;
    for (int n = 2; n <= 1100; ++n) {
        last->next = std::make_shared<Link>();
        last = last->next.get();
        last->n = n;
    }
    std::string text;
    const std::string log = LoggedLines([&] { text = vexa::AsString(first); });
    std::string expected = "\nn: 1\nnext: ";
    for (int n = 2; n <= 1001; ++n)
        expected += "{n: " + std::to_string(n) + ", next: ";
    EXPECT_EQ(text, expected + std::string(1000, '}'));
    EXPECT_EQ(log, "Link type is nested in itself or deeper than 1000 levels\n");
    while (first.next != nullptr) // without recursion
        first.next = std::shared_ptr<Link>(first.next->next);
}

} // namespace
