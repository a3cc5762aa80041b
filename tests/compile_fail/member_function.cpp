// expect: a member function cannot be described: describe the data member that it gives
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int Part() const { return 0; }
};
VEXA_DESCRIBE_CLASS(Whole) { about.Attrib("part", &Whole::Part); }

} // namespace app
