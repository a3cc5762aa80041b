#ifndef VEXA_INTERCHANGE_EXCERPT_H
#define VEXA_INTERCHANGE_EXCERPT_H

#include <string>
#include <string_view>

#include <vexa/report.h>

namespace vexa::interchange {

/// Appends the line of a place with its number, and below it a mark under what is meant. Nothing for a place without
/// line, or one that \p text does not have. Of a long line the piece around the place is shown.
void AppendExcerpt(std::string& out, std::string_view text, const CTextPlace& place, ExcerptForm form);

} // namespace vexa::interchange

#endif
