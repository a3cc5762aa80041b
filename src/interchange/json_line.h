#ifndef VEXA_INTERCHANGE_JSON_LINE_H
#define VEXA_INTERCHANGE_JSON_LINE_H

#include <string_view>

#include <vexa/policy.h>
#include <vexa/refrence.h>
#include <vexa/report.h>

namespace vexa::interchange {

/// ReadJson() of a line that begins at \p start in a longer text, of which the report tells the places.
bool ReadJsonLine(const CRefrence& target, std::string_view line, const CTextPlace& start, CReport& report,
                  const CReadPolicy& policy);

} // namespace vexa::interchange

#endif
