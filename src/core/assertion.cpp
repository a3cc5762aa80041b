#include <cstdio>
#include <cstdlib>

#include <vexa/helper.h>

namespace {

const char* TextOrNull(const char* text) { return text != nullptr ? text : "NULL"; }

} // namespace

void ___Coredump_due_to_assertion_failure___(const char* expression, const char* filePath, int line,
                                             const char* function)
{
    std::fprintf(stderr,
                 "Coredump due to assertion failure: assertExpression=%s, assertFilePath=%s, assertLine=%d, "
                 "assertFunc=%s",
                 TextOrNull(expression), TextOrNull(filePath), line, TextOrNull(function));
    std::abort();
}
