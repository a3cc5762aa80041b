// Random texts read one after the other into the same object, compared with an independent model of what reading does:
// what a text names is replaced whole, what it does not name stays, and a transactional reading with a problem changes
// nothing.

#include <array>
#include <cstdlib>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/random_values.h"

namespace filled {

struct Leaf {
    int number = 5;
    std::string text = "leaf";
    std::optional<int> maybe;
};
struct Node {
    int id = 1;
    Leaf leaf;
    std::vector<int> list{7};
    std::map<std::string, int> map;
    std::vector<Leaf> leaves;
    std::map<std::string, Leaf> named;
    std::unique_ptr<Leaf> pointer;
    std::optional<Leaf> optional;
    std::array<int, 2> places{3, 4};
    std::set<int> set;
    std::unique_ptr<Node> next;
};
VEXA_DESCRIBE(Leaf, number, text, maybe)
VEXA_DESCRIBE(Node, id, leaf, list, map, leaves, named, pointer, optional, places, set, next)

} // namespace filled

namespace {

enum class Kind { INT, TEXT, MAYBE, CLASS, POINTER, LIST, MAP, SET, PLACES };

struct CMemberSchema;

/// What the model knows of a type.
struct CSchema {
    Kind Is = Kind::INT;
    const CSchema* Part = nullptr; ///< what is pointed to, or an element
    const std::vector<CMemberSchema>* Members = nullptr;
};

/// A value: an object by its members, an array by its elements, anything else by its text.
struct CModel {
    std::string Text;
    std::vector<std::pair<std::string, CModel>> Members;
    std::vector<CModel> Elements;
    char Bracket = 0; ///< '{', '[' or 0

    bool IsNull() const { return Bracket == 0 && Text == "null"; }
    CModel* Find(const std::string& key)
    {
        for (auto& [name, value] : Members)
            if (name == key) return &value;
        return nullptr;
    }
    std::string Json() const
    {
        if (Bracket == 0) return Text;
        std::string json(1, Bracket);
        for (const auto& [name, value] : Members)
            json += (json.size() > 1 ? ",\"" : "\"") + name + "\":" + value.Json();
        for (const CModel& element : Elements)
            json += (json.size() > 1 ? "," : "") + element.Json();
        return json + (Bracket == '{' ? '}' : ']');
    }
};

struct CMemberSchema {
    std::string Name;
    const CSchema* Schema;
    CModel Default;
};

CModel Plain(std::string text) { return {std::move(text), {}, {}, 0}; }
CModel Array(std::vector<CModel> elements) { return {"", {}, std::move(elements), '['}; }
CModel Object() { return {"", {}, {}, '{'}; }

CModel Fresh(const CSchema& schema)
{
    if (schema.Is != Kind::CLASS) return schema.Is == Kind::TEXT ? Plain("\"\"") : Plain("0");
    CModel object = Object();
    for (const CMemberSchema& member : *schema.Members)
        object.Members.emplace_back(member.Name, member.Default);
    return object;
}

const CSchema INT{Kind::INT, nullptr, nullptr};
const CSchema TEXT{Kind::TEXT, nullptr, nullptr};
const CSchema MAYBE{Kind::MAYBE, nullptr, nullptr};
const std::vector<CMemberSchema> LEAF_MEMBERS{
    {"number", &INT, Plain("5")}, {"text", &TEXT, Plain("\"leaf\"")}, {"maybe", &MAYBE, Plain("null")}};
const CSchema LEAF{Kind::CLASS, nullptr, &LEAF_MEMBERS};
const CSchema LIST{Kind::LIST, &INT, nullptr};
const CSchema MAP{Kind::MAP, &INT, nullptr};
const CSchema LEAVES{Kind::LIST, &LEAF, nullptr};
const CSchema NAMED{Kind::MAP, &LEAF, nullptr};
const CSchema POINTER{Kind::POINTER, &LEAF, nullptr};
const CSchema PLACES{Kind::PLACES, &INT, nullptr};
const CSchema SET{Kind::SET, &INT, nullptr};
extern const CSchema NODE;
const CSchema NEXT{Kind::POINTER, &NODE, nullptr};
const std::vector<CMemberSchema> NODE_MEMBERS{{"id", &INT, Plain("1")},
                                              {"leaf", &LEAF, Fresh(LEAF)},
                                              {"list", &LIST, Array({Plain("7")})},
                                              {"map", &MAP, Object()},
                                              {"leaves", &LEAVES, Array({})},
                                              {"named", &NAMED, Object()},
                                              {"pointer", &POINTER, Plain("null")},
                                              {"optional", &POINTER, Plain("null")},
                                              {"places", &PLACES, Array({Plain("3"), Plain("4")})},
                                              {"set", &SET, Array({})},
                                              {"next", &NEXT, Plain("null")}};
const CSchema NODE{Kind::CLASS, nullptr, &NODE_MEMBERS};

// Random texts.

class CTexts {
public:
    explicit CTexts(vexa_test::Random& random) : m_random(random) {}

