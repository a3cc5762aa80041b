// Keys that a style makes of the names of attributes.

#include "typeinfo/key_style.h"

#include <random>

#include <gtest/gtest.h>

namespace {

using vexa::KeyStyle;
using vexa::typeinfo::StyledKey;

struct Names {
    const char *name, *camel, *snake, *kebab;
};

class KeyStyles : public testing::TestWithParam<Names> {};

TEST_P(KeyStyles, MakesWordsOfAName)
{
    const Names& names = GetParam();
    EXPECT_EQ(StyledKey(KeyStyle::AS_IT_IS, names.name), names.name);
    EXPECT_EQ(StyledKey(KeyStyle::CAMEL, names.name), names.camel);
    EXPECT_EQ(StyledKey(KeyStyle::SNAKE, names.name), names.snake);
    EXPECT_EQ(StyledKey(KeyStyle::KEBAB, names.name), names.kebab);
}

constexpr Names NAMES[] = {
    {"", "", "", ""},
    {"_", "_", "_", "_"},
    {"___", "___", "___", "___"},
    {"port", "port", "port", "port"},
    {"Port", "port", "port", "port"},
    {"PORT", "port", "port", "port"},
    {"P", "p", "p", "p"},
    {"serverPort", "serverPort", "server_port", "server-port"},
    {"server_port", "serverPort", "server_port", "server-port"},
    {"ServerPort", "serverPort", "server_port", "server-port"},
    {"SERVER_PORT", "serverPort", "server_port", "server-port"},
    {"m_serverPort", "mServerPort", "m_server_port", "m-server-port"},
    {"class_", "class", "class", "class"},
    {"_hidden", "hidden", "hidden", "hidden"},
    {"__a__b__", "aB", "a_b", "a-b"},
    {"HTTPServer", "httpServer", "http_server", "http-server"},
    {"parseHTTPRequest_v2", "parseHttpRequestV2", "parse_http_request_v2", "parse-http-request-v2"},
    {"userID", "userId", "user_id", "user-id"},
    {"userIDs", "userIDs", "user_i_ds", "user-i-ds"},
    {"xAxis", "xAxis", "x_axis", "x-axis"},
    {"aB", "aB", "a_b", "a-b"},
    {"ABc", "aBc", "a_bc", "a-bc"},
    {"ipv4Address", "ipv4Address", "ipv4_address", "ipv4-address"},
    {"address2", "address2", "address2", "address2"},
    {"x2y", "x2y", "x2y", "x2y"},
    {"SHA256Sum", "sha256Sum", "sha256_sum", "sha256-sum"},
    {"SHA256", "sha256", "sha256", "sha256"},
    {"UTF8_text", "utf8Text", "utf8_text", "utf8-text"},
    {"AB_C", "abC", "ab_c", "ab-c"},
    {"a_1", "a1", "a_1", "a-1"},
    {"4u", "4u", "4u", "4u"},
    {"stra\xC3\x9F"
     "eNr",
     "stra\xC3\x9F"
     "eNr",
     "stra\xC3\x9F"
     "e_nr",
     "stra\xC3\x9F"
     "e-nr"},
    {"B\xC3\xA4r", "b\xC3\xA4r", "b\xC3\xA4r", "b\xC3\xA4r"},
    {"XB\xC3\xA4r", "xB\xC3\xA4r", "x_b\xC3\xA4r", "x-b\xC3\xA4r"},
};
INSTANTIATE_TEST_SUITE_P(Names, KeyStyles, testing::ValuesIn(NAMES));

/// Where the words begin, by looking at each place for itself.
std::vector<std::string> WordsOf(const std::string& name)
{
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto isSmall = [](char c) { return c >= 'a' && c <= 'z'; };
    std::vector<std::string> words(1);
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char before = i > 0 ? name[i - 1] : '_';
        const char after = i + 1 < name.size() ? name[i + 1] : '_';
        const bool isFirst = isCapital(name[i]) && (!isCapital(before) || isSmall(after));
        if (name[i] == '_' || isFirst) words.emplace_back();
        if (name[i] != '_') words.back() += static_cast<char>(isCapital(name[i]) ? name[i] + 32 : name[i]);
    }
    words.erase(std::remove(words.begin(), words.end(), std::string()), words.end());
    return words;
}

TEST(KeyStyle, OfRandomNamesIsThatOfTheirWords)
{
    const unsigned int seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 20000; ++i) {
        std::string name;
        for (unsigned int length = random() % 10 + 1; length > 0; --length)
            name += "abzABZ09__"[random() % 10];
        if (name.find_first_not_of('_') == std::string::npos) continue;
        std::string camel, snake;
        for (const std::string& word : WordsOf(name)) {
            snake += (snake.empty() ? "" : "_") + word;
            const bool isRaised = !camel.empty() && word[0] >= 'a';
            camel += isRaised ? static_cast<char>(word[0] - 32) + word.substr(1) : word;
        }
        ASSERT_EQ(StyledKey(KeyStyle::SNAKE, name), snake) << name;
        ASSERT_EQ(StyledKey(KeyStyle::CAMEL, name), camel) << name;
        std::string kebab = snake;
        std::replace(kebab.begin(), kebab.end(), '_', '-');
        ASSERT_EQ(StyledKey(KeyStyle::KEBAB, name), kebab) << name;
        ASSERT_EQ(StyledKey(KeyStyle::SNAKE, snake), snake) << name;
    }
}

} // namespace
