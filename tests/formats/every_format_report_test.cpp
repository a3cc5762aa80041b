// The same faults are the same problems in every format, and every policy means the same; the places are those of the
// format.

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/cbor.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>
#include <vexa/yaml.h>

namespace plant {

enum class Mode { idle, running, halted };
VEXA_DESCRIBE_ENUM(Mode, idle, running, halted)

struct Part {
    virtual ~Part() = default;
    std::string label;
};
struct Pump : Part {
    unsigned char speed = 0;
};
struct Tank : Part {
    double volume = 0;
};
VEXA_DESCRIBE_CLASS(Part)
{
    about.Tag("kind");
    about.Attrib("label", &Part::label);
}
VEXA_DESCRIBE_CLASS(Pump)
{
    about.Base<Part>();
    about.TagValue("pump");
    about.Attrib("speed", &Pump::speed);
}
VEXA_DESCRIBE_CLASS(Tank)
{
    about.Base<Part>();
    about.TagValue("tank");
    about.Attrib("volume", &Tank::volume);
}

struct Limits {
    int least = 0;
    int most = 100;
};
VEXA_DESCRIBE_CLASS(Limits)
{
    about.Attrib("least", &Limits::least);
    about.Attrib("most", &Limits::most).Required();
    about.Check([](const Limits& limits) { return std::string(limits.least > limits.most ? "least above most" : ""); });
}

struct Plant {
    std::string name = "as before";
    int port = 1;
    bool isOn = false;
    Mode mode = Mode::idle;
    std::string pin;
    std::vector<std::string> names;
    std::map<std::string, int> counts;
    std::map<int, Limits> limits;
    std::vector<std::unique_ptr<Part>> parts;
    std::variant<std::monostate, bool, std::string> label;
    vexa::CDateTime since;
    vexa::CBinary bytes;
    vexa::CNumeric price;
    std::optional<long> maybe;
};
VEXA_DESCRIBE_CLASS(Plant)
{
    about.Attrib("name", &Plant::name).Length(0, 12);
    about.Attrib("port", &Plant::port).Range(1, 500);
    about.Attrib("isOn", &Plant::isOn);
    about.Attrib("mode", &Plant::mode);
    about.Attrib("pin", &Plant::pin).Masked().Length(0, 4);
    about.Attrib("names", &Plant::names);
    about.Attrib("counts", &Plant::counts);
    about.Attrib("limits", &Plant::limits);
    about.Attrib("parts", &Plant::parts);
    about.Attrib("label", &Plant::label);
    about.Attrib("since", &Plant::since);
    about.Attrib("bytes", &Plant::bytes);
    about.Attrib("price", &Plant::price);
    about.Attrib("maybe", &Plant::maybe);
}

} // namespace plant

namespace {

using plant::Plant;
using vexa::CReadPolicy;
using vexa::CReport;

/// What does not depend on the format, a problem a line.
std::string LinesOf(const CReport& report)
{
    std::string lines;
    for (const vexa::CProblem& problem : report.Problems()) {
        lines += std::to_string(static_cast<int>(problem.Code));
        for (const auto& [name, field] : {std::pair("path", &problem.Path), std::pair("pointer", &problem.Pointer),
                                          std::pair("class", &problem.Class), std::pair("attribute", &problem.Attrib),
                                          std::pair("expected", &problem.Expected), std::pair("found", &problem.Found),
                                          std::pair("nearest", &problem.Nearest)})
            if (!field->empty()) lines += std::string(" ") + name + '=' + *field;
        lines += '\n';
    }
    return lines;
}

struct CResult {
    CReport Report;
    std::string Object; ///< as JSON, afterwards
};

template<class Read>
CResult ResultOf(Read read)
{
    CResult result;
    Plant plant;
    const bool isRead = read(plant, result.Report);
    EXPECT_EQ(isRead, result.Report.IsEmpty());
    result.Object = vexa::WriteJson(plant);
    return result;
}

/// The same value in every format, and what reading it has given.
struct CTexts {
    std::string Json, Yaml, Cbor;

