// What a sink is told instead of values that its format has not.

#include <vexa/interchange.h>

#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/given_events.h"

namespace {

using vexa::ValueTag;

vexa::CFormatAbilities WithTags()
{
    vexa::CFormatAbilities abilities;
    abilities.HasTags = abilities.HasBytes = abilities.HasIntegerKeys = true;
    return abilities;
}

/// Writes down what it is told; what it can leave to the seam it does.
class CRecorder : public vexa::CEventSink {
public:
    explicit CRecorder(const vexa::CFormatAbilities& abilities) : m_abilities(abilities) {}
    std::string Told;

    vexa::CFormatAbilities Abilities() const override { return m_abilities; }
    void Null() override { Told += "null "; }
    void Bool(bool value) override { Told += value ? "true " : "false "; }
    void Signed(long long value) override { Told += 's' + std::to_string(value) + ' '; }
    void Unsigned(unsigned long long value) override { Told += 'u' + std::to_string(value) + ' '; }
    void Floating(double value) override { Told += 'f' + vexa::WriteJson(value) + ' '; }
    void String(std::string_view text) override { Told.append("'").append(text).append("' "); }
    void Bytes(std::string_view bytes) override
    {
        if (!m_abilities.HasBytes) return CEventSink::Bytes(bytes);
        for (const char byte : bytes)
            Told += std::to_string(static_cast<unsigned char>(byte)) + '.';
        Told += ' ';
    }
    void Tag(ValueTag tag) override { Told += '#' + std::to_string(static_cast<int>(tag)) + ' '; }
    void BeginObject(std::size_t) override { Told += "{ "; }
    void Key(std::string_view name) override { Told.append(name).append(": "); }
    void EndObject() override { Told += "} "; }
    void BeginArray(std::size_t) override { Told += "[ "; }
    void EndArray() override { Told += "] "; }

private:
    vexa::CFormatAbilities m_abilities;
};

std::string Number(std::string_view digits, const vexa::CFormatAbilities& abilities)
{
    CRecorder sink(abilities);
    sink.Number(digits);
    return sink.Told;
}

TEST(EventSink, IsToldNumbersByTagsWhereItHasThem)
{
    const std::pair<const char*, const char*> cases[] = {
        {"7", "u7 "},
        {"-7", "#3 6. "},
        {"0", "u0 "},
        {"-0", "f-0.0 "},
        {"-0.00", "f-0.0 "},
        {"18446744073709551615", "u18446744073709551615 "},
        {"18446744073709551616", "#2 1.0.0.0.0.0.0.0.0. "},
        {"-18446744073709551617", "#3 1.0.0.0.0.0.0.0.0. "},
        {"1.50", "#4 [ s-2 u150 ] "},
        {"-0.007", "#4 [ s-3 #3 6. ] "},
        {"0.00", "#4 [ s-2 u0 ] "},
        {"12e3", "#4 [ s3 u12 ] "},
        {"1.5E+3", "#4 [ s2 u15 ] "},
        {"1e-400", "#4 [ s-400 u1 ] "},
        {"1e99999999999999999", "#4 [ s99999999999999999 u1 ] "},
        {"1e100000000000000000", "'1e100000000000000000' "}, // more than is calculated with
        {"-1e-100000000000000000", "'-1e-100000000000000000' "},
    };
    for (const auto& [digits, told] : cases)
        EXPECT_EQ(Number(digits, WithTags()), told) << digits;
    const std::string longest(10000, '9');
    EXPECT_EQ(Number(longest, WithTags()).substr(0, 3), "#2 ");
    EXPECT_EQ(Number(longest + '9', WithTags()), '\'' + longest + "9' ");
    EXPECT_EQ(Number("1.50", {}), "'1.50' ");
}

TEST(EventSink, IsToldInOtherFormsWhatItsFormatHasNot)
{
    CRecorder without({});
    without.Float(0.5F);
    without.Bytes("foo");
    without.TimeText("1970-01-01T00:00:01Z");
    without.DateTime(vexa::CDateTime(1, 500));
    without.IntegerKey(-7);
    without.RawJson(R"({"a":[1,null]})");
    EXPECT_EQ(without.Told, "f0.5 'Zm9v' '1970-01-01T00:00:01Z' '1970-01-01T00:00:01.5Z' -7: { a: [ s1 null ] } ");
    CRecorder with(WithTags());
    with.DateTime(vexa::CDateTime(1, 500));
    with.Negative(0x1234);
    EXPECT_EQ(with.Told, "#0 '1970-01-01T00:00:01.5Z' #3 18.52. ");
}

/// Digits of any length through the tags, and back.
TEST(EventSink, KeepsEveryDigitByTags)
{
    const unsigned int seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 dice(seed);
    for (int i = 0; i < 300; ++i) {
        std::string digits(1 + dice() % (i % 100 == 0 ? 9000 : 60), '0');
        for (char& digit : digits)
            digit = static_cast<char>('0' + dice() % 10);
        digits[0] = static_cast<char>('1' + dice() % 9);
        if (dice() % 2 == 0) digits += '.' + std::to_string(dice());
        if (dice() % 2 == 0) digits = '-' + digits;
        test::CKeptEvents sink(WithTags());
        sink.Number(digits);
        test::CGivenEvents source(sink.Events(), WithTags());
        vexa::CNumeric read;
        vexa::CReport report;
        ASSERT_TRUE(vexa::ReadEvents(read, source, report)) << report.AsString() << digits;
        ASSERT_EQ(read.AsString(), digits);
    }
}

} // namespace
