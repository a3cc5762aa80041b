// expect: an enumeration cannot be described by vexa::Describes: give its values names with VEXA_DESCRIBE_ENUM, in its own namespace
#include <vexa/vexa.h>

namespace app {

enum class Color { RED };
struct Whole {
    Color color = Color::RED;
};

} // namespace app

template<>
struct vexa::Describes<app::Color> {
    static void Describe(vexa::CDescription<app::Color>& about);
};

namespace app {

VEXA_DESCRIBE(Whole, color)

} // namespace app
