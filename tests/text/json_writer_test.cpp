#include <vexa/json.h>

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

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/described_container.h"
#include "support/text_model.h"
#include "support/type_of.h"

namespace {

using namespace std::string_literals;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CConstRefrence;
using vexa::ToJson;

std::string RefusalOf(const std::string& type)
{
    return "It is not currently supported to convert " + type + " types to pJson strings\n";
}

// Classes

TEST(JsonWriter, WritesAnObjectWithoutBlanksAndLeavesNullsOut)
{
    EXPECT_EQ(Json(Ann()), R"({"name":"Ann","age":30,"address":{"city":"Oslo"},"tags":[1,2]})");
}

TEST(JsonWriter, WritesObjectsBehindPointers)
{
    Person ann = Ann();
    ann.next = std::make_unique<Person>();
    EXPECT_EQ(Json(ann), R"({"name":"Ann","age":30,"address":{"city":"Oslo"},"tags":[1,2],)"
                         R"("next":{"name":"","age":0,"address":{"city":""},"tags":[]}})");
    EXPECT_EQ(Json(std::make_unique<Address>()), R"({"city":""})");
}

TEST(JsonWriter, WritesAnEmptyClassAndAnEmptyContainer)
{
    EXPECT_EQ(Json(Empty()), "{}");
    EXPECT_EQ(Json(std::vector<int>()), "[]");
    EXPECT_EQ(Json(std::map<int, int>()), "[]");
    EXPECT_EQ(Json(std::vector<Empty>(2)), "[{},{}]");
}

struct Optional {
    vexa::MayNull<std::string> name;
    vexa::MayNull<int> age;
    vexa::MayNull<std::vector<int>> tags;
};
VEXA_DESCRIBE(Optional, name, age, tags)

TEST(JsonWriter, KeepsTheCommaAfterAFirstAttributeThatIsNull)
{
    Optional optional;
    optional.age = 30;
    EXPECT_EQ(Json(optional), R"({,"age":30})");
    optional.tags = std::vector<int>{1};
    EXPECT_EQ(Json(optional), R"({,"age":30,"tags":[1]})");
}

TEST(JsonWriter, WritesNoCommaTooManyWhereAnotherAttributeIsNull)
{
    Optional optional;
    EXPECT_EQ(Json(optional), "{}");
    optional.name = std::string("Ann");
    EXPECT_EQ(Json(optional), R"({"name":"Ann"})");
    optional.tags = std::vector<int>();
    EXPECT_EQ(Json(optional), R"({"name":"Ann","tags":[]})");
}

struct Vehicle {
    int wheels = 4;
};
struct Truck : Vehicle {
    bool loaded = true;
};
VEXA_DESCRIBE(Vehicle, wheels)
VEXA_DESCRIBE_CLASS(Truck)
{
    about.Base<Vehicle>();
    about.Attrib("loaded", &Truck::loaded);
}

TEST(JsonWriter, WritesTheAttributesOfBaseClassesFirst) { EXPECT_EQ(Json(Truck()), R"({"wheels":4,"loaded":true})"); }

struct Payment {
    short kind = 0;
    union {
        int code;
        bool paid;
    };
    Payment() : code(7) {}
};
VEXA_DESCRIBE_CLASS(Payment)
{
    about.Attrib("kind", &Payment::kind);
    about.Attrib("code", &Payment::code).ActiveWhen("kind", 0);
    about.Attrib("paid", &Payment::paid).ActiveWhen("kind", 1);
}

TEST(JsonWriter, WritesOnlyTheActiveMemberOfAUnion)
{
    Payment payment;
    EXPECT_EQ(Json(payment), R"({"kind":0,"code":7})");
    payment.kind = 1;
    payment.paid = true;
    EXPECT_EQ(Json(payment), R"({"kind":1,"paid":true})");
    payment.kind = 2;
    EXPECT_EQ(Json(payment), R"({"kind":2})");
}

TEST(JsonWriter, CopiesKeysVerbatim)
{
    const DescribedClass described("Odd", sizeof(int), [](vexa::CClassInfor& about) {
        Add(about, "a\"/\t\xC3", 0, Plain(DT_INT));
        Add(about, "", 0, Plain(DT_INT));
    });
    const int one = 1;
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_CLASS, &*described), &one)), "{\"a\"/\t\xC3\":1,\"\":1}");
}

