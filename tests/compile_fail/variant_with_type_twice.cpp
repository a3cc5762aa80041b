// expect: a std::variant that has one type twice cannot be described, as no text tells which is meant: give each
// alternative a type of its own
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::variant<int, bool, int> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
