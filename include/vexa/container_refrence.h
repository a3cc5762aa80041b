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

/// What both container iterators are: a walk, which owns its cursor. Cannot be copied.
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
    VEXA_API void Start(const CContainerConstRefrence& owner, CContainerInfor::BeginFunction begin,
                        CContainerInfor::ReleaseFunction release);
    void Step(CContainerInfor::NextFunction next)
    {
        Current.Address = next != nullptr ? next(Container, Cursor) : nullptr;
    }
    void Stop(CContainerInfor::ReleaseFunction release)
    {
        if (Cursor != nullptr) release(std::exchange(Cursor, nullptr));
    }
};

/// Walks a container forward; assign a container reference to start. The reference must outlive the walk.
class CContainerConstIterator : public CContainerWalk {
public:
    CContainerConstIterator() = default;
    explicit CContainerConstIterator(const CContainerConstRefrence& owner) { *this = owner; }
    explicit CContainerConstIterator(const CContainerConstRefrence&& owner) = delete;
    ~CContainerConstIterator() { Release(); }
    CContainerConstIterator& operator=(const CContainerConstRefrence& owner)
    {
        Release();
        Start(owner, owner.ContainerInfor().Begin, owner.ContainerInfor().Release);
        return *this;
    }
    CContainerConstIterator& operator=(const CContainerConstRefrence&& owner) = delete;
    CContainerConstIterator& operator++()
    {
        Step(Owner->ContainerInfor().Next);
        return *this;
    }
    /// Ends the walk before the iterator does.
    void Release()
    {
        if (Cursor != nullptr) Stop(Owner->ContainerInfor().Release);
    }
};

/// Walks a container backward; one without reverse operations is not walked, one without RNext gives its last element
/// only.
class CContainerConstReverseIterator : public CContainerWalk {
public:
    CContainerConstReverseIterator() = default;
    explicit CContainerConstReverseIterator(const CContainerConstRefrence& owner) { *this = owner; }
    explicit CContainerConstReverseIterator(const CContainerConstRefrence&& owner) = delete;
    ~CContainerConstReverseIterator() { Release(); }
    CContainerConstReverseIterator& operator=(const CContainerConstRefrence& owner)
    {
        Release();
        Start(owner, owner.ContainerInfor().RBegin, ReleaseOf(owner));
        return *this;
    }
    CContainerConstReverseIterator& operator=(const CContainerConstRefrence&& owner) = delete;
    CContainerConstReverseIterator& operator++()
    {
        Step(Owner->ContainerInfor().RNext);
        return *this;
    }
    void Release()
    {
        if (Cursor != nullptr) Stop(ReleaseOf(*Owner));
    }

private:
    /// A container that does not tell the two kinds of cursors apart has one operation for both.
    static CContainerInfor::ReleaseFunction ReleaseOf(const CContainerConstRefrence& owner)
    {
        const CContainerInfor& infor = owner.ContainerInfor();
        return infor.RRelease != nullptr ? infor.RRelease : infor.Release;
    }
};

static_assert(sizeof(CContainerConstRefrence) == 24 && sizeof(CContainerRefrence) == 24,
              "one layout for all references");
static_assert(sizeof(CContainerConstIterator) == 48 && sizeof(CContainerConstReverseIterator) == 48, "four fields");

inline CContainerConstIterator CContainerConstRefrence::begin() const& { return CContainerConstIterator(*this); }
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