struct Secret {
    std::string password = "secret";
};
VEXA_DESCRIBE_CLASS(Secret) { about.Attrib("password", &Secret::password).Masked(); }

TEST(JsonWriter, WritesMaskedAttributesLikeAnyOther) { EXPECT_EQ(Json(Secret()), R"({"password":"secret"})"); }

// Containers

TEST(JsonWriter, WritesElementsInTheOrderOfTheContainer)
{
    EXPECT_EQ(Json(std::list<int>{3, 1, 2}), "[3,1,2]");
    EXPECT_EQ(Json(std::set<std::string>{"b", "a"}), R"(["a","b"])");
    EXPECT_EQ(Json(std::vector<std::vector<int>>{{1, 2}, {}, {3}}), "[[1,2],[],[3]]");
    EXPECT_EQ(Json(std::vector<Address>{{"Oslo"}, {"Rome"}}), R"([{"city":"Oslo"},{"city":"Rome"}])");
}

TEST(JsonWriter, WritesAMapAsItsPairs)
{
    EXPECT_EQ(Json(std::map<std::string, int>{{"a", 1}, {"b", 2}}),
              R"([{"first":"a","second":1},{"first":"b","second":2}])");
}

TEST(JsonWriter, WritesNothingForANullElement)
{
    const int one = 1;
    using Pointers = std::vector<const int*>;
    EXPECT_EQ(Json(Pointers{&one, nullptr, &one}), "[1,,1]");
    EXPECT_EQ(Json(Pointers{nullptr, &one}), "[,1]");
    EXPECT_EQ(Json(Pointers{nullptr, nullptr}), "[,]");
    EXPECT_EQ(Json(Pointers{nullptr}), "[]");
    EXPECT_EQ(Json(std::vector<vexa::MayNull<int>>{1, {}, 3}), "[1,,3]");
}

TEST(JsonWriter, WritesACharacterArrayAsTheNumbersOfItsBytes)
{
    EXPECT_EQ(Json(std::array<char, 4>{{'a', static_cast<char>(200), 0, 'b'}}), "[97,200,0,98]");
}

TEST(JsonWriter, LogsTheBitsOfABitSetAndLeavesThemOut)
{
    const std::bitset<3> bits(5);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(Json(bits), "[,,]"); }),
              RefusalOf("std_bitset_node") + RefusalOf("std_bitset_node") + RefusalOf("std_bitset_node"));
}

TEST(JsonWriter, ReleasesEveryWalkThatItBegins)
{
    const vexa::CContainerInfor inner = SequenceContainer<std::vector<int>>("Inner", Plain(DT_INT));
    const vexa::CContainerInfor outer =
        SequenceContainer<std::vector<std::vector<int>>>("Outer", Plain(DT_SEQUENCE_A, &inner));
    std::vector<std::vector<int>> lists{{1, 2}, {}, {3}};
    g_walks = {};
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_SEQUENCE_A, &outer), &lists)), "[[1,2],[],[3]]");
    EXPECT_GE(g_walks.Begun, 4);
    EXPECT_EQ(g_walks.Released, g_walks.Begun);
}

TEST(JsonWriter, WritesEveryContainerCode)
{
    std::vector<int> numbers{1, 2};
    vexa::CContainerInfor infor = SequenceContainer<std::vector<int>>("Numbers", Plain(DT_INT));
    for (const unsigned code : {61U, 65U, 78U, 80U, 81U, 98U}) {
        EXPECT_EQ(Json(CConstRefrence(Plain(code, &infor), &numbers)), "[1,2]") << code;
    }
    infor.Begin = [](void*, void**) -> void* { return nullptr; };
    EXPECT_EQ(Json(CConstRefrence(Plain(DT_SEQUENCE_A, &infor), &numbers)), "[]") << "no walk is begun";
}

// Null and unsupported values

