// Reports as a reading makes them.

#include <vexa/interchange.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/vexa.h>

namespace shop {
namespace {

struct Address {
    std::string street;
    std::string city;
    std::string zip;
    std::string country;
};
VEXA_DESCRIBE(Address, street, city, zip, country)
struct Order {
    int id = 0;
    std::vector<int> lines;
    Address address;
};
VEXA_DESCRIBE(Order, id, lines, address)
struct Config {
    std::string service;
    int port = 0;
    std::vector<Order> orders;
};
VEXA_DESCRIBE(Config, service, port, orders)
struct Account {
    std::string name;
    std::string password;
};
VEXA_DESCRIBE_CLASS(Account)
{
    about.Attrib("name", &Account::name);
    about.Attrib("password", &Account::password).Masked();
}

constexpr const char* CONFIG = R"({
    "service": "shop",
    "port": 8080,
    "orders": [
        {"id": 1},
        {"id": 2},
        {
        "id": 3,
        "lines": [
        ],
        "address": {
        "street": "Am Markt 1",
        "city": "Halle",
        "zpi": "89073",
        "country": "DE"
        }
        }
    ]
})";

TEST(ReportOfReading, ShowsLinePathClassAndTheNearestName)
{
    Config config;
    vexa::CReport report;
    report.SetName("config.json");
    EXPECT_FALSE(vexa::ReadJson(config, CONFIG, report));
    std::string expected =
        R"(config.json:14:9: orders[2].address: shop::Address has no attribute "zpi"; did you mean "zip"?
    14 |         "zpi": "89073",
       |         ^~~~~
)";
    std::string text = report.AsString(CONFIG);
    // A class of an unnamed namespace tells it; that of the test is left out here.
    const std::string unnamed = "(anonymous namespace)::";
    const std::size_t at = text.find(unnamed);
    ASSERT_NE(std::string::npos, at);
    EXPECT_EQ(expected, text.erase(at, unnamed.size()));
    ASSERT_EQ(1U, report.Problems().size());
    const vexa::CProblem& problem = report.Problems()[0];
    EXPECT_EQ(vexa::ProblemCode::UNKNOWN_KEY, problem.Code);
    EXPECT_EQ("zpi", problem.Attrib);
    EXPECT_EQ("zip", problem.Nearest);
    EXPECT_EQ("        \"zpi\": \"89073\",", problem.Excerpt);
    EXPECT_EQ("DE", config.orders.at(2).address.country);
}

TEST(ReportOfReading, KeepsShortExcerptsOfLongLines)
{
    const std::string blanks(500, ' ');
    std::vector<int> numbers;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(numbers, "[" + blanks + "true" + blanks + "]", report));
    ASSERT_EQ(1U, report.Problems().size());
    EXPECT_EQ(std::string(30, ' ') + "true" + std::string(26, ' '), report.Problems()[0].Excerpt);
}

TEST(ReportOfReading, NeverShowsAConfidentialValue)
{
    const std::string text = R"({"passwrod": "hunter2", "name": 7, "password": ["hunter2"]})";
    Account account;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(account, text, report));
    EXPECT_EQ(3U, report.Problems().size());
    EXPECT_EQ(std::string::npos, (report.AsString(text) + vexa::WriteJson(report)).find("hunter2"))
        << report.AsString(text) << vexa::WriteJson(report);
}

TEST(ReportOfReading, TellsAHundredPlacesOfALongText)
{
    std::string text = "[\n";
    for (int i = 0; i < 60'000; ++i)
        text += "true,\n";
    text += "1]";
    std::vector<int> numbers;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(numbers, text, report));
    ASSERT_EQ(101U, report.Problems().size());
    for (std::size_t i = 0; i < 100; ++i) {
        EXPECT_EQ(i + 2, report.Problems()[i].Place.Line);
        EXPECT_EQ(1U, report.Problems()[i].Place.Column);
    }
    EXPECT_EQ("59900 more problems", report.Problems().back().Sentence());
}

} // namespace
} // namespace shop
