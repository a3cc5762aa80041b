// expect: a std::unique_ptr to an array or with a deleter cannot be described: use a std::vector or a plain
// std::unique_ptr
#include <memory>
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::unique_ptr<int[]> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
