// expect: a reference member cannot be described: make it a pointer or a value
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::tuple<int, const int&> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
