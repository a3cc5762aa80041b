// expect: deleted function
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int part = 0;
};
VEXA_DESCRIBE(Whole, part)
void Refer() { vexa::RefOf(Whole()); }

} // namespace app
