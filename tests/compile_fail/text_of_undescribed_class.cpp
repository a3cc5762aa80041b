// expect: this type is not described: describe it with VEXA_DESCRIBE or VEXA_DESCRIBE_CLASS in its own namespace
#include <vexa/vexa.h>

namespace app {

struct Whole {};
std::string Describe(const Whole& whole) { return vexa::AsString(whole); }

} // namespace app
