#include "interchange/json_source.h"

#include "interchange/json_scanner_rest.h"

namespace vexa::interchange {

template class CJsonScanner<CWholeText>;

std::string AtMost(std::size_t limit, const char* unit) { return "at most " + std::to_string(limit) + unit; }

void CJsonSource::FailTooLong()
{
    Keep(ProblemCode::TOO_LONG, {m_policy.MaxBytes, 0}, AtMost(m_policy.MaxBytes, " bytes"), {});
    m_window.End = m_window.Next;
}

} // namespace vexa::interchange
