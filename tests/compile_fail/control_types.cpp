// expect-ok
#include <vexa/types.h>
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
    std::vector<std::atomic<int>> fixedCounters;
    std::map<int, std::atomic<int>> numberedCounters;
    std::unordered_map<std::string, std::atomic<bool>> namedFlags;
    signed char bytes[3];
    const std::optional<int> constant;
    vexa::MayNull<std::tuple<int>> maybe;
    std::unique_ptr<std::shared_ptr<Part>> shared;
    const std::optional<int>* seen = nullptr;
    std::optional<const Part> fixed;
};
VEXA_DESCRIBE(Whole, text, part, parts, time, rows, counters, fixedCounters, bytes, constant, maybe, shared, seen,
              fixed, numberedCounters, namedFlags)

} // namespace app
