// expect: only a class has a class descriptor: use vexa::TypeInforOf
#include <vexa/vexa.h>

namespace app {

const vexa::CClassInfor& Describe() { return vexa::ClassInforOf<int>(); }

} // namespace app
