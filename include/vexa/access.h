#ifndef VEXA_ACCESS_H
#define VEXA_ACCESS_H

#include <optional>
#include <string_view>
#include <type_traits>

#include <vexa/bound_path.h>
#include <vexa/describe.h>
#include <vexa/detail/access.h>
#include <vexa/detail/value_access.h>
#include <vexa/elements.h>
#include <vexa/report.h>

/// \file
/// Generic code without traps: values by paths, and conversions that lose nothing or are not made.
///
/// Nothing here throws but std::bad_alloc and what the application's own copy operations throw, and nothing is logged:
/// what is wrong is a problem in a report, where one is given. References and paths are lent. As everywhere, reading
/// one object on several threads is safe, and whoever writes it keeps others out.
///
/// # Paths
///
///     path    = [ ( name | bracket ) { "." name | bracket } ]
///     name    = one or more bytes other than . [ ] "
///     bracket = "[" ( integer | string | word | "*" ) "]"
///     integer = [ "-" ] digits, without a zero too many
///     string  = a text as JSON writes it, escapes included: "K\u00f6ln"
///     word    = one or more bytes other than . [ ] * ", beginning with neither a digit nor a minus sign
///
/// The empty path leads to the object itself. What a part means depends on what it stands behind:
///
/// | Behind | Part | Leads to |
/// |---|---|---|
/// | an object of a class | `name`, `["name"]` | the attribute of that C++ name, also one of a base; of a union only
/// the active one | | a sequence, an array, a set | `[2]` | an element by its place, from 0; those of a set are const |
/// | a map with text keys | `["key"]` | the value of the key |
/// | a map with integer keys | `[-3]` | likewise |
/// | a map with keys of an enumeration | `[red]`, `["red"]`, `[2]` | likewise; by the name that VEXA_DESCRIBE_ENUM gave
/// or by number | | another map, a multimap | `[2]` | a pair by its place | | a std::pair | `first`, `[0]`, ... | one
/// of both; of a map's pair the first is const | | a std::tuple | `[1]` | that part | | a CJsonTree | `name`,
/// `["key"]`, `[2]` | the member, or the element | | a CRow, a CTable | `[2]` | the value, or the row; a table's row
/// also takes `column` and `["column"]` | | a CGnlClass, a CReferenceGroup | `name`, `["name"]`, `[2]` | the named
/// entry, or the indexed one |
///
/// Pointers, std::unique_ptr, std::shared_ptr, NonNullPointer, MayNull, std::optional and the active alternative of a
/// std::variant are looked through, and an object whose class has a tag is what it really is. That holds for what the
/// path leads through: the last part leads to the value as its owner holds it, so to the pointer itself. The elements
/// of std::vector<bool> and std::bitset have no address. `[*]`, all elements, is for CBoundPath.
///
/// What is const, lies behind a pointer to const or in a const object, or is a key or the element of a set, comes with
/// HF_CONST, so that whatever writes refuses it; but CRefrence::SetNull, which does not ask, must not be used on it.

namespace vexa {

// Where a path leads: a reference without address where there is a problem, never one to what is not there.

template<class T, class = detail::IfObject<T>, class = std::enable_if_t<!std::is_const_v<T>>>
CRefrence Find(T& object, std::string_view path, CReport* report = nullptr)
{
    return Find(RefOf(object), path, report);
}
template<class T, class = detail::IfObject<T>>
CConstRefrence Find(const T& object, std::string_view path, CReport* report = nullptr)
{
    return Find(RefOf(object), path, report);
}
template<class T, class = detail::IfObject<T>>
void Find(const T&& object, std::string_view path, CReport* report = nullptr) = delete; // the object would be gone

// Strict conversions. A value becomes another type whole or not at all, by the rules by which JSON is read: what is out
// of the type's range, has a fraction where an integer is wanted, or is a text of which only the beginning fits, is a
// problem. Beyond these rules a text gives what stands in it (`"12"` a number, `"true"` a bool), a number and a bool
// give their JSON text, and an enumerator its number. A bool is no number, and a number no bool.
//
//  - Floating values are rounded to the nearest; what is too large is a problem. NaN and the infinities stay, between
//    floating types.
//  - Times are RFC 3339 texts, a tm one without zone; bytes are base64 text.
//  - A null is no value of a type that cannot be null.
//  - Objects, containers and tuples are given and set as copies of just their type, and become no other.
//
// A value in a pointer, wrapper, std::optional, std::shared_ptr or std::variant is looked for in it. To set it, a null
// pointer or wrapper gets a value, and a std::variant the alternative of the type.

/// The value as a V. Nothing where that cannot be: \p report says why.
template<class V, class Object>
std::optional<V> TryGet(const Object& object, CReport* report = nullptr)
{
    return detail::GetAt<V>(detail::SpotOf(object), report);
}
/// Sets the value to another: an object, a text, nullptr or what a reference designates. \return false, with the target
/// unchanged, where it cannot be, or cannot be changed. A reference does not know the names of an enumeration.
template<class V>
bool TrySet(const CRefrence& target, const V& value, CReport* report = nullptr)
{
    return detail::SetAt(detail::CSpot(target), value, report);
}
template<class Object, class V, class = detail::IfObject<Object>, class = std::enable_if_t<!std::is_const_v<Object>>>
bool TrySet(Object& target, const V& value, CReport* report = nullptr)
{
    return detail::SetAt(detail::SpotOf(target), value, report);
}

/// The value at a path, as TryGet gives it.
template<class V, class Object>
std::optional<V> Get(const Object& object, std::string_view path, CReport* report = nullptr)
{
    return detail::GetAt<V>(detail::FindSpot(detail::SpotOf(object), path, report), report);
}
/// Sets the value at a path as TrySet does. Nothing is made on the way to it. An attribute that is ReadOnly() is not
/// set.
template<class V>
bool Set(const CRefrence& object, std::string_view path, const V& value, CReport* report = nullptr)
{
    return detail::SetAt(detail::FindSpot(detail::CSpot(object), path, report), value, report);
}
template<class Object, class V, class = detail::IfObject<Object>, class = std::enable_if_t<!std::is_const_v<Object>>>
bool Set(Object& object, std::string_view path, const V& value, CReport* report = nullptr)
{
    return detail::SetAt(detail::FindSpot(detail::SpotOf(object), path, report), value, report);
}

} // namespace vexa

#endif
