// Random values in every format: each reads back what it has written, and all of them the same. Broken bytes are a
// problem and nothing worse.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include <vexa/cbor.h>
#include <vexa/json_tree.h>
#include <vexa/yaml.h>

namespace {

using vexa::CJsonTree;
using vexa::CRawJson;
using vexa::CReport;

/// Makes random trees: every kind of value, with a liking for what is hard.
class CTrees {
public:
    explicit CTrees(unsigned int seed) : m_dice(seed) {}

    std::size_t Below(std::size_t end) { return m_dice() % end; }
    CJsonTree Tree(int depth)
    {
        switch (Below(depth > 0 ? 7 : 5)) {
        case 0: return nullptr;
        case 1: return Below(2) == 0;
        case 2: return Text();
        case 3:
        case 4: return Number();
        case 5: {
            CJsonTree array = CJsonTree::Array();
            for (std::size_t left = Below(5); left != 0; --left)
                array.Append(Tree(depth - 1));
            return array;
        }
        default: {
            CJsonTree object = CJsonTree::Object();
            for (std::size_t left = Below(5); left != 0; --left)
                object[Text()] = Tree(depth - 1);
            return object;
        }
        }
    }

private:
    std::string Text()
    {
        static const char* const PIECES[] = {"a",
                                             "Z",
                                             " ",
                                             "0",
                                             "1",
                                             "\n",
                                             "\t",
                                             "\"",
                                             "\\",
                                             "'",
                                             ":",
                                             ": ",
                                             "#",
                                             " #",
                                             "-",
                                             "- ",
                                             "?",
                                             "~",
                                             "<<",
                                             "é",
                                             "水",
                                             "😀",
                                             "\x7f",
                                             "\r",
                                             "null",
                                             "true",
                                             "\xC2\x85",
                                             "0x1",
                                             ".5",
                                             "yes",
                                             "&a",
                                             "*a",
                                             "!!int",
                                             "{",
                                             "}",
                                             "[",
                                             "\xEF\xBB\xBF",
                                             "%",
                                             "@",
                                             "`",
                                             ",",
                                             "---",
                                             "...",
                                             "|",
                                             ">",
                                             "\x01",
                                             "\xE2\x80\xA8",
                                             "e",
                                             "+",
                                             "/"};
        std::string text;
        for (std::size_t left = Below(4); left != 0; --left)
            text += PIECES[Below(sizeof PIECES / sizeof *PIECES)];
        if (Below(10) == 0) text += '\0';
        return text;
    }
    CJsonTree Number()
    {
        CJsonTree number;
        const std::uint64_t bits = m_dice();
        double value = 0;
        static_assert(sizeof value == sizeof bits);
        switch (Below(6)) {
        case 0: return static_cast<long long>(bits);
        case 1: return static_cast<long long>(Below(2000)) - 1000;
        case 2: return bits;
        case 3: std::memcpy(&value, &bits, sizeof value); return std::isfinite(value) ? value : 0.5;
        case 4: return static_cast<float>(Below(100000)) / 8;
        default:
            number.SetDigits((Below(2) == 0 ? "-" : "") + std::to_string(bits) + std::to_string(bits) +
                             (Below(2) == 0 ? "" : "." + std::to_string(Below(1000))) +
                             (Below(2) == 0 ? "" : "e" + std::to_string(static_cast<int>(Below(2000)) - 1000)));
            return number;
        }
    }