    CModel Of(const CSchema& schema, int depth)
    {
        const bool isWrong = m_random.OneIn(60);
        switch (schema.Is) {
        case Kind::INT: return isWrong ? Plain("\"wrong\"") : Plain(std::to_string(m_random.Below(9)));
        case Kind::TEXT: return isWrong ? Plain("1") : Plain("\"t" + std::to_string(m_random.Below(9)) + "\"");
        case Kind::MAYBE: return isWrong ? Plain("true") : m_random.OneIn(3) ? Plain("null") : Of(INT, depth);
        case Kind::POINTER: return depth == 0 || m_random.OneIn(3) ? Plain("null") : Of(*schema.Part, depth - 1);
        case Kind::CLASS: return ObjectOf(schema, depth);
        case Kind::LIST:
        case Kind::SET:
        case Kind::PLACES: return isWrong ? Plain("3") : ArrayOf(schema, depth);
        case Kind::MAP: break;
        }
        CModel map = Object();
        for (std::size_t left = m_random.Below(4); left != 0; --left)
            map.Members.emplace_back("k" + std::to_string(m_random.Below(20)), Of(*schema.Part, depth));
        return isWrong ? Plain("[]") : map;
    }

private:
    CModel ObjectOf(const CSchema& schema, int depth)
    {
        CModel object = Object();
        for (const CMemberSchema& member : *schema.Members)
            if (m_random.OneIn(2)) object.Members.emplace_back(member.Name, Of(*member.Schema, depth));
        for (std::size_t i = object.Members.size(); i > 1; --i)
            std::swap(object.Members[i - 1], object.Members[m_random.Below(i)]);
        if (m_random.OneIn(60)) object.Members.emplace_back("nobody", Plain("[{}]"));
        if (!object.Members.empty() && m_random.OneIn(60)) object.Members.push_back(object.Members.front());
        return object;
    }
    CModel ArrayOf(const CSchema& schema, int depth)
    {
        CModel array = Array({});
        const std::size_t size =
            schema.Is == Kind::PLACES ? (m_random.OneIn(20) ? 1 + m_random.Below(3) : 2) : m_random.Below(4);
        while (array.Elements.size() < size)
            array.Elements.push_back(Of(*schema.Part, depth));
        return array;
    }

