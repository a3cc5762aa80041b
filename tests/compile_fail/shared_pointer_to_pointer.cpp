// expect: an owned raw pointer inside a std::optional, std::shared_ptr, std::variant or std::tuple cannot be described:
// use a std::unique_ptr or a pointer to const
#include <vexa/types.h>
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::shared_ptr<int*> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
