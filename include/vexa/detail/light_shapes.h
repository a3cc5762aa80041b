#ifndef VEXA_DETAIL_LIGHT_SHAPES_H
#define VEXA_DETAIL_LIGHT_SHAPES_H

#include <array>
#include <atomic>
#include <memory>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include <vexa/detail/shape_kind.h>

/// \file
/// The shapes of types whose headers are there anyway. Those that cost more are in vexa/types.h.

namespace vexa::detail {

template<>
struct CShapeTrait<signed char> : CShapeKind<ShapeKind::SIGNED_BYTE> {
    static constexpr const char* NAME = "signed char";
};

template<class T>
struct CShapeTrait<std::shared_ptr<T>> : CShapeKind<ShapeKind::OPTIONAL, T> {
    using Pointer = std::shared_ptr<T>;
    static constexpr const char* NAME = "std::shared_ptr";

    static const void* Get(const void* pointer) { return static_cast<const Pointer*>(pointer)->get(); }
    static void* Make([[maybe_unused]] void* pointer)
    {
        if constexpr (std::is_default_constructible_v<T> && !std::is_const_v<T>) {
            auto& made = *static_cast<Pointer*>(pointer);
            made = std::make_shared<T>();
            return made.get();
        } else {
            return nullptr;
        }
    }
    static void Reset(void* pointer) { static_cast<Pointer*>(pointer)->reset(); }
    static void Adopt(void* pointer, void* object, void* whole, void (*deleter)(void*))
    {
        const auto destroy = [whole, deleter](T*) { deleter(whole); };
        *static_cast<Pointer*>(pointer) = Pointer(static_cast<T*>(object), destroy);
    }
    static constexpr COptionalOperations OPERATIONS{&Get, &Make, &Reset, &Adopt};
    static constexpr const void* Operations() { return &OPERATIONS; }

    static constexpr bool IsDescribable()
    {
        constexpr bool IS_SINGLE = std::is_object_v<T> && !std::is_array_v<T>;
        static_assert(IS_SINGLE, "a std::shared_ptr to an array or to void cannot be described: use a std::vector or "
                                 "a pointer to a described type");
        if constexpr (IS_SINGLE)
            return CShapeKind<ShapeKind::OPTIONAL, T>::IsDescribable();
        else
            return false;
    }
};

template<class... Elements>
struct CShapeTrait<std::tuple<Elements...>> : CShapeKind<ShapeKind::TUPLE, Elements...> {
    using Tuple = std::tuple<Elements...>;
    static constexpr const char* NAME = "std::tuple";

    template<std::size_t... I>
    static void* PartOf(Tuple& tuple, unsigned int number, std::index_sequence<I...>)
    {
        const std::array<const void*, sizeof...(I)> places{
            static_cast<const void*>(std::addressof(std::get<I>(tuple)))...};
        return const_cast<void*>(places[number]);
    }
    static void* Part([[maybe_unused]] void* tuple, [[maybe_unused]] unsigned int number)
    {
        if constexpr (sizeof...(Elements) == 0)
            return nullptr;
        else
            return PartOf(*static_cast<Tuple*>(tuple), number, std::index_sequence_for<Elements...>());
    }
    static constexpr CTupleOperations OPERATIONS{&Part};
    static constexpr const void* Operations() { return &OPERATIONS; }
};

template<class Allocator>
struct CShapeTrait<std::vector<bool, Allocator>> : CShapeKind<ShapeKind::BITS> {
    using Bits = std::vector<bool, Allocator>;
    static constexpr const char* NAME = "std::vector<bool>";

    static constexpr CBitsOperations OPERATIONS{
        [](const void* bits) -> unsigned long { return static_cast<const Bits*>(bits)->size(); },
        [](const void* bits, unsigned long number) -> bool { return (*static_cast<const Bits*>(bits))[number]; },
        [](void* bits, bool bit) { static_cast<Bits*>(bits)->push_back(bit); },
        [](void* bits) { static_cast<Bits*>(bits)->clear(); }};
    static constexpr const void* Operations() { return &OPERATIONS; }
};

template<class T>
struct CShapeTrait<std::atomic<T>> : CShapeKind<ShapeKind::ATOMIC, T> {
    using Atomic = std::atomic<T>;
    static constexpr const char* NAME = "std::atomic";

    static void Load(const void* atomic, void* value)
    {
        *static_cast<T*>(value) = static_cast<const Atomic*>(atomic)->load();
    }
    static void Store(void* atomic, const void* value)
    {
        static_cast<Atomic*>(atomic)->store(*static_cast<const T*>(value));
    }
    static constexpr CAtomicOperations OPERATIONS{&Load, &Store};
    static constexpr const void* Operations() { return &OPERATIONS; }

    static constexpr bool IsDescribable()
    {
        constexpr bool IS_SMALL_BASIC = (std::is_arithmetic_v<T> || std::is_enum_v<T>)&&sizeof(T) <= sizeof(long);
        static_assert(IS_SMALL_BASIC, "only a std::atomic of an arithmetic type or enumeration of at most 8 bytes can "
                                      "be described: guard anything else by a mutex");
        return IS_SMALL_BASIC;
    }
};

template<>
struct CShapeTrait<std::string_view> : CShapeKind<ShapeKind::TEXT> {
    static constexpr const char* NAME = "std::string_view";

    static constexpr CTextOperations OPERATIONS{
        [](const void* object, std::string&) { return *static_cast<const std::string_view*>(object); }, nullptr,
        [](void* object) { *static_cast<std::string_view*>(object) = {}; }};
    static constexpr const void* Operations() { return &OPERATIONS; }
};

} // namespace vexa::detail

#endif
