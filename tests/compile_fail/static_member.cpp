// expect: a static member cannot be described, which belongs to no object: describe a data member
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int part = 0;
    static int count;
};
VEXA_DESCRIBE(Whole, part, count)

} // namespace app
