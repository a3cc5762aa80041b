// expect: this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace
#include <functional>
#include <vector>
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::vector<std::reference_wrapper<int>> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
