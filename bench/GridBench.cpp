#include "bench/BenchDatabase.h"
#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

namespace tarnwell::bench {

namespace {

std::vector<GridColumn> taskColumns() {
    return {
        {.key = "JobLotTaskKey", .visible = false},
        {.key = "JobLotKey", .visible = false},
        {.key = "AddOnButton", .edit = ColumnEdit::ButtonOnly, .width = 28},
        {.key = "Name", .caption = "Name", .maxLength = 50},
        {.key = "MasterPrice", .caption = "Price", .format = ColumnFormat::Fixed, .width = 84},
        {.key = "CustomTask", .caption = "Custom", .edit = ColumnEdit::ValueList, .width = 68},
        {.key = "ExcludeDependency",
         .caption = "Exclude",
         .format = ColumnFormat::YesNo,
         .edit = ColumnEdit::CheckBox,
         .width = 64},
        {.key = "StartDate", .caption = "Start", .format = ColumnFormat::GeneralDate, .width = 116},
        {.key = "EmployeeKey", .caption = "Employee", .edit = ColumnEdit::ValueList, .width = 170},
    };
}

std::vector<ListEntry> employees(int count) {
    std::vector<ListEntry> entries;
    for (int key = 1; key <= count; ++key)
        entries.push_back({.value = key, .text = QStringLiteral("Last%1\\First").arg(key)});
    return entries;
}

/// A shown grid of the size that it has on the Jobs screen.
struct ShownGrid {
    ShownGrid() {
        (void)BenchDatabase::shared(); // made outside what is measured
        grid.setColumns(taskColumns());
        grid.setValueList(9, employees(500));
        grid.setAllowAdd(true);
        grid.resize(1100, 400);
        grid.show();
        QApplication::processEvents();
    }

    void open(std::int64_t count) {
        if (rows.State() == ObjectState::Open)
            rows.Close();
        rows.Open(QStringLiteral("SELECT * FROM JobLotTask WHERE JobLotTaskKey<=%1").arg(count),
                  BenchDatabase::shared().connection(), CursorType::Static, LockType::Optimistic);
    }

    void repaint() {
        QApplication::processEvents();
        grid.repaint();
        grid.viewport()->repaint();
    }

    Recordset rows;
    Grid grid;
};

/// What choosing another lot or category costs: query, binding and picture.
void openBindAndRepaint(benchmark::State& state) {
    ShownGrid shown;
    for ([[maybe_unused]] auto step : state) {
        shown.open(state.range(0));
        shown.grid.bind(&shown.rows);
        shown.repaint();
    }
}
BENCHMARK(openBindAndRepaint)->Arg(40)->Arg(5000)->Unit(benchmark::kMillisecond);

void bindAndRepaint(benchmark::State& state) {
    ShownGrid shown;
    shown.open(state.range(0));
    for ([[maybe_unused]] auto step : state) {
        shown.grid.bind(&shown.rows);
        shown.repaint();
    }
}
BENCHMARK(bindAndRepaint)->Arg(40)->Arg(5000)->Unit(benchmark::kMillisecond);

void moveOneRowAndRepaint(benchmark::State& state) {
    ShownGrid shown;
    shown.open(5000);
    shown.grid.bind(&shown.rows);
    bool down = true;
    for ([[maybe_unused]] auto step : state) {
        QKeyEvent key(QEvent::KeyPress, down ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
        QApplication::sendEvent(&shown.grid, &key);
        shown.repaint();
        down = shown.grid.Row() == 1 || (down && shown.grid.Row() < 5000);
    }
}
BENCHMARK(moveOneRowAndRepaint)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tarnwell::bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
