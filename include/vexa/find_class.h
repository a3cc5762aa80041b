#ifndef VEXA_FIND_CLASS_H
#define VEXA_FIND_CLASS_H

#include <string>
#include <string_view>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/export.h>

/// \file
/// The registered classes by name. A class has a qualified name beside the one that it is registered with: with its
/// namespaces and the classes around it, for example `shop::Circle` or `shop::Box<std::string>`. GCC and Clang give the
/// same, with these exceptions: GCC also names inline namespaces of the application's, values of an enumeration or
/// pointers among template arguments differ, and GCC leaves out values that an application's template has by default.
/// What must be the same for both, as what a tag says, is told by CDescription::TagValue.
/// An unnamed namespace is `(anonymous namespace)`. A class that is registered by hand has only the name that it is
/// registered with.
///
/// The classes of a shared object that is unloaded are no longer found; their descriptors must not be used then. While
/// it is being unloaded, no other thread may read or write what can hold objects of its classes. Everything here may be
/// called on any thread.

namespace vexa {

/// The class of a qualified name, or null. Where several have it, the one that was registered first.
VEXA_API const CClassInfor* FindClass(std::string_view name);

/// The class's qualified name, or else the one that it is registered with. Lives as long as the descriptor.
VEXA_API const std::string& QualifiedNameOf(const CClassInfor& infor);

namespace detail {

VEXA_API std::vector<const CClassInfor*> ListedClasses();

} // namespace detail

/// Calls \p function with the descriptor of every registered class, in the order of the bytes of their qualified names.
/// Classes that are registered meanwhile are left out. The function may do what it likes.
template<class Function>
void ForEachClass(Function&& function)
{
    for (const CClassInfor* const infor : detail::ListedClasses())
        function(*infor);
}

} // namespace vexa

#endif
