// expect: deleted
#include <vexa/vexa.h>

#include <vector>

bool Walk(std::vector<int>& list)
{
    const vexa::CContainerConstIterator first(vexa::RefOf(list).AsContainer());
    return first.IsEnd();
}
