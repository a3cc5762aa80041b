#ifndef VEXA_TYPEINFO_QUALIFIED_NAME_H
#define VEXA_TYPEINFO_QUALIFIED_NAME_H

#include <string>
#include <string_view>

namespace vexa::typeinfo {

/// The name of a class out of the text in which GCC or Clang describes a function template made for it, `... [with T =
/// shop::Circle]` or `... [T = shop::Circle]`, normalized.
std::string QualifiedName(std::string_view spelled);

/// A type's name as both compilers agree on it, from what either of them writes, or an application.
std::string NormalizedName(std::string_view name);

} // namespace vexa::typeinfo

#endif
