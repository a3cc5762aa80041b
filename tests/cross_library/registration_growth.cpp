// Registration grows with what it describes: twice as many classes that lead to one another take twice the allocations
// and twice the runs of their descriptions.

#include <cstdio>
#include <utility>

#include <vexa/vexa.h>

#include "support/counted_allocation.h"

namespace growth {

/// How many descriptions have run.
long s_described = 0;

/// A ring linked through containers, so that no class spreads the members of the next one in its flat names, of which
/// there would be as many as pairs.
template<int SIZE, int PLACE>
struct Ring {
    int number = 0;
    std::vector<Ring<SIZE, (PLACE + 1) % SIZE>> next;
};
/// The same through pointers.
template<int SIZE, int PLACE>
struct Chain {
    int number = 0;
    Chain<SIZE, (PLACE + 1) % SIZE>* next = nullptr;
};
/// Each holds the next one by value; only the last has a member to be spread.
template<int SIZE, int PLACE>
struct Nested {
    std::vector<Nested<SIZE, 0>> all;
    Nested<SIZE, PLACE + 1> next;
};
template<int SIZE>
struct Nested<SIZE, SIZE> {
    int number = 0;
};

template<int SIZE, int PLACE>
constexpr const char* VexaNameOf(const vexa::CDescription<Ring<SIZE, PLACE>>*)
{
    return "Ring";
}
template<int SIZE, int PLACE>
constexpr const char* VexaNameOf(const vexa::CDescription<Chain<SIZE, PLACE>>*)
{
    return "Chain";
}
template<int SIZE, int PLACE>
constexpr const char* VexaNameOf(const vexa::CDescription<Nested<SIZE, PLACE>>*)
{
    return "Nested";
}

template<int SIZE, int PLACE>
void VexaDescribe(vexa::CDescription<Ring<SIZE, PLACE>>& about)
{
    ++s_described;
    about.Attrib("number", &Ring<SIZE, PLACE>::number);
    about.Attrib("next", &Ring<SIZE, PLACE>::next);
}
template<int SIZE, int PLACE>
void VexaDescribe(vexa::CDescription<Chain<SIZE, PLACE>>& about)
{
    ++s_described;
    about.Attrib("number", &Chain<SIZE, PLACE>::number);
    about.Attrib("next", &Chain<SIZE, PLACE>::next);
}
template<int SIZE, int PLACE>
void VexaDescribe(vexa::CDescription<Nested<SIZE, PLACE>>& about)
{
    ++s_described;
    if constexpr (PLACE == SIZE) {
        about.Attrib("number", &Nested<SIZE, PLACE>::number);
    } else {
        about.Attrib("next", &Nested<SIZE, PLACE>::next);
        // Leads back to the first class, so that all of them are one ring.
        if constexpr (PLACE % 10 == 9) about.Attrib("all", &Nested<SIZE, PLACE>::all);
    }
}

struct Cost {
    long Allocations;
    long Descriptions;
};

template<class T>
Cost CostOf()
{
    const long made = vexa_test::s_made;
    s_described = 0;
    vexa::ClassInforOf<T>();
    return {vexa_test::s_made - made, s_described};
}

int s_result = 0;

void Expect(const char* what, bool isSo)
{
    if (isSo) return;
    std::printf("wrong: %s\n", what);
    s_result = 1;
}

bool IsTwice(long once, long twice) { return twice * 10 <= once * 22; }

} // namespace growth

int main()
{
    using namespace growth;
    static_cast<void>(vexa::TypeInforOf<std::vector<long>>());
    const Cost ring20 = CostOf<Ring<20, 0>>();
    const Cost ring40 = CostOf<Ring<40, 0>>();
    const Cost chain20 = CostOf<Chain<20, 0>>();
    const Cost chain40 = CostOf<Chain<40, 0>>();
    // From the innermost, which every other one has to be started for.
    const Cost nested20 = CostOf<Nested<20, 9>>();
    const Cost nested40 = CostOf<Nested<40, 9>>();
    for (const Cost& cost : {ring20, ring40, chain20, chain40, nested20, nested40})
        std::printf("%ld allocations, %ld descriptions\n", cost.Allocations, cost.Descriptions);

    Expect("a ring twice as long takes twice the allocations", IsTwice(ring20.Allocations, ring40.Allocations));
    Expect("every description of a ring is looked at once and run once", ring40.Descriptions == 80);
    Expect("so it is where pointers link", chain40.Descriptions == 80);
    Expect("so it is where classes hold one another", nested40.Descriptions == 82);
    return s_result;
}
