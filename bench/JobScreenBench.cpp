// The jobs screen on the large sample: showing a job of many lots or tasks, and walking through its lots.

#include "bench/LargeSample.h"
#include "bench/SearchUse.h"
#include "controls/Combo.h"
#include "controls/grid/Grid.h"
#include "jobs/frmJobs.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

using namespace tarnwell;

namespace {

constexpr auto manyLots = "26-90001", manyTasks = "26-90002";

frmJobs& shownScreen() {
    auto& form = theForm<frmJobs>();
    form.Show(Screen::Modality::Modeless, nullptr);
    QApplication::processEvents();
    return form;
}

/// Chooses the category of the most tasks that the first lot has.
void chooseFullCategory(const frmJobs& form) {
    auto* category = form.findChild<Combo*>("cmbType");
    const auto* tasks = form.findChild<Grid*>("jgTasks");
    int fullest = 0, most = -1;
    for (int i = 0; i < category->ListCount(); ++i) {
        category->setListIndex(i);
        if (tasks->RowCount() > most) {
            most = tasks->RowCount();
            fullest = i;
        }
    }
    category->setListIndex(fullest);
}

/// From the choice in the search dialog to the painted job, the one before saved on the way.
void showFoundJob(benchmark::State& state, const char* number) {
    if (!bench::openLargeSample(state))
        return;
    auto& form = shownScreen();
    (void)bench::showFound(form, number);
    chooseFullCategory(form);
    for (auto _ : state)
        state.SetIterationTime(bench::showFound(form, number));
    state.counters["lots"] = form.findChild<Grid*>("jgJobLots")->RowCount();
    state.counters["tasks"] = form.findChild<Grid*>("jgTasks")->RowCount();
    form.Unload();
}
BENCHMARK_CAPTURE(showFoundJob, manyLots, manyLots)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(showFoundJob, manyTasks, manyTasks)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Down and up among 500 lots, the tasks following.
void changeLotRow(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    auto& form = shownScreen();
    (void)bench::showFound(form, manyLots);
    auto* lots = form.findChild<Grid*>("jgJobLots");
    lots->setFocus();
    bool down = true;
    for (auto _ : state) {
        QKeyEvent key(QEvent::KeyPress, down ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        QApplication::sendEvent(lots, &key);
        form.repaint();
        down = lots->Row() == 1 || (down && lots->Row() < lots->RowCount());
    }
    form.Unload();
}
BENCHMARK(changeLotRow)->Unit(benchmark::kMillisecond);

} // namespace
