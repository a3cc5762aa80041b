#include "text/json_basic.h"

#include "core/value_text.h"

namespace vexa::text {

namespace {

char* WriteString(char* at, const std::string& text) { return WriteText(at, text.data(), text.size()); }

} // namespace

char* WriteObject(char* at, const CBinary& value) { return core::WriteText(at, value); }
char* WriteObject(char* at, const CNumeric& value) { return core::WriteText(at, value); }
char* WriteObject(char* at, const tm& value) { return WriteString(at, TextOfObject(Enum::DT_TM, &value)); }
char* WriteObject(char* at, const CDateTime& value) { return WriteString(at, TextOfObject(Enum::DT_DATETIME, &value)); }

} // namespace vexa::text
