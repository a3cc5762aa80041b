// Runs one workload a given number of times and nothing else, for a tool that counts instructions: the difference
// between two runs is the price of the workload itself. counted <workload> <times>; without a workload it lists them.

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <string>

#include <vexa/interchange.h>

#include "described_workloads.h"
#include "reference_hand.h"

namespace {

template<class Object>
std::function<bool()> Writing(const Object& object)
{
    return [&object, text = std::string()]() mutable { return vexa::ToJson(text, object) == 0; };
}

template<class Object>
std::function<bool()> Reading(const Object& object)
{
    std::string text;
    reference::WriteByHand(text, object);
    return [text] {
        Object read;
        return vexa::FromJson(read, text) == 0;
    };
}

/// Likewise in standard JSON.
template<class Object>
std::function<bool()> WritingStandard(const Object& object)
{
    return [&object, text = std::string()]() mutable { return vexa::WriteJson(text, object); };
}

template<class Object>
std::function<bool()> ReadingStandard(const Object& object)
{
    std::string text;
    reference::WriteByHand(text, object);
    return [text] {
        Object read;
        vexa::CReport report;
        return vexa::ReadJson(read, text, report);
    };
}

} // namespace

int main(int argc, char** argv)
{
    const workload::Languages languages = workload::MakeLanguages();
    const workload::Orders orders = workload::MakeOrders();
    const std::map<std::string, std::function<bool()>> jobs = {
        {"W1", Writing(languages)},
        {"W2", Writing(orders)},
        {"R1", Reading(languages)},
        {"R2", Reading(orders)},
        {"SW1", WritingStandard(languages)},
        {"SW2", WritingStandard(orders)},
        {"SR1", ReadingStandard(languages)},
        {"SR2", ReadingStandard(orders)},
        {"Text",
         [&orders, text = std::string()]() mutable {
             vexa::AsString(text, orders);
             return !text.empty();
         }},
        {"Names",
         [&orders] {
             const std::string names[] = {"qty", "customer", "address", "id", "none"};
             long found = 0;
             vexa::CConstRefrence attrib;
             for (const workload::Order& order : orders.orders) {
                 const vexa::CConstRefrence ref = vexa::RefOf(order);
                 for (const std::string& name : names)
                     found += ref.AsClass().FindAttribByName(attrib, name) ? 1 : 0;
             }
             return found == static_cast<long>(4 * orders.orders.size());
         }},
    };
    const auto job = argc == 3 ? jobs.find(argv[1]) : jobs.end();
    if (job == jobs.end() || languages.records.empty()) {
        std::fprintf(stderr, "usage: counted <workload> <times>; needs iso-codes. Workloads:");
        for (const auto& known : jobs)
            std::fprintf(stderr, " %s", known.first.c_str());
        std::fprintf(stderr, "\n");
        return 2;
    }
    for (int left = std::atoi(argv[2]); left > 0; --left) {
        if (!job->second()) return 1;
    }
    return 0;
}
