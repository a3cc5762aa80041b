// expect: a custom type cannot wrap a member more than 32767 bytes into the object: move the member towards the start
#include <vexa/vexa.h>

namespace app {

struct Sheet {
    char padding[32768];
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Sheet, &Sheet::text)

struct Whole {
    Sheet sheet;
};
VEXA_DESCRIBE(Whole, sheet)

} // namespace app
