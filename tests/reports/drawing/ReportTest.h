#pragma once

#include "reports/drawing/ApprovedPages.h"
#include "reports/drawing/Report.h"
#include "reports/drawing/ReportDatabase.h"
#include "reports/drawing/ReportRun.h"
#include "runtime/RunTime.h"

#include <functional>
#include <gtest/gtest.h>

namespace tarnwell::test {

/// Follows a run and cancels it after a number of records.
class ScriptedWatcher : public ReportWatcher {
public:
    int cancelAfter = -1;      ///< Records; below 0 never.
    int cancelAfterLooks = -1; ///< The same in a statement.
    std::function<void()> whileStatementWorks;
    std::function<bool()> whenAsked; ///< In place of what `cancelAfter` says.

    int units = -1; ///< The last `setMax`; -1 before.
    int steps = 0;
    int records = 0;
    int looks = 0; ///< At a statement that works; how many there are depends on the engine.

    void setMax(int max) override {
        units = max;
        steps = 0;
    }
    void stepOne() override { ++steps; }
    void DoEvents() override { ++records; }
    [[nodiscard]] bool CancelRequested() const override {
        return (cancelAfter >= 0 && records >= cancelAfter) ||
               (cancelAfterLooks >= 0 && looks >= cancelAfterLooks);
    }
    [[nodiscard]] bool letsStatementWork() override {
        ++looks;
        if (whileStatementWorks)
            whileStatementWorks();
        return !CancelRequested();
    }
    [[nodiscard]] bool goesOn() override { return whenAsked ? whenAsked() : !CancelRequested(); }
};

/// A report's test: data to draw from, a surface that records, and a clock that stands at 03/05/24 08:15.
class ReportTest : public ::testing::Test {
protected:
    ReportTest() : m_before(setClock([] { return on("03/05/24 08:15").toDate(); })) {}
    ~ReportTest() override { setClock(m_before); }

    /// Draws on fresh pages what the report's statement finds, as a run does. An error of the drawing is
    /// raised, with the pages drawn by then recorded.
    void draw(const Report& report, const ReportParameters& parameters) {
        pages = {};
        Recordset rsReport;
        rsReport.Open(report.buildQuery(parameters), data.connection());
        ReportRun run{data.connection(), rsReport, parameters, pages, pages.NewReport(), watcher};
        report.draw(run);
    }
    /// The texts that contain `start` when it is drawn.
    [[nodiscard]] QStringList drawn(const Report& report, const ReportParameters& parameters,
                                    const QString& start) {
        draw(report, parameters);
        return pages.texts().filter(start);
    }

    ReportDatabase data;
    RecordedPages pages;
    ScriptedWatcher watcher;

private:
    Clock m_before;
};

} // namespace tarnwell::test