    explicit CTexts(const std::string& json) : Json(json)
    {
        vexa::CRawJson raw; // which keeps keys that are given twice
        EXPECT_TRUE(raw.Set(json)) << json;
        Yaml = vexa::WriteYaml(raw);
        Cbor = vexa::WriteCbor(raw);
    }
    CResult FromJson(const CReadPolicy& policy) const
    {
        return ResultOf([&](Plant& plant, CReport& report) { return vexa::ReadJson(plant, Json, report, policy); });
    }
    CResult FromYaml(const CReadPolicy& policy) const
    {
        return ResultOf([&](Plant& plant, CReport& report) { return vexa::ReadYaml(plant, Yaml, report, policy); });
    }
    CResult FromCbor(const CReadPolicy& policy) const
    {
        return ResultOf([&](Plant& plant, CReport& report) { return vexa::ReadCbor(plant, Cbor, report, policy); });
    }
};

/// Reads in every format, and expects the same. \return the problems.
std::string ProblemsOf(const std::string& json, const CReadPolicy& policy = {})
{
    const CTexts texts(json);
    const CResult fromJson = texts.FromJson(policy);
    const CResult fromYaml = texts.FromYaml(policy);
    const CResult fromCbor = texts.FromCbor(policy);
    EXPECT_EQ(LinesOf(fromYaml.Report), LinesOf(fromJson.Report)) << texts.Yaml;
    EXPECT_EQ(LinesOf(fromCbor.Report), LinesOf(fromJson.Report)) << json;
    EXPECT_EQ(fromYaml.Object, fromJson.Object);
    EXPECT_EQ(fromCbor.Object, fromJson.Object);
    return LinesOf(fromJson.Report);
}

/// A fault in each member, and how its problem begins.
const std::pair<const char*, const char*> FAULTS[] = {
    {R"({"nane": "x"})", "24 "},
    {R"({"name": 7})",
     "20 path=name pointer=/name class=plant::Plant attribute=name expected=a string found=a number\n"},
    {R"({"name": "longer than twelve"})", ""},
    {R"({"port": 501})", "29 path=port pointer=/port class=plant::Plant attribute=port expected=1 to 500 found=501\n"},
    {R"({"port": 99999999999})", "21 path=port "},
    {R"({"port": 123456789012345678901234567890})", "21 path=port "},
    {R"({"port": -18446744073709551616})", "21 path=port "},
    {R"({"port": 1.5})", "22 path=port "},
    {R"({"port": "80"})", "20 path=port "},
    {R"({"port": null})", "32 path=port "},
    {R"({"port": {"a": [1, {"b": 2}]}})", "20 path=port "},
    {R"({"isOn": 1})", "20 path=isOn "},
    {R"({"mode": "runing"})", ""},
    {R"({"mode": []})", "20 path=mode "},
    {R"({"pin": "12345secret"})", ""},
    {R"({"pin": 12345})", "20 path=pin pointer=/pin class=plant::Plant attribute=pin expected=a string\n"},
    {R"({"names": ["a", 1, "b", null, [true]]})", "20 path=names[1] "},
    {R"({"names": "a"})", "20 path=names "},
    {R"({"counts": {"a": "x", "b": 1e3, "c": 1e400}})", "20 path=counts"},
    {R"({"limits": {"1": {"least": 7, "most": 5}, "2": {"least": 1}, "x": {"most": 1}, "3": []}})", ""},
    {R"({"limits": {"1": {"most": 1, "nost": 2}}})", "24 path=limits"},
    {R"({"parts": [{"kind": "pump", "speed": 300}, {"kind": "pomp"}, {"label": "x"}, 7, null, {"kind": 3}]})", ""},
    {R"({"parts": [{"speed": -1, "kind": "pump"}, {"volume": "much", "kind": "tank", "lable": ""}]})", ""},
    {R"({"label": 7})", ""},
    {R"({"label": [1, 2]})", ""},
    {R"({"since": "yesterday"})", ""},
    {R"({"since": 12})", "20 path=since "},
    {R"({"bytes": "no base64"})", ""},
    {R"({"bytes": 1})", "20 path=bytes "},
    {R"({"price": "1.50"})", "20 path=price "},
    {R"({"price": 1e20000})", ""},
    {R"({"maybe": "x"})", "20 path=maybe "},
    {R"({"maybe": 9223372036854775808})", "21 path=maybe "},
    {R"([{"port": 1}])", "20 "},
    {R"("text")", "20 "},
    {R"(null)", "32 "},
};

TEST(EveryFormatReport, TellsTheSameFaults)
{
    for (const auto& [json, beginning] : FAULTS) {
        const std::string problems = ProblemsOf(json);
        EXPECT_FALSE(problems.empty()) << json;
        EXPECT_EQ(problems.substr(0, std::string(beginning).size()), beginning) << json;
        EXPECT_EQ(problems.find("secret"), std::string::npos);
        CReadPolicy policy;
        policy.Transactional = true;
        EXPECT_EQ(ProblemsOf(json, policy), problems) << json;
        EXPECT_EQ(CTexts(json).FromYaml(policy).Object, vexa::WriteJson(Plant())) << json;
        EXPECT_EQ(CTexts(json).FromCbor(policy).Object, vexa::WriteJson(Plant())) << json;
    }
}

/// All the faults of objects in one, so that reading goes on behind each.
TEST(EveryFormatReport, TellsAllFaultsOfOneText)
{
    EXPECT_EQ(ProblemsOf(R"({"port": 501, "nane": 1, "mode": "runing", "names": [1], "pin": "12345secret", "isOn": "no",
                            "limits": {"5": {"least": 1}}, "parts": [{"kind": "pomp"}]})"),
              "29 path=port pointer=/port class=plant::Plant attribute=port expected=1 to 500 found=501\n"
              "24 class=plant::Plant attribute=nane nearest=name\n"
              "27 path=mode pointer=/mode class=plant::Plant attribute=mode expected=one of \"idle\", \"running\", "
              "\"halted\" found=\"runing\" nearest=running\n"
              "20 path=names[0] pointer=/names/0 expected=a string found=a number\n"
              "31 path=pin pointer=/pin class=plant::Plant attribute=pin expected=at most 4 bytes\n"
              "20 path=isOn pointer=/isOn class=plant::Plant attribute=isOn expected=true or false found=a string\n"
              "26 path=limits[5] pointer=/limits/5 class=plant::Limits attribute=most\n"
              "36 path=parts[0] pointer=/parts/0 class=plant::Part attribute=kind expected=one of \"plant::Part\", "
              "\"pump\", \"tank\" found=\"pomp\" nearest=pump\n");
}

