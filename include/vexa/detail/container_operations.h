#ifndef VEXA_DETAIL_CONTAINER_OPERATIONS_H
#define VEXA_DETAIL_CONTAINER_OPERATIONS_H

#include <bitset>
#include <cstddef>
#include <deque>
#include <iterator>
#include <list>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>
#include <vector>

#include <vexa/container_infor.h>
#include <vexa/detail/cursor_memory.h>
#include <vexa/detail/type_traits.h>
#include <vexa/detail/vector.h>
#include <vexa/refrence.h>

/// \file
/// The operations that a container descriptor holds, one template per container shape.

namespace vexa::detail {

/// Frees what raw pointers in a value own, before the container that holds them lets go of them or goes away.
/// Everything else releases itself.
template<class T>
void Disown(T& value)
{
    using Value = std::remove_const_t<T>; // a key is const
    if constexpr (std::is_pointer_v<Value>) {
        using Pointee = std::remove_pointer_t<Value>;
        if constexpr (!std::is_const_v<Pointee> && !std::is_void_v<Pointee>) {
            void* object = value;
            MakeTypeInfor(TYPE_SOURCE<Pointee>).Delete(object);
        }
    } else if constexpr (IS_PAIR<Value>) {
        Disown(value.first);
        Disown(value.second);
    } else if constexpr (HOLDS_RAW_POINTERS<Value>) {
        for (auto& element : value)
            Disown(element);
    }
}

template<class Container>
struct CWalkOperations {
    using Iterator = decltype(std::begin(std::declval<Container&>()));

    template<class Position>
    static void* AddressOf(Container& container, const Position& position, const Position& end)
    {
        static_cast<void>(container);
        return position == end ? nullptr : const_cast<void*>(static_cast<const void*>(std::addressof(*position)));
    }
    static void* Begin(void* container, void** first)
    {
        auto& walked = *static_cast<Container*>(container);
        auto* const cursor = MakeCursor<Iterator>(std::begin(walked));
        *first = AddressOf(walked, *cursor, std::end(walked));
        return cursor;
    }
    static void* Next(void* container, void* cursor)
    {
        auto& walked = *static_cast<Container*>(container);
        return AddressOf(walked, ++*static_cast<Iterator*>(cursor), std::end(walked));
    }
    static void Release(void* cursor) { ReleaseCursor<Iterator>(cursor); }

    template<class C>
    static void FillReverse(CContainerInfor& infor, decltype(std::rbegin(std::declval<C&>()))*)
    {
        using Position = decltype(std::rbegin(std::declval<C&>()));
        infor.RBegin = [](void* container, void** last) -> void* {
            auto& walked = *static_cast<Container*>(container);
            auto* const cursor = MakeCursor<Position>(std::rbegin(walked));
            *last = AddressOf<Position>(walked, *cursor, std::rend(walked));
            return cursor;
        };
        infor.RNext = [](void* container, void* cursor) -> void* {
            auto& walked = *static_cast<Container*>(container);
            return AddressOf<Position>(walked, ++*static_cast<Position*>(cursor), std::rend(walked));
        };
        infor.RRelease = &ReleaseCursor<Position>;
    }
    /// A container without order has no reverse walk.
    template<class C>
    static void FillReverse(CContainerInfor&, ...)
    {
    }

