// Every allocation of a reading fails in turn: the exception comes out, the object can be used and destroyed, in a
// transactional reading it is as it was, and nothing is left behind. Only the reading meets the failure, not the
// undoing, which may need memory for what an application's converters make.

#include <cstdio>
#include <string>
#include <utility>

#include "failing_object.h"
#include "support/counted_allocation.h"

namespace {

using namespace failing_object;

constexpr int DONE = 0, WRONG = 1;

int Wrong(const char* what, long failing, const std::string& detail = {})
{
    std::fprintf(stderr, "allocation %ld: %s\n%s\n", failing, what, detail.c_str());
    return WRONG;
}

/// How one text is read.
using Read = bool (*)(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy);

bool ReadAtOnce(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy)
{
    return vexa::ReadJson(whole, text, report, policy);
}

bool ReadInPieces(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy)
{
    constexpr std::size_t LENGTH = 40;
    const vexa::InputFunction input = [&text]() {
        const std::string_view piece = text.substr(0, LENGTH);
        text.remove_prefix(piece.size());
        return piece;
    };
    return vexa::ReadJson(whole, input, report, policy);
}

/// As the second line of two: the first is passed over.
bool ReadAsLine(Whole& whole, std::string_view text, vexa::CReport& report, const vexa::CReadPolicy& policy)
{
    static std::string lines; // what it needs is no part of the reading
    const long failing = std::exchange(vexa_test::s_untilFailure, 0);
    lines = "  \n" + OneLine(std::string(text)) + "\n";
    vexa_test::s_untilFailure = failing;
    const vexa::InputFunction input = [left = std::string_view(lines)]() mutable {
        const std::string_view piece = left.substr(0, 1000);
        left.remove_prefix(piece.size());
        return piece;
    };
    return vexa::ReadJsonLines(
        vexa::RefOf(whole), input, [] {}, [] { return true; }, report, policy);
}

/// What is read, and how.
struct CCase {
    Read How;
    const char* Text;
    bool IsTransactional;
    bool IsGood; ///< the text has no problems
};

vexa::CReadPolicy PolicyOf(const CCase& what)
{
    vexa::CReadPolicy policy;
    policy.Transactional = what.IsTransactional;
    policy.LastDuplicateWins = what.Text == FOURTH;
    return policy;
}

/// Reads the text into an object that holds the first one, while the allocation with a number fails. \param isOver
/// whether there are not so many.
int RunCase(const CCase& what, long failing, bool& isOver)
{
    const long before = vexa_test::s_live;
    {
        const vexa::CReadPolicy policy = PolicyOf(what);
        Whole whole;
        vexa::CReport report;
        if (!vexa::ReadJson(whole, FIRST, report)) return Wrong("the first text is not read", 0, report.AsString());
        const std::string json = vexa::WriteJson(whole);
        bool isThrown = false;
        bool isGood = false;
        try {
            vexa_test::s_untilFailure = failing;
            isGood = what.How(whole, what.Text, report, policy);
        } catch (const std::bad_alloc&) {
            isThrown = true;
        }
        isOver = vexa_test::s_untilFailure != 0;
        vexa_test::s_untilFailure = 0;
        if (isOver == isThrown) return Wrong("the exception did not come out, or came from elsewhere", failing);
        if (isGood != (isOver && what.IsGood)) return Wrong("it is judged otherwise", failing, report.AsString());
        const std::string after = vexa::WriteJson(whole);
        if (what.IsTransactional && isThrown && after != json)
            return Wrong("the object is not as it was", failing, json + "\n" + after);
        vexa::CReport again;
        if (!vexa::ReadJson(whole, FIRST, again))
            return Wrong("the object cannot be read into", failing, again.AsString());
    }
    if (vexa_test::s_live != before) return Wrong("something was left behind", failing);
    return DONE;
}

/// What is made once a process is made here.
void ReadFirst(const CCase& what)
{
    const vexa::CReadPolicy policy = PolicyOf(what);
    Whole whole;
    vexa::CReport report;
    what.How(whole, FIRST, report, policy);
    what.How(whole, what.Text, report, policy);
    vexa::WriteJson(whole);
}

int RunAll(const CCase& what)
{
    ReadFirst(what);
    long failing = 0;
    for (bool isOver = false; !isOver;)
        if (RunCase(what, ++failing, isOver) != DONE) return WRONG;
    std::printf("%ld allocations failed in turn\n", failing - 1);
    return failing > 20 ? DONE : Wrong("there are hardly any", failing);
}

} // namespace

int main()
{
    for (const Read read : {&ReadAtOnce, &ReadInPieces, &ReadAsLine})
        for (const CCase& what :
             {CCase{read, SECOND, true, true}, CCase{read, SECOND, false, true}, CCase{read, THIRD, false, false},
              CCase{read, FOURTH, true, true}, CCase{read, FOURTH, false, true}})
            if (RunAll(what) != DONE) return WRONG;
    return DONE;
}
