// Reading into an object again and again: what it held before leaves no trace.

#include <vexa/json.h>

#include <array>
#include <deque>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/random_json.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;
using vexa::MayNull;

struct Leaf {
    std::string text;
    MayNull<std::string> maybe;
    MayNull<std::vector<int>> numbers;
    MayNull<int> number;
};
VEXA_DESCRIBE(Leaf, text, maybe, numbers, number)

struct Branch {
    MayNull<Leaf> leaf;
    MayNull<std::vector<Leaf>> leaves;
    MayNull<std::vector<MayNull<std::string>>> texts;
    Leaf plain;
    std::unique_ptr<Leaf> pointed;
};
VEXA_DESCRIBE(Branch, leaf, leaves, texts, plain, pointed)

struct Tree {
    MayNull<Branch> branch;
    std::vector<Branch> branches;
    MayNull<std::map<int, MayNull<std::string>>> named;
    std::map<int, Leaf> leaves;
    MayNull<std::array<std::string, 2>> pair;
    std::array<MayNull<std::string>, 2> maybes;
    std::set<std::string> words;
    MayNull<std::deque<MayNull<Leaf>>> queue;
    Branch inner;
};
VEXA_DESCRIBE(Tree, branch, branches, named, leaves, pair, maybes, words, queue, inner)

struct Other {
    std::unique_ptr<Tree> tree;
    MayNull<Leaf> first;
    MayNull<std::multimap<std::string, Branch>> many;
};
VEXA_DESCRIBE(Other, tree, first, many)

/// What one object holds after a text must be what a fresh one holds, whatever was read before.
template<class T>
void ExpectNoTrace(std::uint64_t seed, int rounds)
{
    Dice dice(seed);
    RandomJson random(dice);
    T kept;
    for (int round = 0; round < rounds; ++round) {
        std::string text = random.Text(vexa::TypeInforOf<T>());
        if (dice.Below(4) == 0) text.resize(dice.Below(text.size()));
        T fresh;
        const int code = FromJson(fresh, text);
        ASSERT_EQ(FromJson(kept, text), code) << text;
        ASSERT_EQ(Json(kept), Json(fresh)) << "seed " << seed << " round " << round << ": " << text;
        ASSERT_EQ(vexa::AsString(kept), vexa::AsString(fresh)) << text;
    }
}

TEST(JsonReread, LeavesNoTraceOfWhatWasReadBefore)
{
    ExpectNoTrace<Leaf>(1, 3000);
    ExpectNoTrace<Branch>(2, 3000);
    ExpectNoTrace<Tree>(3, 2000);
    ExpectNoTrace<Other>(4, 1000);
}

TEST(JsonReread, EmptiesWhatANullHeldAtEveryDepth)
{
    Tree tree;
    tree.branch = Branch();
    tree.branch->leaf = Leaf{"deep", std::string("maybe"), std::vector<int>{1}, 5};
    tree.branch->texts = std::vector<MayNull<std::string>>{std::string("x")};
    EXPECT_EQ(FromJson(tree, R"({"branch":{"leaf":{"maybe":"new"},"texts":["y"]}})"), 0);
    ASSERT_TRUE(tree.branch.has_value());
    EXPECT_EQ(Json(tree.branch), R"({"leaf":{"text":"","maybe":"new"},"texts":["y"],"plain":{"text":""}})");
}

TEST(JsonReread, ARefusedElementLeavesNothingForTheNext)
{
    std::map<int, MayNull<std::string>> named;
    EXPECT_EQ(FromJson(named, R"([{"first":1,"second":"a"},{"first":1,"second":"tok"},{"first":2,"second":"b"},)"
                              R"({"first":2,"second":"gone"},{"first":3}])"),
              0);
    EXPECT_EQ(Json(named), R"([{"first":1,"second":"a"},{"first":2,"second":"b"},{"first":3}])");
    EXPECT_EQ(*named[3], "") << "not even behind the flag";

    std::map<int, Leaf> leaves;
    EXPECT_EQ(FromJson(leaves,
                       R"([{"first":1,"second":{"maybe":"a","numbers":[1]}},)"
                       R"({"first":1,"second":{"maybe":"b","numbers":[2]}},{"first":2,"second":{"numbers":[3]}}])"),
              0);
    EXPECT_EQ(Json(leaves[2]), R"({"text":"","numbers":[3]})");
    EXPECT_EQ(*leaves[2].maybe, "");
}

TEST(JsonReread, ClearingItselfKeepsWhatIsBelowTheFlag)
{
    MayNull<std::string> text(std::string("kept"));
    vexa::CRefrence ref = vexa::RefOf(text);
    ref.Clear();
    EXPECT_EQ(*text, "kept");
    ref.SetNotNull();
    EXPECT_EQ(*text, "kept");
    ref.SetNull();
    EXPECT_EQ(FromJson(ref, " "), 0);
    EXPECT_EQ(*text, "kept") << "nothing was read";
}

} // namespace
