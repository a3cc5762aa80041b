#include "plugin.h"

#include "shared_point.h"

namespace plugin {
namespace {

struct Sensor {
    std::string name = "north";
    shared::Point place{3, 4};
    std::vector<double> readings{1.5, 2.5};
    vexa::MayNull<int> limit;
};
VEXA_DESCRIBE(Sensor, name, place, readings, limit)

} // namespace
} // namespace plugin

vexa::CRefrence SensorOfPlugin()
{
    static plugin::Sensor sensor;
    return vexa::RefOf(sensor);
}

const vexa::CClassInfor& PointOfPlugin() { return vexa::ClassInforOf<shared::Point>(); }
