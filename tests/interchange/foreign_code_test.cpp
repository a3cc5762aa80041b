// An application's own code that throws or changes its mind while the library calls it: objects stay valid, nothing is
// left behind, the lock is free, and the next call works.

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/find_class.h>
#include <vexa/helper.h>
#include <vexa/interchange.h>
#include <vexa/types.h>

#include "support/problem_lines.h"

namespace foreign {

/// Converts itself; whatever it is asked for it may refuse.
struct Fickle {
    static inline bool s_refusesNull = false;
    static inline int s_calls = 0;

    std::string text;
    void ToValue(vexa::CValue& out) const
    {
        // Another kind and another length each time.
        if (text == "fickle") return static_cast<void>(++s_calls % 2 != 0 ? out = 1 : out = std::string(500, 'x'));
        if (text == "mute") throw std::runtime_error("it says nothing");
        out = text;
    }
    void FromValue(const vexa::CValue& in)
    {
        if (in.IsNull() && s_refusesNull) throw std::runtime_error("it is never nothing");
        text = in.As_std_string();
    }
};
VEXA_DESCRIBE_CUSTOM_ANY(Fickle, 41)

/// Whose making fails when it is told to.
struct Shy {
    static inline int s_untilFailure = 0;
    static inline int s_alive = 0;

    int number = 0;
    std::string text = "a text that is too long to lie inside the object";
    Shy() { Count(); }
    Shy(const Shy& other) : number(other.number), text(other.text) { Count(); }
    Shy& operator=(const Shy&) = default;
    virtual ~Shy() { --s_alive; }

private:
    static void Count()
    {
        if (s_untilFailure > 0 && --s_untilFailure == 0) throw std::runtime_error("it is not made");
        ++s_alive;
    }
};
struct Shyest : Shy {
    int depth = 0;
};
VEXA_DESCRIBE_CLASS(Shy)
{
    about.Tag("kind");
    about.Attrib("number", &Shy::number);
    about.Attrib("text", &Shy::text);
}
VEXA_DESCRIBE_CLASS(Shyest)
{
    about.Base<Shy>();
    about.TagValue("shyest");
    about.Attrib("depth", &Shyest::depth);
}

/// A key whose order fails when it is told to.
struct Key {
    static inline int s_untilFailure = 0;

    int number = 0;
    bool operator<(const Key& other) const
    {
        if (s_untilFailure > 0 && --s_untilFailure == 0) throw std::runtime_error("it is not compared");
        return number < other.number;
    }
};
VEXA_DESCRIBE(Key, number)

struct Whole {
    int before = 1;
    vexa::MayNull<Fickle> maybe;
    std::optional<Fickle> optional;
    std::vector<Fickle> fickles;
    std::unique_ptr<Shy> shy;
    std::shared_ptr<Shy> shared;
    std::vector<std::unique_ptr<Shy>> shies;
    std::vector<Shy> plain;
    std::map<std::string, Shy> named;
    std::optional<Shy> one;
    std::set<Key> keys;
    std::map<Key, std::string> byKey;
};
VEXA_DESCRIBE(Whole, before, maybe, optional, fickles, shy, shared, shies, plain, named, one, keys, byKey)

constexpr char FIRST[] =
    R"({"before":2,"maybe":"m","optional":"o","fickles":["a","b"],"shy":{"kind":"shyest","number":1,"text":"s",)"
    R"("depth":3},"shared":{"kind":"foreign::Shy","number":2,"text":"t"},"shies":[null,{"kind":"shyest","number":4,)"
    R"("text":"u","depth":5}],"plain":[{"number":6,"text":"v"}],"named":{"n":{"number":7,"text":"w"}},)"
    R"("one":{"number":8,"text":"x"},"keys":[{"number":1},{"number":2}],"byKey":[[{"number":3},"three"]]})";

constexpr char SECOND[] =
    R"({"before":3,"keys":[{"number":5},{"number":4},{"number":6}],"byKey":[[{"number":3},"x"],[{"number":1},"y"]],)"
    R"("shy":{"number":9,"kind":"foreign::Shy"},"shared":{"kind":"shyest"},"shies":[{"kind":"shyest"},null,{"number":1,)"
    R"("kind":"foreign::Shy"}],"plain":[{"number":1},{"number":2},{"number":3}],"named":{"n":{"number":1},"o":{}},)"
    R"("one":null,"maybe":null,"optional":null,"fickles":["c"]})";

} // namespace foreign

