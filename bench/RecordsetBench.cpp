#include "bench/BenchDatabase.h"
#include "data/recordset/Recordset.h"

#include <QByteArray>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace tarnwell::bench {

namespace {

const QString walkedStatement = QStringLiteral(
    "SELECT JobLotTaskKey, Name, MasterPrice, CustomTask FROM JobLotTask WHERE JobLotTaskKey > 0");

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Handle = std::unique_ptr<sqlite3, CloseHandle>;
using Statement = std::unique_ptr<sqlite3_stmt, CloseHandle>;

Handle bareHandle() {
    sqlite3* handle = nullptr;
    sqlite3_open_v2(BenchDatabase::shared().path().toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE,
                    nullptr);
    sqlite3_exec(handle, "PRAGMA cache_size=-16000", nullptr, nullptr, nullptr);
    return Handle(handle);
}

Statement prepared(const Handle& handle, const char* sql) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(handle.get(), sql, -1, &statement, nullptr);
    return Statement(statement);
}

/// What a program without us would do: texts as QString, numbers as they are.
void BM_WalkBareSqlite(benchmark::State& state) {
    const Handle handle = bareHandle();
    const QByteArray sql = walkedStatement.toUtf8();
    for (auto _ : state) {
        const Statement statement = prepared(handle, sql.constData());
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int64(statement.get(), 0));
            for (const int column : {1, 3}) {
                const auto* text =
                    reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), column));
                benchmark::DoNotOptimize(
                    QString::fromUtf8(text, sqlite3_column_bytes(statement.get(), column)));
            }
            benchmark::DoNotOptimize(sqlite3_column_double(statement.get(), 2));
        }
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_WalkBareSqlite)->Unit(benchmark::kMillisecond);

