// Unions whose members are of every kind, in transactional readings: whichever member was active, it is again, and as
// it was.

#include <bitset>
#include <chrono>
#include <memory>
#include <new>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace union_undo {

struct Part {
    int number = 0;
    std::string text;
    int pair[2] = {};
};
VEXA_DESCRIBE(Part, number, text, pair)

const int SHARED = 9;

/// The member of a number is active for that kind.
struct Wide {
    int kind = 1;
    union {
        int plain;
        char code[8];
        std::bitset<70> bits;
        std::optional<std::string> maybe;
        Part part;
        Part parts[2];
        std::vector<bool> flags;
        std::chrono::seconds span;
        std::set<int> set;
        std::unique_ptr<Part> owned;
        std::tuple<int, std::string> tuple;
        signed char small;
        const int* shared;
        vexa::MayNull<int> wrapped;
    };

    Wide() : plain(0) {}
    Wide(const Wide&) = delete;
    Wide& operator=(const Wide&) = delete;
    ~Wide()
    {
        switch (kind) {
        case 4: maybe.~optional(); break;
        case 5: part.~Part(); break;
        case 6:
            parts[0].~Part();
            parts[1].~Part();
            break;
        case 7: flags.~vector(); break;
        case 9: set.~set(); break;
        case 10: owned.~unique_ptr(); break;
        case 11: tuple.~tuple(); break;
        default: break;
        }
    }
};
VEXA_DESCRIBE_CLASS(Wide)
{
    about.Attrib("kind", &Wide::kind);
    about.Attrib("plain", &Wide::plain).ActiveWhen("kind", 1);
    about.Attrib("code", &Wide::code).ActiveWhen("kind", 2);
    about.Attrib("bits", &Wide::bits).ActiveWhen("kind", 3);
    about.Attrib("maybe", &Wide::maybe).ActiveWhen("kind", 4);
    about.Attrib("part", &Wide::part).ActiveWhen("kind", 5);
    about.Attrib("parts", &Wide::parts).ActiveWhen("kind", 6);
    about.Attrib("flags", &Wide::flags).ActiveWhen("kind", 7);
    about.Attrib("span", &Wide::span).ActiveWhen("kind", 8);
    about.Attrib("set", &Wide::set).ActiveWhen("kind", 9);
    about.Attrib("owned", &Wide::owned).ActiveWhen("kind", 10);
    about.Attrib("tuple", &Wide::tuple).ActiveWhen("kind", 11);
    about.Attrib("small", &Wide::small).ActiveWhen("kind", 12);
    about.Attrib("shared", &Wide::shared).ActiveWhen("kind", 13);
    about.Attrib("wrapped", &Wide::wrapped).ActiveWhen("kind", 14);
}

} // namespace union_undo

