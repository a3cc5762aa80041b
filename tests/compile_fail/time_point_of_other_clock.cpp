// expect: only a std::chrono::time_point of std::chrono::system_clock can be described: describe the duration since a moment that you know
#include <chrono>

#include <vexa/types.h>

namespace app {

struct Lap {
    std::chrono::steady_clock::time_point start;
};
VEXA_DESCRIBE(Lap, start)

} // namespace app
