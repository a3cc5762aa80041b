#ifndef VEXA_TEST_SHARED_POINT_H
#define VEXA_TEST_SHARED_POINT_H

#include <vexa/vexa.h>

// A class that both the plugin and the program describe, by sharing this header.
namespace shared {

struct Point {
    int x = 0;
    int y = 0;
};
VEXA_DESCRIBE(Point, x, y)

} // namespace shared

#endif
