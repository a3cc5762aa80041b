// expect: the elements of an associative container cannot be vexa::MayNull: use the plain type
#include <set>
#include <vexa/vexa.h>

namespace app {

struct Less {
    bool operator()(const vexa::MayNull<int>& left, const vexa::MayNull<int>& right) const { return *left < *right; }
};
struct Whole {
    std::set<vexa::MayNull<int>, Less> part;
};
VEXA_DESCRIBE(Whole, part)

} // namespace app
