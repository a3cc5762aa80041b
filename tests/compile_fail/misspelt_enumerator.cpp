// expect: gren
// errors: 1
#include <vexa/vexa.h>

namespace app {

enum class Color { red, green, blue };
VEXA_DESCRIBE_ENUM(Color, red, gren, blue)
struct Car {
    Color color = Color::red;
};
VEXA_DESCRIBE(Car, color)

} // namespace app
