// Every allocation of a reading fails in turn: the exception comes out, the object can be used and destroyed, in a
// transactional reading it is as it was, and nothing is left behind. Only the reading meets the failure, not the
// undoing, which may need memory for what an application's converters make.

#include <atomic>
#include <bitset>
#include <cstdio>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/counted_allocation.h"

namespace reading_failure {

/// The texts are too long to lie inside a std::string.
struct Part {
    int number = 0;
    std::string text;
};
VEXA_DESCRIBE_CLASS(Part)
{
    about.Attrib("number", &Part::number).Alias("numberByItsAlias").Range(0, 99);
    about.Attrib("text", &Part::text);
}

struct Shape {
    virtual ~Shape() = default;
    std::string name;
};
struct Circle : Shape {
    double radius = 1;
};
struct Polygon : Shape {
    std::vector<Part> points;
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.Tag("kind");
    about.Attrib("name", &Shape::name);
}
VEXA_DESCRIBE_CLASS(Circle)
{
    about.template Base<Shape>();
    about.TagValue("circle");
    about.Attrib("radius", &Circle::radius);
}
VEXA_DESCRIBE_CLASS(Polygon)
{
    about.template Base<Shape>();
    about.TagValue("polygon");
    about.Attrib("points", &Polygon::points);
}

struct Money {
    std::string text;
    void ToValue(vexa::CValue& out) const { out = text; }
    void FromValue(const vexa::CValue& in) { text = in.As_std_string(); }
};
VEXA_DESCRIBE_CUSTOM_ANY(Money, 3)

struct Choice {
    short kind = 0;
    union {
        long whole = 0;
        Part* part;
    };
    Choice() = default;
    Choice(const Choice&) = delete;
    Choice& operator=(const Choice&) = delete;
    ~Choice()
    {
        if (kind == 1) delete part;
    }
};
VEXA_DESCRIBE_CLASS(Choice)
{
    about.Attrib("kind", &Choice::kind);
    about.Attrib("whole", &Choice::whole).ActiveWhen("kind", 0);
    about.Attrib("part", &Choice::part).ActiveWhen("kind", 1);
}

struct Whole {
    std::string text;
    vexa::CNumeric numeric;
    vexa::CBinary bytes;
    vexa::MayNull<Part> wrapped;
    std::unique_ptr<Part> part;
    std::unique_ptr<Part> none;
    std::vector<Part> parts;
    std::vector<std::unique_ptr<Part>> owned;
    std::vector<int> numbers;
    std::list<std::string> list;
    std::set<std::string> set;
    std::map<std::string, std::unique_ptr<Part>> map;
    std::unordered_map<int, std::string> hashed;
    std::map<std::pair<int, int>, std::string> pairs;
    Part fixed[2];
    std::bitset<70> bits;
    std::optional<std::string> maybe;
    std::shared_ptr<Part> shared;
    std::unique_ptr<Shape> shape;
    std::vector<std::shared_ptr<Shape>> shapes;
    std::variant<int, std::string, std::unique_ptr<Part>, std::vector<int>> either;
    std::vector<bool> flags;
    std::tuple<int, std::string> tuple;
    std::atomic<int> counter{0};
    std::filesystem::path path;
    Money money;
    Choice choice;
    vexa::CValue value;
    vexa::CRow row;
    vexa::CTable table;
    vexa::CRawJson raw;
    vexa::CJsonTree tree;
    std::map<std::string, vexa::CRawJson> others;
};
VEXA_DESCRIBE_CLASS(Whole)
{
    about.Attrib("text", &Whole::text);
    about.Attrib("numeric", &Whole::numeric);
    about.Attrib("bytes", &Whole::bytes);
    about.Attrib("wrapped", &Whole::wrapped);
    about.Attrib("part", &Whole::part);
    about.Attrib("none", &Whole::none);
    about.Attrib("parts", &Whole::parts);
    about.Attrib("owned", &Whole::owned);
    about.Attrib("numbers", &Whole::numbers);
    about.Attrib("list", &Whole::list);
    about.Attrib("set", &Whole::set);
    about.Attrib("map", &Whole::map);
    about.Attrib("hashed", &Whole::hashed);
    about.Attrib("pairs", &Whole::pairs);
    about.Attrib("fixed", &Whole::fixed);
    about.Attrib("bits", &Whole::bits);
    about.Attrib("maybe", &Whole::maybe);
    about.Attrib("shared", &Whole::shared);
    about.Attrib("shape", &Whole::shape);
    about.Attrib("shapes", &Whole::shapes);
    about.Attrib("either", &Whole::either);
    about.Attrib("flags", &Whole::flags);
    about.Attrib("tuple", &Whole::tuple);
    about.Attrib("counter", &Whole::counter);
    about.Attrib("path", &Whole::path);
    about.Attrib("money", &Whole::money);
    about.Attrib("choice", &Whole::choice);
    about.Attrib("value", &Whole::value);
    about.Attrib("row", &Whole::row);
    about.Attrib("table", &Whole::table);
    about.Attrib("raw", &Whole::raw);
    about.Attrib("tree", &Whole::tree);
    about.Attrib("others", &Whole::others).KeepsUnknown();
}

} // namespace reading_failure

