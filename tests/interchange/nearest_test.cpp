#include "interchange/nearest.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Names = std::vector<std::string>;
using vexa::interchange::NearestName;

TEST(NearestName, TakesEachKindOfEdit)
{
    const Names names{"street", "zip", "city"};
    EXPECT_EQ("zip", NearestName("zpi", names));       // exchanged
    EXPECT_EQ("zip", NearestName("zp", names));        // left out
    EXPECT_EQ("zip", NearestName("zipp", names));      // inserted
    EXPECT_EQ("city", NearestName("sity", names));     // replaced
    EXPECT_EQ("street", NearestName("strete", names)); // one exchange, not two edits
    EXPECT_EQ("city", NearestName("city", names));
}

TEST(NearestName, IsEmptyWhereNothingIsNear)
{
    EXPECT_EQ("", NearestName("zpi", Names{}));
    EXPECT_EQ("", NearestName("", Names{"a", "zip"}));
    EXPECT_EQ("", NearestName("x", Names{"y"}));
    EXPECT_EQ("", NearestName("phone", Names{"street", "zip", "city"}));
}

// A third of the longer name, rounded to the nearest: 1 of 2 to 4 bytes, 2 of 5 to 7, 3 of 8 to 10, then 4.
TEST(NearestName, AllowsAThirdOfTheLongerNameUpToFourEdits)
{
    for (std::size_t length = 1; length <= 64; ++length) {
        const std::size_t allowed = length < 2 ? 0 : length < 5 ? 1 : length < 8 ? 2 : length < 11 ? 3 : 4;
        const std::string name(length, 'a');
        for (std::size_t edits = 0; edits <= length; ++edits) {
            const std::string wanted = std::string(edits, 'x') + std::string(length - edits, 'a');
            EXPECT_EQ(edits <= allowed ? name : "", NearestName(wanted, Names{name})) << wanted;
        }
    }
}

TEST(NearestName, CountsCaseOnlyBetweenEquallyNearNames)
{
    EXPECT_EQ("serverPort", NearestName("SERVERPORT", Names{"serverPort", "SERVERPO"}));
    EXPECT_EQ("Zip", NearestName("ZIp", Names{"zip", "Zip", "zIP"}));
    EXPECT_EQ("zip", NearestName("zap", Names{"ZIP", "zip", "Zip"}));
}

TEST(NearestName, DoesNotDependOnTheOrder)
{
    Names names{"bat", "cat", "hat", "mat"};
    do {
        EXPECT_EQ("bat", NearestName("rat", names));
    } while (std::next_permutation(names.begin(), names.end()));
}

TEST(NearestName, LeavesLongNamesAlone)
{
    const std::string longest(64, 'a');
    EXPECT_EQ(longest, NearestName(longest.substr(1), Names{longest}));
    EXPECT_EQ("", NearestName(longest, Names{longest + 'a'}));
    EXPECT_EQ("", NearestName(longest + 'a', Names{longest}));
    EXPECT_EQ("", NearestName(std::string(10'000'000, 'a'), Names{longest, "a"}));
}

/// The same distance as a recursion over the last bytes.
std::size_t ModelDistance(const std::string& left, const std::string& right)
{
    const std::size_t m = left.size();
    const std::size_t n = right.size();
    if (m == 0 || n == 0) return m + n;
    const std::string leftRest = left.substr(0, m - 1);
    const std::string rightRest = right.substr(0, n - 1);
    std::size_t least = std::min(ModelDistance(leftRest, right), ModelDistance(left, rightRest)) + 1;
    least = std::min(least, ModelDistance(leftRest, rightRest) + (left.back() == right.back() ? 0 : 1));
    if (m > 1 && n > 1 && left[m - 1] == right[n - 2] && left[m - 2] == right[n - 1])
        least = std::min(least, ModelDistance(left.substr(0, m - 2), right.substr(0, n - 2)) + 1);
    return least;
}

TEST(NearestName, DistanceEqualsTheModel)
{
    using vexa::interchange::EditDistance;
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto word = [&] {
        std::string text(random() % 6, ' ');
        for (char& byte : text)
            byte = "abc"[random() % 3];
        return text;
    };
    for (int i = 0; i < 2000; ++i) {
        const std::string left = word();
        const std::string right = word();
        const std::size_t expected = ModelDistance(left, right);
        const std::size_t most = random() % 6;
        EXPECT_EQ(expected, EditDistance(left, right, 64, vexa::interchange::SameByte)) << left << ' ' << right;
        EXPECT_EQ(std::min(expected, most + 1), EditDistance(left, right, most, vexa::interchange::SameByte))
            << left << ' ' << right << ' ' << most;
    }
}

} // namespace
