#ifndef VEXA_DETAIL_VECTOR_H
#define VEXA_DETAIL_VECTOR_H

#include <vexa/container_infor.h>
#include <vexa/export.h>

/// \file
/// The operations of a std::vector with the standard allocator for most kinds of elements (CVectorTrait tells which):
/// they need no more of these than their size and one function. A vector is three pointers: to its first element,
/// behind its last one, and behind its room.

namespace vexa::detail {

enum class ElementTask { CONSTRUCT, MOVE, DESTROY };

/// Constructs a default element at \p to; moves the one at \p from there, which is destroyed, and never throws; or
/// destroys the one at \p to. A null function stands for elements that are plain bytes, zero by default.
using ManageFunction = void (*)(ElementTask task, void* to, void* from);

/// Whether the vectors of this program are laid out as these functions take them to be. Looks once.
VEXA_API bool IsVectorLayoutKnown();

VEXA_API void* NewVector();
/// Adds a default element. An exception leaves the vector as it was.
VEXA_API void* AppendToVector(void* vector, unsigned long size, ManageFunction manage);
VEXA_API void ClearVector(void* vector, unsigned long size, ManageFunction manage) noexcept;
/// Removes one element. What lies behind it takes its place.
VEXA_API void RemoveFromVector(void* vector, unsigned long size, ManageFunction manage, void* element) noexcept;
/// Also destroys the vector itself; does nothing for null.
VEXA_API void DeleteVector(void* vector, unsigned long size, ManageFunction manage) noexcept;

VEXA_API void* BeginOfVector(void* vector, void** first);
VEXA_API void* RBeginOfVector(void* vector, void** last, unsigned long size);
VEXA_API void* NextInVector(void* vector, void* cursor, unsigned long size) noexcept;
VEXA_API void* RNextInVector(void* vector, void* cursor, unsigned long size) noexcept;
VEXA_API unsigned long CountOfVector(void* vector, unsigned long size) noexcept;
VEXA_API void ReleaseVectorCursor(void* cursor) noexcept;

/// What the walks of all vectors with elements of one size have in common.
template<unsigned long SIZE>
void FillVectorWalk(CContainerInfor& infor)
{
    infor.Begin = &BeginOfVector;
    infor.Release = infor.RRelease = &ReleaseVectorCursor;
    infor.Count = [](void* vector) { return CountOfVector(vector, SIZE); };
    infor.Next = [](void* vector, void* cursor) { return NextInVector(vector, cursor, SIZE); };
    infor.RBegin = [](void* vector, void** last) { return RBeginOfVector(vector, last, SIZE); };
    infor.RNext = [](void* vector, void* cursor) { return RNextInVector(vector, cursor, SIZE); };
}

} // namespace vexa::detail

#endif
