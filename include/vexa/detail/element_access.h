#ifndef VEXA_DETAIL_ELEMENT_ACCESS_H
#define VEXA_DETAIL_ELEMENT_ACCESS_H

#include <cstddef>
#include <list>
#include <memory>
#include <string_view>

#include <vexa/detail/access.h>

/// \file
/// The compiled half of vexa/elements.h.

namespace vexa::detail {

/// An object of a class, as what it is.
struct CObjectSpot {
    const CClassInfor* Infor = nullptr; ///< null where there is none
    const std::list<CAttribInfor>* Attribs = nullptr;
    char* Object = nullptr;
    bool IsConst = false;
};
VEXA_API CObjectSpot ObjectOf(const CSpot& spot);
/// Whether it is no member of a union, or the active one.
VEXA_API bool IsActive(const CAttribInfor& attrib, const void* object);

/// A walk over the elements of a value, which must not change but through them.
class VEXA_API CElementWalk {
public:
    explicit CElementWalk(const CSpot& spot);
    CElementWalk(CElementWalk&& other) noexcept;
    CElementWalk& operator=(CElementWalk&& other) = delete;
    ~CElementWalk();

    bool IsEnd() const noexcept;
    void Next();
    std::size_t Index() const noexcept;
    const CRefrence& Value() const noexcept;    ///< with HF_CONST where it cannot be changed
    const CConstRefrence& Key() const noexcept; ///< of a map; without address otherwise
    std::string_view Name() const noexcept;     ///< of a named entry; empty otherwise

private:
    struct CState;
    std::unique_ptr<CState> m_state;
};

enum class KeyForm : unsigned char { NAME, TEXT, NUMBER };
/// An index, a key or a name as a path has it.
struct CKeyText {
    KeyForm Form;
    std::string_view Text;
};

VEXA_API unsigned long CountElements(const CSpot& spot);
/// The element of a key; one without address where there is a problem.
VEXA_API CSpot SpotOfKey(const CSpot& spot, const CKeyText& key, CReport* report);

/// Gives a place its value.
using SetFunction = bool (*)(const void* value, const CSpot& place, CReport* report);
/// Adds an element: at the end, or where its order or key puts it. \param setKey is null where there is none. \return
/// false with a problem, the container is as it was then.
VEXA_API bool InsertElement(const CSpot& spot, const void* key, SetFunction setKey, const void* value, SetFunction set,
                            CReport* report);
VEXA_API bool EraseElement(const CSpot& spot, const CKeyText& key, CReport* report);

} // namespace vexa::detail

#endif
