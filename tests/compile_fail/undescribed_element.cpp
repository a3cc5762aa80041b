// expect: this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace
#include <vexa/vexa.h>

namespace app {

struct Part {
    int x = 0;
};
struct Whole {
    std::vector<Part> parts;
};
VEXA_DESCRIBE(Whole, parts)

} // namespace app
