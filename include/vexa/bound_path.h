#ifndef VEXA_BOUND_PATH_H
#define VEXA_BOUND_PATH_H

#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include <vexa/detail/bound_way.h>
#include <vexa/detail/value_access.h>

namespace vexa {

/// A path (see vexa/access.h) that is resolved and checked once, for all objects of a class: names, kinds and keys.
/// What depends on the object is looked at with each: nulls, indexes, keys that are not there, active alternatives and
/// members of unions. Only behind a std::variant, a record, a table or a CJsonTree, and where the attribute is one of a
/// derived class, the path is resolved with each object.
///
/// `[*]` stands for all elements of a container, or all values of a map: such a path is for ForEach.
///
/// It never changes once made; any number of threads may use it. Using it allocates nothing, but for a problem. It is
/// for objects of just the class; those of another are a problem.
class CBoundPath {
public:
    /// \p report says why it is not good.
    CBoundPath(const CClassInfor& infor, std::string_view path, CReport* report = nullptr)
        : m_way(detail::BindPath(infor, path, report)), m_infor(&infor)
    {
        if (m_way != nullptr) m_plain = detail::PlainWayOf(*m_way);
    }

    /// Whether the path leads to something; otherwise it gives nothing for any object, without a problem.
    explicit operator bool() const noexcept { return m_way != nullptr; }
    const CClassInfor& ClassInfor() const noexcept { return *m_infor; }
    std::string_view Path() const noexcept { return m_way != nullptr ? detail::PathOf(*m_way) : std::string_view(); }
    /// Whether it has a `[*]`.
    bool LeadsToMany() const noexcept { return m_way != nullptr && detail::LeadsToMany(*m_way); }

    /// As vexa::Find; \p object is an object or a reference to one.
    template<class Object>
    auto Find(Object&& object, CReport* report = nullptr) const
    {
        using T = std::remove_reference_t<Object>;
        static_assert(std::is_lvalue_reference_v<Object> || IS_REFERENCE<T>, "the object would be gone");
        using Ref = RefTo<T>;
        if constexpr (!IS_REFERENCE<T> && !std::is_const_v<T>) {
            if (m_plain.Type != nullptr && IsOf<T>()) {
                if (char* const place = m_plain.Follow(std::addressof(object))) return Ref(*m_plain.Type, place);
            }
        }
        return Ref(SpotIn(object, report).Ref);
    }
    /// As vexa::Get.
    template<class V, class T>
    std::optional<V> Get(const T& object, CReport* report = nullptr) const
    {
        if constexpr (std::is_arithmetic_v<V> && !IS_REFERENCE<T>) {
            if (m_plain.Code == detail::BASIC_CODE<V> && IsOf<T>()) {
                if (const char* const place = m_plain.Follow(std::addressof(object))) return Loaded<V>(place);
            }
        }
        return detail::GetAt<V>(SpotIn(object, report), report);
    }
    /// As vexa::Set.
    template<class Object, class V>
    bool Set(Object&& object, const V& value, CReport* report = nullptr) const
    {
        static_assert(std::is_same_v<RefTo<std::remove_reference_t<Object>>, CRefrence>,
                      "a const object cannot be changed");
        return detail::SetAt(SpotIn(object, report), value, report);
    }
    /// Calls \p function with a reference to each value; without `[*]` to the one. What a null, an index beyond the end
    /// or a key that is not there keeps from having a value is a problem, and the rest is gone through. The containers
    /// must not change meanwhile. \return whether there was no problem.
    template<class Object, class Function>
    bool ForEach(Object&& object, Function&& function, CReport* report = nullptr) const
    {
        using Ref = RefTo<std::remove_reference_t<Object>>;
        auto use = [&function](const CRefrence& ref) { function(static_cast<const Ref&>(ref)); };
        const auto call = [](void* context, const CRefrence& ref) { (*static_cast<decltype(use)*>(context))(ref); };
        const void* const at = ObjectOf(object, report);
        return at != nullptr && detail::ForEachOnWay(*m_way, at, IsFixed(object), &use, call, report);
    }

private:
    template<class T>
    static constexpr bool IS_REFERENCE = detail::IS_REFERENCE<std::remove_const_t<T>>;
    template<class T>
    using RefTo = detail::RefTo<T>;

    template<class T>
    static bool IsOf(const CClassInfor& infor)
    {
        using Value = std::remove_const_t<T>;
        static_assert(detail::CKind<Value>::CODE == Enum::DT_CLASS, "a bound path is for objects of described classes");
        return &ClassInforOf<Value>() == &infor;
    }
    template<class T>
    bool IsOf() const
    {
        return IsOf<T>(*m_infor);
    }
    template<class T>
    static bool IsFixed(T& object)
    {
        if constexpr (IS_REFERENCE<T>)
            return object.TypeInfor.Has(Enum::HF_CONST);
        else
            return std::is_const_v<T>;
    }
    template<class T>
    const void* ObjectOf(const T& object, CReport* report) const
    {
        if (m_way == nullptr) return nullptr;
        if constexpr (IS_REFERENCE<T>)
            return detail::ObjectBehind(*m_way, object, report);
        else
            return IsOf<T>() ? std::addressof(object) : detail::TellOtherClass(*m_way, ClassInforOf<T>(), report);
    }
    template<class T>
    detail::CSpot SpotIn(T& object, CReport* report) const
    {
        const void* const at = ObjectOf(object, report);
        return at != nullptr ? detail::FollowWay(*m_way, at, IsFixed(object), report) : detail::CSpot();
    }
    template<class V>
    static V Loaded(const char* place)
    {
        if constexpr (std::is_same_v<V, bool>) {
            return *place != 0;
        } else {
            V value;
            std::memcpy(&value, place, sizeof value);
            return value;
        }
    }

    std::shared_ptr<const detail::CBoundWay> m_way; ///< null where the path is not good
    const CClassInfor* m_infor;
    detail::CPlainWay m_plain;
};

} // namespace vexa

#endif
