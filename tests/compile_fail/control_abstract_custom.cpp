// expect-ok
#include <vexa/vexa.h>

namespace app {

struct Measure {
    int value = 0;
    virtual void Show() = 0;
    virtual ~Measure() = default;
};
VEXA_DESCRIBE_CUSTOM_STD(Measure, &Measure::value)

const vexa::CGnlTypeInfor& Type() { return vexa::TypeInforOf<Measure*>(); }

} // namespace app
