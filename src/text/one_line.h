#ifndef VEXA_TEXT_ONE_LINE_H
#define VEXA_TEXT_ONE_LINE_H

#include <string>

#include <vexa/detail/shape.h>
#include <vexa/refrence.h>

namespace vexa::text {

/// Appends any value as one line of text: `{name: value, other: value}` for objects, `[a, b]` for containers and
/// tuples, NULL for what is null, what vexa::AsString gives for the rest, without quotes. Confidential attributes are
/// masked; what is nested in itself or too deep is logged and left out, as vexa::AsString does.
void AppendOneLine(std::string& out, const CConstRefrence& ref);
/// The same of a std::optional, std::variant, std::tuple or std::shared_ptr.
void AppendOneLine(std::string& out, const detail::CShape& shape, const void* object);

} // namespace vexa::text

#endif
