#ifndef VEXA_CONTAINER_REFRENCE_H
#define VEXA_CONTAINER_REFRENCE_H

#include <string>
#include <utility>

#include <vexa/class_refrence.h>
#include <vexa/container_infor.h>

/// \file
/// References to containers: element iteration, a container as one line of text, one attribute of all elements.

namespace vexa {

class CContainerConstIterator;
class CContainerConstReverseIterator;

/// A read-only reference to a container (codes 61 to 98). It must not be changed while it is walked.
class VEXA_API CContainerConstRefrence : public CConstRefrence {
public:
    using CConstRefrence::CConstRefrence;

    const CContainerInfor& ContainerInfor() const noexcept
    {
        return *static_cast<const CContainerInfor*>(TypeInfor.DetailInfor);
    }
    /// Number of elements; 0 for a null container.
    unsigned long Count() const;

    CContainerConstIterator begin() const&;
    void begin() const&& = delete; // the walk would outlive what it walks; a range-for keeps its range alive
    CWalkEnd end() const { return {}; }

    /// Writes all elements into \p out, which is emptied first, \p separator between them. Elements of a string type
    /// stand between \p quote; a null element is "NULL".
    void GetListString(std::string& out, char separator, char quote) const;
    /// The same for one flat attribute of elements that are objects of a described class; here only an attribute of
    /// type std::string stands between quotes. The attribute's pointer path is not followed.
    void GetListString(std::string& out, const CFlatAttribInfor& attrib, char separator, char quote) const;
};

/// A writable reference to a container.
class VEXA_API CContainerRefrence : public CContainerConstRefrence {
public:
    CContainerRefrence() noexcept = default;
    CContainerRefrence(const CGnlTypeInfor& typeInfor, void* address) : CContainerConstRefrence(typeInfor, address) {}

    /// Adds a default element at the end of a sequence container and gives its reference; one without address when the
    /// container is null, read-only (which is logged) or without such an operation.
    CRefrence Append();
    /// Removes all elements; nothing for a null container, nor for a read-only one, which is logged.
    void Clear();
};

/// Appends one flat attribute of every element of \p src, objects of a described class, to \p dst, a container of basic
/// values, with the library's conversions.
/// \return false, with \p dst unchanged, when \p dst does not hold basic values, is read-only or cannot be appended to,
/// when \p src does not hold objects of a class, or when the class has no such attribute.
VEXA_API bool GetValueListFromObjectList_i(CContainerRefrence& dst, const CContainerConstRefrence& src,
                                           const std::string& flatName);

namespace detail {

/// A walk at its start. Given and taken by value, so that an iterator that nothing else asks for its address can live
/// in registers.
struct CWalkStart {
    void* Container;
    void* Cursor;           ///< null: there is no walk
    CConstRefrence Element; ///< the first one, or the last of a reverse walk
};

/// \param container the container's own address, or null.
VEXA_API CWalkStart StartWalk(const CContainerInfor& infor, void* container, bool isReverse);
/// \param cursor that of a walk which was started; not null.
VEXA_API void StopWalk(const CContainerInfor& infor, void* cursor, bool isReverse);

} // namespace detail

/// What both container iterators are: a walk, which owns its cursor. Cannot be copied.
///
/// The elements of a container whose descriptor is marked as contiguous are stepped through by their distance: such a
/// walk calls no operation of the descriptor, makes nothing that has to be released, and ends with the element at whose
/// far side its cursor points.
struct CContainerWalk {
    const CContainerConstRefrence* Owner = nullptr; ///< the container being walked
    void* Container = nullptr;                      ///< its value address; null when the owner is null
    CConstRefrence Current;                         ///< the current element; without address at the end
    void* Cursor = nullptr;                         ///< null when there is no walk

    bool IsEnd() const { return Cursor == nullptr || Current.Address == nullptr; }
    const CConstRefrence& operator*() const { return Current; }
    const CConstRefrence* operator->() const { return &Current; }
    bool operator!=(CWalkEnd) const { return !IsEnd(); }
    bool operator==(CWalkEnd) const { return IsEnd(); }

