#ifndef VEXA_CONTAINER_INFOR_H
#define VEXA_CONTAINER_INFOR_H

#include <cstring>

#include <vexa/type_infor.h>

namespace vexa {

/// Describes one container type: the common head, the operations through which the library reaches a container whose
/// static type it does not know, and the type of its elements. In every operation `container` is the address of the
/// container itself, never that of a pointer to it. Built once, then only read.
///
/// A walk: `cursor = Begin(container, &element)`; a null cursor means that there is nothing to walk or to release;
/// otherwise `element = Next(container, cursor)` until it is null, then `Release(cursor)`, also for an empty container.
class VEXA_API CContainerInfor : public CTypeInforBase {
public:
    using AppendFunction = void* (*)(void* container);
    using ReservedFunction = void (*)();
    using InsertFunction = void (*)(void* container, void* element);
    using ClearFunction = void (*)(void* container);
    using SizeFunction = unsigned long (*)(void* container);
    using BeginFunction = void* (*)(void* container, void** first);
    using ReleaseFunction = void (*)(void* cursor);
    using NextFunction = void* (*)(void* container, void* cursor);

    AppendFunction Append = nullptr; ///< codes 61 to 78: adds a default element at the end, returns its address
    ReservedFunction Reserved2 = nullptr;
    InsertFunction Insert = nullptr;   ///< codes 81 to 98: inserts a prepared element, which may be moved from
    ClearFunction Clear = nullptr;     ///< removes all elements
    SizeFunction Count = nullptr;      ///< number of elements
    BeginFunction Begin = nullptr;     ///< starts a forward walk; stores the first element's address, null if empty
    ReleaseFunction Release = nullptr; ///< ends a walk that Begin started and frees its cursor
    ReservedFunction Reserved8 = nullptr;
    NextFunction Next = nullptr;        ///< steps forward; the next element's address, null after the last
    BeginFunction RBegin = nullptr;     ///< starts a reverse walk from the last element
    ReleaseFunction RRelease = nullptr; ///< ends a walk that RBegin started and frees its cursor
    NextFunction RNext = nullptr;       ///< steps a reverse walk; null after the first element
    CGnlTypeInfor ElementType;          ///< descriptor of one element

    CContainerInfor() = default;
    CContainerInfor(const CContainerInfor&) = default;
    ~CContainerInfor() = default;
    /// Copies the name, the twelve operations and the element type; size, custom type ID, factory and deleter stay.
    CContainerInfor& operator=(const CContainerInfor& other);
    /// "name<element type name>", cut at 254 characters.
    std::string TypeName() const;
};

static_assert(sizeof(CContainerInfor) == 176, "part of the binary interface");

namespace detail {

struct CElementSpan {
    char* First;
    char* Last; ///< behind the last element
};

/// Where the elements of a container of \p size bytes lie that is marked as contiguous: in the memory that a vector's
/// first two words designate, or in the container itself.
inline CElementSpan ElementsOf(bool isVector, unsigned long size, const void* container) noexcept
{
    auto* const first = static_cast<char*>(const_cast<void*>(container));
    CElementSpan span{first, first + size};
    if (isVector) std::memcpy(&span, container, sizeof span);
    return span;
}
inline CElementSpan ElementsOf(const CContainerInfor& infor, void* container) noexcept
{
    return ElementsOf(infor.Mark.Is(CFinishedMark::VECTOR), infor.Size, container);
}

} // namespace detail

} // namespace vexa

#endif
