// Threads that read and write the same described classes for the first time at once: what is worked out once a class is
// whole for each of them. They run before the descriptions of this file take effect by themselves.

#include <array>
#include <atomic>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/find_class.h>
#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>

namespace first_reading {

constexpr int COUNT = 6;

template<int N>
struct Tone {
    enum class Name { low, high };
};
template<int N>
struct Figure {
    virtual ~Figure() = default;
    int id = 0;
};
template<int N>
struct Round : Figure<N> {
    double radius = 0;
};
template<int N>
struct Limits {
    int lowest = 0;
    std::optional<int> highestOfAll;
};
template<int N>
struct Item {
    typename Tone<N>::Name tone = Tone<N>::Name::low;
    std::map<typename Tone<N>::Name, int> byTone;
    std::unique_ptr<Figure<N>> figure;
    std::vector<std::shared_ptr<Round<N>>> rounds;
    std::variant<std::monostate, std::string, std::vector<Item<(N + 1) % COUNT>>> next;
    Limits<N> limits;
    std::map<std::string, vexa::CRawJson> rest;
};

constexpr char TEXT[] =
    R"({"tone":"high","by-tone":{"low":1},"figure":{"kind":"round","id":2,"radius":0.5},)"
    R"("rounds":[{"kind":"round","id":3,"radius":1.5},null],"next":[{"tone":"low","by-tone":{},"figure":null,)"
    R"("rounds":[],"next":"x","lowest":-4,"highest_of_all":9}],"lowest":5,"highest_of_all":null,"further":[true]})";

template<int N>
std::string ReadAndWrite()
{
    vexa::ClassInforOf<Round<N>>(); // what only a tag names is not known before its description takes effect
    Item<N> item;
    vexa::CReport report;
    vexa::CReadPolicy policy;
    policy.Transactional = N % 2 == 0;
    vexa::ReadJson(item, TEXT, report, policy);
    vexa::ReadJson(item, R"({"tone":"hihg","figure":{"kind":"ruond"},"lowest":10})", report, policy);
    item.tone = Tone<N>::Name::high;
    item.limits.lowest = 5;
    const std::string found = vexa::FindClass("no such class") == nullptr ? "" : "found";
    return vexa::WriteJson(item) + '\n' + report.AsString() + found;
}

/// Every thread uses every class, each beginning with another one.
std::string UseAll(int first)
{
    static constexpr std::array<std::string (*)(), COUNT> USES = {&ReadAndWrite<0>, &ReadAndWrite<1>, &ReadAndWrite<2>,
                                                                  &ReadAndWrite<3>, &ReadAndWrite<4>, &ReadAndWrite<5>};
    std::array<std::string, COUNT> texts;
    for (int i = 0; i < COUNT; ++i) {
        const auto number = static_cast<std::size_t>((first + i) % COUNT);
        texts[number] = USES[number]();
    }
    std::string all;
    for (const std::string& text : texts)
        all += text;
    return all;
}

std::vector<std::string> UseAllAtOnce()
{
    constexpr std::size_t THREADS = 8;
    std::vector<std::string> texts(THREADS);
    std::atomic<std::size_t> waiting{THREADS};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < THREADS; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting.load() != 0)
                std::this_thread::yield();
            texts[i] = UseAll(static_cast<int>(i) / 2); // two begin with the same one
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    return texts;
}

const std::vector<std::string> g_texts = UseAllAtOnce();

#define DESCRIBE_ITEM(n)                                                                                               \
    using ToneName##n = Tone<n>::Name;                                                                                 \
    VEXA_DESCRIBE_ENUM(ToneName##n, low, high)                                                                         \
    VEXA_DESCRIBE_CLASS(Figure<n>)                                                                                     \
    {                                                                                                                  \
        about.Tag("kind");                                                                                             \
        about.TagValue("figure");                                                                                      \
        about.Attrib("id", &Figure<n>::id);                                                                            \
    }                                                                                                                  \
    VEXA_DESCRIBE_CLASS(Round<n>)                                                                                      \
    {                                                                                                                  \
        about.Base<Figure<n>>();                                                                                       \
        about.TagValue("round");                                                                                       \
        about.Attrib("radius", &Round<n>::radius);                                                                     \
    }                                                                                                                  \
    VEXA_DESCRIBE_CLASS(Limits<n>)                                                                                     \
    {                                                                                                                  \
        about.KeyStyle(vexa::KeyStyle::SNAKE);                                                                         \
        about.Attrib("lowest", &Limits<n>::lowest).Range(-9, 9);                                                       \
        about.Attrib("highestOfAll", &Limits<n>::highestOfAll);                                                        \
    }                                                                                                                  \
    VEXA_DESCRIBE_CLASS(Item<n>)                                                                                       \
    {                                                                                                                  \
        about.KeyStyle(vexa::KeyStyle::KEBAB);                                                                         \
        about.Attrib("tone", &Item<n>::tone);                                                                          \
        about.Attrib("byTone", &Item<n>::byTone);                                                                      \
        about.Attrib("figure", &Item<n>::figure);                                                                      \
        about.Attrib("rounds", &Item<n>::rounds);                                                                      \
        about.Attrib("next", &Item<n>::next);                                                                          \
        about.Attrib("limits", &Item<n>::limits).Flatten();                                                            \
        about.Attrib("rest", &Item<n>::rest).KeepsUnknown();                                                           \
    }
DESCRIBE_ITEM(0)
DESCRIBE_ITEM(1)
DESCRIBE_ITEM(2)
DESCRIBE_ITEM(3)
DESCRIBE_ITEM(4)
DESCRIBE_ITEM(5)

} // namespace first_reading

namespace {

using namespace first_reading;

TEST(ConcurrentFirstReading, EveryThreadReadsAndWritesTheSame)
{
    const std::string problems =
        "1:9: tone: the name is not known: expected one of \"low\", \"high\", found \"hihg\"; did you mean \"high\"?\n"
        "1:33: figure: the tag is not known: expected one of \"figure\", \"round\", found \"ruond\"; did you mean "
        "\"round\"?\n"
        "1:51: limits.lowest: the value is out of range: expected -9 to 9, found 10\n";
    std::string expected;
    for (int i = 0; i < COUNT; ++i)
        expected += TEXT + ('\n' + problems);
    for (const std::string& text : g_texts)
        EXPECT_EQ(text, expected);
}

} // namespace
