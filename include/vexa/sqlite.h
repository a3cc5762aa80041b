#ifndef VEXA_SQLITE_H
#define VEXA_SQLITE_H

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/describe.h>

/// \file
/// SQL over live objects: SQLite reads containers of described objects as virtual tables, where they lie and without a
/// copy. It lies in a library of its own (CMake: ordana::sqlite; pkg-config: ordana-sqlite), which is there where
/// SQLite was when the package was built; the application links the same SQLite.
///
/// A row is an element, its rowid the element's position from 0. The columns are the attributes, inherited ones too, in
/// order; those of an object inside have dotted names, "address.city", through pointers too. A map's key is the column
/// `key`, an element that is no object the column `value`. A name that is taken (SQLite takes `id` and `ID` for one)
/// gets `:1`. Not among the columns are confidential attributes, those that are WriteOnly(), and what leads back to a
/// class that is being spread out.
///
/// Integers and bools are INTEGER, above 2^63 - 1 REAL; floating values REAL, NaN NULL; text TEXT as it stands; named
/// enumerations TEXT, also a value without a name, by its digits; CBinary BLOB; times TEXT as RFC 3339 has it; CNumeric
/// TEXT, its digits, so that it is compared as text unless it is cast. What is null, or behind a null pointer, is NULL;
/// so is an inactive member of a union. Containers, tuples and records are JSON text, for SQLite's JSON functions.

struct sqlite3;

namespace vexa {

namespace sqlite {

class CConnection;

} // namespace sqlite

/// How a container is shown.
struct CSqlTableOptions {
    bool ShowMasked = false;   ///< confidential attributes are columns too, and stand in JSON text
    unsigned int MaxDepth = 8; ///< of objects inside objects: what is deeper has no columns
};

/// An index, and what it has cost.
struct CSqlIndex {
    std::string Column;
    unsigned long Builds = 0; ///< how often it was built
    double Seconds = 0;       ///< that the last time took
    unsigned long Bytes = 0;  ///< that it takes
};

/// The live tables of a connection. They belong to the connection: they stay when the view goes, and every view of the
/// same connection has the same ones.
///
/// Statements only read. A statement under which a container changes its place or size, or that Changed() is called
/// for, ends with SQLITE_ABORT at its next step. A change that keeps both is seen as it happens; in a container other
/// than a vector or an array, an element that is taken out must be told by Changed() before the next step.
///
/// The container must outlive its table: Remove() that before. Whoever changes a container, or objects in it, keeps
/// statements that read it on other threads out. Every function may be called wherever the connection may be used.
class VEXA_API CSqlView {
public:
    /// \p db must stay open as long as the view is used.
    explicit CSqlView(sqlite3* db);
    CSqlView(const CSqlView&);
    CSqlView& operator=(const CSqlView&);
    ~CSqlView();

    /// Makes the container of a reference a table. One of the same name that this connection has from a view is
    /// replaced: statements prepared for that end with an error. A table, view or module of the database's own is not.
    /// \return false, and nothing has happened, where it cannot be done: see Error(). Throws std::bad_alloc.
    bool Add(std::string_view name, const CConstRefrence& container, const CSqlTableOptions& options = {});
    template<class Container, class = detail::IfObject<Container>>
    bool Add(std::string_view name, const Container& container, const CSqlTableOptions& options = {})
    {
        return Add(name, RefOf(container), options);
    }
    template<class Container, class = detail::IfObject<Container>>
    bool Add(std::string_view name, const Container&& container, const CSqlTableOptions& options = {}) = delete;

    /// Lets statements find rows by a column of type INTEGER, REAL, TEXT or BLOB without looking at every row. The
    /// index is built when a statement first needs it, and again after Changed(), or where the container has another
    /// place or size. Statements look at each row that it gives them once more; but where a value has changed without
    /// Changed(), they may miss rows.
    bool Index(std::string_view table, std::string_view column);
    std::vector<CSqlIndex> Indexes(std::string_view table) const;
    /// Tells that the container or its objects have changed. \return whether there is such a table.
    bool Changed(std::string_view table);
    /// Takes a table away. Statements prepared for it end with an error at their next step, and no longer look at the
    /// container. \return whether there was one.
    bool Remove(std::string_view table);

    /// Why the last call on this view has failed.
    const std::string& Error() const { return m_error; }

private:
    bool Fail(const std::string& table, const std::string& what);

    std::shared_ptr<sqlite::CConnection> m_connection;
    std::string m_error;
};

} // namespace vexa

#endif
