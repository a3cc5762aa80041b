// Every allocation of a writing, and of a report that is shown, fails in turn: the exception comes out and leaves no
// half a text, or the text is whole as sorting does without its memory, and nothing is left behind.

#include <cstdio>
#include <functional>
#include <new>
#include <string>

#include "failing_object.h"
#include "support/counted_allocation.h"

namespace {

using namespace failing_object;

constexpr int DONE = 0, WRONG = 1;

/// Writes into a text that holds something already.
using Write = std::function<void(std::string&)>;

int Wrong(const char* name, const char* what, long failing)
{
    std::fprintf(stderr, "%s, allocation %ld: %s\n", name, failing, what);
    return WRONG;
}

int RunAll(const char* name, const Write& write)
{
    std::string expected;
    write(expected);
    long failing = 0;
    for (bool isOver = false; !isOver;) {
        const long before = vexa_test::s_live;
        {
            std::string out;
            bool isThrown = false;
            vexa_test::s_untilFailure = ++failing;
            try {
                write(out);
            } catch (const std::bad_alloc&) {
                isThrown = true;
            }
            isOver = vexa_test::s_untilFailure != 0;
            vexa_test::s_untilFailure = 0;
            if (isThrown && isOver) return Wrong(name, "an exception from elsewhere", failing);
            if (out != (isThrown ? "" : expected)) return Wrong(name, "another text", failing);
        }
        if (vexa_test::s_live != before) return Wrong(name, "something was left behind", failing);
    }
    std::printf("%s: %ld allocations failed in turn\n", name, failing - 1);
    return expected.empty() || failing < 2 ? Wrong(name, "there are hardly any", failing) : DONE;
}

vexa::CWritePolicy Styled()
{
    vexa::CWritePolicy policy;
    policy.Indentation = 2;
    policy.SortKeys = true;
    policy.AsciiOnly = true;
    policy.LeaveOutNulls = true;
    policy.LeaveOutDefaults = true;
    policy.Masked = vexa::MaskedValues::MASK;
    return policy;
}

} // namespace

int main()
{
    Whole whole;
    vexa::CReport good, bad;
    if (!vexa::ReadJson(whole, FIRST, good)) return Wrong("the first text", "it is not read", 0);
    Whole other;
    if (vexa::ReadJson(other, THIRD, bad)) return Wrong("the third text", "it has no problem", 0);
    vexa::CJsonTree tree;
    if (!tree.Parse(FIRST, good)) return Wrong("the tree", "it is not read", 0);

    const auto moved = [](std::string& out, std::string text) { out = std::move(text); };
    const bool isDone =
        RunAll("plain", [&](std::string& out) { vexa::WriteJson(out, whole); }) == DONE &&
        RunAll("styled", [&](std::string& out) { vexa::WriteJson(out, whole, Styled()); }) == DONE &&
        RunAll("in pieces",
               [&](std::string& out) {
                   std::string text;
                   vexa::WriteJson([&text](std::string_view piece) { return text += piece, true; }, whole, Styled());
                   moved(out, std::move(text));
               }) == DONE &&
        RunAll("a tree", [&](std::string& out) { tree.Write(out, Styled()); }) == DONE &&
        RunAll("a copied tree",
               [&](std::string& out) {
                   const vexa::CJsonTree copy = tree;
                   copy.Write(out);
               }) == DONE &&
        RunAll("a parsed tree",
               [&](std::string& out) {
                   vexa::CJsonTree parsed;
                   vexa::CReport report;
                   parsed.Parse(FIRST, report);
                   parsed.Write(out);
               }) == DONE &&
        RunAll("a report", [&](std::string& out) { moved(out, bad.AsString(THIRD)); }) == DONE &&
        RunAll("a report for programs", [&](std::string& out) { moved(out, vexa::WriteJson(bad)); }) == DONE;
    return isDone ? DONE : WRONG;
}
