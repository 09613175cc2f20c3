#include "bench/LargeSample.h"
#include "bench/ReportSample.h"
#include "data/recordset/Recordset.h"
#include "reports/drawing/ReportList.h"
#include "reports/drawing/ReportParameters.h"
#include "reports/drawing/ReportRun.h"
#include "reports/pages/PageStore.h"
#include "runtime/DataEnvironment.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <memory>
#include <sqlite3.h>

using namespace tarnwell;

namespace {

/// Costs nothing of its own, so what is left is the report.
class NoPages : public PageSurface {
public:
    qint64 NewReport() override { return 1; }
    [[nodiscard]] qint64 items() const { return m_items; }

protected:
    void store(qint64, const PageText& text) override {
        benchmark::DoNotOptimize(text.text.constData());
        ++m_items;
    }
    void store(qint64, const PageLine&) override { ++m_items; }

private:
    qint64 m_items = 0;
};

/// Pages in a report database, as a report form keeps them.
class ReportDocument : public PageSurface {
public:
    explicit ReportDocument(PageStore& pages) : m_pages(pages) {}
    qint64 NewReport() override { return m_report = m_pages.newReport(); }
    /// What the preview reads before it shows its first page.
    void showFirst() {
        m_pages.finish(m_report);
        benchmark::DoNotOptimize(ReportPages(m_pages, m_report).page(1));
    }
    [[nodiscard]] qint64 pageCount() const { return m_pages.pageCount(m_report); }

protected:
    void store(qint64 reportKey, const PageText& text) override { m_pages.add(reportKey, text); }
    void store(qint64 reportKey, const PageLine& line) override { m_pages.add(reportKey, line); }

private:
    PageStore& m_pages;
    qint64 m_report = 0;
};

class NoWatcher : public ReportWatcher {
public:
    void setMax(int) override {}
    void stepOne() override {}
    void DoEvents() override {}
    [[nodiscard]] bool CancelRequested() const override { return false; }
    [[nodiscard]] bool letsStatementWork() override { return true; }
    [[nodiscard]] bool goesOn() override { return true; }
};

/// The job's lots, with all that is planned or was paid in its months.
ReportParameters thousandLots() {
    return {.incomplete = false,
            .startDate = "03/01/26",
            .stopDate = "05/31/26",
            .markedJobs = {bench::budgetJob()},
            .groupBy = GroupBy::Date};
}

/// A year of the sample has about 100,000 payments.
ReportParameters paidoutParameters() {
    return {.incomplete = false, .startDate = "01/01/17", .stopDate = "12/31/17", .allJobsMarked = true};
}

/// From the press: statement, rows, drawing.
void drawOnce(benchmark::State& state, const Report& report, const ReportParameters& parameters,
              PageSurface& surface) {
    NoWatcher watcher;
    Recordset rows;
    rows.Open(report.buildQuery(parameters), DataEnvironment::cnnConnection());
    ReportRun run{DataEnvironment::cnnConnection(), rows, parameters, surface, surface.NewReport(), watcher};
    report.draw(run);
    state.counters["rows"] = rows.RecordCount();
}

void drawToNowhere(benchmark::State& state, const char* name, ReportParameters (*parameters)()) {
    if (!bench::openLargeSample(state))
        return;
    const Report& report = *findReport(name);
    const ReportParameters chosen = parameters();
    for (auto _ : state) {
        NoPages pages;
        drawOnce(state, report, chosen, pages);
        state.counters["items"] = static_cast<double>(pages.items());
    }
}
BENCHMARK_CAPTURE(drawToNowhere, LotBudget, "frmRptLotBudget", thousandLots)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToNowhere, PaidoutOfAYear, "frmRptEmployeePaidout", paidoutParameters)
    ->Unit(benchmark::kMillisecond);

/// From the press to the first page, as far as no window is needed for it.
void drawToFirstPage(benchmark::State& state, const char* name, ReportParameters (*parameters)()) {
    if (!bench::openLargeSample(state))
        return;
    const Report& report = *findReport(name);
    const QTemporaryDir folder;
    PageStore store(folder.filePath("Report.mdb"));
    const ReportParameters chosen = parameters();
    for (auto _ : state) {
        ReportDocument pages(store);
        drawOnce(state, report, chosen, pages);
        pages.showFirst();
        state.counters["pages"] = static_cast<double>(pages.pageCount());
    }
}
BENCHMARK_CAPTURE(drawToFirstPage, Gantt, "frmRptGantt", thousandLots)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToFirstPage, Calendar, "frmRptCalendar", thousandLots)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToFirstPage, LotBudget, "frmRptLotBudget", thousandLots)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToFirstPage, LotOptions, "frmRptLotOptions", thousandLots)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToFirstPage, Paidout, "frmRptEmployeePaidout", thousandLots)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToFirstPage, Corrections, "frmRptEmployeeCorrections", thousandLots)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(drawToFirstPage, PaidoutOfAYear, "frmRptEmployeePaidout", paidoutParameters)
    ->Unit(benchmark::kMillisecond);

