// Enumerations with names where their integer has a form of its own.

#include <array>
#include <atomic>
#include <memory>
#include <string>
#include <variant>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/report.h>
#include <vexa/types.h>

namespace enumeration_forms {

enum class Letter : char { alpha = 'a', omega = '\xff' };
VEXA_DESCRIBE_ENUM(Letter, alpha, omega)
enum class Sign : signed char { minus = -1, plus = 1 };
VEXA_DESCRIBE_ENUM(Sign, minus, plus)

struct Letters {
    Letter plain[2] = {Letter::omega, Letter::alpha};
    std::array<Letter, 2> counted = {Letter::alpha, Letter::alpha};
    char text[4] = "abc";
};
VEXA_DESCRIBE(Letters, plain, counted, text)

TEST(EnumerationForms, ArraysOfCharEnumerationsAreNoTexts)
{
    EXPECT_EQ(vexa::WriteJson(Letters()), R"({"plain":["omega","alpha"],"counted":["alpha","alpha"],"text":"abc"})");
    Letters read;
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(read, R"({"plain":["alpha",98],"counted":["omega","alpha"]})", report));
    EXPECT_EQ(vexa::WriteJson(read), R"({"plain":["alpha",98],"counted":["omega","alpha"],"text":"abc"})");
}

struct Choice {
    std::variant<std::monostate, bool, Sign> sign = Sign::minus;
    std::variant<std::monostate, bool, std::shared_ptr<std::atomic<Letter>>> shared;
    std::variant<int, Sign, std::string> any = Sign::plus;
};
VEXA_DESCRIBE(Choice, sign, shared, any)

TEST(EnumerationForms, NamesTellAlternativesOfSignedByteAndAtomicEnumerations)
{
    Choice choice;
    choice.shared = std::make_shared<std::atomic<Letter>>(Letter::omega);
    choice.any = 5;
    const std::string text = R"({"sign":"minus","shared":"omega","any":5})";
    EXPECT_EQ(vexa::WriteJson(choice), text);
    Choice read;
    read.sign = true;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(read, text, report)); // 5 is an integer and a value of the enumeration
    EXPECT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(vexa::WriteJson(read), R"({"sign":"minus","shared":"omega","any":"plus"})");
    vexa::CReport doubt;
    EXPECT_FALSE(vexa::ReadJson(read, R"({"any":"plus"})", doubt)); // a name and a text
    vexa::CReport none;
    EXPECT_TRUE(vexa::ReadJson(read, R"({"any":"other"})", none));
    EXPECT_EQ(vexa::WriteJson(read), R"({"sign":"minus","shared":"omega","any":"other"})");
}

} // namespace enumeration_forms