namespace {

using reading_failure::Whole;

#define LONG_TEXT "a text that is too long to lie in the object itself"

constexpr char FIRST[] = R"({"text": ")" LONG_TEXT R"(", "numeric": 12345678901234567890123456789.50,
    "bytes": "Zm9v", "wrapped": {"number": 2, "text": ")" LONG_TEXT R"("}, "part": {"number": 3, "text": "p"},
    "parts": [{"number": 4}, {"text": ")" LONG_TEXT R"("}], "owned": [{"number": 5}, null], "numbers": [1, 2, 3],
    "list": ["x", ")" LONG_TEXT R"("], "set": ["m", ")" LONG_TEXT R"("], "map": {"k": {"number": 6}, "l": null},
    "hashed": {"1": "one", "2": ")" LONG_TEXT R"("}, "pairs": [[[1, 2], ")" LONG_TEXT R"("]],
    "fixed": [{"number": 7}, {"text": ")" LONG_TEXT R"("}],
    "bits": "1000000000000000000000000000000000000000000000000000000000000000000001", "maybe": ")" LONG_TEXT R"(",
    "shared": {"number": 8}, "shape": {"name": ")" LONG_TEXT R"(", "kind": "circle"},
    "shapes": [{"kind": "polygon", "points": [{"number": 1}]}, null], "either": ")" LONG_TEXT R"(",
    "flags": [true, false], "tuple": [9, ")" LONG_TEXT R"("], "counter": 10, "path": ")" LONG_TEXT R"(",
    "money": ")" LONG_TEXT R"(", "choice": {"part": {"text": ")" LONG_TEXT R"("}, "kind": 1},
    "value": ")" LONG_TEXT R"(", "row": [1, ")" LONG_TEXT R"("], "table": [{"a": 1}, {"b": ")" LONG_TEXT R"("}],
    "raw": {"r" : ")" LONG_TEXT R"("}, "tree": [1, {"t": ")" LONG_TEXT R"("}],
    "other": ")" LONG_TEXT R"("})";

constexpr char SECOND[] = R"({"text": "another )" LONG_TEXT R"(", "numeric": 1, "bytes": "AAAA", "wrapped": null,
    "part": {"number": 93, "text": ")" LONG_TEXT R"("}, "none": {"text": ")" LONG_TEXT R"("}, "parts": [{}, {}, {}],
    "owned": [{"text": ")" LONG_TEXT R"("}], "numbers": [5], "list": ["z"], "set": ["z"],
    "map": {"k": {"number": 96}, "z": {}}, "hashed": {"7": "seven"}, "pairs": [[[3, 4], "x"], [[3, 5], "y"]],
    "fixed": [{"text": "97"}, {"number": 98}],
    "bits": "0000000000000000000000000000000000000000000000000000000000000000000000", "maybe": null,
    "shared": {"text": ")" LONG_TEXT R"("}, "shape": {"points": [{"number": 5}], "kind": "polygon"},
    "shapes": [{"name": ")" LONG_TEXT R"(", "kind": "circle"}], "either": {"text": ")" LONG_TEXT R"("}, "flags": [],
    "tuple": [99, "T"], "counter": 910, "path": "p", "money": "m", "choice": {"whole": 5, "kind": 0}, "value": 1,
    "row": [true], "table": [{"c": 1, "d": 2}], "raw": [")" LONG_TEXT R"("], "tree": {"u": [")" LONG_TEXT R"("]},
    "something": 1})";

