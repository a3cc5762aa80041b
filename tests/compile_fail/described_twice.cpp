// expect: this class is described twice, in its own namespace and by vexa::Describes: leave one out
#include <vexa/vexa.h>

namespace app {

struct Part {
    int x = 0;
};

} // namespace app

template<>
struct vexa::Describes<app::Part> {
    static void Describe(vexa::CDescription<app::Part>& about) { about.Attrib("x", &app::Part::x); }
};

namespace app {

VEXA_DESCRIBE(Part, x)

} // namespace app