    CContainerWalk() = default;
    CContainerWalk(const CContainerWalk&) = delete;
    CContainerWalk& operator=(const CContainerWalk&) = delete;

protected:
    ~CContainerWalk() = default;
    /// Leaves no walk behind for a null or empty container, so that the element of an earlier walk is not taken for
    /// one.
    VEXA_INLINE void Start(const CContainerConstRefrence& owner, bool isReverse)
    {
        detail::CWalkStart start = detail::StartWalk(owner.ContainerInfor(), owner.ValueAddress(), isReverse);
        Owner = &owner;
        Container = start.Container;
        Cursor = start.Cursor;
        if (Cursor != nullptr) Current = std::move(start.Element);
    }
    void Step(CContainerInfor::NextFunction next)
    {
        Current.Address = next != nullptr ? next(Container, Cursor) : nullptr;
    }
    void Stop(bool isReverse)
    {
        if (Cursor != nullptr) detail::StopWalk(Owner->ContainerInfor(), std::exchange(Cursor, nullptr), isReverse);
    }
    /// 0 for a container that is not contiguous.
    unsigned long Stride() const { return Owner->ContainerInfor().Mark.Stride(); }
};

/// Walks a container forward; assign a container reference to start. The reference must outlive the walk.
class CContainerConstIterator : public CContainerWalk {
public:
    CContainerConstIterator() = default;
    VEXA_INLINE explicit CContainerConstIterator(const CContainerConstRefrence& owner) { Start(owner, false); }
    explicit CContainerConstIterator(const CContainerConstRefrence&& owner) = delete;
    VEXA_INLINE ~CContainerConstIterator() { Release(); }
    CContainerConstIterator& operator=(const CContainerConstRefrence& owner)
    {
        Release();
        Start(owner, false);
        return *this;
    }
    CContainerConstIterator& operator=(const CContainerConstRefrence&& owner) = delete;
    CContainerConstIterator& operator++()
    {
        if (const unsigned long stride = Stride(); stride != 0) {
            char* const next = static_cast<char*>(Current.Address) + stride;
            Current.Address = next != Cursor ? next : nullptr;
        } else {
            Step(Owner->ContainerInfor().Next);
        }
        return *this;
    }
    /// Ends the walk before the iterator does.
    void Release() { Stop(false); }
};

/// Walks a container backward; one without reverse operations is not walked, one without RNext gives its last element
/// only.
class CContainerConstReverseIterator : public CContainerWalk {
public:
    CContainerConstReverseIterator() = default;
    VEXA_INLINE explicit CContainerConstReverseIterator(const CContainerConstRefrence& owner) { Start(owner, true); }
    explicit CContainerConstReverseIterator(const CContainerConstRefrence&& owner) = delete;
    VEXA_INLINE ~CContainerConstReverseIterator() { Release(); }
    CContainerConstReverseIterator& operator=(const CContainerConstRefrence& owner)
    {
        Release();
        Start(owner, true);
        return *this;
    }
    CContainerConstReverseIterator& operator=(const CContainerConstRefrence&& owner) = delete;
    CContainerConstReverseIterator& operator++()
    {
        if (const unsigned long stride = Stride(); stride != 0)
            Current.Address = Current.Address != Cursor ? static_cast<char*>(Current.Address) - stride : nullptr;
        else
            Step(Owner->ContainerInfor().RNext);
        return *this;
    }
    void Release() { Stop(true); }
};

static_assert(sizeof(CContainerConstRefrence) == 24 && sizeof(CContainerRefrence) == 24,
              "one layout for all references");
static_assert(sizeof(CContainerConstIterator) == 48 && sizeof(CContainerConstReverseIterator) == 48, "four fields");

VEXA_INLINE CContainerConstIterator CContainerConstRefrence::begin() const& { return CContainerConstIterator(*this); }
inline const CContainerConstRefrence& CConstRefrence::AsContainer() const& noexcept
{
    return static_cast<const CContainerConstRefrence&>(*this);
}
inline CContainerConstRefrence CConstRefrence::AsContainer() && { return {TypeInfor, Address}; }
inline CContainerRefrence& CRefrence::AsContainer() & noexcept
{
    return static_cast<CContainerRefrence&>(static_cast<CConstRefrence&>(*this));
}
inline CContainerRefrence CRefrence::AsContainer() && { return {TypeInfor, Address}; }

} // namespace vexa

#endif
