#ifndef VEXA_INTERCHANGE_JSON_SOURCE_H
#define VEXA_INTERCHANGE_JSON_SOURCE_H

#include <string_view>

#include "interchange/json_scanner.h"

namespace vexa::interchange {

extern template class CJsonScanner<CWholeText>;

/// The source over a whole JSON text, which need not be followed by anything and stays as long as the source. A byte
/// order mark is refused (RFC 8259 forbids to write one).
class CJsonSource : public CJsonScanner<CWholeText> {
public:
    explicit CJsonSource(std::string_view text, const CReadPolicy& policy = {}) : CJsonScanner(policy), m_text(text)
    {
        m_window.Begin = m_window.Next = m_window.Token = text.data();
        m_window.End = text.data() + text.size();
        if (__builtin_expect(text.size() > policy.MaxBytes, 0)) FailTooLong();
    }

    std::string_view Text() const noexcept { return m_text; }
    void Locate(CTextPlace& place) const;

private:
    void FailTooLong();

    std::string_view m_text;
};

} // namespace vexa::interchange

#endif
