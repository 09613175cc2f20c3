// The picking dialog over the large sample's whole catalogue: from the call to the first paint.

#include "bench/LargeSample.h"
#include "builders/frmAddMasterTasks.h"
#include "controls/ListBox.h"

#include <QApplication>
#include <QTimer>

#include <benchmark/benchmark.h>
#include <chrono>

using namespace tarnwell;

namespace {

/// A lot that took nothing yet, so that every task is offered.
class UnusedLot : public PickingCaller {
public:
    [[nodiscard]] PickingTarget pickingTarget() const override { return {.ownerKey = -1}; }
};

void openPickingDialog(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    UnusedLot lot;
    QWidget owner;
    owner.show();
    for (auto _ : state) {
        const auto start = std::chrono::steady_clock::now();
        auto& dialog = theForm<frmAddMasterTasks>();
        dialog.Mode = PickingMode::Lot;
        QTimer::singleShot(0, &dialog, [&] {
            dialog.repaint();
            const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
            state.SetIterationTime(elapsed.count());
            state.counters["lines"] = dialog.findChild<ListBox*>("lstTasks")->ListCount();
            dialog.Unload();
        });
        dialog.pickFor(lot, &owner);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
BENCHMARK(openPickingDialog)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
