// expect-ok
#include <vexa/vexa.h>

namespace app {

struct Part {
    int x = 0;
};
struct Whole {
    Part part;
};
VEXA_DESCRIBE(Part, x)
VEXA_DESCRIBE(Whole, part)

} // namespace app
