// expect: a std::unique_ptr to an array or with a deleter cannot be described: use a std::vector or a plain
// std::unique_ptr
#include <memory>
#include <vexa/vexa.h>

namespace app {

struct Free {
    void operator()(int* pointer) const { delete pointer; }
};
struct Whole {
    std::unique_ptr<int, Free> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
