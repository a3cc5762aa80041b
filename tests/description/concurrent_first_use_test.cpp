// Eight threads that use described types for the first time at once. They run before the descriptions of this file take
// effect by themselves, so that the first use is really theirs.

#include <array>
#include <atomic>
#include <list>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace concurrent_first_use {

/// Each refers to the next and holds the one before, in a ring of eight; each has a base that points to it.
constexpr int COUNT = 8;
template<int N>
struct Item;
template<int N>
struct Base {
    int b = N;
    Item<N>* derived = nullptr;
};
template<int N>
struct Item : Base<N> {
    int x = N;
    std::vector<Item<(N + 1) % COUNT>> next;
    std::map<std::string, Item<(N + COUNT - 1) % COUNT>> previous;
    Item<(N + 3) % COUNT>* far = nullptr;
};

/// What one thread found.
struct Seen {
    std::string Text;
    std::array<const vexa::CClassInfor*, COUNT> Classes;
    const vexa::CGnlTypeInfor* Type;
};

template<int N>
Seen UseFirst()
{
    Seen seen;
    Item<N> item;
    const int code =
        vexa::FromJson(item, R"({"b":1,"x":2,"next":[{"x":3}],"previous":[{"first":"p","second":{"x":4}}]})");
    seen.Text = std::to_string(code) + ' ' + vexa_test::Json(item);
    seen.Classes = {&vexa::ClassInforOf<Item<0>>(), &vexa::ClassInforOf<Item<1>>(), &vexa::ClassInforOf<Item<2>>(),
                    &vexa::ClassInforOf<Item<3>>(), &vexa::ClassInforOf<Item<4>>(), &vexa::ClassInforOf<Item<5>>(),
                    &vexa::ClassInforOf<Item<6>>(), &vexa::ClassInforOf<Item<7>>()};
    seen.Type = &vexa::TypeInforOf<std::list<std::vector<Item<0>>>>();
    return seen;
}

std::array<Seen, COUNT> UseAllAtOnce()
{
    constexpr std::array<Seen (*)(), COUNT> USES = {&UseFirst<0>, &UseFirst<1>, &UseFirst<2>, &UseFirst<3>,
                                                    &UseFirst<4>, &UseFirst<5>, &UseFirst<6>, &UseFirst<7>};
    std::array<Seen, COUNT> seen;
    std::atomic<int> waiting{COUNT};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < COUNT; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting.load() != 0)
                std::this_thread::yield();
            seen[i] = USES[i]();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    return seen;
}

const std::array<Seen, COUNT> g_seen = UseAllAtOnce();

#define DESCRIBE_ITEM(n)                                                                                               \
    VEXA_DESCRIBE(Base<n>, b, derived)                                                                                 \
    VEXA_DESCRIBE_CLASS(Item<n>)                                                                                       \
    {                                                                                                                  \
        about.Base<Base<n>>();                                                                                         \
        about.Attrib("x", &Item<n>::x);                                                                                \
        about.Attrib("next", &Item<n>::next);                                                                          \
        about.Attrib("previous", &Item<n>::previous);                                                                  \
        about.Attrib("far", &Item<n>::far);                                                                            \
    }
DESCRIBE_ITEM(0)
DESCRIBE_ITEM(1)
DESCRIBE_ITEM(2)
DESCRIBE_ITEM(3)
DESCRIBE_ITEM(4)
DESCRIBE_ITEM(5)
DESCRIBE_ITEM(6)
DESCRIBE_ITEM(7)

} // namespace concurrent_first_use

namespace {

using namespace concurrent_first_use;

TEST(ConcurrentFirstUse, EveryThreadSeesTheSameDescriptors)
{
    for (const Seen& seen : g_seen) {
        EXPECT_EQ(seen.Classes, g_seen[0].Classes);
        EXPECT_EQ(seen.Type, g_seen[0].Type);
    }
    EXPECT_EQ(g_seen[0].Classes[5], &vexa::ClassInforOf<Item<5>>());
}

TEST(ConcurrentFirstUse, EveryThreadSeesCompleteDescriptors)
{
    for (std::size_t n = 0; n < COUNT; ++n) {
        const std::string next = std::to_string((n + 1) % COUNT);
        EXPECT_EQ(g_seen[n].Text, R"(0 {"b":1,"x":2,"next":[{"b":)" + next +
                                      R"(,"x":3,"next":[],"previous":[]}],"previous":[{"first":"p",)"
                                      R"("second":{"b":0,"x":4,"next":[],"previous":[]}}]})");
    }
}

TEST(ConcurrentFirstUse, EveryDescriptorIsComplete)
{
    for (const vexa::CClassInfor* infor : g_seen[0].Classes) {
        std::string names;
        for (const vexa::CAttribInfor& record : infor->AttribList) {
            names += record.Name + ' ';
            EXPECT_TRUE(record.TypeInfor.DataType == vexa::Enum::DT_INT || record.TypeInfor.DetailInfor != nullptr);
        }
        EXPECT_EQ(names, "b derived x next previous far ");
        EXPECT_NE(infor->FindAttribInforByFlatName("x"), nullptr);
    }
}

/// The containers of a described class are built on their own first use, here that of eight threads each.
template<class Container>
void ExpectConcurrentUseIsOne()
{
    std::array<const vexa::CGnlTypeInfor*, COUNT> types{};
    std::array<std::string, COUNT> texts;
    std::atomic<int> waiting{COUNT};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < COUNT; ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting.load() != 0)
                std::this_thread::yield();
            types[i] = &vexa::TypeInforOf<Container>();
            texts[i] = types[i]->TypeName() + ' ' + vexa::AsString(Container(1));
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (std::size_t i = 1; i < COUNT; ++i) {
        EXPECT_EQ(types[i], types[0]);
        EXPECT_EQ(texts[i], texts[0]);
    }
    EXPECT_NE(texts[0].find("Item"), std::string::npos);
}

TEST(ConcurrentFirstUse, OfContainersBuildsEachOnce)
{
    ExpectConcurrentUseIsOne<std::vector<std::vector<Item<0>>>>();
    ExpectConcurrentUseIsOne<std::list<Item<1>>>();
    ExpectConcurrentUseIsOne<std::list<std::list<std::list<Item<2>>>>>();
    ExpectConcurrentUseIsOne<std::vector<Item<3>*>>();
    ExpectConcurrentUseIsOne<std::vector<std::array<Item<4>, 1>>>();
}

} // namespace
