// What SQLite calls.

#include <exception>
#include <new>

#include "cursor.h"

namespace vexa::sqlite {

namespace {

struct CVirtualTable : sqlite3_vtab {
    explicit CVirtualTable(std::shared_ptr<CLiveTable> table) : sqlite3_vtab(), Table(std::move(table)) {}

    const std::shared_ptr<CLiveTable> Table;
};

CCursor& CursorOf(sqlite3_vtab_cursor* cursor) { return *static_cast<CCursor*>(cursor); }

int Fail(sqlite3_vtab* table, int result, const char* message)
{
    sqlite3_free(table->zErrMsg);
    table->zErrMsg = sqlite3_mprintf("%s: %s", static_cast<CVirtualTable*>(table)->Table->Name().c_str(), message);
    return result;
}

/// No exception may go through SQLite.
template<class Function>
int Guarded(sqlite3_vtab* table, Function function) noexcept
try {
    return function();
} catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
} catch (const std::exception& error) {
    return Fail(table, SQLITE_ERROR, error.what());
} catch (...) {
    return Fail(table, SQLITE_ERROR, "a converter of the application has failed");
}

int FailChanged(const CCursor& cursor)
{
    const bool isRemoved = cursor.Table().IsRemoved();
    return Fail(cursor.pVtab, SQLITE_ABORT,
                isRemoved ? "the table has been removed or replaced: prepare the statement again"
                          : "the container has changed under the statement: run it again");
}

int Connect(sqlite3* db, void* aux, int, const char* const*, sqlite3_vtab** made, char** message)
try {
    auto table = std::make_unique<CVirtualTable>(*static_cast<const std::shared_ptr<CLiveTable>*>(aux));
    const int result = sqlite3_declare_vtab(db, table->Table->Declaration().c_str());
    if (result != SQLITE_OK) {
        *message = sqlite3_mprintf("%s", sqlite3_errmsg(db));
        return result;
    }
    *made = table.release();
    return SQLITE_OK;
} catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
}

int Disconnect(sqlite3_vtab* table)
{
    delete static_cast<CVirtualTable*>(table);
    return SQLITE_OK;
}

int BestIndex(sqlite3_vtab* table, sqlite3_index_info* info)
{
    return Guarded(table, [&] {
        const CLiveTable& described = *static_cast<CVirtualTable*>(table)->Table;
        if (described.IsRemoved()) return Fail(table, SQLITE_ERROR, "the table has been removed");
        ChoosePlan(described, *info);
        return SQLITE_OK;
    });
}

int Open(sqlite3_vtab* table, sqlite3_vtab_cursor** cursor)
{
    return Guarded(table, [&] {
        *cursor = new CCursor(*static_cast<CVirtualTable*>(table)->Table);
        return SQLITE_OK;
    });
}

int Close(sqlite3_vtab_cursor* cursor)
{
    delete static_cast<CCursor*>(cursor);
    return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* cursor, int plan, const char*, int count, sqlite3_value** values)
{
    return Guarded(cursor->pVtab, [&] {
        if (CursorOf(cursor).Table().IsRemoved()) return FailChanged(CursorOf(cursor));
        CursorOf(cursor).Start(CPlan(plan), count, values);
        return SQLITE_OK;
    });
}

int Next(sqlite3_vtab_cursor* cursor)
{
    return Guarded(cursor->pVtab, [cursor] {
        if (!CursorOf(cursor).IsSame()) return FailChanged(CursorOf(cursor));
        CursorOf(cursor).Next();
        return SQLITE_OK;
    });
}

int Eof(sqlite3_vtab_cursor* cursor) { return CursorOf(cursor).IsAtEnd() ? 1 : 0; }

/// SQLite copies what it is given: the object may change before the statement's next step.
void Give(sqlite3_context* context, const CCell& cell)
{
    const char* const text = cell.Text.data() != nullptr ? cell.Text.data() : "";
    switch (cell.Kind) {
    case CellKind::NOTHING: return sqlite3_result_null(context);
    case CellKind::INTEGER: return sqlite3_result_int64(context, cell.Integer);
    case CellKind::REAL: return sqlite3_result_double(context, cell.Real);
    case CellKind::TEXT: return sqlite3_result_text64(context, text, cell.Text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    case CellKind::BLOB: return sqlite3_result_blob64(context, text, cell.Text.size(), SQLITE_TRANSIENT);
    }
}

int Column(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column)
{
    return Guarded(cursor->pVtab, [&] {
        CCursor& at = CursorOf(cursor);
        if (!at.IsSame()) return FailChanged(at);
        at.Read(static_cast<std::size_t>(column));
        Give(context, at.Cell());
        return SQLITE_OK;
    });
}

int RowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* row)
{
    *row = CursorOf(cursor).Row();
    return SQLITE_OK;
}

/// Without xCreate the module is a table of its own name, which no database keeps; without xUpdate it is only read.
const sqlite3_module& Module()
{
    static const sqlite3_module s_module = [] {
        sqlite3_module module{};
        module.xConnect = &Connect;
        module.xDisconnect = module.xDestroy = &Disconnect;
        module.xBestIndex = &BestIndex;
        module.xOpen = &Open;
        module.xClose = &Close;
        module.xFilter = &Filter;
        module.xNext = &Next;
        module.xEof = &Eof;
        module.xColumn = &Column;
        module.xRowid = &RowId;
        return module;
    }();
    return s_module;
}

} // namespace

int Register(sqlite3* db, const std::shared_ptr<CLiveTable>& table)
{
    auto* const aux = new std::shared_ptr<CLiveTable>(table);
    // What goes wrong destroys it too.
    return sqlite3_create_module_v2(db, table->Name().c_str(), &Module(), aux,
                                    [](void* held) { delete static_cast<std::shared_ptr<CLiveTable>*>(held); });
}

} // namespace vexa::sqlite
