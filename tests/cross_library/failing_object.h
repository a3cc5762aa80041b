#ifndef VEXA_TEST_FAILING_OBJECT_H
#define VEXA_TEST_FAILING_OBJECT_H

#include <atomic>
#include <bitset>
#include <chrono>
#include <deque>
#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <variant>
#include <vector>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

/// An object of every type whose reading or writing may need memory, and texts for it.

namespace failing_object {

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

enum class Tint { reddish, greenish };
VEXA_DESCRIBE_ENUM(Tint, reddish, greenish)

struct Inside {
    std::string insideText;
    std::optional<std::vector<Tint>> tints;
};
VEXA_DESCRIBE(Inside, insideText, tints)

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
    std::map<Tint, std::string> byTint;
    vexa::MayNull<std::vector<std::string>> maybeTexts;
    std::deque<std::optional<std::string>> deque;
    vexa::NonNullPointer<Part> always;
    std::chrono::system_clock::time_point time;
    std::chrono::milliseconds duration{};
    vexa::CDateTime date;
    char letters[60] = {};
    Inside inside;
    std::string secret;
    std::map<std::string, vexa::CRawJson> others;
};
VEXA_DESCRIBE_CLASS(Whole)
{
    about.KeyStyle(vexa::KeyStyle::CAMEL);
    about.Check([](const Whole& whole) { return whole.text != "checked"; }, "a text of the check that is long enough");
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
    about.Attrib("byTint", &Whole::byTint);
    about.Attrib("maybeTexts", &Whole::maybeTexts);
    about.Attrib("deque", &Whole::deque);
    about.Attrib("always", &Whole::always);
    about.Attrib("time", &Whole::time);
    about.Attrib("duration", &Whole::duration);
    about.Attrib("date", &Whole::date);
    about.Attrib("letters", &Whole::letters);
    about.Attrib("inside", &Whole::inside).Flatten();
    about.Attrib("secret", &Whole::secret).Masked().Length(1, 99);
    about.Attrib("others", &Whole::others).KeepsUnknown();
}

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
    "byTint": {"greenish": ")" LONG_TEXT R"("}, "maybeTexts": [")" LONG_TEXT R"("], "deque": [null, ")" LONG_TEXT
                         R"("], "always": {"text": ")" LONG_TEXT R"("}, "time": "2026-03-01T12:00:00.25Z",
    "duration": 1500, "date": "2026-03-01T12:00:00.25Z", "letters": ")" LONG_TEXT R"(", "insideText": ")" LONG_TEXT
                         R"(", "tints": ["reddish", "greenish"], "secret": ")" LONG_TEXT R"(",
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
    "byTint": {"reddish": "r", "greenish": "g"}, "maybeTexts": null, "deque": [")" LONG_TEXT R"("],
    "always": {"number": 5}, "time": "1969-01-01T00:00:00Z", "duration": -1, "date": "2027-03-01T12:00:00Z",
    "letters": "l", "insideText": "i", "tints": null, "secret": "s", "something": 1})";

/// With problems of every kind that costs memory.
constexpr char THIRD[] =
    R"({"text": 1, "parts": [{"number": 100, "text": "x"}, {"numberByItsAlias": "x"}], "counter": "x",
    "shape": {"kind": "cirkle"}, "shapes": [{"kind": "circle", "radius": "x", "nmae": 1}], "parts": 1, "either": true,
    "choice": {"part": 1, "kind": 0}, "fixed": [1], "hashed": {"one": ")" LONG_TEXT R"("}, "table": [{"a": []}],
    "map": {"a": {"text": 5}, "a": null}, "tuple": [1, 2, 3], "bits": "2", "path": 3, "money": [1],
    "byTint": {"grenish": "x"}, "tints": ["redish"], "time": "2026-13-01", "date": ")" LONG_TEXT R"(",
    "letters": ")" LONG_TEXT LONG_TEXT R"(", "secret": [")" LONG_TEXT R"("], "always": null, "deque": [1],
    "maybeTexts": [1], "raw": 1, "raw": 2})";

/// With keys that are given twice, where the last one counts.
constexpr char FOURTH[] =
    R"({"text": ")" LONG_TEXT R"(", "text": "again )" LONG_TEXT R"(", "parts": [{}], "parts": [{}, {}],
    "map": {"k": {"text": ")" LONG_TEXT R"("}, "l": {}, "k": {"number": 8}, "k": null}, "hashed": {"1": "a", "1": "b"},
    "byTint": {"reddish": ")" LONG_TEXT
    R"(", "reddish": "r"}, "shape": {"kind": "circle"}, "shape": {"kind": "polygon"},
    "tree": {"a": ")" LONG_TEXT R"(", "a": 1}, "other": 1, "other": [")" LONG_TEXT R"("]})";

/// A text on one line.
inline std::string OneLine(std::string text)
{
    for (char& byte : text)
        if (byte == '\n') byte = ' ';
    return text;
}

} // namespace failing_object

#endif
