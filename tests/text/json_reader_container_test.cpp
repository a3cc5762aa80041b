// Reading arrays: into sequences, into fixed arrays, and by insertion.

#include <vexa/json.h>

#include <array>
#include <bitset>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/described_container.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CRefrence;
using vexa::FromJson;
using vexa::RefOf;

/// Reads the text and compares what the target then holds.
template<class T>
void ExpectReads(T& target, const std::string& text, const std::string& expected, int code = 0)
{
    EXPECT_EQ(FromJson(target, text), code) << text;
    EXPECT_EQ(Json(target), expected) << text;
}

// Sequences

TEST(JsonReaderContainer, ReplacesTheElementsOfASequence)
{
    std::vector<int> numbers{9, 9};
    ExpectReads(numbers, "[1,2,3]", "[1,2,3]");
    std::list<std::string> texts{"x"};
    ExpectReads(texts, R"(["a","b"])", R"(["a","b"])");
    std::deque<bool> truths{true};
    ExpectReads(truths, "[false,true]", "[false,true]");
    std::vector<Address> addresses(3);
    ExpectReads(addresses, R"([{"city":"Oslo"},{"city":"Rome"}])", R"([{"city":"Oslo"},{"city":"Rome"}])");
    std::vector<std::vector<int>> lists;
    ExpectReads(lists, "[[1,2],[],[3]]", "[[1,2],[],[3]]");
    std::vector<vexa::MayNull<int>> wrapped;
    ExpectReads(wrapped, "[1,2]", "[1,2]");
}

TEST(JsonReaderContainer, EmptiesASequenceForEmptyBrackets)
{
    std::vector<int> numbers{9};
    ExpectReads(numbers, "[]", "[]");
    numbers = {9};
    ExpectReads(numbers, " [ \t\r\n] x", "[]");
}

TEST(JsonReaderContainer, LeavesANullContainerNullForEmptyBrackets)
{
    vexa::MayNull<std::vector<int>> wrapped(std::vector<int>{1});
    EXPECT_EQ(FromJson(wrapped, "[]"), 0);
    EXPECT_FALSE(wrapped.has_value());
    auto pointer = std::make_unique<std::vector<int>>();
    EXPECT_EQ(FromJson(pointer, "[]"), 0);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(FromJson(pointer, "[1]"), 0);
    EXPECT_EQ(Json(pointer), "[1]");
}

TEST(JsonReaderContainer, MakesEachPointeeOfASequenceOfPointers)
{
    std::vector<std::unique_ptr<int>> numbers;
    ExpectReads(numbers, "[1,2]", "[1,2]");
    ExpectReads(numbers, "[3,4", "[3,4]", 873);
    std::vector<Address*> addresses{new Address{"Rome"}};
    ExpectReads(addresses, R"([{"city":"Oslo"}])", R"([{"city":"Oslo"}])");
    RefOf(addresses).Clear();
}

TEST(JsonReaderContainer, KeepsTheElementThatFailed)
{
    std::vector<std::string> texts;
    ExpectReads(texts, R"(["a","b)", R"(["a",""])", 596);
    std::vector<bool*> truths;
    EXPECT_EQ(FromJson(truths, "[true,maybe]"), 622);
    EXPECT_EQ(truths.size(), 2U);
    RefOf(truths).Clear();
}

TEST(JsonReaderContainer, AppendsInEverySequenceCode)
{
    vexa::CContainerInfor infor = SequenceContainer<std::vector<int>>("Numbers", Plain(DT_INT));
    for (const unsigned code : {61U, 62U, 65U, 78U}) {
        std::vector<int> numbers{9};
        EXPECT_EQ(FromJson(CRefrence(Plain(code, &infor), &numbers), "[1,2]"), 0) << code;
        EXPECT_EQ(numbers, (std::vector<int>{1, 2})) << code;
    }
}

