// Reading into a generic object: the grammar of a class, with codes of its own.

#include <vexa/json.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>
#include <vexa/group.h>

#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;
using vexa::RefOf;

/// A generic object over values that lie beside it.
struct Generic {
    int a = 5;
    std::string s = "x";
    Address address{"Oslo"};
    vexa::CGnlClass inner;
    vexa::CGnlClass object;

    Generic()
    {
        inner.Add("b", RefOf(a));
        object.Add("a", RefOf(a));
        object.Add("s", RefOf(s));
        object.Add("address", RefOf(address));
        object.Add("inner", RefOf(inner));
    }
    Generic(const Generic&) = delete;
    Generic& operator=(const Generic&) = delete;
};

void ExpectFails(const std::string& text, int code, int a)
{
    Generic generic;
    EXPECT_EQ(FromJson(generic.object, text), code) << text;
    EXPECT_EQ(generic.a, a) << text;
    EXPECT_EQ(generic.s, "") << "everything was cleared";
}

TEST(JsonGeneric, ReadsIntoWhatTheEntriesDesignate)
{
    Generic generic;
    EXPECT_EQ(FromJson(generic.object, R"({ "s" : "new" , "a" : 7 , "address" : { "city" : "Rome" } } x)"), 0);
    EXPECT_EQ(generic.a, 7);
    EXPECT_EQ(generic.s, "new");
    EXPECT_EQ(generic.address.city, "Rome");
    EXPECT_EQ(FromJson(generic.object, R"({"inner":{"b":8}})"), 0);
    EXPECT_EQ(generic.a, 8);
    EXPECT_EQ(generic.s, "");
}

TEST(JsonGeneric, OnlyClearsForATextWithoutAValue)
{
    for (const char* text : {"", " \t\r\n"})
        ExpectFails(text, 0, 0);
}

TEST(JsonGeneric, HasACodeForEachPointOfFailure)
{
    ExpectFails("x", 732, 0);
    ExpectFails("[", 732, 0);
    ExpectFails("{", 793, 0);
    ExpectFails(R"({"a":1,)", 793, 1);
    ExpectFails("{}", 742, 0);
    ExpectFails("{ ", 742, 0);
    ExpectFails(R"({"a":1,})", 742, 1);
    ExpectFails(R"({"a":1, )", 742, 1);
    ExpectFails(R"({")", 751, 0);
    ExpectFails(R"({"a":1,"s)", 751, 1);
    ExpectFails(R"({"a")", 761, 0);
    ExpectFails(R"({"a" )", 761, 0);
    ExpectFails(R"({"a"1})", 761, 0);
    ExpectFails(R"({"a":)", 766, 0);
    ExpectFails(R"({"a": )", 766, 0);
    ExpectFails(R"({"a":1)", 776, 1);
    ExpectFails(R"({"a":1 )", 776, 1);
    ExpectFails(R"({"a":1x})", 790, 1);
    ExpectFails(R"({"a":1 "s":""})", 790, 1);
    ExpectFails(R"({"unknown":1})", 790, 0);
}

TEST(JsonGeneric, GivesTheCodesOfWhatIsInside)
{
    ExpectFails(R"({"a":1,"s":5})", 511, 1);
    ExpectFails(R"({"a":1,"address":{}})", 674, 1);
    ExpectFails(R"({"a":1,"inner":{}})", 742, 1);
    ExpectFails(R"({"a":1,"inner":{"b":2}x})", 790, 2);
}

TEST(JsonGeneric, ANullOneHasNoEntries)
{
    vexa::CGnlClass* object = nullptr;
    const vexa::CGnlTypeInfor type(vexa::Enum::DT_GNL_CLASS, vexa::Enum::HF_NULLABLE | vexa::Enum::HF_POINTER);
    const auto code = [&](const char* text) { return FromJson(vexa::CRefrence(type, &object), text); };
    EXPECT_EQ(code("x"), 732);
    EXPECT_EQ(code("{"), 793);
    EXPECT_EQ(code("{}"), 742);
    EXPECT_EQ(code(R"({")"), 751);
    EXPECT_EQ(code(R"({"a"})"), 761);
    EXPECT_EQ(code(R"({"a":)"), 766);
    EXPECT_EQ(code(R"({"a": 1})"), 790);
    EXPECT_EQ(object, nullptr) << "nothing makes one";
}

} // namespace
