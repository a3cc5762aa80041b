#include <algorithm>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Members of unions out of JSON: only the active one, wherever its selector stands.

namespace unions {

struct Plain {
    int kind = 1;
    union {
        int number;
        double real;
    };
    Plain() : number(0) {}
};
VEXA_DESCRIBE_CLASS(Plain)
{
    about.Attrib("kind", &Plain::kind);
    about.Attrib("number", &Plain::number).ActiveWhen("kind", 1);
    about.Attrib("real", &Plain::real).ActiveWhen("kind", 2);
}

/// Whose members own something.
struct Owner {
    int kind = 1;
    union {
        std::string text;
        std::vector<int> numbers;
        int plain;
    };
    Owner() { new (&text) std::string(); }
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    ~Owner()
    {
        if (kind == 1) text.~basic_string();
        if (kind == 2) numbers.~vector();
    }
};
VEXA_DESCRIBE_CLASS(Owner)
{
    about.Attrib("kind", &Owner::kind);
    about.Attrib("text", &Owner::text).ActiveWhen("kind", 1);
    about.Attrib("numbers", &Owner::numbers).ActiveWhen("kind", 2);
    about.Attrib("plain", &Owner::plain).ActiveWhen("kind", 3);
}

/// The selector of the inner union is a member of the outer one.
struct Nested {
    int outer = 0;
    union {
        int inner;
        double real;
    };
    union {
        int number;
        float small;
    };
    Nested() : inner(0), number(0) {}
};
VEXA_DESCRIBE_CLASS(Nested)
{
    about.Attrib("outer", &Nested::outer);
    about.Attrib("inner", &Nested::inner).ActiveWhen("outer", 1);
    about.Attrib("real", &Nested::real).ActiveWhen("outer", 2);
    about.Attrib("number", &Nested::number).ActiveWhen("inner", 3);
    about.Attrib("small", &Nested::small).ActiveWhen("inner", 4);
}

} // namespace unions

namespace {

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

TEST(ReadUnion, ReadsTheActiveMemberWhereverItsSelectorStands)
{
    unions::Plain plain;
    EXPECT_EQ("", Read(plain, R"({"kind": 2, "real": 2.5})"));
    EXPECT_EQ(2.5, plain.real);
    EXPECT_EQ("", Read(plain, R"({"number": 7, "kind": 1})"));
    EXPECT_EQ(7, plain.number);
    EXPECT_EQ("", Read(plain, R"({"number": 8})")) << "the selector is as it was";
    EXPECT_EQ(8, plain.number);
}

TEST(ReadUnion, TellsMembersThatAreNotActive)
{
    unions::Plain plain;
    EXPECT_EQ("35 20+3 1:21 path=real pointer=/real class=unions::Plain attrib=real "
              "excerpt={\"kind\": 1, \"real\": 2.5, \"number\": 3}\n",
              Read(plain, R"({"kind": 1, "real": 2.5, "number": 3})"));
    EXPECT_EQ(3, plain.number);
    EXPECT_EQ("35 11+1 1:12 path=number pointer=/number class=unions::Plain attrib=number "
              "excerpt={\"number\": 3, \"kind\": 2}\n",
              Read(plain, R"({"number": 3, "kind": 2})"));
    EXPECT_EQ(2, plain.kind);
}

TEST(ReadUnion, HandsOverWhatOwnsSomething)
{
    unions::Owner owner;
    EXPECT_EQ("", Read(owner, R"({"text": "a text that is too long to lie in the object itself"})"));
    EXPECT_EQ("", Read(owner, R"({"numbers": [1, 2], "kind": 2})"));
    EXPECT_EQ((std::vector<int>{1, 2}), owner.numbers);
    EXPECT_EQ("", Read(owner, R"({"kind": 3, "plain": 5})"));
    EXPECT_EQ(5, owner.plain);
    EXPECT_EQ("", Read(owner, R"({"kind": 1, "text": "t"})"));
    EXPECT_EQ("t", owner.text);
}

TEST(ReadUnion, IsUndoneWithWhatTheOldMemberOwned)
{
    unions::Owner owner;
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    ASSERT_EQ("", Read(owner, R"({"text": "a text that is too long to lie in the object itself"})", policy));
    const char* const before = owner.text.data();
    EXPECT_NE("", Read(owner, R"({"kind": 2, "numbers": [1, 2, 3], "wrong": 1})", policy));
    EXPECT_EQ(1, owner.kind);
    EXPECT_EQ("a text that is too long to lie in the object itself", owner.text);
    EXPECT_EQ(before, owner.text.data());
    EXPECT_EQ("", Read(owner, R"({"numbers": [1, 2, 3], "kind": 2})", policy));
    const int* const numbers = owner.numbers.data();
    EXPECT_NE("", Read(owner, R"({"text": "x", "kind": 1, "wrong": 1})", policy));
    EXPECT_EQ(2, owner.kind);
    EXPECT_EQ((std::vector<int>{1, 2, 3}), owner.numbers);
    EXPECT_EQ(numbers, owner.numbers.data());
}

TEST(ReadUnion, ReadsSelectorsThatAreMembersOfUnionsInAnyOrder)
{
    std::vector<std::string> parts = {R"("inner":3)", R"("number":5)", R"("outer":1)"};
    do {
        for (const bool isTransactional : {false, true}) {
            unions::Nested nested;
            vexa::CReadPolicy policy;
            policy.Transactional = isTransactional;
            EXPECT_EQ("", Read(nested, "{" + parts[0] + "," + parts[1] + "," + parts[2] + "}", policy)) << parts[0];
            EXPECT_EQ(R"({"outer":1,"inner":3,"number":5})", vexa::WriteJson(nested));
        }
    } while (std::next_permutation(parts.begin(), parts.end()));
}

} // namespace
