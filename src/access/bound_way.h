#ifndef VEXA_ACCESS_BOUND_WAY_H
#define VEXA_ACCESS_BOUND_WAY_H

#include <cstdint>
#include <string>
#include <vector>

#include <vexa/detail/bound_way.h>

#include "access/element.h"
#include "access/step.h"

namespace vexa::detail {

/// One step of a bound path, from the place that the steps before it have led to.
struct CBoundStep {
    enum class Kind : unsigned char {
        POINTER,  ///< through one
        FLAG,     ///< of a MayNull, which must not be null; the place stays
        OPTIONAL, ///< what a std::optional or std::shared_ptr holds
        VECTOR,   ///< an element by its distance
        ELEMENT,  ///< an element by its index
        ENTRY,    ///< the entry of a map's key
        PART,     ///< of a tuple
        ACTIVE,   ///< the member of a union must be the active one; the place stays
        ALL       ///< every element, or entry
    };

    Kind What = Kind::POINTER;
    bool IsMasked = false;                  ///< inside a confidential attribute
    bool IsMap = false;                     ///< ALL: over the values of keys
    std::uint32_t Offset = 0;               ///< from the place to what the step looks at
    std::size_t Way = 0;                    ///< how much of the path leads to what is wrong where the step fails
    unsigned long Index = 0;                ///< ELEMENT, PART; VECTOR: the distance
    const void* Operations = nullptr;       ///< OPTIONAL, PART
    const CContainerInfor* Infor = nullptr; ///< of a container
    const interchange::CContainerForm* Form = nullptr;
    const CAttribInfor* Attrib = nullptr; ///< ACTIVE
    const CClassInfor* Owner = nullptr;
    std::size_t Key = 0; ///< ENTRY: of CBoundWay::Keys
};

/// What a path leads to from objects of one class.
class CBoundWay {
public:
    interchange::CForms Forms; ///< of descriptors made by hand, which the steps refer to
    const CClassInfor* Infor = nullptr;
    std::string Path;
    std::vector<CBoundStep> Steps;
    std::vector<access::CMapKey> Keys;
    CSpot End;                           ///< without address: of what the steps lead to
    unsigned long Offset = 0;            ///< behind the last step
    std::vector<access::CPathPart> Rest; ///< what is resolved with each object
    bool IsMany = false;
    bool IsPlain = false;
    std::vector<CPlainStep> PlainSteps;
};

} // namespace vexa::detail

#endif
