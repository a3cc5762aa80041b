// SQL over 1,000,000 live objects, against a table of SQLite's own in memory with the same rows and index. Each pair is
// shown to give the same result before it is timed.

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <vexa/sqlite.h>
#include <vexa/vexa.h>

namespace {

struct Order {
    long long id = 0;
    int customer = 0;
    double amount = 0;
    std::string code;
};
VEXA_DESCRIBE(Order, id, customer, amount, code)

constexpr int ROWS = 1000 * 1000;

[[noreturn]] void Fail(const std::string& what)
{
    std::cerr << what << '\n';
    std::exit(1);
}

class Statement {
public:
    Statement(sqlite3* db, const std::string& sql)
    {
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &m_statement, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(db));
    }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(m_statement); }

    sqlite3_stmt* Get() const { return m_statement; }
    /// The sum of all columns of all rows; the statement is reset.
    double Run() const
    {
        double sum = 0;
        int result = 0;
        while ((result = sqlite3_step(m_statement)) == SQLITE_ROW)
            for (int i = 0; i < sqlite3_column_count(m_statement); ++i)
                sum += sqlite3_column_double(m_statement, i);
        if (result != SQLITE_DONE) Fail(sqlite3_errmsg(sqlite3_db_handle(m_statement)));
        sqlite3_reset(m_statement);
        return sum;
    }

private:
    sqlite3_stmt* m_statement = nullptr;
};

/// The objects, as the live table `library` and copied into the table `sqlite`.
struct Data {
    std::vector<Order> Orders;
    sqlite3* Db = nullptr;

    Data()
    {
        std::mt19937_64 engine(1);
        for (int i = 0; i < ROWS; ++i)
            Orders.push_back({i, static_cast<int>(engine() % 1000), static_cast<double>(engine() % 100), ""});
        std::shuffle(Orders.begin(), Orders.end(), engine);
        for (Order& order : Orders)
            order.code = "order-" + std::to_string(order.id);
        sqlite3_open(":memory:", &Db);
        vexa::CSqlView view(Db);
        if (!view.Add("library", Orders) || !view.Index("library", "id") || !view.Index("library", "code"))
            Fail(view.Error());
        Execute("CREATE TABLE sqlite(id INTEGER, customer INTEGER, amount REAL, code TEXT)");
        Execute("INSERT INTO sqlite SELECT * FROM library");
        Execute("CREATE INDEX by_id ON sqlite(id)");
        Execute("CREATE INDEX by_code ON sqlite(code)");
    }
    void Execute(const std::string& sql) const
    {
        if (sqlite3_exec(Db, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail(sqlite3_errmsg(Db));
    }
};

const Data& TheData()
{
    static const Data& s_data = *new Data();
    return s_data;
}

/// The statement with the table's name in place of `%`.
std::string Of(std::string sql, const std::string& table) { return sql.replace(sql.find('%'), 1, table); }

void CheckSame(const std::string& sql)
{
    const Data& data = TheData();
    if (Statement(data.Db, Of(sql, "library")).Run() != Statement(data.Db, Of(sql, "sqlite")).Run())
        Fail("the tables give different results for " + sql);
}

const std::string AGGREGATE = "SELECT sum(amount), max(customer), count(*) FROM %";
const std::string GROUPS = "SELECT customer, sum(amount) FROM % GROUP BY customer";

void RunWhole(benchmark::State& state, const std::string& sql, const char* table)
{
    CheckSame(sql);
    const Statement statement(TheData().Db, Of(sql, table));
    for (auto _ : state)
        benchmark::DoNotOptimize(statement.Run());
}

void RunEqual(benchmark::State& state, const char* table)
{
    CheckSame("SELECT amount FROM % WHERE id IN (5, 77, 999999, 1000000)");
    const Statement statement(TheData().Db, Of("SELECT amount FROM % WHERE id = ?1", table));
    std::mt19937_64 engine(2);
    for (auto _ : state) {
        sqlite3_bind_int64(statement.Get(), 1, static_cast<sqlite3_int64>(engine() % ROWS));
        benchmark::DoNotOptimize(statement.Run());
    }
}

void RunEqualText(benchmark::State& state, const char* table)
{
    CheckSame("SELECT amount FROM % WHERE code IN ('order-5', 'order-77', 'order')");
    const Statement statement(TheData().Db, Of("SELECT amount FROM % WHERE code = ?1", table));
    std::mt19937_64 engine(3);
    for (auto _ : state) {
        const std::string code = "order-" + std::to_string(engine() % ROWS);
        sqlite3_bind_text64(statement.Get(), 1, code.data(), code.size(), SQLITE_STATIC, SQLITE_UTF8);
        benchmark::DoNotOptimize(statement.Run());
    }
}

/// What building an index costs.
void BuildLibrary(benchmark::State& state)
{
    const Data& data = TheData();
    const Statement statement(data.Db, "SELECT amount FROM library WHERE id = 5");
    vexa::CSqlView view(data.Db);
    for (auto _ : state) {
        view.Changed("library");
        benchmark::DoNotOptimize(statement.Run());
    }
}
void BuildSqlite(benchmark::State& state)
{
    const Data& data = TheData();
    for (auto _ : state) {
        data.Execute("CREATE INDEX again ON sqlite(id)");
        state.PauseTiming();
        data.Execute("DROP INDEX again");
        state.ResumeTiming();
    }
}

BENCHMARK_CAPTURE(RunEqual, library, "library")->Name("SqlEqual/library");
BENCHMARK_CAPTURE(RunEqual, sqlite, "sqlite")->Name("SqlEqual/sqlite");
BENCHMARK_CAPTURE(RunEqualText, library, "library")->Name("SqlEqualText/library");
BENCHMARK_CAPTURE(RunEqualText, sqlite, "sqlite")->Name("SqlEqualText/sqlite");
BENCHMARK_CAPTURE(RunWhole, library, AGGREGATE, "library")->Name("SqlAggregate/library")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RunWhole, sqlite, AGGREGATE, "sqlite")->Name("SqlAggregate/sqlite")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RunWhole, library, GROUPS, "library")->Name("SqlGroups/library")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RunWhole, sqlite, GROUPS, "sqlite")->Name("SqlGroups/sqlite")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildLibrary)->Name("SqlIndex/library")->Unit(benchmark::kMillisecond);
BENCHMARK(BuildSqlite)->Name("SqlIndex/sqlite")->Unit(benchmark::kMillisecond);

} // namespace
