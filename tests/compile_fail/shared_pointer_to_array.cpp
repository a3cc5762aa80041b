// expect: a std::shared_ptr to an array or to void cannot be described: use a std::vector or a pointer to a described
// type
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::shared_ptr<int[]> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
