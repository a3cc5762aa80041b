// expect: a virtual, ambiguous or private base cannot be described: make it a plain public base or a member
#include <vexa/vexa.h>

namespace app {

struct Base {
    int x = 0;
};
struct Other {};
VEXA_DESCRIBE(Base, x)
VEXA_DESCRIBE_CLASS(Other) { about.Base<Base>(); }

} // namespace app