TEST(JsonReaderContainer, RefusesASequenceThatCannotBeAppendedTo)
{
    vexa::CContainerInfor infor = SequenceContainer<std::vector<int>>("Numbers", Plain(DT_INT));
    infor.Append = nullptr;
    std::vector<int> numbers;
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_SEQUENCE_A, &infor), &numbers), "[1]"), 997);
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_SEQUENCE_A, &infor), &numbers), "[]"), 0);
}

// Fixed arrays

struct Guarded {
    int before = 7;
    int slots[3] = {8, 8, 8};
    int after = 9;
};
VEXA_DESCRIBE(Guarded, before, slots, after)

TEST(JsonReaderContainer, ReadsAFixedArraySlotBySlot)
{
    std::array<int, 3> slots{{7, 8, 9}};
    ExpectReads(slots, "[1,2,3]", "[1,2,3]");
    ExpectReads(slots, "[4]", "[4,0,0]");
    ExpectReads(slots, "[]", "[0,0,0]");
    int grid[2][2] = {{9, 9}, {9, 9}};
    ExpectReads(grid, "[[1,2],[3,4]]", "[[1,2],[3,4]]");
    std::array<std::string, 2> texts{{"x", "y"}};
    ExpectReads(texts, R"(["a"])", R"(["a",""])");
    std::array<std::unique_ptr<Address>, 2> addresses;
    addresses[1] = std::make_unique<Address>();
    ExpectReads(addresses, R"([{"city":"Oslo"}])", R"([{"city":"Oslo"},])");
}

TEST(JsonReaderContainer, RefusesAnElementTooManyForAFixedArray)
{
    Guarded guarded;
    ExpectReads(guarded, R"({"before":7,"after":9,"slots":[1,2,3,4]})", R"({"before":7,"slots":[1,2,3],"after":9})",
                888);
    std::array<int, 2> slots{};
    ExpectReads(slots, "[1,2,]", "[1,2]", 888);
    ExpectReads(slots, "[1,2,", "[1,2]", 891);
    ExpectReads(slots, "[1,2, ", "[1,2]", 842);
    std::array<std::array<int, 1>, 1> inner{};
    ExpectReads(inner, "[[1,2]]", "[[1]]", 888);
}

TEST(JsonReaderContainer, BeginsAFixedArrayAnewForARepeatedKey)
{
    Guarded guarded;
    ExpectReads(guarded, R"({"slots":[1,2],"slots":[3]})", R"({"before":0,"slots":[3,2,0],"after":0})");
}

TEST(JsonReaderContainer, ReadsACharacterArrayAsNumbersOnly)
{
    std::array<char, 3> text{{'x', 'y', 'z'}};
    ExpectReads(text, "[97,98]", "[97,98,0]");
    ExpectReads(text, R"("ab")", "[0,0,0]", 800);
}

TEST(JsonReaderContainer, CannotReadBits)
{
    std::bitset<3> bits(7);
    EXPECT_EQ(FromJson(bits, "[1,0]"), 997);
    EXPECT_TRUE(bits.none()) << "it was cleared";
    bits = 7;
    EXPECT_EQ(FromJson(bits, "[]"), 0);
    EXPECT_TRUE(bits.none());
    EXPECT_EQ(FromJson(bits, "101"), 800);
}

TEST(JsonReaderContainer, AppendsToAnythingThatIsNotAssociativeAndCanBeAppendedTo)
{
    const vexa::CContainerInfor infor = SequenceContainer<std::vector<int>>("Numbers", Plain(DT_INT));
    for (const unsigned code : {DT_BITSET, DT_ARRAY}) {
        std::vector<int> numbers{9};
        EXPECT_EQ(FromJson(CRefrence(Plain(code, &infor), &numbers), "[1,2,3]"), 0) << code;
        EXPECT_EQ(numbers, (std::vector<int>{1, 2, 3})) << code;
    }
}

// Insertion

