// expect: this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace
#include <vexa/vexa.h>

namespace app {

struct Whole {};
const vexa::CClassInfor& Describe() { return vexa::ClassInforOf<Whole>(); }

} // namespace app
