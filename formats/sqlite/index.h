#ifndef ORDANA_FORMATS_SQLITE_INDEX_H
#define ORDANA_FORMATS_SQLITE_INDEX_H

#include <cstdint>
#include <vector>

#include "column.h"

namespace vexa::sqlite {

/// One row of an index: where the value stands in its order, and the element's position.
struct CIndexEntry {
    std::uint64_t Code;
    std::uint64_t Row;
};
inline bool operator<(const CIndexEntry& left, const CIndexEntry& right) noexcept
{
    return left.Code != right.Code ? left.Code < right.Code : left.Row < right.Row;
}

struct CIndexSpan {
    const CIndexEntry* First = nullptr;
    const CIndexEntry* Last = nullptr; ///< behind it
};

/// Rows by the codes of one column's values. Equal values have equal codes, and a number is never before a lesser one;
/// but different values may share a code, so that what is found is a superset of what is looked for.
class CIndex {
public:
    /// Adds the value of the row that comes next.
    void Add(const CColumn& column, const CCell& cell);
    void Finish();

    CIndexSpan Nulls() const noexcept { return SpanOf(m_nulls); }
    CIndexSpan All() const noexcept { return SpanOf(m_values); }
    /// The entries with a code from \p least to \p most.
    CIndexSpan Between(std::uint64_t least, std::uint64_t most) const noexcept;
    double RowsOfOneCode() const noexcept { return m_rowsOfOneCode; }
    unsigned long Bytes() const noexcept { return (m_values.capacity() + m_nulls.capacity()) * sizeof(CIndexEntry); }

private:
    static CIndexSpan SpanOf(const std::vector<CIndexEntry>& entries) noexcept
    {
        return {entries.data(), entries.data() + entries.size()};
    }

    std::vector<CIndexEntry> m_values;
    std::vector<CIndexEntry> m_nulls;
    std::uint64_t m_rows = 0;
    double m_rowsOfOneCode = 1;
};

std::uint64_t CodeOfText(std::string_view text) noexcept;
/// Of a number in a column of that type, INTEGER or REAL.
std::uint64_t CodeOfInteger(Affinity type, long long value) noexcept;
std::uint64_t CodeOfReal(Affinity type, double value) noexcept;

} // namespace vexa::sqlite

#endif
