// expect: vexa::MayNull cannot hold a pointer, a reference or an array: a pointer may be null by itself
#include <vexa/vexa.h>

namespace app {

struct Whole {
    vexa::MayNull<int*> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