namespace {

using union_undo::Wide;

/// A member, and two values of it as they are written.
struct CCase {
    int Kind;
    std::string Name;
    std::string First;
    std::string Second;
};

const std::string BITS(68, '0');
const CCase CASES[] = {
    {1, "plain", "7", "-8"},
    {2, "code", R"("abc")", R"("12345678")"},
    {3, "bits", "\"01" + BITS + "\"", "\"10" + BITS + "\""},
    {5, "part", R"({"number":1,"text":"a text that is too long to lie in place","pair":[1,2]})",
     R"({"number":2,"text":"b","pair":[3,4]})"},
    {6, "parts", R"([{"number":1,"text":"a","pair":[1,2]},{"number":3,"text":"c","pair":[5,6]}])",
     R"([{"number":7,"text":"","pair":[0,0]},{"number":8,"text":"another text that is rather long","pair":[9,9]}])"},
    {8, "span", "60", "-1"},
    {10, "owned", R"({"number":1,"text":"a","pair":[1,2]})", "null"},
    {12, "small", "-128", "127"},
    {14, "wrapped", "5", "null"},
};

bool Read(Wide& object, const std::string& text, std::string* told = nullptr)
{
    vexa::CReport report;
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    const bool isRead = vexa::ReadJson(object, text, report, policy);
    if (told != nullptr) *told = report.AsString(text);
    return isRead;
}

std::string Text(const CCase& member, const std::string& value)
{
    return "{\"kind\":" + std::to_string(member.Kind) + ",\"" + member.Name + "\":" + value + "}";
}
/// The same and a problem behind it, in the order of the text or with the selector behind its member.
std::string BadText(const CCase& member, const std::string& value, bool isSelectorLast)
{
    const std::string selector = "\"kind\":" + std::to_string(member.Kind);
    const std::string named = "\"" + member.Name + "\":" + value;
    return "{" + (isSelectorLast ? named + "," + selector : selector + "," + named) + ",\"wrong\":1}";
}

TEST(ReadUnionUndo, ServesMembersOfEveryKind)
{
    for (const CCase& member : CASES) {
        Wide object;
        for (const std::string& value : {member.First, member.Second, member.First}) {
            SCOPED_TRACE(Text(member, value));
            std::string told;
            ASSERT_TRUE(Read(object, Text(member, value), &told)) << told;
            ASSERT_EQ(Text(member, value), vexa::WriteJson(object));
            for (const CCase& other : CASES) {
                for (const std::string& otherValue : {other.First, other.Second}) {
                    for (const bool isSelectorLast : {false, true}) {
                        const std::string bad = BadText(other, otherValue, isSelectorLast);
                        EXPECT_FALSE(Read(object, bad));
                        EXPECT_EQ(Text(member, value), vexa::WriteJson(object)) << bad;
                    }
                }
            }
        }
    }
}

TEST(ReadUnionUndo, GoesFromEachMemberToEachOther)
{
    for (const CCase& from : CASES) {
        for (const CCase& to : CASES) {
            Wide object;
            EXPECT_TRUE(Read(object, Text(from, from.First)));
            std::string told;
            EXPECT_TRUE(Read(object, Text(to, to.Second), &told)) << told;
            EXPECT_EQ(Text(to, to.Second), vexa::WriteJson(object)) << from.Name;
        }
    }
}

TEST(ReadUnionUndo, RefusesWhatCannotBeMadeInPlace)
{
    const std::pair<int, const char*> members[] = {
        {4, R"("maybe":null)"}, {7, R"("flags":[])"}, {9, R"("set":[])"}, {11, R"("tuple":[1,"a"])"}};
    for (const auto& [kind, member] : members) {
        for (const bool isTransactional : {false, true}) {
            Wide object;
            object.plain = 7;
            const std::string text = "{\"kind\":" + std::to_string(kind) + "," + member + "}";
            vexa::CReport report;
            vexa::CReadPolicy policy;
            policy.Transactional = isTransactional;
            EXPECT_FALSE(vexa::ReadJson(object, text, report, policy)) << text;
            ASSERT_EQ(2U, report.Problems().size());
            EXPECT_EQ(vexa::ProblemCode::CANNOT_BE_MADE, report.Problems()[0].Code) << text;
            EXPECT_EQ(vexa::ProblemCode::INACTIVE_MEMBER, report.Problems()[1].Code) << text;
            EXPECT_EQ(R"({"kind":1,"plain":7})", vexa::WriteJson(object));
        }
    }
}

TEST(ReadUnionUndo, LeavesAPointerToWhatIsNotOwned)
{
    Wide object;
    object.kind = 13;
    object.shared = &union_undo::SHARED;
    EXPECT_FALSE(Read(object, R"({"kind":1,"plain":3,"wrong":1})"));
    EXPECT_EQ(13, object.kind);
    EXPECT_EQ(&union_undo::SHARED, object.shared);
    EXPECT_TRUE(Read(object, R"({"kind":1,"plain":3})"));
    EXPECT_EQ(R"({"kind":1,"plain":3})", vexa::WriteJson(object));
}

} // namespace
