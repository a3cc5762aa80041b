// Raw JSON keeps its text as it stands, whether the text lies in memory, comes in pieces or as events.

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

namespace kept {

struct Message {
    int before = 0;
    vexa::CRawJson body;
    std::vector<vexa::CRawJson> list;
    std::map<std::string, vexa::CRawJson> others;
    int after = 0;
};
VEXA_DESCRIBE_CLASS(Message)
{
    about.Attrib("before", &Message::before);
    about.Attrib("body", &Message::body);
    about.Attrib("list", &Message::list);
    about.Attrib("others", &Message::others).KeepsUnknown();
    about.Attrib("after", &Message::after);
}

} // namespace kept

namespace {

using kept::Message;

const std::string TEXT =
    "{\"before\": 1, \"body\": { \"a\" : 1E2,\n\t\"a\": [ ] , \"\\u00e9\":\"\\u00E9\\/\", \"x\":[[{} ]]},\n"
    " \"list\": [ 1.0 , \"\\u0041\", null,{ } , -0e1,[1 ,2]], \"other\" : [ 1E+2 ], \"after\": 2 }  ";

/// The raw texts, one behind the other, with what stands around them.
std::string Texts(const Message& message)
{
    std::string texts = std::to_string(message.before) + message.body.Text();
    for (const vexa::CRawJson& raw : message.list)
        texts += '|' + raw.Text();
    for (const auto& [key, raw] : message.others)
        texts += '|' + key + '=' + raw.Text();
    return texts + '|' + std::to_string(message.after);
}

const std::string EXPECTED = "1{ \"a\" : 1E2,\n\t\"a\": [ ] , \"\\u00e9\":\"\\u00E9\\/\", \"x\":[[{} ]]}"
                             "|1.0|\"\\u0041\"|null|{ }|-0e1|[1 ,2]|other=[ 1E+2 ]|2";

std::string ReadPieces(std::size_t size)
{
    std::size_t next = 0;
    std::string piece; // what came before is gone
    const vexa::InputFunction input = [&]() -> std::string_view {
        piece = TEXT.substr(std::min(next, TEXT.size()), size);
        next += size;
        return piece;
    };
    Message message;
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(message, input, report)) << size << report.AsString();
    return Texts(message);
}

TEST(RawPieces, KeepTheTextAsItStands)
{
    Message message;
    vexa::CReport report;
    ASSERT_TRUE(vexa::ReadJson(message, TEXT, report)) << report.AsString(TEXT);
    EXPECT_EQ(EXPECTED, Texts(message));
    for (std::size_t size = 1; size <= TEXT.size(); ++size)
        EXPECT_EQ(EXPECTED, ReadPieces(size)) << size;
    Message ofEvents;
    const auto source = vexa::JsonEvents(TEXT);
    ASSERT_TRUE(vexa::ReadEvents(ofEvents, *source, report));
    EXPECT_EQ(EXPECTED, Texts(ofEvents));
}

TEST(RawPieces, AreCheckedAndBounded)
{
    for (const std::string text :
         {"{\"body\": [1, 01]}", "{\"body\": [1, {\"a\" 2}]}", "{\"body\": \"\xff\"}", "{\"body\": [1"}) {
        Message whole, piecewise;
        vexa::CReport ofWhole, ofPieces;
        EXPECT_FALSE(vexa::ReadJson(whole, text, ofWhole));
        std::size_t next = 0;
        const vexa::InputFunction input = [&]() -> std::string_view {
            return next < text.size() ? std::string_view(&text[next++], 1) : std::string_view();
        };
        EXPECT_FALSE(vexa::ReadJson(piecewise, input, ofPieces));
        EXPECT_EQ(ofWhole.AsString(), ofPieces.AsString()) << text;
        EXPECT_TRUE(piecewise.body.IsNull());
    }
}

/// What a policy lets in beside JSON is not kept.
TEST(RawPieces, AreWrittenAnewWhereMoreThanJsonIsLetIn)
{
    vexa::CReadPolicy policy;
    policy.AllowComments = true;
    vexa::CRawJson raw;
    vexa::CReport report;
    bool isGiven = false;
    const vexa::InputFunction input = [&isGiven]() -> std::string_view {
        return std::exchange(isGiven, true) ? "" : "[1, /* one */ 2]";
    };
    EXPECT_TRUE(vexa::ReadJson(raw, input, report, policy));
    EXPECT_EQ("[1,2]", raw.Text());
}

} // namespace
