// expect: a vexa::MayNull of a type aligned to 256 bytes or more cannot be described: hold it by pointer
#include <vexa/vexa.h>

namespace app {

struct alignas(256) Wide {
    int x = 0;
};
struct Whole {
    vexa::MayNull<Wide> part;
};
VEXA_DESCRIBE(Wide, x)
VEXA_DESCRIBE(Whole, part)

} // namespace app
