// The helpers that run for every line of a list or at every key.

#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

#include <QStringList>

#include <benchmark/benchmark.h>

namespace tarnwell {

namespace {

void valOfAPrice(benchmark::State& state) {
    const QString text = QStringLiteral("1234.50");
    for (auto _ : state)
        benchmark::DoNotOptimize(Val(text));
}
BENCHMARK(valOfAPrice);

void formatAPrice(benchmark::State& state) {
    const Value price = 1234.5;
    const QString format = QStringLiteral("###0.00");
    for (auto _ : state)
        benchmark::DoNotOptimize(Format(price, format));
}
BENCHMARK(formatAPrice);

void formatADate(benchmark::State& state) {
    const Value day = DateTime{QDate(2002, 1, 15), QTime(0, 0)};
    const QString format = QStringLiteral("mm/dd/yy | ");
    for (auto _ : state)
        benchmark::DoNotOptimize(Format(day, format));
}
BENCHMARK(formatADate);

void fieldTextOfAKey(benchmark::State& state) {
    const Value key = 123456;
    for (auto _ : state)
        benchmark::DoNotOptimize(FieldText(key));
}
BENCHMARK(fieldTextOfAKey);

/// The employees' list of a large office.
class EmployeeList : public SearchableList {
public:
    explicit EmployeeList(int count) {
        for (int employee = 0; employee < count; ++employee)
            m_entries.append(
                QStringLiteral("%1-00-0000/Walker, Anne").arg(employee, 6, 10, QLatin1Char('0')));
    }
    [[nodiscard]] int ListCount() const override { return static_cast<int>(m_entries.size()); }
    [[nodiscard]] QString List(int index) const override { return m_entries[index]; }
    void setListIndex(int index) override { benchmark::DoNotOptimize(index); }
    [[nodiscard]] QString Text() const override { return m_entries.back(); }
    [[nodiscard]] int SelStart() const override { return 6; }
    void setSelStart(int caret) override { benchmark::DoNotOptimize(caret); }

private:
    QStringList m_entries;
};

/// The worst key: the entry sought is the last.
void searchACombo(benchmark::State& state) {
    EmployeeList list(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(ComboIncrementalSearch(list, 'A', 0));
}
BENCHMARK(searchACombo)->Arg(200)->Arg(20000)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace tarnwell