TEST(JsonWriter, LeavesANullValueAtTheTopEmpty)
{
    EXPECT_EQ(Json(std::unique_ptr<Person>()), "");
    EXPECT_EQ(Json(std::unique_ptr<std::vector<int>>()), "");
    EXPECT_EQ(Json(vexa::MayNull<int>()), "");
    EXPECT_EQ(Json(static_cast<const int*>(nullptr)), "");
    EXPECT_EQ(Json(CConstRefrence(vexa::TypeInforOf<Person>(), nullptr)), "");
}

TEST(JsonWriter, ReadsNothingBehindANullPointerThatIsNotMarkedNullable)
{
    const void* nowhere = nullptr;
    for (const vexa::CGnlTypeInfor& type :
         {NonNullPointer(DT_INT), NonNullPointer(DT_STD_STRING),
          NonNullPointer(DT_CLASS, vexa::TypeInforOf<Person>().DetailInfor),
          NonNullPointer(DT_SEQUENCE_A, vexa::TypeInforOf<std::vector<int>>().DetailInfor)}) {
        EXPECT_EQ(Json(CConstRefrence(type, &nowhere)), "") << type.TypeName();
    }
}

TEST(JsonWriter, RefusesAKindThatJsonDoesNotHold)
{
    const char something[64] = {};
    vexa::CGnlTypeInfor owned;
    owned.ChangeTypeTo_CustomType("shop::Price", 1, nullptr, nullptr, 7);
    const std::pair<vexa::CGnlTypeInfor, const char*> kinds[] = {
        {Plain(DT_UNKNOWN), "unkown type"}, {Plain(DT_VOID), "void"},   {Plain(DT_ROW), "vexa::CRow"},
        {Plain(DT_TABLE), "vexa::CTable"},  {owned, "shop::Price"},     {Plain(DT_BITSET_NODE), "std_bitset_node"},
        {Plain(5), "unkown type"},          {Plain(59), "unkown type"}, {Plain(255), "unkown type"}};
    for (const auto& [type, name] : kinds) {
        std::string out = "what was there before";
        EXPECT_EQ(
            LoggedLines([&, &refused = type] { EXPECT_EQ(ToJson(out, CConstRefrence(refused, something)), 262); }),
            RefusalOf(name));
        EXPECT_EQ(out, "") << "the measured length of such a kind is 0";
    }
}

struct Triple {
    int First = 1;
    int Second = 2;
    int Third = 3;
};

TEST(JsonWriter, LogsANestedKindThatJsonDoesNotHoldAndGoesOn)
{
    const DescribedClass described("Triple", sizeof(Triple), [](vexa::CClassInfor& about) {
        Add(about, "a", offsetof(Triple, First), Plain(DT_INT));
        Add(about, "b", offsetof(Triple, Second), Plain(DT_VOID));
        Add(about, "c", offsetof(Triple, Third), Plain(DT_INT));
    });
    const Triple triple;
    const CConstRefrence ref(Plain(DT_CLASS, &*described), &triple);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(Json(ref), R"({"a":1,"b":,"c":3})"); }), RefusalOf("void"));

    const vexa::CContainerInfor list = SequenceContainer<std::vector<int>>("Ints", Plain(DT_UNKNOWN));
    std::vector<int> numbers(2);
    EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(Json(CConstRefrence(Plain(DT_SEQUENCE_A, &list), &numbers)), "[,]"); }),
              RefusalOf("unkown type") + RefusalOf("unkown type"));
}

// The string that is written to

TEST(JsonWriter, ReplacesWhatTheStringHeld)
{
    for (const std::size_t length : {0UL, 1UL, 15UL, 1000UL}) {
        std::string out(length, 'x');
        EXPECT_EQ(ToJson(out, std::vector<int>{12, 3}), 0);
        EXPECT_EQ(out, "[12,3]");
    }
}

TEST(JsonWriter, WritesIntoAStringOfTheValueItself)
{
    Person ann = Ann();
    EXPECT_EQ(ToJson(ann.name, ann), 0);
    EXPECT_EQ(ann.name, R"({"name":"Ann","age":30,"address":{"city":"Oslo"},"tags":[1,2]})");
}

} // namespace
