// A shared object that describes classes, and is loaded and unloaded while the program runs.

#include "loaded_shape.h"

namespace loaded {
namespace {

struct Star : Shape {
    int points = 5;
};
VEXA_DESCRIBE_CLASS(Star)
{
    about.Base<Shape>();
    about.Attrib("points", &Star::points);
    about.TagValue("star");
}

vexa::CClassInfor* s_byHand = nullptr;

} // namespace

/// Derived in turn from a class of the plugin's own.
struct Comet : Star {
    int tail = 7;
};
VEXA_DESCRIBE_CLASS(Comet)
{
    about.Base<Star>();
    about.Attrib("tail", &Comet::tail);
}

} // namespace loaded

extern "C" {

loaded::Shape* MakeShape() { return new loaded::Shape(); }
loaded::Shape* MakeStar() { return new loaded::Star(); }
loaded::Shape* MakeComet() { return new loaded::Comet(); }
vexa::CClassInfor* RegisterByHand()
{
    return vexa::CClassInfor::InitClassInfor(loaded::s_byHand, "registered by hand in the plugin", 4, nullptr, nullptr,
                                             [](vexa::CClassInfor&, vexa::Enum::AccessSpecifierEnum) {});
}
}