    static void Fill(CContainerInfor& infor)
    {
        infor.Begin = &Begin;
        infor.Next = &Next;
        infor.Release = &Release;
        infor.Count = [](void* container) -> unsigned long { return std::size(*static_cast<Container*>(container)); };
        FillReverse<Container>(infor, nullptr);
    }
};

template<class Container>
void FillClear(CContainerInfor& infor)
{
    infor.Clear = [](void* container) {
        auto& cleared = *static_cast<Container*>(container);
        Disown(cleared);
        cleared.clear();
    };
}

/// An empty container of the same comparison, or hash, as another. One that is made anew may have none: a null pointer
/// to a function.
template<class Container, class = void>
struct CSameOrder {
    static void Take(Container&, const Container&) {}
};
template<class Container>
struct CSameOrder<Container, std::enable_if_t<!std::is_empty_v<typename Container::key_compare>>> {
    static void Take(Container& empty, const Container& other) { empty = Container(other.key_comp()); }
};
template<class Container>
struct CSameOrder<Container, std::enable_if_t<!std::is_empty_v<typename Container::hasher> ||
                                              !std::is_empty_v<typename Container::key_equal>>> {
    static void Take(Container& empty, const Container& other)
    {
        empty = Container(0, other.hash_function(), other.key_eq());
    }
};

template<class Container>
void FillSwap(CContainerInfor& infor)
{
    SetSwap(infor, [](void* left, void* right) {
        auto& mine = *static_cast<Container*>(left);
        auto& other = *static_cast<Container*>(right);
        if (std::empty(other)) CSameOrder<Container>::Take(other, mine);
        mine.swap(other);
    });
}

/// What lies behind the element in a vector or deque takes its place.
template<class Container>
void FillRemove(CContainerInfor& infor)
{
    SetRemove(infor, [](void* container, const void* element) {
        auto& shrunk = *static_cast<Container*>(container);
        for (auto position = shrunk.begin(); position != shrunk.end(); ++position) {
            if (static_cast<const void*>(std::addressof(*position)) != element) continue;
            if constexpr (HOLDS_RAW_POINTERS<Container>) Disown(*position);
            shrunk.erase(position);
            return;
        }
    });
}

/// Whether elements stay where they are when others come.
template<class Container>
inline constexpr bool KEEPS_PLACES =
    IS_SPECIALIZATION<Container, std::list> || IS_SPECIALIZATION<Container, std::deque>;

template<class Container>
struct CSequenceOperations {
    static void Fill(CContainerInfor& infor)
    {
        CWalkOperations<Container>::Fill(infor);
        FillClear<Container>(infor);
        FillSwap<Container>(infor);
        using Element = typename Container::value_type;
        if constexpr (std::is_move_assignable_v<Element> || IS_SPECIALIZATION<Container, std::list>)
            FillRemove<Container>(infor);
        constexpr bool CAN_BE_HELD = KEEPS_PLACES<Container> || std::is_move_constructible_v<Element>;
        if constexpr (std::is_default_constructible_v<Element> && CAN_BE_HELD) {
            infor.Append = [](void* container) -> void* {
                return std::addressof(static_cast<Container*>(container)->emplace_back());
            };
        }
    }
};

/// Whether a container is a std::vector that lies in memory as detail/vector.h says.
template<class Container>
inline constexpr bool IS_KNOWN_VECTOR = false;
#if defined(__GLIBCXX__) && !defined(_GLIBCXX_DEBUG) && !defined(_GLIBCXX_SANITIZE_VECTOR)
template<class T>
inline constexpr bool IS_KNOWN_VECTOR<std::vector<T>> = sizeof(std::vector<T>) == 3 * sizeof(void*);
#endif

/// Whether default elements are zero bytes and move as bytes.
template<class T>
inline constexpr bool IS_PLAIN_BYTES = std::is_scalar_v<T> && !std::is_member_pointer_v<T>;

template<class T>
void ManageElement(ElementTask task, void* to, void* from)
{
    switch (task) {
    case ElementTask::CONSTRUCT: ::new (to) T(); break;
    case ElementTask::MOVE:
        ::new (to) T(std::move(*static_cast<T*>(from)));
        static_cast<T*>(from)->~T();
        break;
    case ElementTask::DESTROY: static_cast<T*>(to)->~T(); break;
    }
}

/// The vectors whose elements the common functions can handle; the others go through their own members.
template<class Container>
struct CVectorOperations {
    using T = typename Container::value_type;
    static constexpr unsigned long SIZE = sizeof(T);
    static constexpr bool CAN_APPEND = std::is_default_constructible_v<T> && std::is_nothrow_move_constructible_v<T>;
    static constexpr bool IS_POSSIBLE = CAN_APPEND && !HOLDS_RAW_POINTERS<Container> &&
                                        std::is_nothrow_destructible_v<T> &&
                                        alignof(T) <= __STDCPP_DEFAULT_NEW_ALIGNMENT__;

    static constexpr ManageFunction Manage()
    {
        if constexpr (IS_PLAIN_BYTES<T>)
            return nullptr;
        else
            return &ManageElement<T>;
    }
    static void* Append(void* vector) { return AppendToVector(vector, SIZE, Manage()); }
    static void Clear(void* vector) { ClearVector(vector, SIZE, Manage()); }
    static void Delete(void* vector) { DeleteVector(vector, SIZE, Manage()); }
};

/// Asked of every container.
template<class Container, bool = IS_KNOWN_VECTOR<Container>>
struct CVectorTrait {
    static constexpr bool IS_POSSIBLE = false;
};
template<class Container>
struct CVectorTrait<Container, true> : CVectorOperations<Container> {
};

/// Whether it is a map with one value a key.
template<class Container, class = void>
inline constexpr bool HAS_AT = false;
template<class Container>
inline constexpr bool
    HAS_AT<Container,
           std::void_t<decltype(std::declval<Container&>().at(std::declval<const typename Container::key_type&>()))>> =
        true;

template<class Container>
struct CAssociativeOperations {
    using Element = ElementOf<Container>;

