// expect: a virtual, ambiguous or private base cannot be described: make it a plain public base or a member
#include <vexa/vexa.h>

namespace app {

struct Base {
    int x = 0;
};
struct Derived : virtual Base {};
VEXA_DESCRIBE(Derived, x)

} // namespace app
