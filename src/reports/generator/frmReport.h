#pragma once

#include "frame/Screen.h"
#include "reports/drawing/Report.h"
#include "reports/drawing/ReportRun.h"

#include <QElapsedTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace tarnwell {

class ctlAHPrintPreview;

/// The form of any of the reports: a progress window that draws the report as soon as it is shown, then shows
/// or prints the pages, and unloads itself in every case. Each run needs a new one, shown modally.
class frmReport : public Screen, private ReportWatcher {
    Q_OBJECT

public:
    /// `report` must outlive the form.
    frmReport(const Report& report, ReportParameters parameters);

    bool Preview = false; ///< Shows the pages; false prints them.
    int CalendarMode = 0; ///< Of the calendar only.
    /// The user cancelled: drawing ends at the next record, and nothing is shown or printed.
    [[nodiscard]] bool CancelRequested() const override { return m_cancelRequested; }

Q_SIGNALS:
    /// The window is visible; the report comes next.
    void activated();

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload() override;
    /// Closing the window while it draws asks what the button asks.
    void closeRequested() override;

private:
    void makeControls();
    void layOut();
    void RunReport();
    void ShowPages(qint64 reportKey);
    void cmdCancel_Click();
    [[nodiscard]] bool letsStatementWork() override;
    [[nodiscard]] bool goesOn() override;
    void askToStop();

    void setMax(int units) override;
    void stepOne() override { ++m_unitsDone; }
    /// Records follow each other far faster than anybody can click, so most calls return at once.
    void DoEvents() override;
    /// False once the work on the pages is to end.
    [[nodiscard]] bool follow(const char* stage, qint64 done, qint64 pages);
    void showProgress();

    ctlAHPrintPreview* ctlAHPrintPreview1 = nullptr;
    QProgressBar* proBarStatus = nullptr;
    QPushButton* cmdCancel = nullptr;
    QWidget* picObject = nullptr; ///< Decoration, around `imgLogo`.
    QLabel* imgLogo = nullptr;
    QLabel* m_stage = nullptr;

    const Report& m_report;
    ReportParameters m_parameters;
    bool m_started = false;
    bool m_cancelRequested = false;
    bool m_statementWorks = false; ///< So a click is asked about behind it.
    bool m_cancelClicked = false;  ///< And not asked about yet.
    int m_unitsDone = 0;
    QElapsedTimer m_sinceEvents;
};

} // namespace tarnwell
