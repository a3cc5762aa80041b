#include <atomic>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// What may not be written through or changed, values inside atomics, and enumerations of signed bytes.

namespace held {

struct Node {
    int value = 0;
    Node* parent = nullptr;
    const Node* root = nullptr;
    int* number = nullptr;
    const std::string fixed = "fixed";
    const std::vector<int> numbers{1};
    Node* child = nullptr;
    Node() = default;
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    ~Node() { delete child; }
};
VEXA_DESCRIBE_CLASS(Node)
{
    about.Attrib("value", &Node::value);
    about.Attrib("parent", &Node::parent).NotOwned();
    about.Attrib("root", &Node::root);
    about.Attrib("number", &Node::number).NotOwned();
    about.Attrib("fixed", &Node::fixed);
    about.Attrib("numbers", &Node::numbers);
    about.Attrib("child", &Node::child);
}

enum class Color : unsigned short { RED = 1, GREEN = 500 };
VEXA_DESCRIBE_ENUM(Color, RED, GREEN)
enum class Sign : std::int8_t { MINUS = -128, NONE = 0, PLUS = 127 };
VEXA_DESCRIBE_ENUM(Sign, MINUS, NONE, PLUS)

struct Atoms {
    std::atomic<bool> isOpen{true};
    std::atomic<double> level{1.5};
    std::atomic<long long> count{-1};
    std::atomic<unsigned char> byte{1};
    std::atomic<Color> color{Color::RED};
};
VEXA_DESCRIBE(Atoms, isOpen, level, count, byte, color)

struct Signs {
    Sign sign = Sign::NONE;
    std::vector<Sign> signs;
    std::map<Sign, int> counts;
    std::optional<Sign> maybe;
    std::unique_ptr<Sign> owned;
    vexa::MayNull<Sign> wrapped;
};
VEXA_DESCRIBE(Signs, sign, signs, counts, maybe, owned, wrapped)

} // namespace held

