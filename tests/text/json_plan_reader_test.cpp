// Reading JSON along the plans and along the descriptors: the same code, object, log lines and questions to converters,
// whatever the text. A copy of a finished descriptor has no plan, so that it is walked plainly.

#include <vexa/json.h>

#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/helper.h>

#include "support/captured_log.h"
#include "support/plain_descriptor.h"
#include "support/random_json.h"
#include "support/random_objects.h"

namespace vexa_test::random_objects {
namespace {

constexpr std::size_t TEXTS_OF_EACH_CLASS = 8000;
constexpr std::size_t BATCH = 100;

/// What the usual case looks like.
struct Place {
    std::string city;
    std::string zip;
    int number = 0;
    auto Members() { return std::tie(city, zip, number); }
};
VEXA_DESCRIBE(Place, city, zip, number)

struct Order {
    int id = 0;
    long ts = 0;
    bool paid = false;
    unsigned int qty = 0;
    short code = 0;
    std::string customer;
    std::vector<int> items;
    Place place;
    std::vector<Place> places;
    vexa::MayNull<std::string> note;
    vexa::MayNull<long> rank;
    auto Members() { return std::tie(id, ts, paid, qty, code, customer, items, place, places, note, rank); }
};
VEXA_DESCRIBE(Order, id, ts, paid, qty, code, customer, items, place, places, note, rank)

/// What cannot be changed, the same in every object.
struct Sealed {
    int before = 0;
    const int number = 3;
    const std::string text = "sealed";
    const vexa::MayNull<short> maybe = short(4);
    const Place place{"Oslo", "0150", 5};
    const std::vector<int> numbers{6, 7};
    std::string after;
    auto Members() { return std::tie(before, after); }
};
VEXA_DESCRIBE(Sealed, before, number, text, maybe, place, numbers, after)

/// A name that looks like more than one key.
struct Quoted {
    int plain = 0;
    int quoted = 0;
};

struct Read {
    std::vector<std::string> Results;
    std::string Log;
};

/// Reads one text after the other into one value, which is looked at plainly.
Read ReadAll(vexa::CRefrence target, const vexa::CConstRefrence& plain, const std::vector<std::string>& texts)
{
    Read read;
    std::string written;
    read.Log = LoggedLines([&] {
        for (const std::string& text : texts) {
            vexa::helper::LogError("text %d", static_cast<int>(read.Results.size()));
            ConverterCalls().clear();
            std::string result = std::to_string(vexa::FromJson(target, text)) + " asked: " + ConverterCalls();
            vexa::ToJson(written, plain);
            result += written;
            if (read.Results.size() % 8 == 0) result += plain.AsString(vexa::Enum::ASF_TYPE_AND_VALUE);
            read.Results.push_back(std::move(result));
        }
    });
    return read;
}

/// Nobody frees what raw pointers of an object own but the object itself.
template<class T>
struct Pair {
    std::unique_ptr<T> Planned = std::make_unique<T>();
    std::unique_ptr<T> Walked = std::make_unique<T>();

