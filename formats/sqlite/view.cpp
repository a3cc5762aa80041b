// Live tables by the connections that they belong to.

#include <vexa/sqlite.h>

#include <map>
#include <mutex>

#include <sqlite3.h>

#include "live_table.h"

namespace vexa {

namespace sqlite {

/// The live tables of one connection. The tables keep it, so that it goes with the last one, or the last view.
class CConnection {
public:
    explicit CConnection(sqlite3* db) : Db(db) {}
    CConnection(const CConnection&) = delete;
    CConnection& operator=(const CConnection&) = delete;
    ~CConnection();

    std::shared_ptr<CLiveTable> Find(std::string_view name) const
    {
        const auto found = Tables.find(Lower(name));
        return found != Tables.end() ? found->second.lock() : nullptr;
    }

    sqlite3* const Db;
    std::map<std::string, std::weak_ptr<CLiveTable>> Tables; ///< by names in small letters; SQLite keeps the tables
};

namespace {

struct CConnections {
    std::mutex Mutex;
    std::map<sqlite3*, std::weak_ptr<CConnection>> All;
};

/// Never destroyed: a connection may be closed at the very end of the program.
CConnections& Connections()
{
    static auto& s_connections = *new CConnections();
    return s_connections;
}

std::shared_ptr<CConnection> ConnectionOf(sqlite3* db)
{
    CConnections& connections = Connections();
    const std::lock_guard lock(connections.Mutex);
    std::weak_ptr<CConnection>& place = connections.All[db];
    std::shared_ptr<CConnection> connection = place.lock();
    if (connection == nullptr) place = connection = std::make_shared<CConnection>(db);
    return connection;
}

/// Takes the connection for this thread.
class CLock {
public:
    explicit CLock(const CConnection& connection) : m_mutex(sqlite3_db_mutex(connection.Db))
    {
        sqlite3_mutex_enter(m_mutex);
    }
    CLock(const CLock&) = delete;
    CLock& operator=(const CLock&) = delete;
    ~CLock() { sqlite3_mutex_leave(m_mutex); }

private:
    sqlite3_mutex* const m_mutex;
};

/// The first column of a statement's first row; empty where there is none.
std::string FirstText(sqlite3* db, const char* sql, const std::string& parameter = {})
{
    sqlite3_stmt* statement = nullptr;
    std::string text;
    if (sqlite3_prepare_v2(db, sql, -1, &statement, nullptr) != SQLITE_OK) return text;
    sqlite3_bind_text64(statement, 1, parameter.data(), parameter.size(), SQLITE_STATIC, SQLITE_UTF8);
    if (sqlite3_step(statement) == SQLITE_ROW) text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
    sqlite3_finalize(statement);
    return text;
}

/// A table or view would be found before a live table; a module would be lost.
std::string OwnerOf(sqlite3* db, const std::string& name)
{
    return FirstText(
        db,
        "SELECT type || ' of the database ' || schema FROM pragma_table_list WHERE lower(name) = lower(?1) "
        "UNION ALL SELECT 'module' FROM pragma_module_list WHERE lower(name) = lower(?1)",
        name);
}

bool IsTable(const CConstRefrence& container)
{
    const CGnlTypeInfor& type = container.TypeInfor;
    return type.IsContainer() && type.DataType != Enum::DT_BITSET && container.Address != nullptr;
}

} // namespace

CConnection::~CConnection()
{
    CConnections& connections = Connections();
    const std::lock_guard lock(connections.Mutex);
    const auto found = connections.All.find(Db);
    if (found != connections.All.end() && found->second.expired()) connections.All.erase(found);
}

} // namespace sqlite

using sqlite::CLiveTable;

CSqlView::CSqlView(sqlite3* db) : m_connection(sqlite::ConnectionOf(db)) {}
CSqlView::CSqlView(const CSqlView&) = default;
CSqlView& CSqlView::operator=(const CSqlView&) = default;
CSqlView::~CSqlView() = default;

bool CSqlView::Add(std::string_view name, const CConstRefrence& container, const CSqlTableOptions& options)
{
    const sqlite::CLock lock(*m_connection);
    sqlite3* const db = m_connection->Db;
    const std::string owned(name);
    if (!sqlite::IsTable(container)) return Fail(owned, container.TypeName() + " is no container of objects or values");
    const std::shared_ptr<CLiveTable> old = m_connection->Find(name);
    const std::string owner = old == nullptr ? sqlite::OwnerOf(db, owned) : std::string();
    if (!owner.empty()) return Fail(owned, "there is a " + owner + " with that name");

    const int limit = sqlite3_limit(db, SQLITE_LIMIT_COLUMN, -1);
    const auto table = std::make_shared<CLiveTable>(owned, container, options, static_cast<std::size_t>(limit));
    if (table->Columns().empty()) return Fail(owned, container.TypeName() + " has nothing that can be a column");
    if (table->HasTooManyColumns())
        return Fail(owned, "more than " + std::to_string(limit) + " columns: choose a lesser MaxDepth");
    table->ComparesBytes = sqlite::FirstText(db, "PRAGMA encoding") == "UTF-8";
    table->Connection = m_connection;
    const int result = sqlite::Register(db, table);
    if (result != SQLITE_OK) return Fail(owned, sqlite3_errstr(result));
    if (old != nullptr) old->SetRemoved();
    m_connection->Tables[sqlite::Lower(name)] = table;
    return true;
}

bool CSqlView::Index(std::string_view table, std::string_view column)
{
    const sqlite::CLock lock(*m_connection);
    const std::shared_ptr<CLiveTable> found = m_connection->Find(table);
    if (found == nullptr) return Fail(std::string(table), "the view has no such table");
    const std::size_t number = found->Find(column);
    if (number == found->Columns().size()) return Fail(std::string(table), "no such column: " + std::string(column));
    if (found->AddIndex(number)) return true;
    return Fail(std::string(table), "the column has values of several types: " + std::string(column));
}

std::vector<CSqlIndex> CSqlView::Indexes(std::string_view table) const
{
    const sqlite::CLock lock(*m_connection);
    const std::shared_ptr<CLiveTable> found = m_connection->Find(table);
    return found != nullptr ? found->Indexes() : std::vector<CSqlIndex>();
}

bool CSqlView::Changed(std::string_view table)
{
    const sqlite::CLock lock(*m_connection);
    const std::shared_ptr<CLiveTable> found = m_connection->Find(table);
    if (found == nullptr) return Fail(std::string(table), "the view has no such table");
    found->Change();
    return true;
}

bool CSqlView::Remove(std::string_view table)
{
    const sqlite::CLock lock(*m_connection);
    const std::shared_ptr<CLiveTable> found = m_connection->Find(table);
    if (found == nullptr) return Fail(std::string(table), "the view has no such table");
    found->SetRemoved();
    m_connection->Tables.erase(sqlite::Lower(table));
    sqlite3_create_module_v2(m_connection->Db, found->Name().c_str(), nullptr, nullptr, nullptr);
    return true;
}

bool CSqlView::Fail(const std::string& table, const std::string& what)
{
    m_error = table + ": " + what;
    return false;
}

} // namespace vexa
