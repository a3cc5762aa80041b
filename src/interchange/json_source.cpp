#include "interchange/json_source.h"

#include "interchange/json_scanner_rest.h"

namespace vexa::interchange {

template class CJsonScanner<CWholeText>;

void CJsonSource::FailTooLong()
{
    Keep(ProblemCode::TOO_LONG, {m_policy.MaxBytes, 0}, AtMost(m_policy.MaxBytes, "byte"), {});
    m_window.End = m_window.Next;
}

} // namespace vexa::interchange
