#ifndef VEXA_ELEMENTS_H
#define VEXA_ELEMENTS_H

#include <cstddef>
#include <list>
#include <string>
#include <string_view>
#include <type_traits>

#include <vexa/detail/element_access.h>
#include <vexa/detail/value_access.h>

/// \file
/// The attributes of objects and the elements of containers, of which the type is not known: to look at and to change.
///
///     for (const auto& attrib : vexa::Attributes(order))
///         std::cout << attrib.Name << " = " << attrib.Value.AsString() << '\n';
///     vexa::Elements(vexa::Find(order, "items")).Insert("pen");
///
/// What holds the object or container is looked through: pointers, wrappers, std::optional, the active alternative of a
/// std::variant; behind a pointer an object is what it really is. Where there is none, there is nothing inside. What
/// cannot be changed comes with HF_CONST, as from vexa::Find.

namespace vexa {

/// An attribute of an object.
template<class Ref>
struct CNamedValue {
    const std::string& Name;
    const Ref& Value;
    const CAttribInfor& Infor;
};

/// The attributes of an object in the order of the class, those of bases first; of a union the active one only.
template<class Ref>
class CAttributes {
public:
    explicit CAttributes(const detail::CSpot& spot) : m_object(detail::ObjectOf(spot)), m_spot(spot) {}

    class CIterator {
    public:
        CIterator(const detail::CObjectSpot& object, CClassInfor::AttribPosition position)
            : m_object(object), m_position(position)
        {
            Settle();
        }
        CNamedValue<Ref> operator*() const { return {m_position->Name, m_value, *m_position}; }
        CIterator& operator++()
        {
            ++m_position;
            Settle();
            return *this;
        }
        bool operator==(CWalkEnd) const { return m_position == m_object.Attribs->end(); }
        bool operator!=(CWalkEnd end) const { return !(*this == end); }

    private:
        void Settle()
        {
            const auto end = m_object.Attribs->end();
            while (m_position != end && !detail::IsActive(*m_position, m_object.Object))
                ++m_position;
            if (m_position == end) return;
            m_value.TypeInfor = m_position->TypeInfor;
            if (m_object.IsConst) m_value.TypeInfor.HoldingFlags |= Enum::HF_CONST;
            m_value.Address = m_object.Object + m_position->Offset;
        }

        detail::CObjectSpot m_object;
        CClassInfor::AttribPosition m_position;
        Ref m_value;
    };

    CIterator begin() const { return {m_object, m_object.Attribs->begin()}; }
    CWalkEnd end() const { return {}; }
    /// Whether there is no object of a class.
    bool IsNull() const noexcept { return m_object.Infor == nullptr; }
    /// The class that the object really is of; null where there is no object.
    const CClassInfor* Infor() const noexcept { return m_object.Infor; }
    /// As vexa::Find.
    Ref operator[](std::string_view name) const { return At(name); }
    Ref At(std::string_view name, CReport* report = nullptr) const
    {
        return Ref(detail::SpotOfKey(m_spot, {detail::KeyForm::NAME, name}, report).Ref);
    }

private:
    detail::CObjectSpot m_object;
    detail::CSpot m_spot;
};

/// An element of a container.
template<class Ref>
struct CElement {
    std::size_t Index;         ///< its place, from 0
    const CConstRefrence& Key; ///< of a map; without address otherwise
    std::string_view Name;     ///< of a named entry of a group or tree; empty otherwise
    const Ref& Value;          ///< the element, or of a map the value of the key
};

/// The elements of a container, tuple, row or table, or the entries of a map, a group or a CJsonTree. The container
/// must not be changed during a walk but through the values.
template<class Ref>
class CElements {
public:
    explicit CElements(const detail::CSpot& spot) : m_spot(spot) {}

