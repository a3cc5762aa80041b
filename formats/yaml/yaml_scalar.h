#ifndef ORDANA_FORMATS_YAML_SCALAR_H
#define ORDANA_FORMATS_YAML_SCALAR_H

#include <string>
#include <string_view>

#include <vexa/event.h>

/// \file
/// Plain scalars by the core schema of YAML 1.2.

namespace vexa::yaml {

/// Fills the event with what a plain scalar means: null, a bool, a number, or else a text. \p memory holds a number's
/// digits in JSON's grammar. \return false for a hexadecimal or octal number of more than 64 bits.
bool Resolve(std::string_view text, CEvent& event, std::string& memory);

/// Whether a text means itself without quotation marks, to readers of YAML 1.1 and 1.2.
bool IsPlainText(std::string_view text);

} // namespace vexa::yaml

#endif
