// Which rows a statement must look at.

#include "plan.h"

#include <algorithm>
#include <string_view>

namespace vexa::sqlite {

namespace {

bool IsNumber(Affinity type) { return type == Affinity::INTEGER || type == Affinity::REAL; }

/// Goes through the constraints of a statement and keeps the one that leaves the fewest rows.
class CPlanner {
public:
    CPlanner(const CLiveTable& table, sqlite3_index_info& info)
        : m_table(table), m_info(info), m_count(static_cast<double>(table.Rows().Count(table.State().Look))),
          m_rows(m_count)
    {
    }

    void Choose()
    {
        for (int i = 0; i < m_info.nConstraint; ++i)
            if (m_info.aConstraint[i].usable != 0) Consider(i);
        HandOver();
    }

private:
    void Consider(int number)
    {
        const auto& constraint = m_info.aConstraint[number];
        if (constraint.iColumn < 0) {
            if (constraint.op == SQLITE_INDEX_CONSTRAINT_EQ) Take(PlanKind::ROW, 0, number, 1);
            return;
        }
        const auto column = static_cast<std::size_t>(constraint.iColumn);
        if (!m_table.IsIndexed(column)) return;
        switch (constraint.op) {
        case SQLITE_INDEX_CONSTRAINT_EQ: return ConsiderEqual(number, column);
        case SQLITE_INDEX_CONSTRAINT_IS:
            if (CanCompare(number, column)) Take(PlanKind::IS, column, number, m_table.RowsOfOneValue(column));
            return;
        case SQLITE_INDEX_CONSTRAINT_ISNULL: return Take(PlanKind::NULLS, column, number, m_count / 10);
        case SQLITE_INDEX_CONSTRAINT_GT:
        case SQLITE_INDEX_CONSTRAINT_GE:
        case SQLITE_INDEX_CONSTRAINT_LT:
        case SQLITE_INDEX_CONSTRAINT_LE:
            if (IsNumber(m_table.Columns()[column].Type)) ConsiderRange(number, column);
            return;
        default: return;
        }
    }
    /// The codes of texts know one order of equality only.
    bool CanCompare(int number, std::size_t column)
    {
        if (m_table.Columns()[column].Type != Affinity::TEXT) return true;
        return m_table.ComparesBytes && std::string_view(sqlite3_vtab_collation(&m_info, number)) == "BINARY";
    }
    void ConsiderEqual(int number, std::size_t column)
    {
        if (!CanCompare(number, column)) return;
        const double rows = m_table.RowsOfOneValue(column);
#if SQLITE_VERSION_NUMBER >= 3038000
        constexpr double GUESSED_VALUES = 25;
        if (sqlite3_vtab_in(&m_info, number, -1) != 0)
            return Take(PlanKind::ANY_OF, column, number, rows * GUESSED_VALUES);
#endif
        Take(PlanKind::EQUAL, column, number, rows);
    }
    void ConsiderRange(int number, std::size_t column)
    {
        int least = -1;
        int most = -1;
        for (int i = number; i < m_info.nConstraint; ++i) {
            const auto& constraint = m_info.aConstraint[i];
            if (constraint.usable == 0 || static_cast<std::size_t>(constraint.iColumn) != column) continue;
            const auto op = constraint.op;
            if (op == SQLITE_INDEX_CONSTRAINT_GT || op == SQLITE_INDEX_CONSTRAINT_GE) least = i;
            if (op == SQLITE_INDEX_CONSTRAINT_LT || op == SQLITE_INDEX_CONSTRAINT_LE) most = i;
        }
        Take(PlanKind::RANGE, column, least, least >= 0 && most >= 0 ? m_count / 8 : m_count / 4, most);
    }
    void Take(PlanKind kind, std::size_t column, int first, double rows, int second = -1)
    {
        rows = std::min(rows, m_count);
        if (m_plan.Kind != PlanKind::SCAN && rows >= m_rows) return;
        m_rows = rows;
        m_first = first;
        m_second = second;
        m_plan.Kind = kind;
        m_plan.Column = column;
        m_plan.HasLeast = kind == PlanKind::RANGE && first >= 0;
        m_plan.HasMost = kind == PlanKind::RANGE && second >= 0;
    }

    void HandOver()
    {
        int arguments = 0;
        for (const int number : {m_first, m_second})
            if (number >= 0) m_info.aConstraintUsage[number].argvIndex = ++arguments;
#if SQLITE_VERSION_NUMBER >= 3038000
        if (m_plan.Kind == PlanKind::ANY_OF) sqlite3_vtab_in(&m_info, m_first, 1);
#endif
        constexpr double COST_OF_FINDING = 5;
        m_info.idxNum = m_plan.Encoded();
        m_info.estimatedRows = static_cast<sqlite3_int64>(m_rows);
        m_info.estimatedCost = m_plan.Kind == PlanKind::SCAN ? m_count + COST_OF_FINDING : m_rows + COST_OF_FINDING;
        if (m_plan.Kind == PlanKind::ROW) m_info.idxFlags = SQLITE_INDEX_SCAN_UNIQUE;
        if (m_plan.Kind != PlanKind::SCAN) Name();
    }
    /// What EXPLAIN QUERY PLAN shows.
    void Name()
    {
        const bool isRow = m_plan.Kind == PlanKind::ROW;
        const char* const column = isRow ? "rowid" : m_table.Columns()[m_plan.Column].Name.c_str();
        m_info.idxStr = sqlite3_mprintf("%s %s", column, Operator());
        m_info.needToFreeIdxStr = 1;
    }
    const char* Operator() const
    {
        switch (m_plan.Kind) {
        case PlanKind::IS: return "IS ?";
        case PlanKind::ANY_OF: return "IN (...)";
        case PlanKind::NULLS: return "IS NULL";
        case PlanKind::RANGE: return !m_plan.HasMost ? ">= ?" : m_plan.HasLeast ? "BETWEEN ? AND ?" : "<= ?";
        default: return "= ?";
        }
    }

