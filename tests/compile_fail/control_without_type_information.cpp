// expect-ok
// flags: -fno-rtti
#include <vexa/vexa.h>

struct Shape {
    virtual ~Shape() = default;
    int id = 0;
};
VEXA_DESCRIBE_CLASS(Shape)
{
    about.KeyStyle(vexa::KeyStyle::CAMEL);
    about.Attrib("id", &Shape::id).Required();
}
struct Circle : Shape {};
VEXA_DESCRIBE_CLASS(Circle) { about.Base<Shape>(); }
