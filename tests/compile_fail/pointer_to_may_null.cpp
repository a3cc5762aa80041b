// expect: a vexa::MayNull or vexa::NonNullPointer cannot be described behind a pointer or wrapper: use it alone
#include <vexa/vexa.h>

namespace app {

struct Whole {
    vexa::MayNull<int>* part = nullptr;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