TEST(EveryFormatReport, FollowsTheSamePolicies)
{
    CReadPolicy policy;
    policy.Unknown = vexa::UnknownKeys::SKIP;
    EXPECT_EQ(ProblemsOf(R"({"nane": {"x": [1, "y"]}, "name": "good"})", policy), "");
    policy = {};
    policy.IgnoreRequired = true;
    EXPECT_EQ(ProblemsOf(R"({"limits": {"2": {"least": 1}}})", policy), "");
    policy = {};
    EXPECT_EQ(ProblemsOf(R"({"port": 2, "name": "a", "port": 3})").substr(0, 3), "25 ");
    policy.LastDuplicateWins = true;
    EXPECT_EQ(ProblemsOf(R"({"port": 2, "name": "a", "port": 3})", policy), "");
    EXPECT_EQ(ProblemsOf(R"({"counts": {"a": 1, "a": 2}, "limits": {"1": {"most": 1}, "1": {"most": 2}}})", policy),
              "");
    policy = {};
    EXPECT_EQ(ProblemsOf(R"({"counts": {"a": 1, "a": 2}})").substr(0, 3), "25 ");
    policy.MaxTextLength = 4;
    EXPECT_EQ(ProblemsOf(R"({"name": "12345"})", policy).substr(0, 3), "10 ");
    EXPECT_EQ(ProblemsOf(R"({"name": "1234"})", policy), "");
    policy = {};
    policy.MaxDepth = 2;
    EXPECT_EQ(ProblemsOf(R"({"limits": {"1": {"most": 1}}})", policy).substr(0, 2), "9 ");
    policy.MaxDepth = 3;
    EXPECT_EQ(ProblemsOf(R"({"limits": {"1": {"most": 1}}})", policy), "");
}

