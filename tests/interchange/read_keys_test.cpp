#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/captured_log.h"
#include "support/problem_lines.h"

// Which attribute a key belongs to, and how a problem names both: flattened attributes, aliases, keys that two
// attributes would have, keys that are no text.

namespace keyed {

struct Unit {
    std::string symbol;
};
struct Price {
    long minorUnits = 0;
    Unit unit;
};
struct Line {
    Price price;
    int count = 0;
};
struct Bill {
    std::vector<Line> lines;
};
VEXA_DESCRIBE_CLASS(Unit) { about.Attrib("symbol", &Unit::symbol).Length(1, 3); }
VEXA_DESCRIBE_CLASS(Price)
{
    about.Attrib("minorUnits", &Price::minorUnits).Key("amount").Alias("a/b").Alias("cents").Required();
    about.Attrib("unit", &Price::unit).Flatten();
}
VEXA_DESCRIBE_CLASS(Line)
{
    about.Attrib("price", &Line::price).Flatten();
    about.Attrib("count", &Line::count).Alias("n").Range(1, 9);
}
VEXA_DESCRIBE(Bill, lines)

struct Choice {
    int kind = 0;
    union {
        int whole = 0;
        double part;
    };
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind).Alias("k");
    about.Attrib("whole", &Choice::whole).Alias("w").ActiveWhen("kind", 0);
    about.Attrib("part", &Choice::part).Alias("p").ActiveWhen("kind", 1);
}

struct Inner {
    int id = 0;
    int rest = 0;
};
struct Outer {
    int id = 0;
    Inner inner;
    int someValue = 0;
    int some_value = 0;
    std::string last;
};
VEXA_DESCRIBE_CLASS(Inner)
{
    about.Attrib("id", &Inner::id).Required();
    about.Attrib("rest", &Inner::rest).Alias("last").Alias("theRest");
}
VEXA_DESCRIBE_CLASS(Outer)
{
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.Attrib("id", &Outer::id);
    about.Attrib("inner", &Outer::inner).Flatten();
    about.Attrib("someValue", &Outer::someValue);
    about.Attrib("some_value", &Outer::some_value);
    about.Attrib("last", &Outer::last);
}

struct Base {
    virtual ~Base() = default;
    int size = 1;
};
struct Derived : Base {
    std::string kind = "mine";
};
struct Owner {
    std::unique_ptr<Base> object;
};
VEXA_DESCRIBE_CLASS(Base)
{
    about.Tag("kind");
    about.TagValue("base");
    about.Attrib("size", &Base::size);
}
VEXA_DESCRIBE_CLASS(Derived)
{
    about.template Base<keyed::Base>();
    about.TagValue("derived");
    about.Attrib("kind", &Derived::kind);
}
VEXA_DESCRIBE(Owner, object)

struct Odd {
    int first = 1;
    int second = 2;
    int third = 3;
};
// Before the description takes effect by itself.
const std::string g_odd = vexa_test::LoggedLines([] { vexa::ClassInforOf<Odd>(); });

VEXA_DESCRIBE_CLASS(Odd)
{
    about.Attrib("first", &Odd::first).Key("\xFF");
    about.Attrib("second", &Odd::second).Key("zw\xC3\xB6lf").Alias("\xC3");
    about.Attrib("thi\xFFrd", &Odd::third);
}

struct OddTag {
    virtual ~OddTag() = default;
    int value = 1;
};
struct OddOwner {
    std::unique_ptr<OddTag> object;
};
const std::string g_oddTag = vexa_test::LoggedLines([] { vexa::ClassInforOf<OddTag>(); });

VEXA_DESCRIBE_CLASS(OddTag)
{
    about.Tag("\xFE");
    about.Attrib("value", &OddTag::value);
}
VEXA_DESCRIBE(OddOwner, object)

} // namespace keyed

