#include <memory>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include <vexa/interchange.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/problem_lines.h"

// Objects that point to each other in a ring: a text that follows it could destroy what is being read.

namespace rings {

struct Holder;
struct Node {
    int number = 0;
    std::string text = "a text that is too long to lie in its string";
    std::shared_ptr<Holder> up;
    Holder* raw = nullptr; // as the description has it, the node owns it
};
struct Holder {
    std::shared_ptr<Node> shared;
    std::unique_ptr<Node> owned;
    std::optional<Node> inside;
    int number = 0;
};
VEXA_DESCRIBE(Node, number, text, up, raw)
VEXA_DESCRIBE(Holder, shared, owned, inside, number)

} // namespace rings

namespace {

std::string Read(rings::Holder& holder, const std::string& text, bool isTransactional)
{
    vexa::CReadPolicy policy;
    policy.Transactional = isTransactional;
    return test::ProblemsOf(holder, [&](rings::Holder& object, vexa::CReport& report) {
        return vexa::ReadJson(object, text, report, policy);
    });
}

TEST(ReadRing, DoesNotReadAgainWhatIsBeingRead)
{
    for (const bool isTransactional : {false, true}) {
        const auto holder = std::make_shared<rings::Holder>();
        holder->shared = std::make_shared<rings::Node>();
        holder->owned = std::make_unique<rings::Node>();
        holder->inside.emplace();
        for (rings::Node* const node : {holder->shared.get(), holder->owned.get(), &*holder->inside}) {
            node->up = holder;
            node->raw = holder.get();
        }
        for (const std::string way : {"shared", "owned", "inside"}) {
            for (const std::string back : {"up", "raw"}) {
                const std::string text = "{\"" + way + "\":{\"" + back + "\":{\"" + way + "\":null},\"text\":\"t\"}}";
                EXPECT_EQ("34 " + std::to_string(way.size() + back.size() + 8) +
                              "+1 1:" + std::to_string(way.size() + back.size() + 9) + " path=" + way + "." + back +
                              " pointer=/" + way + "/" + back + " class=rings::Node attrib=" + back +
                              " expected=an object that is not being read already excerpt=" + text + "\n",
                          Read(*holder, text, isTransactional));
            }
        }
        for (rings::Node* const node : {holder->shared.get(), holder->owned.get(), &*holder->inside}) {
            EXPECT_EQ(isTransactional ? "a text that is too long to lie in its string" : "t", node->text);
            EXPECT_EQ(holder, node->up);
            EXPECT_EQ(holder.get(), node->raw);
            node->raw = nullptr;
        }
        EXPECT_EQ("",
                  Read(*holder, R"({"shared":{"up":null},"owned":{"up":null},"inside":{"up":null}})", isTransactional));
        EXPECT_EQ(nullptr, holder->inside->up);
        EXPECT_EQ(1, holder.use_count());
    }
}

/// Two pointers to one object that is not open read it one after the other.
TEST(ReadRing, ReadsWhatIsSharedTwice)
{
    rings::Node first;
    rings::Node second;
    first.up = second.up = std::make_shared<rings::Holder>();
    vexa::CReport report;
    EXPECT_TRUE(vexa::ReadJson(first, R"({"up":{"number":1,"inside":{"number":2}}})", report)) << report;
    EXPECT_TRUE(vexa::ReadJson(second, R"({"up":{"owned":{"up":{"number":3}}}})", report)) << report;
    EXPECT_EQ(1, first.up->number);
    EXPECT_EQ(3, first.up->owned->up->number);
}

} // namespace
