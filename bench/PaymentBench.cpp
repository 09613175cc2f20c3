#include "bench/KeyStroke.h"
#include "bench/LargeSample.h"
#include "controls/Combo.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"
#include "runtime/DataEnvironment.h"
#include "runtime/MsgBox.h"
#include "timecard/frmPayroll.h"

#include <QApplication>
#include <QPushButton>

#include <benchmark/benchmark.h>

using namespace tarnwell;

namespace {

/// The screen on the large sample, shown; every warning is answered with Yes.
frmPayroll* openPayroll(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return nullptr;
    setMessagePresenter([](const MessageRequest&) { return Answer::Yes; });
    auto& form = theForm<frmPayroll>();
    form.Show(Screen::Modality::Modeless, nullptr);
    QApplication::processEvents();
    return &form;
}

void typeJob(frmPayroll& form, const QString& number) {
    auto* field = form.findChild<MaskedBox*>("MskField(2)");
    field->setText(number);
    field->setSelStart(static_cast<int>(number.size()));
    bench::strokeKey(*field);
}

QString middleJob() {
    return bench::middleOf("SELECT JobNumber FROM Job WHERE ISNULL(CompletedDate)=-1 ORDER BY JobNumber");
}

/// One key of the type-ahead in the job field: header, lots, tasks and history, painted.
void jobLookupKey(benchmark::State& state) {
    frmPayroll* form = openPayroll(state);
    if (form == nullptr)
        return;
    const QString number = middleJob();
    int length = 0;
    for (auto _ : state) {
        length = length % static_cast<int>(number.size()) + 1;
        typeJob(*form, number.left(length));
        form->repaint();
    }
}
BENCHMARK(jobLookupKey)->Unit(benchmark::kMillisecond);

void chooseLot(benchmark::State& state) {
    frmPayroll* form = openPayroll(state);
    if (form == nullptr)
        return;
    typeJob(*form, middleJob());
    auto* lots = form->findChild<Grid*>("jgJobLots");
    for (auto _ : state) {
        lots->setRow(lots->Row() % lots->RowCount() + 1);
        form->repaint();
    }
    state.counters["lots"] = lots->RowCount();
}
BENCHMARK(chooseLot)->Unit(benchmark::kMillisecond);

void chooseCategory(benchmark::State& state) {
    frmPayroll* form = openPayroll(state);
    if (form == nullptr)
        return;
    typeJob(*form, middleJob());
    auto* category = form->findChild<Combo*>("cmbType");
    for (auto _ : state) {
        category->setListIndex((category->ListIndex() + 1) % category->ListCount());
        form->repaint();
    }
}
BENCHMARK(chooseCategory)->Unit(benchmark::kMillisecond);

/// From the press to the refreshed history. The payees change, so that some presses meet a double payment.
void payment(benchmark::State& state) {
    frmPayroll* form = openPayroll(state);
    if (form == nullptr)
        return;
    typeJob(*form, middleJob());
    auto* category = form->findChild<Combo*>("cmbType");
    auto* tasks = form->findChild<Grid*>("jgTasks");
    for (int i = 0; i < category->ListCount() && tasks->RowCount() == 0; ++i)
        category->setListIndex(i);
    auto* employees = form->findChild<Combo*>("cmbEmployees");
    auto* apply = form->findChild<QPushButton*>("cmdApplyTask");
    int employee = 0;
    for (auto _ : state) {
        state.PauseTiming();
        employee = employee % (employees->ListCount() - 1) + 1;
        employees->setListIndex(employee);
        tasks->setRow(tasks->Row() % tasks->RowCount() + 1);
        state.ResumeTiming();
        apply->click();
        form->repaint();
    }
    state.counters["employees"] = employees->ListCount();
}
BENCHMARK(payment)->Unit(benchmark::kMillisecond);

/// The screen's first show, with every active employee in its list.
void openScreen(benchmark::State& state) {
    for (auto _ : state) {
        frmPayroll* form = openPayroll(state);
        if (form == nullptr)
            return;
        form->repaint();
        state.PauseTiming();
        form->Unload();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        state.ResumeTiming();
    }
}
BENCHMARK(openScreen)->Unit(benchmark::kMillisecond);

} // namespace
