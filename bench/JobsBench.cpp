#include "bench/LargeSample.h"
#include "data/recordset/Recordset.h"
#include "jobs/JobOptionGroup.h"
#include "jobs/TaskTree.h"
#include "master/OptionGroups.h"
#include "runtime/DataEnvironment.h"

#include <benchmark/benchmark.h>

using namespace tarnwell;

namespace {

constexpr int groupSize = 50;

Connection& connection() {
    return DataEnvironment::cnnConnection();
}

/// The lot of the sample that has 200 tasks and 60 options below them.
LotToCopy lotWithOptions() {
    Recordset lot;
    lot.Open("SELECT JobLot.* FROM Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey WHERE "
             "JobNumber='26-90003' ORDER BY JobLotKey",
             connection());
    return {lot["JobLotKey"], lot["JobKey"],  lot["LotBlock"],
            lot["PlanName"],  lot["Address"], lot["ContractorPlanKey"]};
}

void copyLotWithOptions(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    const LotToCopy source = lotWithOptions();
    for (auto _ : state)
        benchmark::DoNotOptimize(copyLot(connection(), source));
    const QString rows = "SELECT COUNT(*) FROM JobLotTask WHERE JobLotKey=" + source.jobLotKey.toText();
    state.counters["tasks"] = static_cast<double>(firstValue(connection(), rows)->toLong());
}
BENCHMARK(copyLotWithOptions)->Unit(benchmark::kMillisecond);

qint64 addLot(const Value& jobKey) {
    Recordset lots;
    lots.Open("JobLot", connection(), CursorType::Dynamic, LockType::Optimistic);
    lots.AddNew();
    lots.set("JobKey", jobKey);
    lots.Update();
    return lots["JobLotKey"].toLong();
}

/// A group of the catalogue's first tasks; the sample's own groups are small.
qint64 addGroup() {
    constexpr qint64 builder = 1;
    addOptionGroup(connection(), builder, "Benchmark");
    const qint64 group =
        firstValue(connection(), "SELECT CodeKey FROM Code WHERE Description='Benchmark'")->toLong();
    Recordset tasks;
    tasks.Open("SELECT MasterTaskKey FROM MasterTask WHERE Deleted=0", connection());
    Recordset rows;
    rows.Open("ContractorOptionGroup", connection(), CursorType::Dynamic, LockType::Optimistic);
    for (int i = 0; i < groupSize; ++i, tasks.MoveNext()) {
        rows.AddNew();
        rows.set("ContractorKey", builder);
        rows.set("CodeKey", group);
        rows.set("MasterTaskKey", tasks.field(0));
        rows.set("MasterPrice", 10.0);
        rows.Update();
    }
    return group;
}

/// From the opening of the groups' rows; the lot has none of the tasks, so that each is added first.
void applyGroupToEmptyLot(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    const QString filter = "CodeKey=" + QString::number(addGroup());
    const Value jobKey = lotWithOptions().jobKey;
    for (auto _ : state) {
        state.PauseTiming();
        const qint64 lot = addLot(jobKey);
        state.ResumeTiming();
        Recordset rows;
        rows.Open(optionGroupTasks, connection(), CursorType::Static, LockType::Optimistic);
        rows.setFilter(filter);
        applyOptionGroup(connection(), rows, "Benchmark", lot);
    }
}
BENCHMARK(applyGroupToEmptyLot)->Unit(benchmark::kMillisecond);

} // namespace
