#include "support/everything_objects.h"

#include "support/described_everything.h"
#include "support/everything/models.h"

namespace vexa_test::everything {
namespace {

template<class T>
CKind KindOf(decltype(CKind::Agrees) agrees)
{
    CKind kind{};
    kind.Make = []() -> std::shared_ptr<void> { return std::make_shared<T>(); };
    kind.MakeRandom = [](std::uint64_t seed) -> std::shared_ptr<void> { return everything::MakeRandom<T>(seed); };
    kind.RefOf = [](void* object) { return vexa::RefOf(*static_cast<T*>(object)); };
    kind.Same = [](Comparison& comparison, const void* left, const void* right) {
        return Same(comparison, *static_cast<const T*>(left), *static_cast<const T*>(right));
    };
    kind.Agrees = agrees;
    kind.LeavesOut = LEAVES_OUT<T>;
    return kind;
}

std::vector<CKind> MakeKinds()
{
    const std::vector<decltype(CKind::Agrees)> models = Models();
    std::vector<CKind> kinds;
    ForEachClass([&](auto tag) { kinds.push_back(KindOf<typename decltype(tag)::Type>(models[kinds.size()])); });
    return kinds;
}

} // namespace

const std::vector<CKind>& Kinds()
{
    static const std::vector<CKind> kinds = MakeKinds();
    return kinds;
}

std::string NameOf(const CKind& kind) { return CAnyObject(kind).Ref().TypeInfor.DetailInfor->Name; }

} // namespace vexa_test::everything
