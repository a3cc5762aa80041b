#include "interchange/json_source.h"

#include "interchange/json_scanner_rest.h"

namespace vexa::interchange {

template class CJsonScanner<CWholeText>;

void CJsonSource::Locate(CTextPlace& place) const
{
    if (place.Offset <= m_text.size()) LocateIn(place, m_text);
}

void CJsonSource::FailTooLong()
{
    Fail(m_window, ProblemCode::TOO_LONG, {m_policy.MaxBytes, m_text.size() - m_policy.MaxBytes},
         "at most " + std::to_string(m_policy.MaxBytes) + " bytes", std::to_string(m_text.size()));
}

} // namespace vexa::interchange
