#include "cursor.h"

#include <algorithm>

namespace vexa::sqlite {

void CCursor::Start(const CPlan& plan, int count, sqlite3_value** values)
{
    m_walk.End();
    m_element = nullptr;
    m_isFound = plan.Kind != PlanKind::SCAN;
    m_state = m_table.State();
    switch (plan.Kind) {
    case PlanKind::SCAN: return StartScan();
    case PlanKind::ROW: return StartRow(values[0]);
    default: return StartIndex(plan, count, values);
    }
}

void CCursor::StartScan()
{
    m_isFound = false;
    m_row = 0;
    const CLook& look = m_state.Look;
    if (!m_table.Rows().IsContiguous()) {
        m_element = m_walk.Begin(m_table.Rows().Infor(), look.Container);
    } else if (look.Count != 0) {
        m_element = look.First;
        m_end = look.First + look.Count;
    }
}

void CCursor::StartRow(sqlite3_value* value)
{
    long long row = 0;
    m_places = m_table.PlacesOf(m_state);
    const unsigned long count = m_table.Rows().Count(m_state.Look);
    if (!IntegerOf(value, row) || row < 0 || static_cast<unsigned long>(row) >= count) return;
    m_one.Row = static_cast<std::uint64_t>(row);
    StartSpan({&m_one, &m_one + 1});
}

void CCursor::StartIndex(const CPlan& plan, int count, sqlite3_value** values)
{
    m_index = m_table.IndexOf(plan.Column, m_state);
    m_places = m_table.PlacesOf(m_state);
    const CFound found = Find(plan, count, values);
    if (found.IsUnknown) return StartScan();
    StartSpan(found.Span);
}

CFound CCursor::Find(const CPlan& plan, int count, sqlite3_value** values)
{
    const CColumn& column = m_table.Columns()[plan.Column];
    switch (plan.Kind) {
    case PlanKind::ANY_OF: return FindAnyOf(column, values[0]);
    case PlanKind::NULLS: return {false, m_index->Nulls()};
    case PlanKind::RANGE:
        return FindBetween(column, *m_index, plan.HasLeast ? values[0] : nullptr,
                           plan.HasMost ? values[count - 1] : nullptr);
    default: return FindEqual(column, *m_index, values[0], plan.Kind == PlanKind::IS);
    }
}

/// Each row once, in their order.
CFound CCursor::FindAnyOf([[maybe_unused]] const CColumn& column, [[maybe_unused]] sqlite3_value* values)
{
    m_several.clear();
#if SQLITE_VERSION_NUMBER >= 3038000
    sqlite3_value* value = nullptr;
    int result = sqlite3_vtab_in_first(values, &value);
    for (; result == SQLITE_OK; result = sqlite3_vtab_in_next(values, &value)) {
        const CFound found = FindEqual(column, *m_index, value, false);
        if (found.IsUnknown) return found;
        for (const CIndexEntry* entry = found.Span.First; entry != found.Span.Last; ++entry)
            m_several.push_back({0, entry->Row});
    }
    if (result != SQLITE_DONE) return {true, {}};
#endif
    std::sort(m_several.begin(), m_several.end());
    const auto isSame = [](const CIndexEntry& left, const CIndexEntry& right) { return left.Row == right.Row; };
    m_several.erase(std::unique(m_several.begin(), m_several.end(), isSame), m_several.end());
    return {false, {m_several.data(), m_several.data() + m_several.size()}};
}

void CCursor::StartSpan(const CIndexSpan& span)
{
    m_span = span;
    if (span.First != span.Last) GoTo(span.First->Row);
}

void CCursor::GoTo(std::uint64_t row)
{
    m_row = static_cast<long long>(row);
    m_element = m_places != nullptr ? (*m_places)[row] : m_state.Look.First + row * m_table.Rows().Stride();
}

void CCursor::Next()
{
    if (m_isFound) {
        m_element = nullptr;
        if (++m_span.First != m_span.Last) GoTo(m_span.First->Row);
        return;
    }
    ++m_row;
    if (!m_table.Rows().IsContiguous()) {
        m_element = m_walk.Next();
        return;
    }
    m_element += m_table.Rows().Stride();
    if (m_element == m_end) m_element = nullptr;
}

} // namespace vexa::sqlite
