// Containers as text: one element a line, or one container a line.

#include <vexa/text.h>

#include <array>
#include <bitset>
#include <list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/text_model.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::AsString;

TEST(RenderContainer, StartsEachElementOfAContainerWithADashOnALineOfItsOwn)
{
    EXPECT_EQ(AsString(std::vector<int>{1, 2}), "\n- 1\n- 2");
    EXPECT_EQ(AsString(std::set<std::string>{"b", "a"}), "\n- a\n- b");
    EXPECT_EQ(AsString(std::list<int>{3}, ASF_TYPE_AND_VALUE), "std::list<int>: \n  - 3");
}

TEST(RenderContainer, OfAnEmptyContainerIsEmpty)
{
    EXPECT_EQ(AsString(std::vector<int>()), "");
    EXPECT_EQ(AsString(std::vector<int>(), ASF_TYPE_AND_VALUE), "std::vector<int>: ");
}

TEST(RenderContainer, BeginsAnObjectInAContainerOnTheLineOfItsDash)
{
    std::vector<Person> people(2);
    people[0] = Ann();
    EXPECT_EQ(AsString(people), "\n- name: Ann"
                                "\n  age: 30"
                                "\n  address: "
                                "\n    city: Oslo"
                                "\n  tags: "
                                "\n    - 1"
                                "\n    - 2"
                                "\n  next: NULL"
                                "\n- name: "
                                "\n  age: 0"
                                "\n  address: "
                                "\n    city: "
                                "\n  tags: "
                                "\n  next: NULL");
}

TEST(RenderContainer, WritesTypesOfObjectsInAContainerInFormatOne)
{
    EXPECT_EQ(AsString(std::vector<Address>{{"Oslo"}}, ASF_TYPE_AND_VALUE),
              "std::vector<Address>: \n  - std::string city: Oslo");
}

TEST(RenderContainer, KeepsAContainerInsideAContainerOnOneLine)
{
    EXPECT_EQ(AsString(std::vector<std::vector<int>>{{1, 2}, {}, {3}}), "\n- - 1- 2\n- \n- - 3");
    EXPECT_EQ(AsString(std::list<std::list<std::list<int>>>{{{1, 2}, {3}}}), "\n- - - 1- 2- - 3");
    EXPECT_EQ(AsString(std::list<std::list<int>>{{1, 2}}, ASF_TYPE_AND_VALUE),
              "std::list<std::list<int>>: \n  - - 1- 2");
}

TEST(RenderContainer, BreaksLinesOfObjectsInsideInnerContainersAfterTheirFirst)
{
    std::vector<std::vector<Person>> groups(1);
    groups[0].resize(2);
    groups[0][0].tags = {5};
    EXPECT_EQ(AsString(groups), "\n- - name: "
                                "\n    age: 0"
                                "\n    address: "
                                "\n      city: "
                                "\n    tags: "
                                "\n      - 5"
                                "\n    next: NULL"
                                "- name: "
                                "\n    age: 0"
                                "\n    address: "
                                "\n      city: "
                                "\n    tags: "
                                "\n    next: NULL");
}

TEST(RenderContainer, WritesAMapAsItsPairs)
{
    EXPECT_EQ(AsString(std::map<std::string, int>{{"a", 1}, {"b", 2}}),
              "\n- first: a\n  second: 1\n- first: b\n  second: 2");
}

TEST(RenderContainer, WritesNullElements)
{
    int one = 1;
    std::list<const int*> pointers{nullptr, &one, nullptr};
    EXPECT_EQ(AsString(pointers), "\n- NULL\n- 1\n- NULL");
}

struct Codes {
    char name[4] = {'a', 'b', 0, 'd'};
    std::array<char, 2> full{{'x', 'y'}};
    unsigned char bytes[2] = {'x', 'y'};
};
VEXA_DESCRIBE(Codes, name, full, bytes)

TEST(RenderContainer, WritesACharacterArrayAsTextUpToItsFirstZero)
{
    EXPECT_EQ(AsString(std::array<char, 4>{{'a', 'b', 0, 0}}), "ab");
    EXPECT_EQ(AsString(std::array<char, 4>{{'a', 'b', 0, 'c'}}), "ab");
    EXPECT_EQ(AsString(std::array<char, 2>{{0, 'a'}}), "");
    EXPECT_EQ(AsString(std::array<char, 2>{{0, 'a'}}, ASF_TYPE_AND_VALUE), "std::array<char>: ");
}

TEST(RenderContainer, WritesAllCharactersOfAnArrayWithoutZero)
{
    EXPECT_EQ(AsString(std::array<char, 4>{{'a', 'b', 'c', 'd'}}), "abcd");
}

TEST(RenderContainer, KeepsACharacterArrayOnTheLineOfItsName)
{
    EXPECT_EQ(AsString(Codes()), "\nname: ab\nfull: xy\nbytes: \n  - 120\n  - 121");
    EXPECT_EQ(AsString(std::vector<std::array<char, 2>>{{{'x', 'y'}}, {{'z', 0}}}), "\n- xy\n- z");
}

TEST(RenderContainer, WritesAnArrayOfPointersToCharactersElementByElement)
{
    const char letter = 'q';
    EXPECT_EQ(AsString(std::array<std::unique_ptr<char>, 2>{{std::make_unique<char>(letter), nullptr}}),
              "\n- q\n- NULL");
}

TEST(RenderContainer, WritesTheBitsOfABitSetWithoutSeparator)
{
    std::bitset<3> bits;
    bits[0] = bits[2] = true;
    EXPECT_EQ(AsString(bits), "101");
    bits[1] = true;
    bits[2] = false;
    EXPECT_EQ(AsString(bits), "110") << "the first bit comes first";
    EXPECT_EQ(AsString(bits, ASF_TYPE_AND_VALUE), "std::bitset<std_bitset_node>: 110");
    EXPECT_EQ(AsString(std::vector<std::bitset<3>>{bits, {}}), "\n- 110\n- 000");
}

} // namespace
