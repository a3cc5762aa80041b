// expect: this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace
#include <vexa/vexa.h>

namespace app {

struct Base {};
struct Derived : Base {};
VEXA_DESCRIBE_CLASS(Derived) { about.Base<Base>(); }

} // namespace app
