#include "bench/KeyStroke.h"
#include "bench/LargeSample.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "master/FastSearch.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"

#include <QApplication>
#include <QRadioButton>

#include <benchmark/benchmark.h>

using namespace tarnwell;

namespace {

/// One key of the dialog, with the list painted anew.
void searchKey(benchmark::State& state) {
    if (!bench::openLargeSample(state))
        return;
    const int type = static_cast<int>(state.range(0));
    const int option = static_cast<int>(state.range(1));
    const SearchOption& chosen = searchKind(type)->options[static_cast<std::size_t>(option)];
    auto& form = theForm<frmFastSearch>();
    form.searchType = type;
    form.Show(Screen::Modality::Modeless, nullptr);
    QApplication::processEvents();
    form.findChild<QRadioButton*>(QString("optSearch(%1)").arg(option))->setChecked(true);
    auto* field = form.findChild<MaskedBox*>("MskField(0)");
    auto* list = form.findChild<ListBox*>("lstItems");
    const char* table = type == SearchType::Employee  ? "Employee"
                        : type == SearchType::Builder ? "Contractor"
                                                      : "Job";
    const bool byBuilder = QLatin1String(chosen.tag) == QLatin1String("Contractor.Name");
    const QString middle =
        bench::middleOf(byBuilder ? QString("SELECT Name FROM Contractor ORDER BY Name")
                                  : QString("SELECT %1 FROM %2 ORDER BY %1").arg(chosen.tag, table));
    int length = 0;
    for (auto _ : state) {
        length = length % static_cast<int>(middle.size()) + 1;
        field->setText(middle.left(length));
        bench::strokeKey(*field);
        list->repaint();
    }
    state.SetLabel(QString("%1: %2").arg(searchKind(type)->caption, chosen.caption).toStdString());
    form.Hide();
}

BENCHMARK(searchKey)
    ->Unit(benchmark::kMillisecond)
    ->ArgsProduct({{1}, {0, 1, 2}})
    ->ArgsProduct({{2}, {0, 1}})
    ->ArgsProduct({{3}, {0, 1, 2}});

} // namespace
