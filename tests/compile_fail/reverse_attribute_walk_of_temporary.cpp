// expect: deleted
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int part = 0;
};
VEXA_DESCRIBE(Whole, part)
bool Walk(Whole& whole)
{
    const vexa::CAttribConstReverseIterator first(vexa::RefOf(whole).AsClass());
    return first.IsEnd();
}

} // namespace app
