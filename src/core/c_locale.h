#ifndef VEXA_CORE_C_LOCALE_H
#define VEXA_CORE_C_LOCALE_H

#include <locale.h>

namespace vexa::core {

/// The "C" locale, for the functions that take one: text must not change with the process's locale. Never freed.
inline locale_t CLocale() noexcept
{
    static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

/// Puts the calling thread into the "C" locale for the length of a scope. Other threads notice nothing.
class CLocaleScope {
public:
    CLocaleScope() noexcept : m_previous(uselocale(CLocale())) {}
    ~CLocaleScope() { uselocale(m_previous); }

    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    locale_t m_previous;
};

} // namespace vexa::core

#endif
