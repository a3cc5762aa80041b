// expect: a vexa::MayNull of vexa::CValue cannot be described, which is null by itself: hold the value alone
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::vector<vexa::MayNull<vexa::CValue>> parts;
};
VEXA_DESCRIBE(Whole, parts)

} // namespace app
