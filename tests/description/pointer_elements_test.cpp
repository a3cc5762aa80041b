// Containers whose elements are pointers: what is read is freed exactly once, however it goes away. A sanitizer sees
// the rest.

#include <array>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace pointer_elements {

/// Counts its objects, so that a leak is seen without a sanitizer too.
struct Counted {
    Counted() { ++s_alive; }
    Counted(const Counted& other) : x(other.x) { ++s_alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --s_alive; }
    int x = 0;
    static int s_alive;
};
int Counted::s_alive = 0;
VEXA_DESCRIBE(Counted, x)

/// A described class that looks like a container and frees its pointers itself.
struct OwnList {
    using value_type = Counted*;
    using iterator = std::vector<Counted*>::iterator;
    OwnList() = default;
    OwnList(OwnList&& other) noexcept : list(std::move(other.list)) { other.list.clear(); }
    OwnList(const OwnList&) = delete;
    OwnList& operator=(const OwnList&) = delete;
    ~OwnList()
    {
        for (Counted* counted : list)
            delete counted;
    }
    iterator begin() { return list.begin(); }
    iterator end() { return list.end(); }
    std::vector<Counted*> list;
};
VEXA_DESCRIBE(OwnList, list)

} // namespace pointer_elements

namespace {

using pointer_elements::Counted;
using pointer_elements::OwnList;
using vexa_test::Json;

/// Reads the text twice, clears, and reads it once more into an object that is deleted through its descriptor.
template<class Container>
void ExpectReadsAndFrees(const std::string& text, int alive, const std::string& expected)
{
    Container container{};
    ASSERT_EQ(vexa::FromJson(container, text), 0);
    EXPECT_EQ(Json(container), expected);
    EXPECT_EQ(Counted::s_alive, alive);
    ASSERT_EQ(vexa::FromJson(container, text), 0);
    EXPECT_EQ(Counted::s_alive, alive) << "what was there before is freed";
    vexa::RefOf(container).Clear();
    EXPECT_EQ(Counted::s_alive, 0);

    const vexa::CGnlTypeInfor& type = vexa::TypeInforOf<Container>();
    void* made = type.New();
    vexa::CRefrence ref(type, made);
    ASSERT_EQ(vexa::FromJson(ref, text), 0);
    EXPECT_EQ(Counted::s_alive, alive);
    type.Delete(made);
    EXPECT_EQ(Counted::s_alive, 0) << "deleted with its container";
}

/// The last element is broken: what was read before it stays, the rest is gone.
template<class Container>
void ExpectFreesAfterFailure(const std::string& text, int code, int alive)
{
    Container container{};
    EXPECT_EQ(vexa::FromJson(container, text), code);
    EXPECT_EQ(Counted::s_alive, alive);
    vexa::RefOf(container).Clear();
    EXPECT_EQ(Counted::s_alive, 0);
}

constexpr char TWO[] = R"([{"x":1},{"x":2}])";
constexpr char TWO_UNDER_ONE_KEY[] = R"([{"first":1,"second":{"x":1}},{"first":1,"second":{"x":2}}])";
constexpr char ONE_OF_TWO[] = R"([{"first":1,"second":{"x":1}}])";
constexpr char SECOND_BROKEN[] = R"([{"first":1,"second":{"x":1}},{"first":2,"second":{"x":2}])";

TEST(PointerElements, OfAVector) { ExpectReadsAndFrees<std::vector<Counted*>>(TWO, 2, TWO); }
TEST(PointerElements, OfAVectorOfUniquePointers)
{
    ExpectReadsAndFrees<std::vector<std::unique_ptr<Counted>>>(TWO, 2, TWO);
}
TEST(PointerElements, OfAnArray)
{
    using Array = std::array<Counted*, 2>;
    ExpectReadsAndFrees<Array>(TWO, 2, TWO);
}
TEST(PointerElements, OfAVectorOfVectors)
{
    ExpectReadsAndFrees<std::vector<std::vector<Counted*>>>(R"([[{"x":1}],[{"x":2}]])", 2, R"([[{"x":1}],[{"x":2}]])");
}

TEST(PointerElements, OfASet)
{
    // A set of pointers is ordered by addresses: the order of the elements is not ours to expect.
    std::set<Counted*> set;
    ASSERT_EQ(vexa::FromJson(set, TWO), 0);
    EXPECT_EQ(set.size(), 2U);
    EXPECT_EQ(Counted::s_alive, 2);
    vexa::RefOf(set).Clear();
    EXPECT_EQ(Counted::s_alive, 0);
    ExpectReadsAndFrees<std::set<Counted*>>(R"([{"x":1}])", 1, R"([{"x":1}])");
}

TEST(PointerElements, OfASetOfUniquePointers)
{
    ExpectReadsAndFrees<std::set<std::unique_ptr<Counted>>>(R"([{"x":1}])", 1, R"([{"x":1}])");
}

/// Orders what the pointers designate, so that a second one of a value is refused.
struct ByValue {
    template<class Pointer>
    bool operator()(const Pointer& left, const Pointer& right) const
    {
        return left->x < right->x;
    }
};

TEST(PointerElements, OfASetThatRefusesADuplicate)
{
    constexpr char TWICE[] = R"([{"x":1},{"x":1},{"x":2},{"x":2}])";
    ExpectReadsAndFrees<std::set<vexa::NonNullPointer<Counted>, ByValue>>(TWICE, 2, TWO);
    ExpectReadsAndFrees<std::set<std::unique_ptr<Counted>, ByValue>>(TWICE, 2, TWO);
    ExpectReadsAndFrees<std::set<Counted*, ByValue>>(TWICE, 2, TWO);
    ExpectReadsAndFrees<std::map<int, vexa::NonNullPointer<Counted>>>(TWO_UNDER_ONE_KEY, 1, ONE_OF_TWO);
    ExpectReadsAndFrees<std::multiset<vexa::NonNullPointer<Counted>, ByValue>>(TWICE, 4, TWICE);
}

TEST(PointerElements, OfAMapByKey)
{
    ExpectReadsAndFrees<std::map<int, Counted*>>(TWO_UNDER_ONE_KEY, 1, ONE_OF_TWO);
    ExpectReadsAndFrees<std::unordered_map<int, Counted*>>(TWO_UNDER_ONE_KEY, 1, ONE_OF_TWO);
    ExpectReadsAndFrees<std::multimap<int, Counted*>>(TWO_UNDER_ONE_KEY, 2, TWO_UNDER_ONE_KEY);
}

TEST(PointerElements, OfAMapOfUniquePointers)
{
    ExpectReadsAndFrees<std::map<int, std::unique_ptr<Counted>>>(TWO_UNDER_ONE_KEY, 1, ONE_OF_TWO);
}

TEST(PointerElements, InTheContainersOfAMap)
{
    const std::string text = R"([{"first":1,"second":[{"x":1}]},{"first":1,"second":[{"x":2}]}])";
    ExpectReadsAndFrees<std::map<int, std::vector<Counted*>>>(text, 1, R"([{"first":1,"second":[{"x":1}]}])");
}

TEST(PointerElements, ThatAreKeys)
{
    ExpectReadsAndFrees<std::map<Counted*, int>>(R"([{"first":{"x":1},"second":5}])", 1,
                                                 R"([{"first":{"x":1},"second":5}])");
}

TEST(PointerElements, InTheElementsOfASet)
{
    ExpectReadsAndFrees<std::set<std::pair<int, Counted*>>>(ONE_OF_TWO, 1, ONE_OF_TWO);
    ExpectReadsAndFrees<std::set<std::vector<Counted*>>>("[[{\"x\":1}]]", 1, "[[{\"x\":1}]]");
}

TEST(PointerElements, OfATextThatBreaksOff)
{
    ExpectFreesAfterFailure<std::vector<Counted*>>(R"([{"x":1},{"x":2])", 722, 2);
    ExpectFreesAfterFailure<std::vector<std::unique_ptr<Counted>>>(R"([{"x":1},{"x":2])", 722, 2);
    ExpectFreesAfterFailure<std::set<Counted*>>(R"([{"x":1},{"x":2])", 722, 1);
    ExpectFreesAfterFailure<std::set<std::unique_ptr<Counted>>>(R"([{"x":1},{"x":2])", 722, 1);
    ExpectFreesAfterFailure<std::map<int, Counted*>>(SECOND_BROKEN, 722, 1);
    ExpectFreesAfterFailure<std::map<int, std::unique_ptr<Counted>>>(SECOND_BROKEN, 722, 1);
    ExpectFreesAfterFailure<std::map<int, std::vector<Counted*>>>(R"([{"first":1,"second":[{"x":1}]],)", 722, 0);
}

TEST(PointerElements, OfAnOwnedContainer)
{
    std::unique_ptr<std::vector<Counted*>> owned;
    ASSERT_EQ(vexa::FromJson(owned, TWO), 0);
    EXPECT_EQ(Counted::s_alive, 2);
    vexa::RefOf(owned).Clear();
    EXPECT_EQ(owned, nullptr);
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(PointerElements, ThatAreNotOwnedAreForgotten)
{
    const Counted counted;
    std::vector<const Counted*> list{&counted};
    EXPECT_EQ(Json(list), R"([{"x":0}])");
    EXPECT_EQ(vexa::FromJson(list, TWO), 965);
    vexa::RefOf(list).Clear();
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(Counted::s_alive, 1);
}

TEST(PointerElements, OfAClassThatLooksLikeAContainerAreItsOwnAffair)
{
    {
        std::vector<OwnList> lists(1);
        lists[0].list.push_back(new Counted());
        vexa::RefOf(lists).Clear();
        EXPECT_EQ(Counted::s_alive, 0);
    }
    std::map<int, OwnList> map;
    ASSERT_EQ(vexa::FromJson(map, R"([{"first":1,"second":{"list":[{"x":1}]}}])"), 0);
    EXPECT_EQ(Counted::s_alive, 1);
    map.clear();
    EXPECT_EQ(Counted::s_alive, 0);
}

} // namespace
