// expect: a const object cannot be read into: pass one that can be changed
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int part = 0;
};
VEXA_DESCRIBE(Whole, part)
int Read(const Whole& whole) { return vexa::FromJson(whole, "{}"); }

} // namespace app
