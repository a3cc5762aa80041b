// expect: an enumeration must be described before the first class that has a member of it
#include <vexa/vexa.h>

namespace app {

enum class Color { RED };
constexpr auto EARLY = vexa::detail::TYPE_SOURCE<Color>;
VEXA_DESCRIBE_ENUM(Color, RED)

} // namespace app
