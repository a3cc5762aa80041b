#ifndef VEXA_TEXT_H
#define VEXA_TEXT_H

#include <string>

#include <vexa/data_type.h>
#include <vexa/export.h>
#include <vexa/refrence.h>

/// \file
/// Any described value as indented, human-readable text: `name: value` lines for a class, `- value` lines for a
/// container, two blanks a level.
///
/// Every line of a class or container starts with its line break, so the text of an object begins with one. A kind that
/// has no text is logged and left out, and so is an object inside itself (through pointers) and one nested deeper than
/// MAX_NESTING_DEPTH. Safe to call from any number of threads, as long as nobody changes the value meanwhile.

namespace vexa {

/// How deep values may nest, in rendering, JSON writing and JSON reading: 1000 levels, about half a megabyte of stack.
inline constexpr unsigned long MAX_NESTING_DEPTH = 1000;

/// The value as text.
VEXA_API std::string AsString(const CConstRefrence& ref, Enum::AsStringFormatEnum format = Enum::ASF_VALUE);
/// The value as text in \p out, which is emptied first, keeps its buffer and must not be part of the value.
VEXA_API void AsString(std::string& out, const CConstRefrence& ref, Enum::AsStringFormatEnum format = Enum::ASF_VALUE);
/// Appends the value as text to \p out.
VEXA_API void AppendString(std::string& out, const CConstRefrence& ref,
                           Enum::AsStringFormatEnum format = Enum::ASF_VALUE);

} // namespace vexa

#endif
