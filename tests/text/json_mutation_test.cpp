// Broken text of every sort: the reader gives one of its codes, and leaves a target that can be written.

#include <vexa/json.h>

#include <algorithm>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/text_everything.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;

bool IsResultCode(int code)
{
    static const std::set<int> codes = {0,   511, 531, 596, 603, 622, 656, 663, 674, 683, 693, 698, 708,
                                        722, 725, 800, 805, 842, 873, 888, 891, 939, 956, 965, 999};
    return codes.count(code) == 1;
}

/// A text of some hundred bytes with every kind of member in it.
std::string SomeText(Dice& dice)
{
    std::string text;
    while (text.size() < 200 || text.size() > 1500) {
        Everything object;
        Fill(object, dice, 2);
        text = Json(object);
    }
    return text;
}

void Mutate(std::string& text, Dice& dice)
{
    const std::string tokens = "{}[]\":,\\u-0159 \n\ttruefals";
    const std::size_t place = dice.Below(text.size());
    switch (dice.Below(7)) {
    case 0: text[place] = static_cast<char>(dice.Below(256)); break;
    case 1: text[place] = tokens[dice.Below(tokens.size())]; break;
    case 2: text.insert(place, 1, tokens[dice.Below(tokens.size())]); break;
    case 3: text.erase(place, 1 + dice.Below(5)); break;
    case 4: text.insert(place, text.substr(dice.Below(text.size()), dice.Below(40))); break;
    case 5: text.resize(place); break;
    default: std::swap(text[place], text[dice.Below(text.size())]);
    }
    if (text.empty()) text = "{";
}

/// \p target keeps what earlier texts left in it.
int ReadAndLook(Everything& target, const std::string& text)
{
    const int code = FromJson(target, text);
    EXPECT_TRUE(IsResultCode(code)) << code << " for " << text;
    EXPECT_FALSE(vexa::AsString(target, vexa::Enum::ASF_TYPE_AND_VALUE).empty());
    EXPECT_FALSE(Json(target).empty());
    return code;
}

TEST(JsonMutation, TwentyThousandBrokenTextsAreSurvived)
{
    Dice dice(5);
    Everything target;
    std::set<int> seen;
    for (int text = 0; text < 100; ++text) {
        const std::string whole = SomeText(dice);
        for (int mutation = 0; mutation < 200; ++mutation) {
            std::string broken = whole;
            for (std::size_t changes = 1 + dice.Below(3); changes > 0; --changes)
                Mutate(broken, dice);
            seen.insert(ReadAndLook(target, broken));
        }
    }
    EXPECT_GE(seen.size(), 15U) << "the changes reach most of the codes";
}

TEST(JsonMutation, EveryTextThatIsCutOffFails)
{
    Dice dice(6);
    Everything target;
    const std::string whole = SomeText(dice);
    ASSERT_EQ(FromJson(target, whole), 0);
    for (std::size_t length = 1; length < whole.size(); ++length) {
        EXPECT_NE(ReadAndLook(target, whole.substr(0, length)), 0) << length;
    }
}

TEST(JsonMutation, RandomBytesAreSurvived)
{
    Dice dice(7);
    Everything target;
    for (int i = 0; i < 5000; ++i)
        ReadAndLook(target, "{" + dice.Bytes(40));
    for (int i = 0; i < 5000; ++i)
        ReadAndLook(target, dice.Bytes(40));
}

} // namespace
