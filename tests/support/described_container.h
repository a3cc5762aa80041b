#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_CONTAINER_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_CONTAINER_H

#include <utility>

#include <vexa/container_infor.h>

/// Container descriptors put together by hand over standard containers.

namespace vexa_test {

/// What the operations below did, for the tests to look at. Walks are counted to find a cursor that leaks or is
/// released twice.
struct WalkCounts {
    int Begun = 0;
    int Released = 0;
    int ReverseBegun = 0;
    int ReverseReleased = 0;
};
inline WalkCounts g_walks;

template<class C, class Iterator>
struct WalkCursor {
    Iterator Position;
    Iterator End;
    void* Address() const { return Position == End ? nullptr : const_cast<typename C::value_type*>(&*Position); }
};

template<class C, class Iterator>
void* BeginWalk(void** first, Iterator begin, Iterator end)
{
    auto* const cursor = new WalkCursor<C, Iterator>{begin, end};
    *first = cursor->Address();
    return cursor;
}

template<class C, class Iterator>
void* StepWalk(void* cursor)
{
    auto& walk = *static_cast<WalkCursor<C, Iterator>*>(cursor);
    ++walk.Position;
    return walk.Address();
}

/// The operations that every standard container has.
template<class C>
vexa::CContainerInfor WalkedContainer(const char* name, const vexa::CGnlTypeInfor& elementType)
{
    using Forward = typename C::iterator;
    using Reverse = typename C::reverse_iterator;
    vexa::CContainerInfor infor;
    infor.SetBaseTypeInfor(
        name, sizeof(C), []() -> void* { return new C(); }, [](void* object) { delete static_cast<C*>(object); }, 0);
    infor.ElementType = elementType;
    infor.Clear = [](void* container) { static_cast<C*>(container)->clear(); };
    infor.Count = [](void* container) -> unsigned long { return static_cast<C*>(container)->size(); };
    infor.Begin = [](void* container, void** first) -> void* {
        ++g_walks.Begun;
        return BeginWalk<C, Forward>(first, static_cast<C*>(container)->begin(), static_cast<C*>(container)->end());
    };
    infor.Next = [](void*, void* cursor) -> void* { return StepWalk<C, Forward>(cursor); };
    infor.Release = [](void* cursor) {
        ++g_walks.Released;
        delete static_cast<WalkCursor<C, Forward>*>(cursor);
    };
    infor.RBegin = [](void* container, void** last) -> void* {
        ++g_walks.ReverseBegun;
        return BeginWalk<C, Reverse>(last, static_cast<C*>(container)->rbegin(), static_cast<C*>(container)->rend());
    };
    infor.RNext = [](void*, void* cursor) -> void* { return StepWalk<C, Reverse>(cursor); };
    infor.RRelease = [](void* cursor) {
        ++g_walks.ReverseReleased;
        delete static_cast<WalkCursor<C, Reverse>*>(cursor);
    };
    return infor;
}

/// A sequence: elements are appended where the container keeps them.
template<class C>
vexa::CContainerInfor SequenceContainer(const char* name, const vexa::CGnlTypeInfor& elementType)
{
    vexa::CContainerInfor infor = WalkedContainer<C>(name, elementType);
    infor.Append = [](void* container) -> void* {
        static_cast<C*>(container)->emplace_back();
        return &static_cast<C*>(container)->back();
    };
    return infor;
}

/// An associative container: elements are prepared first, then inserted.
template<class C>
vexa::CContainerInfor AssociativeContainer(const char* name, const vexa::CGnlTypeInfor& elementType)
{
    vexa::CContainerInfor infor = WalkedContainer<C>(name, elementType);
    infor.Insert = [](void* container, void* element) {
        static_cast<C*>(container)->insert(std::move(*static_cast<typename C::value_type*>(element)));
    };
    return infor;
}

} // namespace vexa_test

#endif