namespace {

using namespace foreign;

template<class T>
std::string Read(T& value, const std::string& text, const vexa::CReadPolicy& policy = {})
{
    return test::ProblemsOf(
        value, [&](T& object, vexa::CReport& report) { return vexa::ReadJson(object, text, report, policy); });
}

bool IsLockFree()
{
    bool isFree = false;
    std::thread([&isFree] {
        vexa::helper::Acquire_Recursive_Thread_Mutex();
        isFree = true;
        vexa::helper::Release_Recursive_Thread_Mutex();
    }).join();
    return isFree;
}

TEST(ForeignCode, AConverterThatWritesOtherwiseEachTimeGivesOneValueEachTime)
{
    Whole whole;
    whole.fickles.resize(3);
    for (Fickle& fickle : whole.fickles)
        fickle.text = "fickle";
    whole.optional.emplace();
    whole.optional->text = "mute";
    Fickle::s_calls = 0;
    const std::string longText = '"' + std::string(500, 'x') + '"';
    for (const char* const expected : {"1,\"x\",1", "\"x\",1,\"x\""}) {
        std::string fickles = expected;
        for (std::size_t at = fickles.find("\"x\""); at != fickles.npos; at = fickles.find("\"x\"", at + 500))
            fickles.replace(at, 3, longText);
        vexa::CReport report;
        const std::string text = vexa::WriteJson(whole, {}, &report);
        EXPECT_EQ(text, R"({"before":1,"maybe":null,"optional":null,"fickles":[)" + fickles +
                            R"(],"shy":null,"shared":null,"shies":[],"plain":[],"named":{},"one":null,"keys":[],)"
                            R"("byKey":[]})");
        EXPECT_EQ("44 18446744073709551615+0 0:0 path=optional pointer=/optional class=foreign::Whole attrib=optional "
                  "found=it says nothing (nothing)\n",
                  test::LinesOf(report));
    }
}

TEST(ForeignCode, AConverterThatRefusesNothingnessIsAProblem)
{
    Whole whole;
    ASSERT_EQ("", Read(whole, R"({"maybe":"m","optional":"o"})"));
    ASSERT_EQ("", Read(whole, R"({"maybe":null})"));
    Fickle::s_refusesNull = true;
    std::string problems;
    EXPECT_NO_THROW(problems = Read(whole, R"({"maybe":"n","before":5})"));
    EXPECT_EQ("44 9+3 1:10 path=maybe pointer=/maybe class=foreign::Whole attrib=maybe found=it is never nothing "
              "excerpt={\"maybe\":\"n\",\"before\":5}\n",
              problems);
    Fickle::s_refusesNull = false;
    EXPECT_EQ(5, whole.before);
    EXPECT_FALSE(whole.maybe.has_value());
    EXPECT_EQ("", Read(whole, R"({"maybe":"n"})"));
    EXPECT_EQ("n", whole.maybe->text);
}

/// Reads while each making, or comparison, fails in turn.
void ExpectExceptionsComeOut(int& untilFailure, const char* what, bool isTransactional)
{
    const int alive = Shy::s_alive;
    int failing = 0;
    for (bool isThrown = true; isThrown;) {
        Whole whole;
        ASSERT_EQ("", Read(whole, FIRST));
        ASSERT_EQ(FIRST, vexa::WriteJson(whole));
        vexa::CReadPolicy policy;
        policy.Transactional = isTransactional;
        vexa::CReport report;
        isThrown = false;
        untilFailure = ++failing;
        try {
            vexa::ReadJson(whole, SECOND, report, policy);
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(error.what(), what);
            isThrown = true;
        }
        untilFailure = 0;
        EXPECT_TRUE(!isThrown || !isTransactional || vexa::WriteJson(whole) == FIRST) << failing;
        EXPECT_TRUE(IsLockFree());
        ASSERT_EQ("", Read(whole, FIRST)) << failing; // into whatever is there
        EXPECT_EQ(FIRST, vexa::WriteJson(whole)) << failing;
    }
    EXPECT_GT(failing, 4);
    EXPECT_EQ(Shy::s_alive, alive);
}

TEST(ForeignCode, WhatAConstructorThrowsComesOut)
{
    ExpectExceptionsComeOut(Shy::s_untilFailure, "it is not made", false);
}
TEST(ForeignCode, WhatAConstructorThrowsComesOutAndAllIsUndone)
{
    ExpectExceptionsComeOut(Shy::s_untilFailure, "it is not made", true);
}
TEST(ForeignCode, WhatAComparisonThrowsComesOut)
{
    ExpectExceptionsComeOut(Key::s_untilFailure, "it is not compared", false);
}
TEST(ForeignCode, WhatAComparisonThrowsComesOutAndAllIsUndone)
{
    ExpectExceptionsComeOut(Key::s_untilFailure, "it is not compared", true);
}

TEST(ForeignCode, AnythingThatAnInputThrowsIsAProblem)
{
    const auto broken = [calls = 0]() mutable -> std::string_view {
        if (calls++ != 0) throw 5;
        return "{\"before\":7}\n";
    };
    Whole whole;
    vexa::CReport report;
    bool isGood = true;
    EXPECT_NO_THROW(isGood = vexa::ReadJson(whole, vexa::InputFunction(broken), report));
    EXPECT_FALSE(isGood);
    EXPECT_EQ("11 13+0 2:1\n", test::LinesOf(report));
    EXPECT_EQ(7, whole.before);

    vexa::CReport ofLines;
    const std::function<bool(Whole&)> take = [](Whole&) { return true; };
    EXPECT_NO_THROW(isGood = vexa::ReadJsonLines<Whole>(vexa::InputFunction(broken), take, ofLines));
    EXPECT_FALSE(isGood);
    EXPECT_EQ("11 13+0 2:1\n", test::LinesOf(ofLines));
}

TEST(ForeignCode, AnInputIsNotAskedAgainBehindItsEnd)
{
    int calls = 0;
    const vexa::InputFunction input = [&calls]() -> std::string_view {
        return ++calls == 1 ? "{\"before\":8}" : calls == 2 ? "" : " more";
    };
    Whole whole;
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(whole, input, report)) << report;
    EXPECT_EQ(2, calls);
}