/// With problems of every kind that costs memory.
constexpr char THIRD[] =
    R"({"text": 1, "parts": [{"number": 100, "text": "x"}, {"numberByItsAlias": "x"}], "counter": "x",
    "shape": {"kind": "cirkle"}, "shapes": [{"kind": "circle", "radius": "x", "nmae": 1}], "parts": 1, "either": true,
    "choice": {"part": 1, "kind": 0}, "fixed": [1], "hashed": {"one": ")" LONG_TEXT R"("}, "table": [{"a": []}],
    "map": {"a": {"text": 5}, "a": null}, "tuple": [1, 2, 3], "bits": "2", "path": 3, "money": [1]})";

constexpr int DONE = 0, WRONG = 1;

int Wrong(const char* what, long failing, const std::string& detail = {})
{
    std::fprintf(stderr, "allocation %ld: %s\n%s\n", failing, what, detail.c_str());
    return WRONG;
}

/// How one text is read.
using Read = bool (*)(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy);

bool ReadAtOnce(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy)
{
    return vexa::ReadJson(whole, text, report, policy);
}

bool ReadInPieces(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy)
{
    constexpr std::size_t LENGTH = 40;
    const vexa::InputFunction input = [&text]() {
        const std::string_view piece = text.substr(0, LENGTH);
        text.remove_prefix(piece.size());
        return piece;
    };
    return vexa::ReadJson(whole, input, report, policy);
}

/// What is read, and how.
struct CCase {
    Read How;
    const char* Text;
    bool IsTransactional;
    bool IsGood; ///< the text has no problems
};

/// Reads the text into an object that holds the first one, while the allocation with a number fails. \param isOver
/// whether there are not so many.
int RunCase(const CCase& what, long failing, bool& isOver)
{
    const long before = vexa_test::s_live;
    {
        vexa::CReadPolicy policy;
        Whole whole;
        vexa::CReport report;
        if (!vexa::ReadJson(whole, FIRST, report)) return Wrong("the first text is not read", 0, report.AsString());
        const std::string json = vexa::WriteJson(whole);
        policy.Transactional = what.IsTransactional;
        bool isThrown = false;
        bool isGood = false;
        try {
            vexa_test::s_untilFailure = failing;
            isGood = what.How(whole, what.Text, report, policy);
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        isOver = vexa_test::s_untilFailure != 0;
        vexa_test::s_untilFailure = 0;
        if (isOver == isThrown) return Wrong("the exception did not come out, or came from elsewhere", failing);
        if (isGood != (isOver && what.IsGood)) return Wrong("it is judged otherwise", failing, report.AsString());
        const std::string after = vexa::WriteJson(whole);
        if (what.IsTransactional && isThrown && after != json)
            return Wrong("the object is not as it was", failing, json + "\n" + after);
        vexa::CReport again;
        if (!vexa::ReadJson(whole, FIRST, again))
            return Wrong("the object cannot be read into", failing, again.AsString());
    }
    if (vexa_test::s_live != before) return Wrong("something was left behind", failing);
    return DONE;
}

/// What is made once a process is made here.
void ReadFirst(const CCase& what)
{
    vexa::CReadPolicy policy;
    policy.Transactional = what.IsTransactional;
    Whole whole;
    vexa::CReport report;
    what.How(whole, FIRST, report, policy);
    what.How(whole, what.Text, report, policy);
    vexa::WriteJson(whole);
}

int RunAll(const CCase& what)
{
    ReadFirst(what);
    long failing = 0;
    for (bool isOver = false; !isOver;)
        if (RunCase(what, ++failing, isOver) != DONE) return WRONG;
    std::printf("%ld allocations failed in turn\n", failing - 1);
    return failing > 50 ? DONE : Wrong("there are hardly any", failing);
}

} // namespace

int main()
{
    for (const Read read : {&ReadAtOnce, &ReadInPieces})
        for (const CCase& what :
             {CCase{read, SECOND, true, true}, CCase{read, SECOND, false, true}, CCase{read, THIRD, false, false}})
            if (RunAll(what) != DONE) return WRONG;
    return DONE;
}
