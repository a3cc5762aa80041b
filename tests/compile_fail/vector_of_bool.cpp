// expect: std::vector<bool> has no elements that can be addressed: use std::deque<bool> or std::bitset
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::vector<bool> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
