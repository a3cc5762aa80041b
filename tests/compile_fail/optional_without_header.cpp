// expect: this type of the standard library is described by a header of its own: include <vexa/types.h>
#include <optional>

#include <vexa/describe.h>

namespace app {

struct Whole {
    std::optional<int> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
