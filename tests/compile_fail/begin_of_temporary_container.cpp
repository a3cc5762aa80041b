// expect: deleted
#include <vexa/vexa.h>

#include <vector>

bool Walk(std::vector<int>& list)
{
    const auto first = vexa::RefOf(list).AsContainer().begin();
    return first.IsEnd();
}
