#ifndef VEXA_DETAIL_BOUND_WAY_H
#define VEXA_DETAIL_BOUND_WAY_H

#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include <vexa/detail/access.h>

/// \file
/// The compiled half of vexa/bound_path.h.

namespace vexa::detail {

class CBoundWay;

/// A step of a way that leads through pointers and vectors only.
struct CPlainStep {
    unsigned long Offset = 0;   ///< from the object to the pointer, or to the vector
    unsigned long Distance = 0; ///< of a vector: from its first element to the one that is meant
    bool IsVector = false;
};

/// A way through pointers and vectors, to be followed without a call.
struct CPlainWay {
    const CGnlTypeInfor* Type = nullptr; ///< of what it leads to; null where the way is not plain
    const CPlainStep* First = nullptr;
    const CPlainStep* Last = nullptr;
    unsigned long Offset = 0; ///< behind the last step
    unsigned char Code = 0;   ///< of a basic value that lies there directly; else 0

    /// Null where something on the way is, or an index is beyond the end.
    char* Follow(const void* object) const noexcept
    {
        auto* at = static_cast<char*>(const_cast<void*>(object));
        for (const CPlainStep* step = First; step != Last; ++step) {
            if (step->IsVector) {
                struct {
                    char* First;
                    char* Last;
                } span;
                std::memcpy(&span, at + step->Offset, sizeof span);
                if (static_cast<unsigned long>(span.Last - span.First) <= step->Distance) return nullptr;
                at = span.First + step->Distance;
            } else {
                std::memcpy(&at, at + step->Offset, sizeof at);
                if (__builtin_expect(at == nullptr, 0)) return nullptr;
            }
        }
        return at + Offset;
    }
};

using UseFunction = void (*)(void* context, const CRefrence& ref);

/// Null, with a problem, where the path leads to nothing.
VEXA_API std::shared_ptr<const CBoundWay> BindPath(const CClassInfor& infor, std::string_view path, CReport* report);
VEXA_API CPlainWay PlainWayOf(const CBoundWay& way) noexcept;
VEXA_API const std::string& PathOf(const CBoundWay& way) noexcept;
VEXA_API bool LeadsToMany(const CBoundWay& way) noexcept;

/// The object's own address; null, with a problem, where it is null or of another class.
VEXA_API const void* ObjectBehind(const CBoundWay& way, const CConstRefrence& ref, CReport* report);
/// Tells that. \return null
VEXA_API const void* TellOtherClass(const CBoundWay& way, const CClassInfor& infor, CReport* report);

/// Where the way leads from an object, which may be null: nothing is told then.
VEXA_API CSpot FollowWay(const CBoundWay& way, const void* object, bool isConst, CReport* report);
VEXA_API bool ForEachOnWay(const CBoundWay& way, const void* object, bool isConst, void* context, UseFunction use,
                           CReport* report);

} // namespace vexa::detail

#endif
