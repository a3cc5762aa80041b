// expect: a std::unique_ptr to const cannot be described: use one to a value that can be changed
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::unique_ptr<const int> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
