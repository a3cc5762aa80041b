// Every allocation of reading JSON into unions fails in turn: the selector and the union agree all the time, no number
// of the text serves as an address, and nothing is left behind.

#include <cstdio>

#include <vexa/vexa.h>

#include "support/counted_allocation.h"

namespace union_memory {

struct Inside {
    std::vector<std::string> list{"an element that is too long for its own place"};
    std::string text = "a default text that is too long for its own place";
};
VEXA_DESCRIBE(Inside, list, text)

template<class Selector>
struct Choice {
    Selector kind{};
    union {
        long number;
        std::string* text;
        std::vector<std::string> list;
        Inside inside;
    };
    Choice() : number(0) {}
    Choice(const Choice&) = delete;
    Choice& operator=(const Choice&) = delete;
    ~Choice()
    {
        switch (Kind()) {
        case 1: delete text; break;
        case 2: list.~vector(); break;
        case 3: inside.~Inside(); break;
        default: break;
        }
    }

    int Kind() const
    {
        if constexpr (std::is_same_v<Selector, std::string>) return kind.empty() ? 0 : std::stoi(kind);
        if constexpr (std::is_same_v<Selector, std::unique_ptr<int>>) return kind != nullptr ? *kind : 0;
        if constexpr (std::is_same_v<Selector, vexa::MayNull<short>>) return kind ? *kind : 0;
        if constexpr (std::is_same_v<Selector, int>) return kind;
    }
};

template<class Selector>
void DescribeChoice(vexa::CDescription<Choice<Selector>>& about)
{
    about.Attrib("kind", &Choice<Selector>::kind);
    about.Attrib("number", &Choice<Selector>::number).ActiveWhen("kind", 0);
    about.Attrib("text", &Choice<Selector>::text).ActiveWhen("kind", 1);
    about.Attrib("list", &Choice<Selector>::list).ActiveWhen("kind", 2);
    about.Attrib("inside", &Choice<Selector>::inside).ActiveWhen("kind", 3);
}

using ByInt = Choice<int>;
VEXA_DESCRIBE_CLASS(ByInt) { DescribeChoice(about); }
using ByMayNull = Choice<vexa::MayNull<short>>;
VEXA_DESCRIBE_CLASS(ByMayNull) { DescribeChoice(about); }
using ByPointer = Choice<std::unique_ptr<int>>;
VEXA_DESCRIBE_CLASS(ByPointer) { DescribeChoice(about); }
using ByString = Choice<std::string>;
VEXA_DESCRIBE_CLASS(ByString) { DescribeChoice(about); }

} // namespace union_memory

namespace {

using namespace union_memory;

constexpr const char* TEXTS[] = {
    R"({"kind":1,"text":"a text that is too long for its own place"})",
    R"({"kind":2,"list":["an element that is too long for its own place","another"]})",
    R"({"kind":3,"inside":{"list":["one that is also too long for its own place"]}})",
    R"({"number":1094795585,"kind":1})",
    R"({"number":1094795585,"kind":2})",
    R"({"number":1094795585,"kind":3})",
    "",
};

int Wrong(const char* what, const char* first, const char* second, long failing)
{
    std::fprintf(stderr, "%s: allocation %ld of reading %s after %s\n", what, failing, second, first);
    return 1;
}

/// What another member left would not be a value: this reads the active one.
template<class Object>
bool IsSound(const Object& object)
{
    switch (object.Kind()) {
    case 0: return true;
    case 1: return object.text == nullptr || object.text->size() < 100;
    case 2: return object.list.size() < 3;
    case 3: return object.inside.list.size() < 3 && object.inside.text.size() < 100;
    default: return false;
    }
}

enum class Outcome { READ, FAILED, UNSOUND };

/// Reads the one text and then the other, of which an allocation fails.
template<class Object>
Outcome ReadTwo(const std::string& first, const std::string& second, long failing)
{
    Object object;
    vexa::FromJson(object, first);
    Outcome outcome = Outcome::READ;
    vexa_test::s_untilFailure = failing;
    try {
        vexa::FromJson(object, second);
    } catch (const std::bad_alloc&) {
        outcome = Outcome::FAILED;
    }
    if (vexa_test::s_untilFailure == 0 && failing != 0) outcome = Outcome::FAILED; // and perhaps a way around
    vexa_test::s_untilFailure = 0;
    return IsSound(object) ? outcome : Outcome::UNSOUND;
}

template<class Object>
int RunPair(const char* first, const char* second)
{
    const std::string texts[] = {first, second};
    ReadTwo<Object>(texts[0], texts[1], 0); // makes what is made once
    for (long failing = 1;; ++failing) {
        const long before = vexa_test::s_live;
        const Outcome outcome = ReadTwo<Object>(texts[0], texts[1], failing);
        if (outcome == Outcome::UNSOUND)
            return Wrong("the union is not what its selector says", first, second, failing);
        if (vexa_test::s_live != before) return Wrong("something was left behind", first, second, failing);
        if (outcome == Outcome::READ) return 0;
    }
}

template<class Object>
int RunAll()
{
    int result = 0;
    for (const char* const first : TEXTS) {
        for (const char* const second : TEXTS)
            result |= RunPair<Object>(first, second);
    }
    return result;
}

} // namespace

int main() { return RunAll<ByInt>() | RunAll<ByMayNull>() | RunAll<ByPointer>() | RunAll<ByString>(); }