    const CLiveTable& m_table;
    sqlite3_index_info& m_info;
    const double m_count;
    double m_rows;
    CPlan m_plan;
    int m_first = -1; ///< numbers of constraints
    int m_second = -1;
};

std::string_view TextOf(sqlite3_value* value)
{
    const auto* const text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text != nullptr ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}
std::string_view BytesOf(sqlite3_value* value)
{
    const auto* const bytes = static_cast<const char*>(sqlite3_value_blob(value));
    return {bytes != nullptr ? bytes : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// A value as a comparison with a number takes it: no affinity has been applied to what is pushed down.
class CNumber {
public:
    explicit CNumber(sqlite3_value* value)
    {
        m_type = sqlite3_value_type(value);
        if (m_type == SQLITE_TEXT) {
            // The value itself stays a text for SQLite's own look at the row.
            m_copy = sqlite3_value_dup(value);
            if (m_copy == nullptr) throw std::bad_alloc();
            value = m_copy;
            m_type = sqlite3_value_numeric_type(value);
        }
        if (m_type == SQLITE_INTEGER) m_integer = sqlite3_value_int64(value);
        if (m_type == SQLITE_FLOAT) m_real = sqlite3_value_double(value);
    }
    CNumber(const CNumber&) = delete;
    CNumber& operator=(const CNumber&) = delete;
    ~CNumber() { sqlite3_value_free(m_copy); }

    bool IsInteger() const { return m_type == SQLITE_INTEGER; }
    bool IsReal() const { return m_type == SQLITE_FLOAT; }
    bool IsNumber() const { return IsInteger() || IsReal(); }
    long long Integer() const { return m_integer; }
    double Real() const { return m_real; }
    std::uint64_t Code(Affinity type) const
    {
        return IsInteger() ? CodeOfInteger(type, m_integer) : CodeOfReal(type, m_real);
    }

private:
    int m_type;
    long long m_integer = 0;
    double m_real = 0;
    sqlite3_value* m_copy = nullptr;
};

CFound FindCode(const CIndex& index, std::uint64_t code) { return {false, index.Between(code, code)}; }

} // namespace

void ChoosePlan(const CLiveTable& table, sqlite3_index_info& info) { CPlanner(table, info).Choose(); }

CFound FindEqual(const CColumn& column, const CIndex& index, sqlite3_value* value, bool isIs)
{
    const int type = sqlite3_value_type(value);
    if (type == SQLITE_NULL) return isIs ? CFound{false, index.Nulls()} : CFound();
    if (IsNumber(column.Type)) {
        const CNumber number(value);
        return number.IsNumber() ? FindCode(index, number.Code(column.Type)) : CFound();
    }
    if (column.Type == Affinity::BLOB)
        return type == SQLITE_BLOB ? FindCode(index, CodeOfText(BytesOf(value))) : CFound();
    if (type == SQLITE_TEXT) return FindCode(index, CodeOfText(TextOf(value)));
    // A number may be compared as text, or the texts of the column as numbers: that depends on where it comes from.
    return type == SQLITE_BLOB ? CFound() : CFound{true, {}};
}

CFound FindBetween(const CColumn& column, const CIndex& index, sqlite3_value* least, sqlite3_value* most)
{
    std::uint64_t first = 0;
    std::uint64_t last = ~std::uint64_t{0};
    for (sqlite3_value* const end : {least, most}) {
        if (end == nullptr) continue;
        const int type = sqlite3_value_type(end);
        if (type == SQLITE_NULL) return {};
        // Numbers come before texts and blobs; a text may have been meant as a number or not.
        if (type != SQLITE_INTEGER && type != SQLITE_FLOAT) continue;
        (end == least ? first : last) = CNumber(end).Code(column.Type);
    }
    return {false, first <= last ? index.Between(first, last) : CIndexSpan()};
}

bool IntegerOf(sqlite3_value* value, long long& number)
{
    constexpr double END_OF_INTEGERS = 9223372036854775808.0;
    const CNumber given(value);
    if (given.IsInteger()) number = given.Integer();
    if (!given.IsReal()) return given.IsInteger();
    if (!(given.Real() >= -END_OF_INTEGERS && given.Real() < END_OF_INTEGERS)) return false;
    number = static_cast<long long>(given.Real());
    return true; // with a fraction it is found, and refused by SQLite
}

} // namespace vexa::sqlite