/// The engine's least: no text leaves its pages.
void BM_WalkBareSqliteWithoutStrings(benchmark::State& state) {
    const Handle handle = bareHandle();
    const QByteArray sql = walkedStatement.toUtf8();
    for (auto _ : state) {
        const Statement statement = prepared(handle, sql.constData());
        while (sqlite3_step(statement.get()) == SQLITE_ROW) {
            benchmark::DoNotOptimize(sqlite3_column_int64(statement.get(), 0));
            benchmark::DoNotOptimize(sqlite3_column_text(statement.get(), 1));
            benchmark::DoNotOptimize(sqlite3_column_double(statement.get(), 2));
            benchmark::DoNotOptimize(sqlite3_column_text(statement.get(), 3));
        }
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_WalkBareSqliteWithoutStrings)->Unit(benchmark::kMillisecond);

void BM_WalkRecordset(benchmark::State& state) {
    Connection& connection = BenchDatabase::shared().connection();
    for (auto _ : state) {
        Recordset rows;
        rows.Open(walkedStatement, connection);
        for (; !rows.atEnd(); rows.MoveNext())
            for (int column = 0; column < 4; ++column)
                benchmark::DoNotOptimize(rows.field(column));
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_WalkRecordset)->Unit(benchmark::kMillisecond);

void BM_WalkRecordsetByName(benchmark::State& state) {
    Connection& connection = BenchDatabase::shared().connection();
    const QString names[] = {QStringLiteral("JobLotTaskKey"), QStringLiteral("Name"),
                             QStringLiteral("MasterPrice"), QStringLiteral("CustomTask")};
    for (auto _ : state) {
        Recordset rows;
        rows.Open(walkedStatement, connection);
        for (; !rows.atEnd(); rows.MoveNext())
            for (const QString& name : names)
                benchmark::DoNotOptimize(rows.field(name));
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_WalkRecordsetByName)->Unit(benchmark::kMillisecond);

void BM_FirstRowsOfManyRecordset(benchmark::State& state) {
    Connection& connection = BenchDatabase::shared().connection();
    for (auto _ : state) {
        Recordset rows;
        rows.Open(walkedStatement, connection);
        for (int row = 0; row < 300; ++row, rows.MoveNext())
            benchmark::DoNotOptimize(rows.field(1));
    }
}
BENCHMARK(BM_FirstRowsOfManyRecordset)->Unit(benchmark::kMicrosecond);

void BM_KeyedRowBareSqlite(benchmark::State& state) {
    const Handle handle = bareHandle();
    const Statement statement =
        prepared(handle, "SELECT Name, MasterPrice FROM JobLotTask WHERE JobLotTaskKey=?1");
    sqlite3_int64 key = 0;
    for (auto _ : state) {
        key = key % BenchDatabase::taskCount + 1;
        sqlite3_bind_int64(statement.get(), 1, key);
        sqlite3_step(statement.get());
        benchmark::DoNotOptimize(sqlite3_column_double(statement.get(), 1));
        sqlite3_reset(statement.get());
    }
}
BENCHMARK(BM_KeyedRowBareSqlite)->Unit(benchmark::kMicrosecond);

void BM_KeyedRowRecordset(benchmark::State& state) {
    Connection& connection = BenchDatabase::shared().connection();
    qint64 key = 0;
    for (auto _ : state) {
        key = key % BenchDatabase::taskCount + 1;
        Recordset row;
        row.Open(QStringLiteral("SELECT Name, MasterPrice FROM JobLotTask WHERE JobLotTaskKey=") +
                     QString::number(key),
                 connection);
        benchmark::DoNotOptimize(row.field(1));
    }
}
BENCHMARK(BM_KeyedRowRecordset)->Unit(benchmark::kMicrosecond);

void BM_AddNewAndUpdate(benchmark::State& state) {
    BenchDatabase& database = BenchDatabase::shared();
    const Transaction transaction(database.connection()); // rolled back: each run finds the same table
    Recordset rows;
    rows.Open(QStringLiteral("JobLotTask"), database.connection(), CursorType::Dynamic, LockType::Optimistic);
    const QString name = QStringLiteral("Hang drywall");
    for (auto _ : state) {
        rows.AddNew();
        rows.set(QStringLiteral("JobLotKey"), database.lotKey());
        rows.set(QStringLiteral("Name"), name);
        rows.set(QStringLiteral("MasterPrice"), 12.5);
        rows.set(QStringLiteral("ParentKey"), 0);
        rows.Update();
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_AddNewAndUpdate)->Unit(benchmark::kMicrosecond);

/// As the screens add: the table opened by its name for one row.
void BM_OpenTableAndAddOne(benchmark::State& state) {
    BenchDatabase& database = BenchDatabase::shared();
    const Transaction transaction(database.connection());
    for (auto _ : state) {
        Recordset rows;
        rows.Open(QStringLiteral("JobLotTask"), database.connection(), CursorType::Dynamic,
                  LockType::Optimistic);
        rows.AddNew();
        rows.set(QStringLiteral("JobLotKey"), database.lotKey());
        rows.Update();
        benchmark::DoNotOptimize(rows.field(0));
    }
}
BENCHMARK(BM_OpenTableAndAddOne)->Unit(benchmark::kMicrosecond);

/// One payment's worth of safety: a row that survives a power cut once the call returns.
void BM_AddOneDurably(benchmark::State& state) {
    BenchDatabase& database = BenchDatabase::shared();
    for (auto _ : state) {
        Recordset rows;
        rows.Open(QStringLiteral("CategoryDependency"), database.connection(), CursorType::Dynamic,
                  LockType::Optimistic);
        rows.AddNew();
        rows.set(QStringLiteral("CategoryKey"), 1);
        rows.Update();
    }
}
BENCHMARK(BM_AddOneDurably)->Unit(benchmark::kMicrosecond);

void BM_FilterByNumber(benchmark::State& state) {
    Recordset rows;
    rows.Open(walkedStatement, BenchDatabase::shared().connection());
    for (auto _ : state) {
        rows.setFilter(QStringLiteral("MasterPrice=250"));
        benchmark::DoNotOptimize(rows.RecordCount());
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_FilterByNumber)->Unit(benchmark::kMillisecond);

void BM_OpenConnection(benchmark::State& state) {
    const QString text = BenchDatabase::shared().connection().connectionString();
    for (auto _ : state) {
        Connection connection;
        connection.setConnectionString(text);
        connection.Open();
    }
}
BENCHMARK(BM_OpenConnection)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tarnwell::bench
