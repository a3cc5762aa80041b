// expect: a std::shared_ptr cannot be described: hold the object by std::unique_ptr or by value
#include <memory>
#include <vexa/vexa.h>

namespace app {

struct Whole {
    std::shared_ptr<int> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
