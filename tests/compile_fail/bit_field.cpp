// expect: a bit-field cannot be described: make it a member of its full type
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int part : 3;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