namespace {

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

std::string TwiceOf(const std::string& infor, const std::string& key)
{
    return "The class " + infor + " has the key \"" + key + "\" twice: it stays with the first of them\n";
}

/// Path and pointer of every problem.
template<class T>
std::string Ways(const std::string& text)
{
    T object;
    vexa::CReport report;
    vexa::ReadJson(object, text, report);
    std::string ways;
    for (const vexa::CProblem& problem : report.Problems())
        ways += std::to_string(static_cast<int>(problem.Code)) + " " + problem.Path + " " + problem.Pointer + "|";
    return ways;
}

TEST(ReadKeys, APathNamesTheHoldersOfWhatIsFlattenedAndThePointerDoesNot)
{
    EXPECT_EQ(
        "22 lines[0].price.minorUnits /lines/0/amount|30 lines[0].price.unit.symbol /lines/0/symbol|"
        "29 lines[1].count /lines/1/count|",
        Ways<keyed::Bill>(R"({"lines": [{"amount": 1.5, "symbol": "", "count": 1}, {"amount": 1, "count": 10}]})"));
}

TEST(ReadKeys, ThePointerHasTheKeyOfTheText)
{
    EXPECT_EQ("20 lines[0].price.minorUnits /lines/0/cents|28 lines[0].count /lines/0/n|",
              Ways<keyed::Bill>(R"({"lines": [{"cents": "x", "n": 0}]})"));
    EXPECT_EQ("20 lines[0].price.minorUnits /lines/0/a~1b|20 lines[0].count /lines/0/count|",
              Ways<keyed::Bill>(R"({"lines": [{"a/b": "x", "count": "y"}]})"));
    EXPECT_EQ("25 lines[0].count /lines/0/n|", Ways<keyed::Bill>(R"({"lines": [{"count": 1, "cents": 1, "n": 2}]})"));
}

TEST(ReadKeys, ThePointerHasTheKeyOfTheTextWhereTheValueWaitsForItsSelector)
{
    EXPECT_EQ("20 part /p|", Ways<keyed::Choice>(R"({"p": "x", "k": 1})"));
    EXPECT_EQ("35 whole /w|", Ways<keyed::Choice>(R"({"w": 1, "kind": 1})"));
    EXPECT_EQ("35 whole /whole|", Ways<keyed::Choice>(R"({"whole": 1, "kind": 1})"));
    EXPECT_EQ("20 kind /k|", Ways<keyed::Choice>(R"({"k": "x"})"));
}

TEST(ReadKeys, AKeyBelongsToTheFirstAttributeThatHasIt)
{
    keyed::Outer outer;
    std::string problems;
    const std::string log = vexa_test::LoggedLines(
        [&] { problems = Read(outer, R"({"id": 1, "some_value": 2, "rest": 3, "last": "x"})"); });
    EXPECT_EQ("", problems) << "the inner id, which nothing can give, is not required";
    EXPECT_EQ(TwiceOf("Outer", "id") + TwiceOf("Outer", "some_value") + TwiceOf("Outer", "last"), log);
    EXPECT_EQ(1, outer.id);
    EXPECT_EQ(0, outer.inner.id);
    EXPECT_EQ(2, outer.someValue);
    EXPECT_EQ(0, outer.some_value);
    EXPECT_EQ(3, outer.inner.rest);
    EXPECT_EQ("x", outer.last) << "a key goes before an alias";
    EXPECT_EQ("", Read(outer, R"({"theRest": 4})"));
    EXPECT_EQ(4, outer.inner.rest);
    outer.inner.id = 7;
    outer.some_value = 8;
    EXPECT_EQ(R"({"id":1,"rest":4,"some_value":2,"last":"x"})", vexa::WriteJson(outer));
    vexa::CWritePolicy sorted;
    sorted.SortKeys = true;
    EXPECT_EQ(R"({"id":1,"last":"x","rest":4,"some_value":2})", vexa::WriteJson(outer, sorted));
    EXPECT_EQ("25 10+4 1:11 second=1+4 1:2 path=id pointer=/id class=keyed::Outer attrib=id "
              "excerpt={\"id\": 1, \"id\": 2}\n",
              Read(outer, R"({"id": 1, "id": 2})"));
}

TEST(ReadKeys, TheKeyOfTheTagIsNoAttributes)
{
    keyed::Owner owner;
    owner.object = std::make_unique<keyed::Derived>();
    std::string json;
    EXPECT_EQ(TwiceOf("Derived", "kind"), vexa_test::LoggedLines([&] { json = vexa::WriteJson(owner); }));
    EXPECT_EQ(R"({"object":{"kind":"derived","size":1}})", json);
    EXPECT_EQ("", Read(owner, R"({"object": {"size": 5, "kind": "derived"}})"));
    EXPECT_EQ(5, owner.object->size);
    EXPECT_EQ("mine", static_cast<keyed::Derived&>(*owner.object).kind);
}

TEST(ReadKeys, AKeyThatIsNoUtf8IsRefused)
{
    keyed::Odd odd;
    std::string json;
    const std::string log = vexa_test::LoggedLines([&] { json = vexa::WriteJson(odd); });
    EXPECT_EQ("The class Odd's attribute first cannot have such a key: it is no UTF-8\n"
              "The class Odd's attribute second cannot have such a key: it is no UTF-8\n",
              keyed::g_odd);
    EXPECT_EQ("The class Odd has the key \"thi\xFF"
              "rd\", which is no UTF-8: it is neither written nor read\n",
              log);
    EXPECT_EQ("{\"first\":1,\"zw\xC3\xB6lf\":2}", json);
    EXPECT_EQ("", Read(odd, "{\"first\": 4, \"zw\xC3\xB6lf\": 5}"));
    EXPECT_EQ(4, odd.first);
    EXPECT_EQ(5, odd.second);
}

TEST(ReadKeys, ATagThatIsNoUtf8IsRefused)
{
    keyed::OddOwner owner;
    owner.object = std::make_unique<keyed::OddTag>();
    EXPECT_EQ("The class OddTag cannot have such a tag: its key is no UTF-8\n", keyed::g_oddTag);
    EXPECT_EQ(R"({"object":{"value":1}})", vexa::WriteJson(owner));
}

} // namespace
