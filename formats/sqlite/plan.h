#ifndef ORDANA_FORMATS_SQLITE_PLAN_H
#define ORDANA_FORMATS_SQLITE_PLAN_H

#include <sqlite3.h>

#include "live_table.h"

namespace vexa::sqlite {

enum class PlanKind : unsigned char {
    SCAN,
    ROW,    ///< by rowid
    EQUAL,  ///< by an index: `=`, and `IN` one value after the other
    IS,     ///< `IS`, also a null
    ANY_OF, ///< `IN`, all values at once
    NULLS,
    RANGE ///< its ends are supersets: they belong to it
};

/// How a statement gets its rows, from xBestIndex to xFilter. What is found is a superset: SQLite looks at each row
/// again.
struct CPlan {
    PlanKind Kind = PlanKind::SCAN;
    bool HasLeast = false; ///< RANGE: the first argument; HasMost the next one
    bool HasMost = false;
    std::size_t Column = 0;

    int Encoded() const noexcept
    {
        return static_cast<int>(Kind) | (HasLeast ? 0x10 : 0) | (HasMost ? 0x20 : 0) | static_cast<int>(Column << 8U);
    }
    explicit CPlan(int encoded) noexcept
        : Kind(static_cast<PlanKind>(encoded & 0xF)), HasLeast((encoded & 0x10) != 0), HasMost((encoded & 0x20) != 0),
          Column(static_cast<std::size_t>(encoded) >> 8U)
    {
    }
    CPlan() noexcept = default;
};

/// xBestIndex.
void ChoosePlan(const CLiveTable& table, sqlite3_index_info& info);

/// What an index finds for a value.
struct CFound {
    bool IsUnknown = false; ///< every row must be looked at
    CIndexSpan Span;
};
/// What may be equal to it; with \p isIs a null is equal to nulls.
CFound FindEqual(const CColumn& column, const CIndex& index, sqlite3_value* value, bool isIs);
/// What may lie between two values, either of which may be left out.
CFound FindBetween(const CColumn& column, const CIndex& index, sqlite3_value* least, sqlite3_value* most);
/// The number that a rowid is compared with. \return false where no rowid is equal to it.
bool IntegerOf(sqlite3_value* value, long long& number);

} // namespace vexa::sqlite

#endif
