// Finding an employee among many, and showing one.

#include "bench/LargeSample.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "master/frmFastSearch.h"
#include "timecard/frmEmployee.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

#include <benchmark/benchmark.h>
#include <functional>

using namespace tarnwell;

namespace {

/// Runs a routine once the search dialog is up, behind its own start.
void whenSearching(frmFastSearch& search, const std::function<void()>& routine) {
    auto* timer = new QTimer(&search);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, &search, routine] {
        if (!search.isActiveWindow())
            return;
        timer->stop();
        timer->deleteLater();
        routine();
    });
    timer->start(0);
}

/// From the choice in the search dialog to the painted record. The record before is written on the way, and
/// so is a foreman's, which reads the list of foremen anew.
void showFoundEmployee(benchmark::State& state) {
    if (!bench::openLargeSample())
        return state.SkipWithError("TARNWELL_SAMPLE names no database");
    auto& form = theForm<frmEmployee>();
    form.Show(Screen::Modality::Modeless, nullptr);
    auto& search = theForm<frmFastSearch>();
    search.Load();
    auto* typed = search.findChild<MaskedBox*>("MskField(0)");
    auto* found = search.findChild<ListBox*>("lstItems");
    auto* find = form.findChild<QToolButton*>("Find");
    const QString name = bench::middleOf("SELECT LastName FROM Employee ORDER BY LastName");
    int line = 0;
    for (auto _ : state) {
        QElapsedTimer elapsed;
        whenSearching(search, [&] {
            typed->setText(name);
            QKeyEvent release(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
            QApplication::sendEvent(typed, &release);
            found->setListIndex(++line % found->ListCount());
            elapsed.start();
            search.findChild<QPushButton*>("cmdSelect")->click();
        });
        find->click();
        form.repaint();
        constexpr double second = 1e9;
        state.SetIterationTime(static_cast<double>(elapsed.nsecsElapsed()) / second);
    }
    form.Unload();
}
BENCHMARK(showFoundEmployee)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
