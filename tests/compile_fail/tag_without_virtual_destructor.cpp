// expect: objects of derived classes are deleted through a class with a tag: give it a virtual destructor
#include <vexa/vexa.h>

struct Shape {
    virtual void Draw() {}
};
VEXA_DESCRIBE_CLASS(Shape) { about.Tag("kind"); }