    std::mt19937_64 m_dice;
};

/// What a format gives back.
CJsonTree Through(const std::function<bool(const CJsonTree&, std::string&)>& write,
                  const std::function<bool(CJsonTree&, const std::string&, CReport&)>& read, const CJsonTree& tree)
{
    std::string text;
    CJsonTree back;
    CReport report;
    EXPECT_TRUE(write(tree, text));
    EXPECT_TRUE(read(back, text, report)) << report.AsString() << text;
    return back;
}

CJsonTree ThroughJson(const CJsonTree& tree)
{
    return Through([](const CJsonTree& from, std::string& text) { return from.Write(text); },
                   [](CJsonTree& to, const std::string& text, CReport& report) { return to.Parse(text, report); },
                   tree);
}
CJsonTree ThroughYaml(const CJsonTree& tree)
{
    return Through([](const CJsonTree& from, std::string& text) { return vexa::WriteYaml(text, from); },
                   [](CJsonTree& to, const std::string& text, CReport& report) {
                       vexa::CReadPolicy policy;
                       policy.MaxBytes = text.size(); // which nothing but aliases goes beyond
                       return vexa::ReadYaml(to, text, report, policy);
                   },
                   tree);
}
CJsonTree ThroughCbor(const CJsonTree& tree)
{
    return Through(
        [](const CJsonTree& from, std::string& text) { return vexa::WriteCbor(text, from); },
        [](CJsonTree& to, const std::string& text, CReport& report) { return vexa::ReadCbor(to, text, report); }, tree);
}

TEST(EveryFormat, ReadsBackRandomTrees)
{
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    CTrees trees(seed);
    for (int i = 0; i < 3000; ++i) {
        const CJsonTree tree = trees.Tree(5);
        ASSERT_TRUE(ThroughJson(tree).IsIdenticalTo(tree)) << tree.AsJson();
        ASSERT_EQ(ThroughYaml(tree), tree) << tree.AsJson();
        ASSERT_EQ(ThroughCbor(tree), tree) << tree.AsJson();
    }
}

TEST(EveryFormat, TakesRawJsonAsItsValue)
{
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    CTrees trees(seed);
    for (int i = 0; i < 1000; ++i) {
        const CJsonTree tree = trees.Tree(4);
        CRawJson raw;
        ASSERT_TRUE(raw.Set(tree.AsJson()));
        ASSERT_EQ(raw.Text(), tree.AsJson());
        CRawJson back;
        CReport report;
        ASSERT_TRUE(vexa::ReadYaml(back, vexa::WriteYaml(raw), report)) << report.AsString();
        CJsonTree read;
        ASSERT_TRUE(read.Parse(back.Text(), report)) << report.AsString(back.Text());
        ASSERT_EQ(read, tree);
        ASSERT_TRUE(vexa::ReadCbor(back, vexa::WriteCbor(raw), report)) << report.AsString();
        ASSERT_TRUE(read.Parse(back.Text(), report)) << report.AsString(back.Text());
        ASSERT_EQ(read, tree);
    }
}

/// Bytes changed, left out and put in anywhere.
std::string Broken(std::string text, CTrees& dice)
{
    for (std::size_t left = 1 + dice.Below(4); left != 0; --left) {
        const std::size_t at = dice.Below(text.size() + 1);
        const auto byte = static_cast<char>(dice.Below(256));
        switch (dice.Below(4)) {
        case 0: text.insert(at, 1, byte); break;
        case 1: text.erase(at, dice.Below(4)); break;
        case 2: text.resize(at); break;
        default:
            if (at < text.size()) text[at] = byte;
        }
    }
    return text;
}

/// Whatever the bytes are: what can be read can be written and read again; what cannot has one problem with a place
/// inside the text.
void ReadAnything(const std::string& bytes, bool (*read)(CJsonTree&, std::string_view, CReport&),
                  CJsonTree (*through)(const CJsonTree&))
{
    CJsonTree tree = "before";
    CReport report;
    if (read(tree, bytes, report)) {
        ASSERT_TRUE(report.IsEmpty());
        ASSERT_EQ(through(tree), tree);
        return;
    }
    ASSERT_EQ(report.Problems().size(), 1U);
    ASSERT_NE(report.Problems()[0].Code, vexa::ProblemCode::NONE);
    ASSERT_LE(report.Problems()[0].Place.Offset, bytes.size());
    ASSERT_FALSE(report.AsString(bytes).empty());
}

bool FromYaml(CJsonTree& tree, std::string_view text, CReport& report) { return vexa::ReadYaml(tree, text, report); }
bool FromCbor(CJsonTree& tree, std::string_view bytes, CReport& report) { return vexa::ReadCbor(tree, bytes, report); }

TEST(EveryFormat, SurvivesBrokenBytes)
{
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    CTrees trees(seed);
    for (int i = 0; i < 5000; ++i) {
        const CJsonTree tree = trees.Tree(4);
        ReadAnything(Broken(vexa::WriteYaml(tree), trees), &FromYaml, &ThroughYaml);
        ReadAnything(Broken(vexa::WriteCbor(tree), trees), &FromCbor, &ThroughCbor);
    }
}

} // namespace
