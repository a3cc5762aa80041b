#ifndef VEXA_TESTS_FORMATS_SQLITE_DATABASE_H
#define VEXA_TESTS_FORMATS_SQLITE_DATABASE_H

#include <string>
#include <vector>

#include <sqlite3.h>
#include <vexa/sqlite.h>

/// A database in memory, and statements whose results are compared as text.

namespace vexa_test {

/// A value as SQL writes it, so that its type can be told.
inline std::string Literal(sqlite3_stmt* statement, int column)
{
    const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER: return std::to_string(sqlite3_column_int64(statement, column));
    case SQLITE_FLOAT: {
        char text[64];
        std::snprintf(text, sizeof text, "%.17g", sqlite3_column_double(statement, column));
        return std::string("real ") + text;
    }
    case SQLITE_TEXT: {
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
        return '\'' + std::string(text, size) + '\'';
    }
    case SQLITE_BLOB: {
        std::string text = "x'";
        const auto* const bytes = static_cast<const unsigned char*>(sqlite3_column_blob(statement, column));
        for (std::size_t i = 0; i < size; ++i) {
            text += "0123456789abcdef"[bytes[i] >> 4U];
            text += "0123456789abcdef"[bytes[i] & 0xFU];
        }
        return text + '\'';
    }
    default: return "NULL";
    }
}

class CStatement {
public:
    CStatement(sqlite3* db, const std::string& sql) : m_db(db)
    {
        sqlite3_prepare_v2(db, sql.data(), static_cast<int>(sql.size()), &m_statement, nullptr);
    }
    CStatement(const CStatement&) = delete;
    CStatement& operator=(const CStatement&) = delete;
    ~CStatement() { sqlite3_finalize(m_statement); }

    sqlite3_stmt* Get() const { return m_statement; }
    /// One row, its values separated by blanks; "done" behind the last one; else "error <code>: <message>".
    std::string Step()
    {
        const int result = m_statement != nullptr ? sqlite3_step(m_statement) : sqlite3_errcode(m_db);
        if (result == SQLITE_DONE) return "done";
        if (result != SQLITE_ROW) return "error " + std::to_string(result) + ": " + sqlite3_errmsg(m_db);
        std::string row;
        for (int i = 0; i < sqlite3_column_count(m_statement); ++i)
            row += (i == 0 ? "" : " ") + Literal(m_statement, i);
        return row;
    }
    void Reset() { sqlite3_reset(m_statement); }

private:
    sqlite3* const m_db;
    sqlite3_stmt* m_statement = nullptr;
};

using Rows = std::vector<std::string>;

class CDatabase {
public:
    CDatabase() { sqlite3_open(":memory:", &m_db); }
    CDatabase(const CDatabase&) = delete;
    CDatabase& operator=(const CDatabase&) = delete;
    ~CDatabase() { sqlite3_close(m_db); }

    operator sqlite3*() const { return m_db; }
    /// Every row as Step() gives it, and an error where it ends with one.
    Rows Query(const std::string& sql) const
    {
        CStatement statement(m_db, sql);
        Rows rows;
        for (;;) {
            std::string row = statement.Step();
            if (row == "done") return rows;
            rows.push_back(std::move(row));
            if (rows.back().compare(0, 6, "error ") == 0) return rows;
        }
    }
    /// How SQLite goes about a statement.
    std::string Plan(const std::string& sql) const
    {
        CStatement statement(m_db, "EXPLAIN QUERY PLAN " + sql);
        std::string plan;
        while (sqlite3_step(statement.Get()) == SQLITE_ROW)
            plan += (plan.empty() ? "" : "; ") +
                    std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement.Get(), 3)));
        return plan;
    }

private:
    sqlite3* m_db = nullptr;
};

} // namespace vexa_test

#endif
