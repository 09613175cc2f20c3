// The catalogue's screen on the large sample: switching category, painted.

#include "bench/LargeSample.h"
#include "controls/Combo.h"
#include "controls/grid/Grid.h"
#include "master/frmMasterTasks.h"

#include <benchmark/benchmark.h>

namespace tarnwell {

namespace {

void chooseMasterCategory(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    auto& form = theForm<frmMasterTasks>();
    form.Show(Screen::Modality::Modeless, nullptr);
    auto* category = form.findChild<Combo*>("cmbType");
    for (auto _ : state) {
        category->setListIndex((category->ListIndex() + 1) % category->ListCount());
        form.repaint();
    }
    state.counters["tasks"] = form.findChild<Grid*>("jgMasterTasks")->RowCount();
    form.Unload();
}
BENCHMARK(chooseMasterCategory)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tarnwell