    vexa_test::Random& m_random;
};

// The rules.

bool IsNumber(const CModel& text) { return text.Bracket == 0 && text.Text[0] >= '0' && text.Text[0] <= '9'; }

std::size_t Fill(const CSchema& schema, CModel& state, const CModel& text);

std::size_t FillObject(const CSchema& schema, CModel& state, const CModel& text)
{
    if (text.Bracket != '{') return 1;
    std::size_t problems = 0;
    std::set<std::string> given;
    for (const auto& [key, value] : text.Members) {
        const CMemberSchema* found = nullptr;
        for (const CMemberSchema& member : *schema.Members)
            if (member.Name == key) found = &member;
        if (found == nullptr || !given.insert(key).second)
            ++problems;
        else
            problems += Fill(*found->Schema, *state.Find(key), value);
    }
    return problems;
}

/// New, and without what no number could be read of.
std::size_t FillMap(const CSchema& schema, CModel& state, const CModel& text)
{
    if (text.Bracket != '{') return 1;
    std::size_t problems = 0;
    std::map<std::string, CModel> entries;
    for (const auto& [key, value] : text.Members) {
        CModel entry = Fresh(*schema.Part);
        const std::size_t inside = Fill(*schema.Part, entry, value);
        const bool isThere = inside == 0 || schema.Part->Is == Kind::CLASS;
        problems += inside;
        if (isThere && !entries.emplace(key, entry).second) ++problems;
    }
    state = Object();
    state.Members.assign(entries.begin(), entries.end());
    return problems;
}

std::size_t FillSet(CModel& state, const CModel& text)
{
    if (text.Bracket != '[') return 1;
    std::size_t problems = 0;
    std::set<int> numbers;
    for (const CModel& element : text.Elements) {
        if (IsNumber(element))
            numbers.insert(std::stoi(element.Text));
        else
            ++problems;
    }
    state = Array({});
    for (const int number : numbers)
        state.Elements.push_back(Plain(std::to_string(number)));
    return problems;
}

std::size_t FillList(const CSchema& schema, CModel& state, const CModel& text)
{
    if (text.Bracket != '[') return 1;
    std::size_t problems = 0;
    state = Array({});
    for (const CModel& element : text.Elements) {
        state.Elements.push_back(Fresh(*schema.Part));
        problems += Fill(*schema.Part, state.Elements.back(), element);
    }
    return problems;
}

std::size_t FillPlaces(const CSchema& schema, CModel& state, const CModel& text)
{
    if (text.Bracket != '[') return 1;
    std::size_t problems = text.Elements.size() != state.Elements.size() ? 1 : 0;
    for (std::size_t i = 0; i < std::min(text.Elements.size(), state.Elements.size()); ++i)
        problems += Fill(*schema.Part, state.Elements[i], text.Elements[i]);
    return problems;
}

std::size_t FillPointer(const CSchema& schema, CModel& state, const CModel& text)
{
    if (text.IsNull()) {
        state = text;
        return 0;
    }
    if (state.IsNull()) state = Fresh(*schema.Part);
    return Fill(*schema.Part, state, text);
}

/// \return how many problems there are.
std::size_t Fill(const CSchema& schema, CModel& state, const CModel& text)
{
    bool isGood = false;
    switch (schema.Is) {
    case Kind::CLASS: return FillObject(schema, state, text);
    case Kind::POINTER: return FillPointer(schema, state, text);
    case Kind::MAP: return FillMap(schema, state, text);
    case Kind::SET: return FillSet(state, text);
    case Kind::LIST: return FillList(schema, state, text);
    case Kind::PLACES: return FillPlaces(schema, state, text);
    case Kind::INT: isGood = IsNumber(text); break;
    case Kind::MAYBE: isGood = IsNumber(text) || text.IsNull(); break;
    case Kind::TEXT: isGood = text.Bracket == 0 && text.Text[0] == '"'; break;
    }
    if (isGood) state = text;
    return isGood ? 0 : 1;
}

std::uint64_t CountOfObjects()
{
    const char* const wished = std::getenv("ORDANA_RANDOM_TEXTS");
    return wished != nullptr ? std::strtoull(wished, nullptr, 10) : 300;
}

TEST(FillModel, RandomTextsOneAfterTheOtherDoWhatTheModelSays)
{
    std::size_t broken = 0;
    std::size_t undone = 0;
    for (std::uint64_t seed = 0; seed < CountOfObjects() && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        vexa_test::Random random(seed + 4711);
        CTexts texts(random);
        filled::Node node;
        CModel model = Fresh(NODE);
        ASSERT_EQ(model.Json(), vexa::WriteJson(node));
        for (int reading = 0; reading < 4; ++reading) {
            const CModel before = model;
            const CModel text = texts.Of(NODE, 2);
            const std::size_t problems = Fill(NODE, model, text);
            vexa::CReadPolicy policy;
            policy.Transactional = random.OneIn(2);
            if (policy.Transactional && problems != 0) model = before;
            broken += problems != 0 ? 1 : 0;
            undone += policy.Transactional && problems != 0 ? 1 : 0;
            vexa::CReport report(100000);
            const std::string json = text.Json();
            EXPECT_EQ(problems == 0, vexa::ReadJson(node, json, report, policy)) << json << report.AsString();
            EXPECT_EQ(problems, report.Problems().size()) << json << report.AsString();
            EXPECT_EQ(model.Json(), vexa::WriteJson(node)) << before.Json() << '\n' << json << report.AsString();
        }
    }
    EXPECT_LT(CountOfObjects() / 4, broken);
    EXPECT_LT(CountOfObjects() / 8, undone);
    EXPECT_GT(4 * CountOfObjects(), broken);
}

} // namespace