    class CIterator {
    public:
        explicit CIterator(const detail::CSpot& spot) : m_walk(spot) {}
        CElement<Ref> operator*() const { return {m_walk.Index(), m_walk.Key(), m_walk.Name(), m_walk.Value()}; }
        CIterator& operator++()
        {
            m_walk.Next();
            return *this;
        }
        bool operator==(CWalkEnd) const noexcept { return m_walk.IsEnd(); }
        bool operator!=(CWalkEnd) const noexcept { return !m_walk.IsEnd(); }

    private:
        detail::CElementWalk m_walk;
    };

    CIterator begin() const { return CIterator(m_spot); }
    CWalkEnd end() const { return {}; }
    unsigned long Count() const { return detail::CountElements(m_spot); }

    /// The element at a place, or the value of a key: a number, a text or an enumerator. Without address where there is
    /// none; `At` tells why.
    template<class Key>
    Ref operator[](const Key& key) const
    {
        return At(key);
    }
    template<class Key>
    Ref At(const Key& key, CReport* report = nullptr) const
    {
        std::string memory;
        return Ref(detail::SpotOfKey(m_spot, TextOf(key, memory), report).Ref);
    }

    /// Adds an element with a value that vexa::TrySet takes, which must not lie in the container: at the end of a
    /// sequence or row, to its place in a set.
    /// \return false, with nothing changed, where it cannot be, also for one that a set has already.
    template<class Value>
    bool Insert(const Value& value, CReport* report = nullptr) const
    {
        static_assert(IS_WRITABLE, "a const container cannot be changed");
        return detail::InsertElement(m_spot, nullptr, nullptr, &value, &SetTo<Value>, report);
    }
    /// Adds an entry to a map. A key that is there already is a problem, and keeps its value.
    template<class Key, class Value, class = std::enable_if_t<!std::is_convertible_v<const Value&, CReport*>>>
    bool Insert(const Key& key, const Value& value, CReport* report = nullptr) const
    {
        static_assert(IS_WRITABLE, "a const container cannot be changed");
        return detail::InsertElement(m_spot, &key, &SetTo<Key>, &value, &SetTo<Value>, report);
    }
    /// Removes the element at a place, or the entry of a key. \return false, with nothing changed, where that cannot
    /// be.
    template<class Key>
    bool Erase(const Key& key, CReport* report = nullptr) const
    {
        static_assert(IS_WRITABLE, "a const container cannot be changed");
        std::string memory;
        return detail::EraseElement(m_spot, TextOf(key, memory), report);
    }

private:
    static constexpr bool IS_WRITABLE = std::is_same_v<Ref, CRefrence>;

    template<class Key>
    static detail::CKeyText TextOf(const Key& key, std::string& memory)
    {
        if constexpr (detail::IS_TEXT<Key>) {
            return {detail::KeyForm::TEXT, key};
        } else {
            static_assert(std::is_integral_v<Key> || std::is_enum_v<Key>, "a key is a number, a text or an enumerator");
            if constexpr (std::is_enum_v<Key>)
                memory = std::to_string(static_cast<std::underlying_type_t<Key>>(key));
            else
                memory = std::to_string(key);
            return {detail::KeyForm::NUMBER, memory};
        }
    }
    template<class Value>
    static bool SetTo(const void* value, const detail::CSpot& place, CReport* report)
    {
        return detail::SetAt(place, *static_cast<const Value*>(value), report);
    }

    detail::CSpot m_spot;
};

/// \p object is an object or a reference to one. Const objects and looking references give values to look at.
template<class Object>
auto Attributes(Object&& object)
{
    using T = std::remove_reference_t<Object>;
    static_assert(std::is_lvalue_reference_v<Object> || detail::IS_REFERENCE<T>, "the object would be gone");
    return CAttributes<detail::RefTo<T>>(detail::SpotOf(object));
}
template<class Object>
auto Elements(Object&& object)
{
    using T = std::remove_reference_t<Object>;
    static_assert(std::is_lvalue_reference_v<Object> || detail::IS_REFERENCE<T>, "the object would be gone");
    return CElements<detail::RefTo<T>>(detail::SpotOf(object));
}

} // namespace vexa

#endif
