// A described object in every format: the same values, as each format has them, and policies and reports alike.

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/cbor.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>
#include <vexa/yaml.h>

namespace station {

struct Sensor {
    std::string name;
    double least = 0;
};

struct Reading {
    bool isValid = false;
    std::int64_t number = 0;
    double value = 0;
    std::string text;
    vexa::CNumeric exact;
    vexa::CBinary bytes;
    vexa::CDateTime time;
    vexa::MayNull<int> maybe;
    std::optional<std::string> note;
    std::vector<Sensor> sensors;
    std::map<int, std::string> names;
    std::map<std::string, std::vector<int>> groups;
    vexa::CRawJson raw;
};

VEXA_DESCRIBE(Sensor, name, least)
VEXA_DESCRIBE(Reading, isValid, number, value, text, exact, bytes, time, maybe, note, sensors, names, groups, raw)

} // namespace station

namespace {

using station::Reading;
using vexa::CJsonTree;
using vexa::CReport;

Reading Sample()
{
    Reading reading;
    reading.isValid = true;
    reading.number = -9007199254740993;
    reading.value = 0.25;
    reading.text = "yes";
    reading.exact = std::string("1.50");
    reading.bytes = vexa::CBinary("\x01\xff", 2);
    reading.time = vexa::CDateTime(1709208000, 250);
    reading.note = "line\n";
    reading.sensors = {{"a", 1}, {"b", -0.5}};
    reading.names = {{-1, "minus"}, {2, "two"}};
    reading.groups = {{"", {}}, {"x y", {1, 2}}};
    EXPECT_TRUE(reading.raw.Set(R"({"k": [1.0, null]})"));
    return reading;
}

TEST(EveryFormatObject, IsWrittenAsYaml)
{
    EXPECT_EQ(vexa::WriteYaml(Sample()), R"(isValid: true
number: -9007199254740993
value: 0.25
text: "yes"
exact: 1.50
bytes: "Af8="
time: "2024-02-29T12:00:00.25Z"
maybe: null
note: "line\n"
sensors:
- name: a
  least: 1.0
- name: b
  least: -0.5
names:
  "-1": minus
  "2": two
groups:
  "": []
  x y:
  - 1
  - 2
raw:
  k:
  - 1.0
  - null
)");
}

TEST(EveryFormatObject, IsWrittenAsCbor)
{
    const std::string bytes = vexa::WriteCbor(Sample());
    // Of what only this format has: a decimal fraction, bytes, a tagged date, integers as keys.
    for (const std::string& part :
         {std::string("\xc4\x82\x21\x18\x96"), std::string("\x42\x01\xff"),
          std::string("\xc0\x77") + "2024-02-29T12:00:00.25Z", std::string("\xa2\x20\x65minus\x02\x63two")})
        EXPECT_NE(bytes.find(part), std::string::npos) << part;
    EXPECT_EQ(bytes[0], '\xad'); // thirteen members
}

TEST(EveryFormatObject, HasTheSameValuesInAll)
{
    const Reading sample = Sample();
    CReport report;
    CJsonTree json;
    CJsonTree yaml;
    CJsonTree cbor;
    ASSERT_TRUE(json.Parse(vexa::WriteJson(sample), report)) << report.AsString();
    ASSERT_TRUE(vexa::ReadYaml(yaml, vexa::WriteYaml(sample), report)) << report.AsString();
    ASSERT_TRUE(vexa::ReadCbor(cbor, vexa::WriteCbor(sample), report)) << report.AsString();
    EXPECT_EQ(yaml, json) << yaml.AsJson();
    EXPECT_EQ(cbor, json) << cbor.AsJson();
}

TEST(EveryFormatObject, ReadsBackAsItWas)
{
    const Reading sample = Sample();
    const std::string expected = vexa::WriteJson(sample);
    CReport report;
    Reading yaml;
    EXPECT_TRUE(vexa::ReadYaml(yaml, vexa::WriteYaml(sample), report)) << report.AsString();
    yaml.raw = sample.raw; // which is written anew
    EXPECT_EQ(vexa::WriteJson(yaml), expected);
    Reading cbor;
    EXPECT_TRUE(vexa::ReadCbor(cbor, vexa::WriteCbor(sample), report)) << report.AsString();
    cbor.raw = sample.raw;
    EXPECT_EQ(vexa::WriteJson(cbor), expected);
}

/// The problems without what differs: the places.
std::string Problems(const CReport& report)
{
    std::string text;
    for (const vexa::CProblem& problem : report.Problems())
        text += problem.Path + ' ' + std::to_string(static_cast<int>(problem.Code)) + '\n';
    return text;
}

TEST(EveryFormatObject, HasTheSameProblemsInAll)
{
    CJsonTree broken;
    broken["isValid"] = 1;
    broken["number"] = 1.5;
    broken["texd"] = "";
    broken["sensors"].Append()["least"] = "x";
    broken["names"]["x"] = "y";
    const std::string expected = "isValid 20\nnumber 22\n 24\nsensors[0].least 20\n";
    CReport json;
    CReport yaml;
    CReport cbor;
    Reading reading;
    EXPECT_FALSE(vexa::ReadJson(reading, broken.AsJson(), json));
    EXPECT_FALSE(vexa::ReadYaml(reading, vexa::WriteYaml(broken), yaml));
    EXPECT_FALSE(vexa::ReadCbor(reading, vexa::WriteCbor(broken), cbor));
    EXPECT_EQ(Problems(json).substr(0, expected.size()), expected);
    EXPECT_EQ(json.Problems().size(), 5U);
    EXPECT_EQ(Problems(yaml), Problems(json));
    EXPECT_EQ(Problems(cbor), Problems(json));
    const vexa::CProblem& least = yaml.Problems().at(3);
    EXPECT_EQ(least.Place.Line, 5U); // "- least: x"
    EXPECT_EQ(least.Place.Column, 10U);
}

TEST(EveryFormatObject, IsAsBeforeByPolicy)
{
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    Reading reading = Sample();
    CReport report;
    EXPECT_FALSE(vexa::ReadYaml(reading, "text: new\nnumber: x\n", report, policy));
    EXPECT_FALSE(vexa::ReadYaml(reading, "text: new\nnumber: [1\n", report, policy));
    EXPECT_FALSE(vexa::ReadCbor(reading, "\xa2\x64text\x63new\x66number", report, policy));
    EXPECT_EQ(vexa::WriteJson(reading), vexa::WriteJson(Sample()));
}

} // namespace
