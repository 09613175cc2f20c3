#include "builders/TaskPicking.h"
#include "data/file/DatabaseFile.h"
#include "data/recordset/Recordset.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace tarnwell;

/// A catalogue of 2,000 tasks in 20 categories, and a plan that has every second one.
class Catalogue {
public:
    Catalogue() {
        const QString path = m_folder.filePath("Tarnwell.mdb");
        createDatabase(path);
        m_connection.setConnectionString(fileConnectionString(path));
        m_connection.Open();
        Transaction transaction(m_connection);
        const qint64 builder = add("Contractor", {{"Name", "Abel"}});
        m_plan = add("ContractorPlan", {{"ContractorKey", builder}});
        for (int i = 0; i < 20; ++i)
            fill(add("Code", {{"Code1", 2}, {"Description", QString("Trade %1").arg(i)}}));
        transaction.commit();
    }
    Connection& connection() { return m_connection; }
    [[nodiscard]] qint64 plan() const { return m_plan; }

private:
    qint64 add(const char* table, const std::vector<std::pair<const char*, Value>>& values) {
        Recordset rows;
        rows.Open(table, m_connection, CursorType::Dynamic, LockType::Optimistic);
        rows.AddNew();
        for (const auto& [column, value] : values)
            rows.set(column, value);
        rows.Update();
        return rows.field(0).toLong();
    }
    void fill(qint64 category) {
        for (int i = 0; i < 100; ++i) {
            const qint64 task =
                add("MasterTask", {{"CodeKey", category}, {"Name", QString("Task %1").arg(i * 37 % 100)}});
            if (i % 2 == 0)
                add("ContractorPlanTask", {{"ContractorPlanKey", m_plan}, {"MasterTaskKey", task}});
        }
    }

    QTemporaryDir m_folder;
    Connection m_connection;
    qint64 m_plan = 0;
};

void readList(benchmark::State& state) {
    Catalogue catalogue;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            readPickingList(catalogue.connection(), PickingMode::Plan, {.ownerKey = catalogue.plan()}));
}
BENCHMARK(readList)->Unit(benchmark::kMillisecond);

} // namespace
