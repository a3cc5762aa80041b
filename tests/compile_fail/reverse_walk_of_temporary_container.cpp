// expect: deleted
#include <vexa/vexa.h>

#include <vector>

bool Walk(std::vector<int>& list)
{
    vexa::CContainerConstReverseIterator last;
    last = vexa::RefOf(list).AsContainer();
    return last.IsEnd();
}
