// expect: signed char has no type code: use char or unsigned char for bytes, short for numbers
#include <vexa/vexa.h>

namespace app {

struct Whole {
    signed char part = 0;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
