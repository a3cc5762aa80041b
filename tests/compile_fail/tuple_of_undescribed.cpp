// expect: this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace
#include <vexa/vexa.h>

namespace app {

struct Part {
    int x = 0;
};
struct Whole {
    std::tuple<int, Part> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
