#ifndef ORDANA_FORMATS_SQLITE_ROWS_H
#define ORDANA_FORMATS_SQLITE_ROWS_H

#include <vector>

#include <vexa/sqlite.h>

namespace vexa::sqlite {

/// What of a container can be seen to have changed at no cost: its place, where its elements lie, how many there are.
struct CLook {
    const void* Container = nullptr;
    const char* First = nullptr; ///< of elements that lie one behind the other
    unsigned long Count = 0;     ///< of elements; of those, the bytes that they take

    bool operator==(const CLook& other) const noexcept
    {
        return Container == other.Container && First == other.First && Count == other.Count;
    }
    bool operator!=(const CLook& other) const noexcept { return !(*this == other); }
};

/// The elements of a container, which it does not own.
class CRows {
public:
    explicit CRows(const CConstRefrence& container);

    const CContainerInfor& Infor() const noexcept { return *m_infor; }
    /// Elements that lie one behind the other are reached by arithmetic, all others by a walk.
    bool IsContiguous() const noexcept { return m_stride != 0; }
    unsigned long Stride() const noexcept { return m_stride; }
    CLook Look() const
    {
        CLook look;
        look.Container = m_isDirect ? m_container.Address : m_container.ValueAddress();
        if (look.Container == nullptr) return look;
        auto* const container = const_cast<void*>(look.Container);
        if (m_stride == 0) {
            look.Count = m_infor->Count(container);
            return look;
        }
        const detail::CElementSpan span = detail::ElementsOf(m_isVector, m_infor->Size, container);
        look.First = span.First;
        look.Count = static_cast<unsigned long>(span.Last - span.First);
        return look;
    }
    unsigned long Count(const CLook& look) const noexcept { return m_stride != 0 ? look.Count / m_stride : look.Count; }
    /// Where the elements of a container that is not contiguous lie.
    std::vector<const char*> Places(const CLook& look) const;

private:
    CConstRefrence m_container;
    const CContainerInfor* m_infor;
    bool m_isDirect; ///< the reference's address is the container's
    bool m_isVector;
    unsigned long m_stride; ///< 0 where elements do not lie one behind the other
};

/// A walk over a container that is not contiguous.
class CWalk {
public:
    CWalk() = default;
    CWalk(const CWalk&) = delete;
    CWalk& operator=(const CWalk&) = delete;
    ~CWalk() { End(); }

    /// \return the first element; null where there is none.
    const char* Begin(const CContainerInfor& infor, const void* container)
    {
        End();
        m_infor = &infor;
        m_container = const_cast<void*>(container);
        void* first = nullptr;
        if (container != nullptr) m_cursor = infor.Begin(m_container, &first);
        return static_cast<const char*>(first);
    }
    const char* Next() { return static_cast<const char*>(m_infor->Next(m_container, m_cursor)); }
    void End() noexcept
    {
        if (m_cursor != nullptr) m_infor->Release(m_cursor);
        m_cursor = nullptr;
    }

private:
    const CContainerInfor* m_infor = nullptr;
    void* m_container = nullptr;
    void* m_cursor = nullptr;
};

inline CRows::CRows(const CConstRefrence& container)
    : m_container(container), m_infor(static_cast<const CContainerInfor*>(container.TypeInfor.DetailInfor)),
      m_isDirect(!container.TypeInfor.Has(Enum::HF_NULLABLE) && !container.TypeInfor.Has(Enum::HF_POINTER) &&
                 container.TypeInfor.WrapperKind() == 0),
      m_isVector(m_infor->Mark.Is(detail::CFinishedMark::VECTOR)),
      m_stride(m_isVector || m_infor->Mark.Is(detail::CFinishedMark::SLOTS) ? m_infor->Mark.Stride() : 0)
{
}

inline std::vector<const char*> CRows::Places(const CLook& look) const
{
    std::vector<const char*> places;
    places.reserve(look.Count);
    CWalk walk;
    for (const char* at = walk.Begin(*m_infor, look.Container); at != nullptr; at = walk.Next())
        places.push_back(at);
    return places;
}

} // namespace vexa::sqlite

#endif
