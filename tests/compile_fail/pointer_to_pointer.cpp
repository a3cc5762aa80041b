// expect: a pointer to a pointer cannot be described: describe a pointer to a class that holds the inner one
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int** part = nullptr;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