    void ExpectTheSame(const std::vector<std::string>& texts, PlainDescriptors& plain)
    {
        const vexa::CRefrence planned = vexa::RefOf(*Planned);
        const vexa::CRefrence walked = plain.Of(vexa::RefOf(*Walked));
        const Read left = ReadAll(planned, {walked.TypeInfor, planned.Address}, texts);
        const Read right = ReadAll(walked, walked, texts);
        for (std::size_t i = 0; i < texts.size(); ++i)
            ASSERT_EQ(left.Results[i], right.Results[i]) << planned.TypeName() << ": " << texts[i];
        ASSERT_EQ(left.Log, right.Log);
    }
};

void Mutate(std::string& text, Dice& dice)
{
    if (text.empty()) return;
    static const std::string tokens = "{}[]\":,\\u-0159 \n\t\rtruefals";
    const std::size_t place = dice.Below(text.size());
    switch (dice.Below(8)) {
    case 0: text[place] = static_cast<char>(dice.Below(256)); break;
    case 1: text[place] = tokens[dice.Below(tokens.size())]; break;
    case 2: text.insert(place, 1, tokens[dice.Below(tokens.size())]); break;
    case 3: text.erase(place, 1 + dice.Below(5)); break;
    case 4: text.insert(place, text.substr(dice.Below(text.size()), dice.Below(40))); break;
    case 5: text.resize(place); break;
    case 6: text.insert(place, 1 + dice.Below(20), " \n\t\r"[dice.Below(4)]); break;
    default: std::swap(text[place], text[dice.Below(text.size())]);
    }
}

/// A text for the type: made from the description, or written from a random object; whole or broken.
template<class T>
std::string SomeText(Random& random, Dice& dice, const std::vector<std::string>& written)
{
    RandomJson json(dice);
    std::string text = dice.Below(2) == 0 ? json.Text(vexa::TypeInforOf<T>()) : written[random.Below(written.size())];
    for (std::size_t changes = dice.Below(3); changes > 0; --changes)
        Mutate(text, dice);
    return text;
}

template<class T>
std::vector<std::string> WrittenTexts(Random& random)
{
    std::vector<std::string> texts;
    LoggedLines([&] {
        for (int i = 0; i < 20; ++i)
            vexa::ToJson(texts.emplace_back(), vexa::RefOf(*RandomObject<T>(random)));
    });
    random.Forget();
    return texts;
}

template<class T>
void ExpectTheSameForRandomTexts(Random& random, Dice& dice, PlainDescriptors& plain, std::size_t& count)
{
    Pair<T> pair;
    std::vector<std::string> written;
    for (std::size_t done = 0; done < TEXTS_OF_EACH_CLASS && !testing::Test::HasFailure(); done += BATCH) {
        if (done % (8 * BATCH) == 0) written = WrittenTexts<T>(random);
        std::vector<std::string> texts(BATCH);
        for (std::string& text : texts)
            text = SomeText<T>(random, dice, written);
        pair.ExpectTheSame(texts, plain);
        count += texts.size();
    }
}

TEST(JsonPlanReader, ReadsAnyTextAsItIsReadAlongTheDescriptor)
{
    const auto seed = static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    SCOPED_TRACE("seed " + std::to_string(seed));
    Random random(seed);
    Dice dice(seed);
    PlainDescriptors plain;
    std::size_t count = 0;
    ForEachRandomClass([&](auto tag) {
        using T = typename decltype(tag)::Type;
        // The constants of a random object are its own.
        if constexpr (!std::is_same_v<T, Constants>) ExpectTheSameForRandomTexts<T>(random, dice, plain, count);
    });
    ExpectTheSameForRandomTexts<Sealed>(random, dice, plain, count);
    for (int i = 0; i < 2; ++i) {
        ExpectTheSameForRandomTexts<Order>(random, dice, plain, count);
        ExpectTheSameForRandomTexts<std::vector<Order>>(random, dice, plain, count);
    }
    std::cout << "seed " << seed << ", " << count << " texts\n";
    EXPECT_GE(count, 100000U);
}

TEST(JsonPlanReader, ReadsEveryBeginningOfATextAsAlongTheDescriptor)
{
    Dice dice(3);
    PlainDescriptors plain;
    Pair<Order> pair;
    const std::string whole =
        R"( {"id":-1,"ts":123456789012345678901234567890 , "paid" :true,"qty":4294967295,"code":70000,)"
        R"("customer":"a \"text\" \u0041\u00e9\u0100\x beyond sixteen bytes","items":[1,-2,,3x)"
        R"(]})";
    const std::string valid =
        R"({"id":1,"ts":1700000000000,"paid":false,"qty":7,"code":-5,"customer":"customer1234","items":[ 1, 2,3 ],)"
        R"("place":{"city":"Oslo","zip":"0150","number":3},"places":[{"zip":"1"},{"number":2,"city":"x"}],)"
        R"("note":"n","note":"m","rank":5,"customer":"more","items":[4],"place":{"city":" again"}} x)";
    std::vector<std::string> texts;
    for (const std::string& text : {whole, valid}) {
        for (std::size_t length = 0; length <= text.size(); ++length) {
            texts.push_back(text.substr(0, length));
            texts.push_back(text.substr(0, length) + '\0');
        }
    }
    pair.ExpectTheSame(texts, plain);
    EXPECT_EQ(vexa::FromJson(*pair.Planned, valid), 0);
    EXPECT_EQ(pair.Planned->customer, "customer1234more");
    EXPECT_EQ(pair.Planned->items, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(pair.Planned->place.city, "Oslo again");
}

TEST(JsonPlanReader, NestsAsDeepAsTheDescriptorAllows)
{
    PlainDescriptors plain;
    Pair<Node> pair;
    std::vector<std::string> texts;
    for (const std::size_t depth : {499U, 500U, 501U, 999U, 1000U, 1001U}) {
        std::string text;
        for (std::size_t i = 0; i < depth; ++i)
            text += R"({"children":[)";
        texts.push_back(text + R"({"number":1}])");
        texts.push_back(text);
    }
    pair.ExpectTheSame(texts, plain);
    EXPECT_EQ(vexa::FromJson(*pair.Planned, texts.back()), 999);
}

/// A name may hold whatever an application writes there; a key ends at its first quotation mark.
TEST(JsonPlanReader, AKeyEndsAtItsFirstQuotationMark)
{
    static vexa::CClassInfor* s_slot = nullptr;
    vexa::CClassInfor::InitClassInfor(
        s_slot, "Quoted", sizeof(Quoted), nullptr, nullptr,
        [](vexa::CClassInfor& about, vexa::Enum::AccessSpecifierEnum access) {
            about.AddAttribInfor(access, offsetof(Quoted, plain), "a", -1).TypeInfor = vexa::TypeInforOf<int>();
            about.AddAttribInfor(access, offsetof(Quoted, quoted), "b\":1,\"a", -1).TypeInfor =
                vexa::TypeInforOf<int>();
        });
    Quoted quoted;
    vexa::CRefrence ref(vexa::CGnlTypeInfor(vexa::Enum::DT_CLASS, 0, s_slot), &quoted);
    EXPECT_EQ(vexa::FromJson(ref, R"({"b":1,"a":5})"), 722);
    EXPECT_EQ(vexa::FromJson(ref, R"({"a":5,"b":1,"a":6})"), 722);
    EXPECT_EQ(quoted.plain, 5);
    EXPECT_EQ(quoted.quoted, 0);
}

} // namespace
} // namespace vexa_test::random_objects
