// expect: signed char has no type code: use char or unsigned char for bytes, short for numbers
#include <vexa/vexa.h>

namespace app {

enum class Small : signed char { ONE };
struct Whole {
    Small part = Small::ONE;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