TEST(JsonReaderContainer, InsertsIntoAssociativeContainers)
{
    std::set<std::string> texts{"x"};
    ExpectReads(texts, R"(["b","a","b"])", R"(["a","b"])");
    std::multiset<int> numbers;
    ExpectReads(numbers, "[2,1,2]", "[1,2,2]");
    std::map<std::string, int> scores{{"x", 1}};
    ExpectReads(scores, R"([{"first":"b","second":2},{"first":"a","second":1}])",
                R"([{"first":"a","second":1},{"first":"b","second":2}])");
    std::multimap<int, bool> flags;
    ExpectReads(flags, R"([{"first":1,"second":true},{"first":1}])",
                R"([{"first":1,"second":true},{"first":1,"second":false}])");
    std::unordered_map<int, std::string> names;
    ExpectReads(names, R"([{"second":"a","first":5}])", R"([{"first":5,"second":"a"}])");
    std::map<int, std::vector<std::string>> lists;
    ExpectReads(lists, R"([{"first":1,"second":["a","b"]},{"first":2,"second":["c"]}])",
                R"([{"first":1,"second":["a","b"]},{"first":2,"second":["c"]}])");
}

TEST(JsonReaderContainer, BeginsEveryInsertedElementEmpty)
{
    std::map<std::string, std::string> names;
    ExpectReads(names, R"([{"first":"a long key, not kept inline","second":"s"},{"first":"b"},{"second":"t"}])",
                R"([{"first":"","second":"t"},{"first":"a long key, not kept inline","second":"s"},)"
                R"({"first":"b","second":""}])");
}

TEST(JsonReaderContainer, KeepsTheFirstOfTwoEqualKeys)
{
    std::map<int, std::string> names;
    ExpectReads(names, R"([{"first":1,"second":"a"},{"first":1,"second":"b"},{"first":2,"second":"c"}])",
                R"([{"first":1,"second":"a"},{"first":2,"second":"c"}])");
}

TEST(JsonReaderContainer, DoesNotInsertTheElementThatFailed)
{
    std::set<std::string> texts;
    ExpectReads(texts, R"(["a","b)", R"(["a"])", 596);
    ExpectReads(texts, R"(["a","b")", R"(["a","b"])", 873);
    std::map<int, bool> flags;
    ExpectReads(flags, R"([{"first":1},{"first":2,"second":maybe}])", R"([{"first":1,"second":false}])", 622);
}

TEST(JsonReaderContainer, GivesEachPointeeToTheContainer)
{
    std::multiset<int*> numbers;
    EXPECT_EQ(FromJson(numbers, "[1,1,2]"), 0);
    ASSERT_EQ(numbers.size(), 3U) << "each element has a pointee of its own";
    int sum = 0;
    for (const int* number : numbers)
        sum += *number;
    EXPECT_EQ(sum, 4);
    EXPECT_EQ(FromJson(numbers, "[5"), 873);
    ASSERT_EQ(numbers.size(), 1U);
    EXPECT_EQ(**numbers.begin(), 5);
    RefOf(numbers).Clear();
}

TEST(JsonReaderContainer, GivesEachPointeeToAContainerThatReleasesItself)
{
    std::set<std::unique_ptr<Address>> addresses;
    EXPECT_EQ(FromJson(addresses, R"([{"city":"Oslo"},{"city":"Rome"}])"), 0);
    std::set<std::string> cities;
    for (const auto& address : addresses)
        cities.insert(address->city);
    EXPECT_EQ(cities, (std::set<std::string>{"Oslo", "Rome"}));
    EXPECT_EQ(FromJson(addresses, R"([{"city":"Oslo"},{"city":"Ro)"), 596);
    EXPECT_EQ(addresses.size(), 1U);
}

TEST(JsonReaderContainer, KeepsNoPointeeThatTheContainerWasGiven)
{
    const vexa::CContainerInfor infor = AssociativeContainer<std::set<int*>>("Pointers", OwnedPointer(DT_INT));
    std::set<int*> numbers;
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_ASSOCIATIVE_A, &infor), &numbers), "[1,2]"), 0);
    ASSERT_EQ(numbers.size(), 2U);
    int sum = 0;
    for (void* number : numbers) {
        sum += *static_cast<int*>(number);
        Plain(DT_INT).Delete(number);
    }
    EXPECT_EQ(sum, 3);
}

