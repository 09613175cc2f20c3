#include "reports/drawing/CorrectionsReport.h"

#include "reports/drawing/PortraitPage.h"
#include "reports/drawing/ReportFilter.h"
#include "reports/drawing/ReportText.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr int typeX = 2000;
constexpr int nameX = 4500;
constexpr int employeeKeyColumn = 0; // selected twice, so its name alone would be ambiguous

class CorrectionsPages {
public:
    explicit CorrectionsPages(ReportRun& run) : m_rows(run.rsReport), m_pen(portraitPen(run)) {}

    void drawRecord();

private:
    void startPage();
    void drawEmployee();
    void drawProblem();
    [[nodiscard]] QString text(const QString& column) const { return FieldText(m_rows[column]); }

    const Recordset& m_rows;
    ReportPen m_pen;
    qint64 m_lastEmployeeKey = 0;
};

void CorrectionsPages::drawRecord() {
    if (isPageFull(m_pen))
        startPage();
    if (m_rows.field(employeeKeyColumn).toLong() != m_lastEmployeeKey)
        drawEmployee();
    drawProblem();
}

void CorrectionsPages::startPage() {
    startPortraitPage(m_pen, "Employee Corrections: ", 160);
    drawRow(m_pen, {{pageLeft, "SSN"}, {typeX, "Type"}, {nameX, "Name"}}, TextLook::defaultStep, largeSize);
    m_pen.rule(pageLeft, pageRight);
    m_pen.down(200);
}

void CorrectionsPages::drawEmployee() {
    if (m_lastEmployeeKey != 0) {
        m_pen.rule(pageLeft, pageRight);
        m_pen.down(100);
    }
    m_lastEmployeeKey = m_rows.field(employeeKeyColumn).toLong();
    drawRow(m_pen,
            {{pageLeft, text("SSN")},
             {typeX, text("Type")},
             {nameX, text("LastName") + ", " + text("FirstName")}},
            TextLook::defaultStep, largeSize);
}

void CorrectionsPages::drawProblem() {
    drawRow(m_pen,
            {{pageLeft, "Job: " + text("JobNumber")},
             {1500, dateText(m_rows["Occured"])},
             {2500, "Problem: " + text("Problem")}},
            200);
}

} // namespace

QString correctionsQuery(const ReportParameters& parameters) {
    const QString dates =
        "WHERE EmployeeLog.Occured BETWEEN #" + parameters.startDate + "# AND #" + parameters.stopDate + "#";
    return "SELECT Employee.EmployeeKey, Employee.SSN, EmployeeLog.Occured, Employee.Type, "
           "Employee.LastName, Employee.FirstName, EmployeeLog.Problem, Employee.EmployeeKey, Job.JobNumber "
           "FROM ((Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask ON "
           "JobLot.JobLotKey = JobLotTask.JobLotKey) INNER JOIN (Employee INNER JOIN EmployeeLog ON "
           "Employee.EmployeeKey = "
           "EmployeeLog.EmployeeKey) ON JobLotTask.JobLotTaskKey = EmployeeLog.JobLotTaskKey " +
           reportFilter(parameters, employeeFilter, dates) +
           " ORDER BY Employee.SSN, Employee.EmployeeKey, EmployeeLog.Occured";
}

void drawCorrections(ReportRun& run) {
    CorrectionsPages pages(run);
    drawRecords(run, [&] { pages.drawRecord(); });
}

} // namespace tarnwell
