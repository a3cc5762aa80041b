#ifndef VEXA_TYPEINFO_KEY_STYLE_H
#define VEXA_TYPEINFO_KEY_STYLE_H

#include <string>
#include <string_view>

#include <vexa/metadata.h>

namespace vexa::typeinfo {

/// The key that a style makes of an attribute's name; KeyStyle tells the rules.
std::string StyledKey(KeyStyle style, std::string_view name);

} // namespace vexa::typeinfo

#endif
