#ifndef ORDANA_FORMATS_SQLITE_LIVE_TABLE_H
#define ORDANA_FORMATS_SQLITE_LIVE_TABLE_H

#include <deque>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "index.h"
#include "rows.h"

struct sqlite3;

namespace vexa::sqlite {

class CConnection;

/// The state of a container when a statement looked at it.
struct CState {
    CLook Look;
    unsigned long Generation = 0;

    bool operator==(const CState& other) const noexcept { return Look == other.Look && Generation == other.Generation; }
};

/// One live table. Lives as long as the connection or a statement knows it.
class CLiveTable {
public:
    /// \param limit is how many columns the connection allows.
    CLiveTable(std::string name, const CConstRefrence& container, const CSqlTableOptions& options, std::size_t limit);

    const std::string& Name() const { return m_name; }
    const std::vector<CColumn>& Columns() const { return m_columns; }
    bool HasTooManyColumns() const { return m_hasTooManyColumns; }
    /// The number of a column; the number of columns where there is none.
    std::size_t Find(std::string_view column) const;
    /// `CREATE TABLE` for sqlite3_declare_vtab.
    std::string Declaration() const;

    const CRows& Rows() const { return m_rows; }
    CState State() const { return {m_rows.Look(), m_generation}; }
    void Change() { ++m_generation; }

    bool IsRemoved() const { return m_isRemoved; }
    void SetRemoved() { m_isRemoved = true; }

    bool IsIndexed(std::size_t column) const { return m_indexes.find(column) != m_indexes.end(); }
    bool AddIndex(std::size_t column);
    std::vector<CSqlIndex> Indexes() const;
    /// How many rows an equality is thought to find.
    double RowsOfOneValue(std::size_t column) const;
    /// The index as the container is, built where it must be.
    std::shared_ptr<const CIndex> IndexOf(std::size_t column, const CState& state);
    /// The places of the elements likewise; null for a contiguous container.
    std::shared_ptr<const std::vector<const char*>> PlacesOf(const CState& state);

    /// Whether texts are compared byte by byte as they stand: not where the database keeps them in UTF-16.
    bool ComparesBytes = true;
    /// Keeps the connection's list of tables.
    std::shared_ptr<CConnection> Connection;

private:
    struct CKeptIndex {
        CSqlIndex Cost;
        CState State;
        std::shared_ptr<const CIndex> Built;
    };

    std::shared_ptr<const CIndex> Build(const CColumn& column, const CState& state);

    const std::string m_name;
    const CRows m_rows;
    bool m_hasTooManyColumns = false;
    std::deque<CGnlTypeInfor> m_types;
    std::vector<CColumn> m_columns;
    std::map<std::size_t, CKeptIndex> m_indexes;
    CState m_placesState;
    std::shared_ptr<const std::vector<const char*>> m_places;
    unsigned long m_generation = 0;
    bool m_isRemoved = false;
};

/// Makes a table known to SQLite under its name. \return its result.
int Register(sqlite3* db, const std::shared_ptr<CLiveTable>& table);

} // namespace vexa::sqlite

#endif
