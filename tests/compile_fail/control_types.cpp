// expect-ok
#include <vexa/vexa.h>

namespace app {

enum class Small : signed char { ONE };
VEXA_DESCRIBE_ENUM(Small, ONE)
struct Part {
    int x = 0;
};
VEXA_DESCRIBE(Part, x)
struct Whole {
    std::optional<const char*> text;
    std::variant<std::monostate, const Part*, std::unique_ptr<Part>> part;
    std::tuple<std::shared_ptr<const Part>, std::atomic<Small>, std::vector<bool>> parts;
    std::chrono::time_point<std::chrono::system_clock, std::chrono::duration<float, std::ratio<3, 7>>> time;
    std::vector<std::vector<bool>> rows;
    std::deque<std::atomic<int>> counters;
    signed char bytes[3];
};
VEXA_DESCRIBE(Whole, text, part, parts, time, rows, counters, bytes)

} // namespace app