namespace {

/// Without excerpts.
template<class T>
std::string Read(T& value, const std::string& text, bool isTransactional = false)
{
    vexa::CReadPolicy policy;
    policy.Transactional = isTransactional;
    const std::string lines = test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
    std::string kept;
    for (std::size_t begin = 0, end; begin < lines.size(); begin = end + 1) {
        end = lines.find('\n', begin);
        const std::string line = lines.substr(begin, end - begin);
        kept += line.substr(0, line.find(" excerpt=")) + "\n";
    }
    return kept;
}

TEST(ReadHeld, WhatIsNotOwnedIsNeverMadeFreedOrWrittenThrough)
{
    for (const bool isTransactional : {false, true}) {
        held::Node other;
        int number = 5;
        held::Node node;
        EXPECT_EQ("33 11+1 1:12 path=parent pointer=/parent class=held::Node attrib=parent\n"
                  "33 33+1 1:34 path=root pointer=/root class=held::Node attrib=root\n"
                  "33 57+1 1:58 path=number pointer=/number class=held::Node attrib=number\n",
                  Read(node, R"({"parent": {"value": 7}, "root": {"value": 8}, "number": 9})", isTransactional));
        EXPECT_EQ(nullptr, node.parent);
        node.parent = &other;
        node.root = &other;
        node.number = &number;
        EXPECT_NE("", Read(node, R"({"parent": {"value": 7}, "root": {"value": 8}, "number": 9})", isTransactional));
        EXPECT_EQ(0, other.value);
        EXPECT_EQ(5, number);
        EXPECT_NE("", Read(node, R"({"parent": null, "number": null, "value": "x"})", true));
        EXPECT_EQ(&other, node.parent);
        EXPECT_EQ(&number, node.number);
        EXPECT_EQ("", Read(node, R"({"parent": null, "root": null, "number": null})", isTransactional));
        EXPECT_EQ(nullptr, node.parent);
        EXPECT_EQ(nullptr, node.root);
        EXPECT_EQ(nullptr, node.number);
    }
}

TEST(ReadHeld, ConstMembersAreNotRead)
{
    held::Node node;
    EXPECT_EQ("33 10+3 1:11 path=fixed pointer=/fixed class=held::Node attrib=fixed\n"
              "33 26+1 1:27 path=numbers pointer=/numbers class=held::Node attrib=numbers\n",
              Read(node, R"({"fixed": "x", "numbers": [2], "value": 3})"));
    EXPECT_EQ("fixed", node.fixed);
    EXPECT_EQ(std::vector<int>{1}, node.numbers);
    EXPECT_EQ(3, node.value);
}

TEST(ReadHeld, AnOwnedPointerGetsANewObjectOnce)
{
    held::Node node;
    EXPECT_EQ("", Read(node, R"({"child": {"value": 1, "child": {"value": 2}}})"));
    const held::Node* const child = node.child;
    EXPECT_EQ("", Read(node, R"({"child": {"child": {"value": 3}}})", true));
    EXPECT_EQ(child, node.child);
    EXPECT_EQ(3, node.child->child->value);
    EXPECT_NE("", Read(node, R"({"child": {"child": null, "value": null}})", true));
    EXPECT_EQ(3, node.child->child->value);
    EXPECT_EQ("", Read(node, R"({"child": null})"));
    EXPECT_EQ(nullptr, node.child);
}

TEST(ReadHeld, AtomicsTakeTheirValue)
{
    held::Atoms atoms;
    EXPECT_EQ("", Read(atoms, R"({"isOpen": false, "level": -0.25, "count": 9223372036854775807, "byte": 255,
        "color": "GREEN"})"));
    EXPECT_FALSE(atoms.isOpen);
    EXPECT_EQ(-0.25, atoms.level);
    EXPECT_EQ(9223372036854775807LL, atoms.count);
    EXPECT_EQ(255, atoms.byte);
    EXPECT_EQ(held::Color::GREEN, atoms.color.load());
    EXPECT_EQ(R"({"isOpen":false,"level":-0.25,"count":9223372036854775807,"byte":255,"color":"GREEN"})",
              vexa::WriteJson(atoms));
    EXPECT_EQ("20 11+1 1:12 path=isOpen pointer=/isOpen class=held::Atoms attrib=isOpen expected=true or false "
              "found=a number\n"
              "21 23+5 1:24 path=level pointer=/level class=held::Atoms attrib=level "
              "expected=a number that a double can hold found=1e400\n"
              "21 38+3 1:39 path=byte pointer=/byte class=held::Atoms attrib=byte expected=0 to 255 found=256\n"
              "27 52+6 1:53 path=color pointer=/color class=held::Atoms attrib=color "
              "expected=one of \"RED\", \"GREEN\" found=\"BLUE\"\n",
              Read(atoms, R"({"isOpen": 1, "level": 1e400, "byte": 256, "color": "BLUE"})"));
    EXPECT_NE("", Read(atoms, R"({"isOpen": true, "level": 1, "count": 1, "byte": 1, "color": 1, "x": 1})", true));
    EXPECT_EQ(R"({"isOpen":false,"level":-0.25,"count":9223372036854775807,"byte":255,"color":"GREEN"})",
              vexa::WriteJson(atoms));
}

TEST(ReadHeld, SignedBytesHaveNames)
{
    constexpr char TEXT[] = R"({"sign":"MINUS","signs":["PLUS",5,"MINUS"],"counts":{"MINUS":1,"3":2,"PLUS":3},)"
                            R"("maybe":"PLUS","owned":"MINUS","wrapped":"NONE"})";
    held::Signs signs;
    ASSERT_EQ("", Read(signs, TEXT));
    EXPECT_EQ(held::Sign::MINUS, signs.sign);
    EXPECT_EQ(2, signs.counts.at(static_cast<held::Sign>(3)));
    EXPECT_EQ(held::Sign::MINUS, *signs.owned);
    EXPECT_EQ(TEXT, vexa::WriteJson(signs));
    EXPECT_EQ("27 9+6 1:10 path=sign pointer=/sign class=held::Signs attrib=sign "
              "expected=one of \"MINUS\", \"NONE\", \"PLUS\" found=\"PLUZ\" nearest=PLUS\n"
              "21 27+3 1:28 path=signs[0] pointer=/signs/0 expected=-128 to 127 found=128\n"
              "20 32+4 1:33 path=signs[1] pointer=/signs/1 expected=one of \"MINUS\", \"NONE\", \"PLUS\" "
              "found=true or false\n",
              Read(signs, R"({"sign": "PLUZ", "signs": [128, true]})", true));
    EXPECT_EQ(TEXT, vexa::WriteJson(signs));
    EXPECT_EQ("", Read(signs, R"({"maybe": null, "owned": null, "wrapped": null, "signs": [], "counts": {}})"));
    EXPECT_EQ(R"({"sign":"MINUS","signs":[],"counts":{},"maybe":null,"owned":null,"wrapped":null})",
              vexa::WriteJson(signs));
}

} // namespace
