// Finding an employee among many, and showing one.

#include "bench/LargeSample.h"
#include "bench/SearchUse.h"
#include "timecard/frmEmployee.h"

#include <benchmark/benchmark.h>

using namespace tarnwell;

namespace {

/// From the choice in the search dialog to the painted record. The record before is written on the way, and
/// so is a foreman's, which reads the list of foremen anew.
void showFoundEmployee(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    auto& form = theForm<frmEmployee>();
    form.Show(Screen::Modality::Modeless, nullptr);
    const QString name = bench::middleOf("SELECT LastName FROM Employee ORDER BY LastName");
    int line = 0;
    for (auto _ : state)
        state.SetIterationTime(bench::showFound(form, name, ++line));
    form.Unload();
}
BENCHMARK(showFoundEmployee)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
