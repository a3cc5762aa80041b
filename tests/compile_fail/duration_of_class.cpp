// expect: only a std::chrono::duration that counts by an arithmetic type can be described
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace app {

struct Count {
    int x = 0;
    constexpr Count() = default;
    constexpr explicit Count(int value) : x(value) {}
};
struct Whole {
    std::chrono::duration<Count> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
