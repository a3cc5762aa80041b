// expect: a tag of a polymorphic class needs run-time type information: compile without -fno-rtti
// flags: -fno-rtti
#include <vexa/vexa.h>

struct Shape {
    virtual ~Shape() = default;
};
VEXA_DESCRIBE_CLASS(Shape) { about.Tag("kind"); }