TEST(EveryFormatReport, BoundsTheElementsOfEach)
{
    CReadPolicy policy;
    policy.MaxElements = 3;
    EXPECT_EQ(ProblemsOf(R"({"names": ["a", "b", "c", "d"]})", policy).substr(0, 3), "10 ");
    EXPECT_EQ(ProblemsOf(R"({"counts": {"a": 1, "b": 2, "c": 3, "d": 4}})", policy).substr(0, 3), "10 ");
    EXPECT_EQ(ProblemsOf(R"({"names": ["a", "b"], "counts": {"a": 1, "b": 2}})", policy).substr(0, 3), "10 ");
    EXPECT_EQ(ProblemsOf(R"({"names": ["a", "b"], "counts": {"a": 1}, "port": 2, "isOn": true})", policy), "");
}

/// The bytes of a format are its own: the code is the same, at the first byte too many or before.
TEST(EveryFormatReport, BoundsTheBytesOfEach)
{
    const CTexts texts(R"({"name": "abc", "names": ["a", "b", "c"]})");
    CReadPolicy policy;
    const auto expectTooLong = [](const CReport& report) {
        ASSERT_EQ(report.Problems().size(), 1U);
        EXPECT_EQ(report.Problems()[0].Code, vexa::ProblemCode::TOO_LONG);
    };
    policy.MaxBytes = texts.Yaml.size();
    EXPECT_TRUE(texts.FromYaml(policy).Report.IsEmpty());
    policy.MaxBytes = texts.Cbor.size();
    EXPECT_TRUE(texts.FromCbor(policy).Report.IsEmpty());
    --policy.MaxBytes;
    expectTooLong(texts.FromJson(policy).Report);
    expectTooLong(texts.FromYaml(policy).Report);
    expectTooLong(texts.FromCbor(policy).Report);
}

/// Of a fault that a text names once: where it stands in YAML and in CBOR.
TEST(EveryFormatReport, TellsThePlacesOfItsFormat)
{
    struct CCase {
        const char* Json;
        const char* Yaml; ///< what stands at the place
        std::string Cbor;
    };
    const CCase cases[] = {
        {R"({"name": "é", "port": "wrong"})", "wrong", "\x65wrong"},
        {R"({"name": "é", "port": 501})", "501", "\x19\x01\xF5"},
        {R"({"name": "é", "nane": [1]})", "nane", "\x64nane"},
        {R"({"names": ["é", "水", 77]})", "77", "\x18\x4D"},
        {R"({"limits": {"1": {"least": 70, "most": 12}, "2": {"least": 3}}})", "least: 3", ""},
        {R"({"parts": [{"kind": "pomp"}]})", "pomp", "\x64pomp"},
    };
    for (const CCase& one : cases) {
        const CTexts texts(one.Json);
        const vexa::CTextPlace yaml = texts.FromYaml({}).Report.Problems().at(0).Place;
        const std::size_t lineBegin = texts.Yaml.rfind('\n', yaml.Offset) + 1; // 0 in the first
        const auto lines = std::count(texts.Yaml.begin(), texts.Yaml.begin() + static_cast<long>(lineBegin), '\n');
        EXPECT_EQ(yaml.Line, static_cast<std::size_t>(lines) + 1);
        EXPECT_EQ(yaml.Column, yaml.Offset - lineBegin + 1);
        const vexa::CTextPlace cbor = texts.FromCbor({}).Report.Problems().at(0).Place;
        EXPECT_EQ(cbor.Line, 0U);
        EXPECT_EQ(cbor.Column, 0U);
        if (one.Cbor.empty()) continue;
        EXPECT_EQ(texts.Yaml.substr(yaml.Offset, yaml.Length), one.Yaml);
        EXPECT_EQ(texts.Cbor.substr(cbor.Offset, cbor.Length), one.Cbor);
    }
}

} // namespace
