// expect: nor can a private member, unless VEXA_FRIEND lets the description reach it
#include <vexa/vexa.h>

namespace app {

class Whole {
    int part = 0;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
