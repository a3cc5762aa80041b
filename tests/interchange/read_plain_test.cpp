// What stands in most texts is read in one go; everything else value by value. Both give the same objects and the same
// reports, whatever the text is, and neither looks behind its end.

#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace plain {

struct Place {
    std::string city;
    int number = 0;
};
struct Order {
    bool paid = false;
    unsigned char tag = 0;
    short code = 0;
    unsigned short port = 0;
    int id = 0;
    unsigned int count = 0;
    long ts = 0;
    unsigned long mask = 0;
    float weight = 0;
    double price = 0;
    std::string name;
    std::string attributeOfALongName;
    std::vector<int> items;
    std::vector<unsigned char> bytes;
    std::vector<double> rates;
    std::vector<std::string> notes;
    Place place;
    std::vector<Place> places;
};
VEXA_DESCRIBE(Place, city, number)
VEXA_DESCRIBE(Order, paid, tag, code, port, id, count, ts, mask, weight, price, name, attributeOfALongName, items,
              bytes, rates, notes, place, places)

} // namespace plain

namespace {

using plain::Order;
using vexa::CReadPolicy;

/// The verdict, what has been read and all that the report says.
std::string Outcome(std::string_view text, const CReadPolicy& policy)
{
    Order order;
    order.name = "as it was";
    order.items = {1, 2};
    vexa::CReport report;
    const bool isGood = vexa::ReadJson(order, text, report, policy);
    vexa::CWritePolicy shown;
    shown.AllowNan = true;
    return (isGood ? "good " : "bad ") + vexa::WriteJson(order, shown) + '\n' + report.AsString(text);
}

std::string InOneGo(std::string_view text) { return Outcome(text, {}); }

/// Bounds that are no bounds have every value looked at by itself.
std::string ValueByValue(std::string_view text)
{
    CReadPolicy policy;
    policy.MaxTextLength = CReadPolicy::NO_LIMIT - 1;
    return Outcome(text, policy);
}

class CRandomText {
public:
    explicit CRandomText(unsigned seed) : m_random(seed) {}

    std::size_t Below(std::size_t end) { return m_random() % end; }
    template<std::size_t COUNT>
    std::string OneOf(const char* const (&texts)[COUNT])
    {
        return texts[Below(COUNT)];
    }
    std::string Blanks()
    {
        static const char* const BLANKS[] = {"", "", "", "", " ", "\n    ", "\t", "\r\n                         "};
        return OneOf(BLANKS);
    }
    std::string Integer()
    {
        std::string digits = Below(4) == 0 ? "-" : "";
        for (std::size_t left = 1 + Below(Below(4) == 0 ? 21 : 6); left > 0; --left)
            digits += static_cast<char>('0' + Below(10));
        return digits;
    }
    std::string Number()
    {
        static const char* const RARE[] = {"0",     "-0",     "00",    "1.5",    "1.",    ".5",     "1e3",
                                           "1e400", "1e-400", "1e",    "1.e5",   "-",     "NaN",    "+1",
                                           "0x10",  "1_0",    "0.0",   "5e-324", "true",  "null",   "\"1\"",
                                           "255",   "256",    "65535", "65536",  "32767", "-32768", "-32769"};
        if (Below(3) == 0) return OneOf(RARE);
        return Below(2) == 0 ? Integer() : Integer() + '.' + std::to_string(Below(1000)) + (Below(2) == 0 ? "e-7" : "");
    }
    std::string Text()
    {
        static const char* const PARTS[] = {"a", "b", "word", "é", "東", "😀", "\\n", "\\u00e9", "\\ud83d\\ude00"};
        static const char* const RARE[] = {"\x80", "\xC3", "\xED\xA0\x80", "\n", "\\x", "\\ud83d", "\x7F", "\xF4\x90"};
        std::string text = "\"";
        const bool isPlain = Below(2) == 0;
        for (std::size_t left = Below(41); left > 0; --left)
            text += isPlain ? "x" : Below(300) == 0 ? OneOf(RARE) : OneOf(PARTS);
        return Below(100) == 0 ? text : text + '"';
    }
    template<class Element>
    std::string Array(Element element)
    {
        std::string text = "[";
        for (std::size_t left = Below(Below(8) == 0 ? 100 : 4), count = left; left > 0; --left)
            text += (left != count ? Blanks() + ',' : "") + Blanks() + element();
        return text + Blanks() + (Below(50) == 0 ? ",]" : "]");
    }
    std::string Member(const char* key, const std::string& value)
    {
        if (Below(30) == 0) return "";
        const std::string name = Below(60) == 0 ? "unknown" : key;
        return ',' + Blanks() + '"' + name + '"' + (Below(20) == 0 ? Blanks() : "") + ':' + Blanks() + value + Blanks();
    }
    std::string Object(std::string members)
    {
        if (!members.empty()) members.erase(0, 1);
        return '{' + members + (Below(60) == 0 ? ",}" : "}");
    }
    std::string PlaceText() { return Object(Member("city", Text()) + Member("number", Integer())); }
    std::string OrderText()
    {
        static const char* const BOOLS[] = {"true", "false", "true", "false", "truth", "falsey", "null", "1", "tru"};
        std::string members;
        const auto number = [this] { return Number(); };
        const auto text = [this] { return Text(); };
        members += Member("paid", OneOf(BOOLS));
        for (const char* const key : {"tag", "code", "port", "id", "count", "ts", "mask", "weight", "price"})
            members += Member(key, Below(3) != 0 ? std::to_string(Below(200)) : Number());
        members += Member("name", Text()) + Member("attributeOfALongName", Text());
        members +=
            Member("items", Array(number)) + Member("bytes", Array([this] { return std::to_string(Below(258)); }));
        members += Member("rates", Array(number)) + Member("notes", Array(text));
        members += Member("place", PlaceText()) + Member("places", Array([this] { return PlaceText(); }));
        if (Below(8) == 0) members += Member("id", Integer());
        return Object(members);
    }

private:
    std::mt19937 m_random;
};

TEST(ReadPlain, RandomTextsGiveTheSameInOneGoAndValueByValue)
{
    const unsigned seed = std::random_device()();
    CRandomText random(seed);
    std::size_t good = 0;
    for (int i = 0; i < 3000; ++i) {
        std::string text = random.OrderText();
        if (random.Below(8) == 0) text.resize(random.Below(text.size() + 1));
        if (random.Below(8) == 0 && !text.empty())
            text[random.Below(text.size())] = static_cast<char>(random.Below(256));
        const std::string outcome = InOneGo(text);
        ASSERT_EQ(outcome, ValueByValue(text)) << "seed " << seed << '\n' << text;
        good += outcome.substr(0, 4) == "good" ? 1 : 0;
    }
    EXPECT_GT(good, 0U) << "seed " << seed;
}

/// A text whose end is that of what may be read: the page behind it may not.
class CTextAtPageEnd {
public:
    CTextAtPageEnd()
        : m_page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))),
          m_memory(mmap(nullptr, 2 * m_page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
        EXPECT_NE(m_memory, MAP_FAILED);
        EXPECT_EQ(mprotect(static_cast<char*>(m_memory) + m_page, m_page, PROT_NONE), 0);
    }
    CTextAtPageEnd(const CTextAtPageEnd&) = delete;
    CTextAtPageEnd& operator=(const CTextAtPageEnd&) = delete;
    ~CTextAtPageEnd() { munmap(m_memory, 2 * m_page); }

    std::string_view Hold(std::string_view text)
    {
        char* const first = static_cast<char*>(m_memory) + m_page - text.size();
        text.copy(first, text.size());
        return {first, text.size()};
    }

private:
    std::size_t m_page;
    void* m_memory;
};

