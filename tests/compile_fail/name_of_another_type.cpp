// expect: the NAME of a vexa::Describes is a text: declare it static constexpr const char*
#include <vexa/vexa.h>

namespace app {

struct Whole {
    int part = 0;
};

} // namespace app

template<>
struct vexa::Describes<app::Whole> {
    static constexpr std::string_view NAME = "Whole";
    static void Describe(vexa::CDescription<app::Whole>& about) { about.Attrib("part", &app::Whole::part); }
};

const vexa::CClassInfor& infor = vexa::ClassInforOf<app::Whole>();
