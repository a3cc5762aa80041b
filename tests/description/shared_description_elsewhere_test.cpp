// The second of the two files that include one description.

#include "description/shared_description.h"

namespace shared_description {

SeenElsewhere SeeElsewhere()
{
    return {&vexa::ClassInforOf<Whole>(), &vexa::TypeInforOf<std::vector<Whole>>(), vexa::AsString(Whole())};
}

} // namespace shared_description
