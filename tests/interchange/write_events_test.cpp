// What a sink of another format is told; and random objects of every class: valid JSON, the same value in every style,
// in pieces and by events, by an independent parser.

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "support/random_objects.h"

namespace write_events_test {

using vexa::CEvent;
using Json = nlohmann::ordered_json;

/// Writes down what it is told.
class CRecorder : public vexa::CEventSink {
public:
    vexa::CFormatAbilities Can;
    std::string Events;

    vexa::CFormatAbilities Abilities() const override { return Can; }
    void Null() override { Events += "null "; }
    void Bool(bool value) override { Events += value ? "true " : "false "; }
    void Signed(long long value) override { Events += 's' + std::to_string(value) + ' '; }
    void Unsigned(unsigned long long value) override { Events += 'u' + std::to_string(value) + ' '; }
    void Floating(double value) override { Events += 'f' + vexa::WriteJson(value) + ' '; }
    void Number(std::string_view digits) override { Events.append("n").append(digits) += ' '; }
    void String(std::string_view text) override { Events.append("'").append(text).append("' "); }
    void Bytes(std::string_view bytes) override { Events.append("b").append(bytes) += ' '; }
    void DateTime(const vexa::CDateTime& time) override { Events += 't' + std::to_string(time.msecs()) + ' '; }
    void BeginObject(std::size_t size) override { Events += '{' + Size(size); }
    void Key(std::string_view name) override { Events.append(name) += ':'; }
    void IntegerKey(long long key) override { Events += '#' + std::to_string(key) + ':'; }
    void EndObject() override { Events += "} "; }
    void BeginArray(std::size_t size) override { Events += '[' + Size(size); }
    void EndArray() override { Events += "] "; }
    void RawJson(std::string_view json) override { Events.append("raw").append(json) += ' '; }

private:
    static std::string Size(std::size_t size)
    {
        return size != CEvent::UNKNOWN_SIZE ? std::to_string(size) + ' ' : "? ";
    }
};

struct All {
    bool truth = true;
    unsigned long small = 9223372036854775807UL;
    unsigned long large = 9223372036854775808UL;
    float single = 0.5F;
    long double exact = 0.5L;
    long double inexact = 0.1L;
    vexa::CNumeric numeric = vexa::CNumeric(std::string("-01.50"));
    std::string text = "t\x80";
    vexa::CBinary bytes = vexa::CBinary(std::string("foo"));
    vexa::CDateTime time = vexa::CDateTime(1, 500);
    std::map<int, int> map{{-1, 2}};
    std::vector<int> numbers{1, 2};
    vexa::CRawJson raw;
};
VEXA_DESCRIBE(All, truth, small, large, single, exact, inexact, numeric, text, bytes, time, map, numbers, raw)

TEST(WriteEvents, aSinkIsToldEveryValue)
{
    CRecorder recorder;
    vexa::CReport report;
    EXPECT_FALSE(vexa::WriteEvents(recorder, All{}, {}, &report));
    EXPECT_EQ(report.AsString(), "text: this is not UTF-8\n");
    const std::string first = "{13 truth:true small:s9223372036854775807 large:u9223372036854775808 single:f0.5 "
                              "exact:f0.5 inexact:n0.1 numeric:n-1.50 text:'t\xEF\xBF\xBD' ";
    EXPECT_EQ(recorder.Events, first + "bytes:'Zm9v' time:'1970-01-01T00:00:01.5Z' map:{1 -1:s2 } numbers:[2 s1 s2 ] "
                                       "raw:rawnull } ");
    recorder.Events.clear();
    recorder.Can.HasBytes = recorder.Can.HasDateTime = recorder.Can.HasIntegerKeys = true;
    vexa::CWritePolicy policy;
    policy.Text = vexa::BadText::REPLACE;
    EXPECT_TRUE(vexa::WriteEvents(recorder, All{}, policy));
    EXPECT_EQ(recorder.Events, first + "bytes:bfoo time:t1500 map:{1 #-1:s2 } numbers:[2 s1 s2 ] raw:rawnull } ");
}

/// Builds the value that the events tell, and checks the sizes.
class CBuilder : public vexa::CEventSink {
public:
    Json Value;

