#ifndef VEXA_INTERCHANGE_SENTENCE_H
#define VEXA_INTERCHANGE_SENTENCE_H

#include <vexa/report.h>

namespace vexa::interchange {

/// The name of a code, for example `UNKNOWN_KEY`.
const char* NameOf(ProblemCode code);

} // namespace vexa::interchange

#endif
