// expect: only a std::atomic of an arithmetic type or enumeration of at most 8 bytes can be described: guard anything
// else by a mutex
#include <vexa/vexa.h>

namespace app {

struct Part {
    int x = 0;
};
VEXA_DESCRIBE(Part, x)
struct Whole {
    std::atomic<Part> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