// ---- the same rows from the bare library, texts as QString

struct CloseHandle {
    void operator()(sqlite3* handle) const { sqlite3_close_v2(handle); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

void readCell(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_TEXT)
        benchmark::DoNotOptimize(
            QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)),
                              sqlite3_column_bytes(statement, column)));
    else
        benchmark::DoNotOptimize(sqlite3_column_double(statement, column));
}

qint64 readBare(sqlite3* handle, const QString& sql) {
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(handle, sql.toUtf8().constData(), -1, &prepared, nullptr);
    const std::unique_ptr<sqlite3_stmt, CloseHandle> statement(prepared);
    qint64 rows = 0;
    for (; sqlite3_step(prepared) == SQLITE_ROW; ++rows)
        for (int column = 0; column < sqlite3_column_count(prepared); ++column)
            readCell(prepared, column);
    return rows;
}

void readBareRows(benchmark::State& state, QStringList (*statements)()) {
    if (!bench::openLargeSample(state))
        return;
    const QStringList chosen = statements();
    const QString path = DataEnvironment::cnnConnection().connectionString().section("Data Source=", 1);
    sqlite3* opened = nullptr;
    sqlite3_open_v2(path.toUtf8().constData(), &opened, SQLITE_OPEN_READWRITE, nullptr);
    const std::unique_ptr<sqlite3, CloseHandle> handle(opened);
    sqlite3_exec(opened, "PRAGMA cache_size=-16000", nullptr, nullptr, nullptr);
    for (auto _ : state) {
        qint64 rows = 0;
        for (const QString& sql : chosen)
            rows += readBare(opened, sql);
        state.counters["rows"] = static_cast<double>(rows);
    }
}

/// Lots, tasks, what was paid for each, and the payments.
QStringList budgetStatements() {
    const QString ofJob = " WHERE JobLot.JobKey=" + QString::number(bench::budgetJob());
    const QString tasks = "JobLot JOIN JobLotTask t ON t.JobLotKey=JobLot.JobLotKey ";
    const QString payments = tasks + "JOIN JobTaskEmployee p ON p.JobLotTaskKey=t.JobLotTaskKey ";
    return {"SELECT Job.*, JobLot.* FROM Job JOIN JobLot ON Job.JobKey=JobLot.JobKey" + ofJob +
                " ORDER BY JobNumber, Job.JobKey, LotBlock",
            "SELECT t.JobLotKey, t.JobLotTaskKey, t.Name, t.MasterPrice FROM " + tasks + ofJob +
                " ORDER BY t.JobLotKey, t.Name",
            "SELECT p.JobLotTaskKey, SUM(p.Price) FROM " + payments + ofJob + " GROUP BY p.JobLotTaskKey",
            "SELECT p.JobLotTaskKey, p.Completed, e.LastName||', '||e.FirstName, p.Price FROM " + payments +
                "JOIN Employee e ON e.EmployeeKey=p.EmployeeKey" + ofJob +
                " ORDER BY p.JobLotTaskKey, p.Completed"};
}

QStringList paidoutStatements() {
    return {
        "SELECT e.SSN, p.Price, p.Completed, p.Note, t.Name, l.LotBlock, l.Address, l.PlanName, "
        "j.JobNumber, e.Type, e.LastName, e.FirstName, e.Foreman, e.EmployeeKey, j.Foreman, j.JobKey FROM "
        "JobTaskEmployee p JOIN JobLotTask t ON t.JobLotTaskKey=p.JobLotTaskKey JOIN JobLot l ON "
        "l.JobLotKey=t.JobLotKey JOIN Job j ON j.JobKey=l.JobKey JOIN Employee e ON "
        "e.EmployeeKey=p.EmployeeKey WHERE p.Completed BETWEEN '2017-01-01 00:00:00' AND '2017-12-31 "
        "00:00:00' ORDER BY e.SSN, e.EmployeeKey, j.JobNumber, j.JobKey, p.Completed, l.LotBlock"};
}
BENCHMARK_CAPTURE(readBareRows, LotBudget, budgetStatements)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readBareRows, Paidout, paidoutStatements)->Unit(benchmark::kMillisecond);

} // namespace