TEST(JsonReaderContainer, GivesThePointeesOfPairsToTheMap)
{
    std::map<int, Address*> raw;
    ExpectReads(raw, R"([{"first":1,"second":{"city":"Oslo"}},{"first":1,"second":{"city":"Rome"}},{"first":2}])",
                R"([{"first":1,"second":{"city":"Oslo"}},{"first":2}])");
    ExpectReads(raw, R"([{"first":3,"second":{"city":"Bonn"}},{"first":4,"second":{"city":x}}])",
                R"([{"first":3,"second":{"city":"Bonn"}}])", 511);
    RefOf(raw).Clear();
    std::map<int, std::unique_ptr<Address>> owning;
    ExpectReads(owning, R"([{"first":1,"second":{"city":"Oslo"}},{"first":1,"second":{"city":"Rome"}},{"first":2}])",
                R"([{"first":1,"second":{"city":"Oslo"}},{"first":2}])");
}

TEST(JsonReaderContainer, MakesOneScratchElementAndReleasesItAlways)
{
    static int s_alive = 0;
    static int s_made = 0;
    struct Counted {
        Counted() { ++s_alive, ++s_made; }
        Counted(const Counted&) { ++s_alive; }
        ~Counted() { --s_alive; }
        int number = 0;
        bool operator<(const Counted& other) const { return number < other.number; }
    };
    const vexa::CCustomBasicTypeInfor custom = [] {
        vexa::CCustomBasicTypeInfor infor;
        infor.SetBaseTypeInfor(
            "Counted", sizeof(Counted), []() -> void* { return new Counted(); },
            [](void* object) { delete static_cast<Counted*>(object); }, 0);
        infor.Underlying = Plain(DT_INT);
        return infor;
    }();
    const vexa::CContainerInfor infor =
        AssociativeContainer<std::set<Counted>>("Counted", Plain(DT_CUSTOM_BASIC, &custom));
    std::set<Counted> counted;
    EXPECT_EQ(FromJson(CRefrence(Plain(DT_ASSOCIATIVE_A, &infor), &counted), "[1]"), 656);
    EXPECT_EQ(s_made, 1);
    EXPECT_EQ(s_alive, 0);
}

TEST(JsonReaderContainer, InsertsInEveryAssociativeCode)
{
    const vexa::CContainerInfor infor = AssociativeContainer<std::multiset<int>>("Numbers", Plain(DT_INT));
    for (const unsigned code : {81U, 82U, 85U, 98U}) {
        std::multiset<int> numbers{9};
        EXPECT_EQ(FromJson(CRefrence(Plain(code, &infor), &numbers), "[2,1]"), 0) << code;
        EXPECT_EQ(numbers, (std::multiset<int>{1, 2})) << code;
    }
}

TEST(JsonReaderContainer, RefusesWhatCannotBeInserted)
{
    vexa::CContainerInfor infor = AssociativeContainer<std::multiset<int>>("Numbers", Plain(DT_INT));
    std::multiset<int> numbers;
    const CRefrence ref(Plain(DT_ASSOCIATIVE_A, &infor), &numbers);
    infor.ElementType = Plain(DT_VOID);
    EXPECT_EQ(FromJson(CRefrence(ref), "[1]"), 997) << "no element can be made";
    infor.ElementType = vexa_test::MayNull<int>(DT_INT);
    EXPECT_EQ(FromJson(CRefrence(ref), "[1]"), 997) << "no wrapper can be made";
    infor.Insert = nullptr;
    infor.ElementType = Plain(DT_INT);
    EXPECT_EQ(FromJson(CRefrence(ref), "[1]"), 997) << "nothing takes the element";
    EXPECT_TRUE(numbers.empty());
}

} // namespace
