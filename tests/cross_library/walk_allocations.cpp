// Walking any container allocates nothing once the thread has walked before, and what a thread keeps goes with it.

#include <cstdio>
#include <thread>

#include <vexa/vexa.h>

#include "support/counted_allocation.h"

namespace {

int s_failures = 0;

void Expect(long expected, long actual, const char* what)
{
    if (expected == actual) return;
    std::printf("%s: %ld instead of %ld\n", what, actual, expected);
    ++s_failures;
}

/// Walks forward and backward, and counts the elements.
long Walk(const vexa::CContainerConstRefrence& container)
{
    long count = 0;
    for (const vexa::CConstRefrence& element : container)
        count += element.Address != nullptr ? 1 : 0;
    for (vexa::CContainerConstReverseIterator it(container); !it.IsEnd(); ++it)
        ++count;
    return count;
}

template<class Container>
void ExpectNoAllocation(const Container& container, long visits, const char* what)
{
    const vexa::CConstRefrence ref = vexa::RefOf(container);
    Walk(ref.AsContainer());
    const long before = vexa_test::s_made;
    Expect(visits, Walk(ref.AsContainer()), what);
    Expect(0, vexa_test::s_made - before, what);
}

/// Each element is walked while its container is.
long WalkAll(const vexa::CConstRefrence& ref)
{
    if (!ref.TypeInfor.IsContainer()) return 1;
    long count = 0;
    for (const vexa::CConstRefrence& element : ref.AsContainer())
        count += WalkAll(element);
    return count;
}

void ExpectNoneInside()
{
    const std::list<std::set<int>> inner = {{1, 2}, {}, {3}};
    const std::deque<std::list<std::set<int>>> outer(3, inner);
    const vexa::CConstRefrence ref = vexa::RefOf(outer);
    WalkAll(ref);
    const long before = vexa_test::s_made;
    Expect(9, WalkAll(ref), "containers in containers");
    Expect(0, vexa_test::s_made - before, "containers in containers");
}

/// Released on another thread than it was begun on, and beyond what a thread keeps.
void ExpectNothingLeft()
{
    const std::list<int> numbers = {1, 2, 3};
    const vexa::CContainerInfor& infor = vexa::RefOf(numbers).AsContainer().ContainerInfor();
    const long before = vexa_test::s_live;
    std::thread([&] {
        void* cursors[20];
        for (void*& cursor : cursors) {
            void* first = nullptr;
            cursor = infor.Begin(const_cast<std::list<int>*>(&numbers), &first);
        }
        std::thread([&] {
            for (void* cursor : cursors)
                infor.Release(cursor);
        }).join();
        Walk(vexa::RefOf(numbers).AsContainer());
    }).join();
    Expect(before, vexa_test::s_live, "blocks left by a thread");
}

} // namespace

int main()
{
    ExpectNoAllocation(std::vector<int>{1, 2, 3}, 6, "vector");
    ExpectNoAllocation(std::list<int>{1, 2, 3}, 6, "list");
    ExpectNoAllocation(std::list<int>{}, 0, "empty list");
    ExpectNoAllocation(std::deque<int>{1, 2, 3}, 6, "deque");
    ExpectNoAllocation(std::set<int>{1, 2, 3}, 6, "set");
    ExpectNoAllocation(std::map<std::string, int>{{"a", 1}, {"b", 2}}, 4, "map");
    ExpectNoAllocation(std::unordered_map<int, int>{{1, 1}, {2, 2}}, 2, "unordered_map, which has no reverse walk");
    ExpectNoAllocation(std::bitset<5>(3), 10, "bitset");
    ExpectNoneInside();
    ExpectNothingLeft();
    return s_failures == 0 ? 0 : 1;
}