TEST(ForeignCode, WhatTheTakerOfLinesThrowsComesOut)
{
    std::string_view left = "{\"before\":1}\n{\"before\":2}\n{\"before\":3}\n";
    const vexa::InputFunction input = [&left] { return std::exchange(left, {}); };
    int last = 0;
    const std::function<bool(Whole&)> take = [&last](Whole& whole) {
        last = whole.before;
        if (last == 2) throw std::runtime_error("enough");
        return true;
    };
    vexa::CReport report;
    EXPECT_THROW(vexa::ReadJsonLines<Whole>(input, take, report), std::runtime_error);
    EXPECT_EQ(2, last);
    EXPECT_TRUE(report.IsEmpty());
}

/// Reads and writes another object while one is being read.
struct Checked {
    int number = 0;
    std::string text;
    std::vector<Checked> inside;
};
VEXA_DESCRIBE_CLASS(Checked)
{
    about.Attrib("number", &Checked::number).Range(0, 9);
    about.Attrib("text", &Checked::text);
    about.Attrib("inside", &Checked::inside);
    about.Check([](const Checked& checked) {
        if (checked.number == 7) throw std::bad_alloc();
        Checked copy;
        vexa::CReport report;
        const bool isSame = checked.text.empty() || vexa::ReadJson(copy, checked.text, report);
        return isSame ? std::string() : report.Problems()[0].Sentence();
    });
}

TEST(ForeignCode, AFunctionThatChecksMayReadAnotherObject)
{
    Checked checked;
    EXPECT_EQ("",
              Read(checked, R"({"text":"{\"text\":\"{}\",\"inside\":[{}]}","inside":[{"text":"{\"number\":1}"}]})"));
    EXPECT_EQ("40 11+1 1:12 path=inside[0] pointer=/inside/0 class=(anonymous namespace)::Checked "
              "found=the value is out of range: expected 0 to 9, found 10 "
              R"(excerpt={"inside":[{"text":"{\"number\":10}"}]})"
              "\n",
              Read(checked, R"({"inside":[{"text":"{\"number\":10}"}]})"));
    vexa::CReport report;
    EXPECT_THROW(vexa::ReadJson(checked, R"({"number":7})", report), std::bad_alloc);
    EXPECT_EQ("", Read(checked, R"({"number":6})"));
}

struct Late {
    int number = 0;
};

TEST(ForeignCode, AVisitorOfClassesMayThrowAndMayUseTheLibrary)
{
    int calls = 0;
    EXPECT_THROW(vexa::ForEachClass([&calls](const vexa::CClassInfor&) {
                     if (++calls == 2) throw std::runtime_error("enough");
                 }),
                 std::runtime_error);
    EXPECT_EQ(2, calls);
    EXPECT_TRUE(IsLockFree());
    bool isFound = false;
    vexa::ForEachClass([&isFound](const vexa::CClassInfor& infor) {
        const std::string& name = vexa::QualifiedNameOf(infor);
        EXPECT_NE(nullptr, vexa::FindClass(name));
        vexa::TypeInforOf<std::vector<std::set<Key>>>(); // registers
        isFound = isFound || name == "foreign::Whole";
    });
    EXPECT_TRUE(isFound);
}

} // namespace

/// A description from outside that fails twice: once looked at, once built.
template<>
struct vexa::Describes<Late> {
    static inline int s_failures = 2;

    static void Describe(vexa::CDescription<Late>& about)
    {
        about.Attrib("number", &Late::number);
        if (s_failures > 0 && s_failures-- != 0) throw std::runtime_error("not yet");
    }
};

namespace {

TEST(ForeignCode, ADescriptionThatThrowsIsTriedAgainByTheNextReading)
{
    Late late;
    vexa::CReport report;
    for (int i = 0; i < 2; ++i) {
        EXPECT_THROW(vexa::ReadJson(late, R"({"number":5})", report), std::runtime_error);
        EXPECT_TRUE(IsLockFree());
        vexa::ForEachClass([](const vexa::CClassInfor& infor) { EXPECT_NE("Late", infor.Name); });
    }
    EXPECT_TRUE(report.IsEmpty());
    EXPECT_TRUE(vexa::ReadJson(late, R"({"number":5})", report)) << report;
    EXPECT_EQ(R"({"number":5})", vexa::WriteJson(late));
}

} // namespace
