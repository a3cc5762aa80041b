#ifndef ORDANA_FORMATS_SQLITE_CURSOR_H
#define ORDANA_FORMATS_SQLITE_CURSOR_H

#include <sqlite3.h>

#include "plan.h"

namespace vexa::sqlite {

/// A statement's way through the rows of a table.
class CCursor : public sqlite3_vtab_cursor {
public:
    explicit CCursor(CLiveTable& table) : sqlite3_vtab_cursor(), m_table(table) {}

    /// Whether the table is there and the container as the cursor has found it. Nothing of the container may be touched
    /// otherwise.
    bool IsSame() const { return !m_table.IsRemoved() && m_table.State() == m_state; }
    /// Goes to the first row of a plan.
    void Start(const CPlan& plan, int count, sqlite3_value** values);
    void Next();
    bool IsAtEnd() const { return m_element == nullptr; }
    void Read(std::size_t column) { m_table.Columns()[column].Read(m_element, m_cell); }
    const CCell& Cell() const { return m_cell; }
    long long Row() const { return m_row; }
    CLiveTable& Table() const { return m_table; }

private:
    void StartScan();
    void StartRow(sqlite3_value* value);
    void StartIndex(const CPlan& plan, int count, sqlite3_value** values);
    CFound Find(const CPlan& plan, int count, sqlite3_value** values);
    CFound FindAnyOf(const CColumn& column, sqlite3_value* values);
    void StartSpan(const CIndexSpan& span);
    void GoTo(std::uint64_t row);

    CLiveTable& m_table;
    CState m_state;
    const char* m_element = nullptr; ///< null at the end
    long long m_row = 0;
    const char* m_end = nullptr; ///< of a scan of a contiguous container
    bool m_isFound = false;      ///< the rows are those of m_span
    CIndexSpan m_span;           ///< what is left
    std::shared_ptr<const CIndex> m_index;
    std::shared_ptr<const std::vector<const char*>> m_places;
    std::vector<CIndexEntry> m_several;
    CIndexEntry m_one{};
    CWalk m_walk;
    CCell m_cell;
};

} // namespace vexa::sqlite

#endif
