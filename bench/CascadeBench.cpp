// One changed master task, carried into 100,000 unpaid lot tasks of a thousand open jobs.

#include "bench/BenchDatabase.h"
#include "data/recordset/Recordset.h"
#include "master/PriceCascade.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <sqlite3.h>

namespace tarnwell::bench {

namespace {

constexpr int jobCount = 1000;
constexpr qint64 masterTask = 7;

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
};

/// The lot tasks of the shared database, spread over a thousand open jobs and made copies of one master task.
Connection& catalogue() {
    static const bool spread = [] {
        Connection& connection = BenchDatabase::shared().connection();
        const qint64 builder = firstValue(connection, "SELECT ContractorKey FROM Contractor")->toLong();
        Transaction transaction(connection);
        for (int i = 0; i < jobCount; ++i) {
            const auto add = [&](const QString& table, const QString& parent, qint64 key) {
                Recordset rows;
                rows.Open(table, connection, CursorType::Dynamic, LockType::Optimistic);
                rows.AddNew();
                rows.set(parent, key);
                rows.Update();
                return rows.field(0).toLong();
            };
            const qint64 lot = add("JobLot", "JobKey", add("Job", "ContractorKey", builder));
            constexpr int share = BenchDatabase::taskCount / jobCount;
            connection.Execute(QStringLiteral("UPDATE JobLotTask SET JobLotKey=%1, MasterTaskKey=%2 WHERE "
                                              "JobLotTaskKey>%3 AND JobLotTaskKey<=%4")
                                   .arg(lot)
                                   .arg(masterTask)
                                   .arg(i * share)
                                   .arg((i + 1) * share));
        }
        transaction.commit();
        return true;
    }();
    static_cast<void>(spread);
    return BenchDatabase::shared().connection();
}

/// Another name and price each time, so that every row and its index really change.
QString nameOf(qint64 turn) {
    return QStringLiteral("Hang drywall %1").arg(turn);
}

void BM_UpdateBareSqlite(benchmark::State& state) {
    static_cast<void>(catalogue());
    sqlite3* opened = nullptr;
    sqlite3_open_v2(BenchDatabase::shared().path().toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE,
                    nullptr);
    const std::unique_ptr<sqlite3, CloseHandle> handle(opened);
    qint64 turn = 0;
    for (auto _ : state) {
        ++turn;
        const QString sql = QStringLiteral("UPDATE JobLotTask SET Name='%1', MasterPrice=%2, "
                                           "ExcludeDependency=-1 WHERE MasterTaskKey=%3")
                                .arg(nameOf(turn))
                                .arg(turn)
                                .arg(masterTask);
        if (sqlite3_exec(handle.get(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            state.SkipWithError(sqlite3_errmsg(handle.get()));
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_UpdateBareSqlite)->Unit(benchmark::kMillisecond);

void BM_Cascade(benchmark::State& state) {
    Connection& connection = catalogue();
    qint64 turn = 1'000'000;
    for (auto _ : state) {
        ++turn;
        applyCascade(
            connection,
            {.masterTaskKey = masterTask,
             .name = nameOf(turn),
             .price = static_cast<double>(turn),
             .excludeDependency = true},
            {.target = CascadeTarget::BuildersAndJobs, .name = true, .price = true, .exclude = true});
    }
    state.SetItemsProcessed(state.iterations() * BenchDatabase::taskCount);
}
BENCHMARK(BM_Cascade)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnwell::bench
