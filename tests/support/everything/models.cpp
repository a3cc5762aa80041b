#include "support/everything/models.h"

#include "support/depths_json.h"

namespace vexa_test::everything {

std::vector<decltype(CKind::Agrees)> Models()
{
    std::vector<decltype(CKind::Agrees)> models;
    ForEachClass([&models](auto tag) {
        using Class = typename decltype(tag)::Type;
        models.push_back([](Comparison& comparison, const Json& json, const void* object) {
            return Agrees(comparison, json, *static_cast<const Class*>(object));
        });
    });
    return models;
}

} // namespace vexa_test::everything