TEST(ReadPlain, NothingBehindTheTextIsLookedAtWhereverItEnds)
{
    const std::string text = R"({"paid":true,"tag":7,"code":-12345,"port":8080,"id":123456789,"count":1,
    "ts":1700000000000, "mask":18446744073709551615,"weight":0.5,"price":-1.25e-3,"name":"Köln und 東京",)"
                             R"("attributeOfALongName":"x","items":[1,22,333,-4444,55555],"bytes":[1,2],)"
                             R"("rates":[0.1,1e300],"notes":["","a","\u00e9"],"place":{"city":"é","number":1},)"
                             R"("places":[{"city":"wxyz","number":1}]})";
    CTextAtPageEnd memory;
    for (std::size_t length = 0; length <= text.size(); ++length) {
        const std::string cut = text.substr(0, length);
        ASSERT_EQ(InOneGo(memory.Hold(cut)), InOneGo(cut)) << cut;
        ASSERT_EQ(InOneGo(memory.Hold(cut)), ValueByValue(memory.Hold(cut))) << cut;
    }
    EXPECT_EQ(InOneGo(text).substr(0, 4), "good");
}

TEST(ReadPlain, AnArrayOfAnyLengthIsReadWhole)
{
    std::vector<int> numbers;
    std::vector<std::string> texts;
    std::vector<float> floats;
    vexa::CReport report;
    for (int count = 0; count < 100; ++count) {
        std::vector<int> readNumbers{7};
        std::vector<std::string> readTexts{"7"};
        std::vector<float> readFloats{7};
        ASSERT_TRUE(vexa::ReadJson(readNumbers, vexa::WriteJson(numbers), report));
        ASSERT_TRUE(vexa::ReadJson(readTexts, vexa::WriteJson(texts), report));
        ASSERT_TRUE(vexa::ReadJson(readFloats, vexa::WriteJson(floats), report));
        ASSERT_EQ(readNumbers, numbers);
        ASSERT_EQ(readTexts, texts);
        ASSERT_EQ(readFloats, floats);
        numbers.push_back(count * 7919 - 300000);
        texts.emplace_back(static_cast<std::size_t>(count), 'x');
        floats.push_back(static_cast<float>(count) / 3);
    }
}

TEST(ReadPlain, AProblemInsideAnArrayTellsItsPlace)
{
    std::string text = "[";
    for (int i = 0; i < 70; ++i)
        text += std::to_string(i) + ',';
    std::vector<unsigned char> bytes;
    vexa::CReport report;
    EXPECT_FALSE(vexa::ReadJson(bytes, text + "300,1]", report));
    ASSERT_EQ(report.Problems().size(), 1U);
    EXPECT_EQ(report.Problems()[0].Path, "[70]");
    EXPECT_EQ(report.Problems()[0].Place.Offset, text.size());
    EXPECT_EQ(report.Problems()[0].Code, vexa::ProblemCode::OUT_OF_RANGE);
}

} // namespace
