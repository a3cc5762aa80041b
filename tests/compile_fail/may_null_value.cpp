// expect: a vexa::MayNull of vexa::CValue cannot be described, which is null by itself: hold the value alone
#include <vexa/vexa.h>

namespace app {

struct Whole {
    vexa::MayNull<vexa::CValue> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
