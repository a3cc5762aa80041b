#ifndef VEXA_TEST_LOADED_SHAPE_H
#define VEXA_TEST_LOADED_SHAPE_H

#include <vexa/vexa.h>

// What the program and the plugin that it loads share.
namespace loaded {

struct Shape {
    Shape() = default;
    Shape(const Shape&) = default;
    Shape& operator=(const Shape&) = default;
    virtual ~Shape() = default;
    int id = 1;
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.Tag("kind");
    about.Attrib("id", &Shape::id);
}

} // namespace loaded

#endif
