#include "data/sql/Dialect.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace tarnwell::bench {

namespace {

/// Statements such as the screens compose, in rising length; a number goes where %1 stands.
const char* const statements[] = {
    "SELECT * FROM JobLot WHERE JobKey=%1",
    "SELECT Job.JobKey, Job.JobNumber, Job.Name, Job.CompletedDate FROM Job WHERE isnull(CompletedDate)=-1 "
    "AND "
    "JobKey>%1 ORDER BY Job.JobNumber",
    "SELECT JobLotTaskKey FROM (Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask "
    "ON "
    "JobLot.JobLotKey = JobLotTask.JobLotKey WHERE Job.CompletedDate Is Null AND Completed BETWEEN "
    "#01/15/02# AND "
    "#02/15/02# AND MasterTaskKey=%1",
};

QString composed(const benchmark::State& state, qint64 number) {
    return QString::fromLatin1(statements[state.range(0)]).arg(number);
}

void BM_TranslateSeen(benchmark::State& state) {
    data::Dialect dialect;
    constexpr int count = 64;
    std::vector<QString> texts; // as in a loop: one shape, each time another key
    texts.reserve(count);
    for (int i = 0; i < count; ++i)
        texts.push_back(composed(state, 1000 + i));
    (void)dialect.translate(texts.front());
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(dialect.translate(texts[next++ % texts.size()]));
}
BENCHMARK(BM_TranslateSeen)->DenseRange(0, 2);

/// Each text is a shape of its own, so that nothing is found in the cache.
void BM_TranslateNew(benchmark::State& state) {
    data::Dialect dialect;
    qint64 number = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QString text = composed(state, 1) + QStringLiteral(" AND Name%1='x'").arg(++number);
        state.ResumeTiming();
        benchmark::DoNotOptimize(dialect.translate(text));
    }
}
BENCHMARK(BM_TranslateNew)->DenseRange(0, 2)->Iterations(20'000);

} // namespace

} // namespace tarnwell::bench