    vexa::CFormatAbilities Abilities() const override { return {}; }
    void Null() override { Put(nullptr); }
    void Bool(bool value) override { Put(value); }
    void Signed(long long value) override { Put(value); }
    void Unsigned(unsigned long long value) override { Put(value); }
    void Floating(double value) override { Put(value); }
    void Number(std::string_view digits) override { Put(Json::parse(digits)); }
    void String(std::string_view text) override { Put(std::string(text)); }
    void Bytes(std::string_view) override { FAIL(); }
    void DateTime(const vexa::CDateTime&) override { FAIL(); }
    void BeginObject(std::size_t size) override { Open(Json::object(), size); }
    void Key(std::string_view name) override { m_key = name; }
    void IntegerKey(long long) override { FAIL(); }
    void EndObject() override { Close(); }
    void BeginArray(std::size_t size) override { Open(Json::array(), size); }
    void EndArray() override { Close(); }

private:
    Json& Put(Json value)
    {
        if (m_open.empty()) return Value = std::move(value);
        Json& holder = *m_open.back().first;
        if (holder.is_array()) return holder.emplace_back(std::move(value));
        EXPECT_FALSE(holder.contains(m_key)) << m_key;
        return holder[m_key] = std::move(value);
    }
    void Open(Json empty, std::size_t size)
    {
        Json& holder = Put(std::move(empty));
        m_open.emplace_back(&holder, size);
    }
    void Close()
    {
        const auto [holder, size] = m_open.back();
        EXPECT_TRUE(size == CEvent::UNKNOWN_SIZE || size == holder->size());
        m_open.pop_back();
    }

    std::vector<std::pair<Json*, std::size_t>> m_open;
    std::string m_key;
};

/// The text of a float has only the digits that a float needs; an event has its double.
bool IsSame(const Json& left, const Json& right)
{
    if (left.is_number_float() && right.is_number_float())
        return left == right || left.get<float>() == right.get<float>();
    if (left.is_structured() && left.type() == right.type() && left.size() == right.size()) {
        for (auto at = left.begin(), other = right.begin(); at != left.end(); ++at, ++other)
            if ((left.is_object() && at.key() != other.key()) || !IsSame(*at, *other)) return false;
        return true;
    }
    return left == right;
}

void ExpectOneValue(const vexa::CConstRefrence& object)
{
    vexa::CReport report;
    std::string text;
    const bool isRight = vexa::WriteJson(text, object, {}, &report);
    ASSERT_EQ(isRight, report.IsEmpty());
    Json value;
    try {
        value = Json::parse(text);
    } catch (const Json::out_of_range&) {
        return; // a long double, where the parser has doubles only
    } catch (const Json::parse_error& error) {
        FAIL() << error.what() << "\n" << text;
    }

    std::string pieces;
    vexa::WriteJson([&](std::string_view piece) { return pieces += piece, true; }, object);
    ASSERT_EQ(pieces, text);

    vexa::CWritePolicy policy;
    policy.Indentation = 1;
    policy.AsciiOnly = true;
    vexa::CReport second;
    std::string styled;
    vexa::WriteJson(styled, object, policy, &second);
    ASSERT_EQ(styled.find_first_of("\x80\xC3\xEF"), std::string::npos);
    ASSERT_EQ(Json::parse(styled, nullptr, false), value) << styled;
    ASSERT_EQ(second.Problems().size(), report.Problems().size());

    policy = {};
    policy.SortKeys = true;
    const auto sorted = nlohmann::json::parse(text); // which sorts
    vexa::WriteJson(text, object, policy);
    ASSERT_EQ(Json::parse(text).dump(), sorted.dump());

    CBuilder builder;
    ASSERT_EQ(vexa::WriteEvents(builder, object), isRight);
    ASSERT_TRUE(IsSame(builder.Value, value)) << builder.Value << "\n" << value;
}

TEST(WriteEvents, randomObjectsAreOneValueInEveryWay)
{
    using namespace vexa_test::random_objects;
    constexpr std::uint64_t SEED = 8259;
    SCOPED_TRACE(SEED);
    vexa_test::Random random(SEED);
    for (int i = 0; i < 400; ++i) {
        ForEachRandomClass([&](auto tag) {
            if (testing::Test::HasFatalFailure()) return;
            const auto object = RandomObject<typename decltype(tag)::Type>(random);
            ExpectOneValue(vexa::RefOf(*object));
        });
        random.Forget();
    }
}

} // namespace write_events_test