    /// The container takes the contents of the element; what it does not take goes, so that the element may be used
    /// again.
    static void Insert(void* container, void* element)
    {
        using Inserted = decltype(std::declval<Container&>().insert(std::declval<Element>()));
        constexpr bool IS_KEY_UNIQUE = !std::is_same_v<Inserted, typename Container::iterator>;
        auto& filled = *static_cast<Container*>(container);
        auto& taken = *static_cast<Element*>(element);
        // Asked first: a refused element that was moved from may have lost what its pointers designate.
        if (HOLDS_RAW_POINTERS<Element> && IS_KEY_UNIQUE && filled.find(KeyOf(taken)) != filled.end())
            Disown(taken);
        else
            filled.insert(std::move(taken));
        if constexpr (HOLDS_RAW_POINTERS<Element>)
            Forget(taken);
        else if constexpr (IS_UNIQUE_POINTER<Element> || IS_SPECIALIZATION<Element, NonNullPointer>)
            taken = Element();
    }
    static const auto& KeyOf(const Element& element)
    {
        if constexpr (std::is_same_v<Element, typename Container::key_type>)
            return element;
        else
            return element.first;
    }
    static void FillFindKey(CContainerInfor& infor)
    {
        using Key = typename Container::key_type;
        constexpr bool IS_PLAIN = std::is_same_v<Key, std::string> || std::is_integral_v<Key> || std::is_enum_v<Key>;
        if constexpr (IS_PLAIN && HAS_AT<Container>) {
            SetFindKey(infor, [](void* map, const void* key) -> void* {
                auto& searched = *static_cast<Container*>(map);
                const auto found = searched.find(*static_cast<const Key*>(key));
                return found != searched.end() ? std::addressof(*found) : nullptr;
            });
        }
    }
    template<class T>
    static void Forget(T& value)
    {
        if constexpr (IS_PAIR<T>) {
            Forget(value.first);
            Forget(value.second);
        } else {
            value = T();
        }
    }

    static void Fill(CContainerInfor& infor)
    {
        CWalkOperations<Container>::Fill(infor);
        FillClear<Container>(infor);
        FillSwap<Container>(infor);
        FillRemove<Container>(infor);
        FillFindKey(infor);
        if constexpr (std::is_move_constructible_v<Element>) infor.Insert = &Insert;
    }
};

/// std::array and the language's own array: the elements are always there, so clearing gives each its default.
template<class Array>
struct CArrayOperations {
    template<class Slot>
    static void Reset(Slot& slot)
    {
        if constexpr (std::is_array_v<Slot> || IS_STD_ARRAY<Slot>) {
            for (auto& inner : slot)
                Reset(inner);
        } else if constexpr (std::is_default_constructible_v<Slot> && std::is_move_assignable_v<Slot>) {
            Disown(slot);
            slot = Slot();
        } else {
            CRefrence(MakeTypeInfor(TYPE_SOURCE<Slot>), const_cast<void*>(static_cast<const void*>(&slot))).Clear();
        }
    }
    static void Fill(CContainerInfor& infor)
    {
        CWalkOperations<Array>::Fill(infor);
        infor.Clear = [](void* container) { Reset(*static_cast<Array*>(container)); };
    }
};

/// A bit has no address: each element of a walk is a bool in the cursor.
template<std::size_t SIZE>
struct CBitsetOperations {
    using Bits = std::bitset<SIZE>;
    struct CCursor {
        std::size_t Index;
        bool Bit;
    };

    static void* Look(void* container, CCursor& cursor)
    {
        if (cursor.Index >= SIZE) return nullptr;
        cursor.Bit = static_cast<const Bits*>(container)->test(cursor.Index);
        return &cursor.Bit;
    }
    template<std::ptrdiff_t STEP>
    static void* Step(void* container, void* cursor)
    {
        auto& moved = *static_cast<CCursor*>(cursor);
        moved.Index += static_cast<std::size_t>(STEP); // a step before the first bit wraps to beyond the last
        return Look(container, moved);
    }
    template<bool IS_REVERSE>
    static void* Begin(void* container, void** first)
    {
        auto* const cursor = MakeCursor(CCursor{IS_REVERSE ? SIZE - 1 : 0, false});
        *first = Look(container, *cursor);
        return cursor;
    }
    static void Release(void* cursor) { ReleaseCursor<CCursor>(cursor); }

    static void Fill(CContainerInfor& infor)
    {
        infor.Clear = [](void* container) { static_cast<Bits*>(container)->reset(); };
        infor.Count = [](void*) -> unsigned long { return SIZE; };
        infor.Begin = &Begin<false>;
        infor.Next = &Step<1>;
        infor.Release = &Release;
        infor.RBegin = &Begin<true>;
        infor.RNext = &Step<-1>;
        infor.RRelease = &Release;
    }
};

} // namespace vexa::detail

#endif
