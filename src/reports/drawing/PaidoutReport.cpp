#include "reports/drawing/PaidoutReport.h"

#include "reports/drawing/PortraitPage.h"
#include "reports/drawing/ReportFilter.h"
#include "reports/drawing/ReportText.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr int longestText = 20; // characters of a row's plan, address and note
constexpr int longestTask = 15;
constexpr int totalX = 2000;  // twips
constexpr int groupGap = 200; // above an employee or a job that isn't the first

class PaidoutPages {
public:
    explicit PaidoutPages(ReportRun& run)
        : m_rows(run.rsReport), m_summary(run.parameters.summary), m_pen(portraitPen(run)),
          m_employeeColumn(m_rows.FieldIndex("EmployeeKey")), m_jobColumn(m_rows.FieldIndex("JobKey")),
          m_priceColumn(m_rows.FieldIndex("Price")) {}

    void drawRecord();

private:
    void drawEmployee();
    void drawJob();
    void drawColumnHeads();
    void drawPayment();
    [[nodiscard]] double jobTotal() const;
    [[nodiscard]] QString foreman() const;
    [[nodiscard]] QString text(const QString& column) const { return FieldText(m_rows[column]); }

    const Recordset& m_rows;
    bool m_summary;
    ReportPen m_pen;
    int m_employeeColumn;
    int m_jobColumn;
    int m_priceColumn;
    qint64 m_lastEmployeeKey = 0;
    qint64 m_lastJobKey = 0;
};

void PaidoutPages::drawRecord() {
    if (isPageFull(m_pen))
        startPortraitPage(m_pen, "Employee Paidout: ", 160);
    if (m_rows.field(m_employeeColumn).toLong() != m_lastEmployeeKey)
        drawEmployee();
    // The last job is kept across a change of employee: one who begins with that job has no line and no total
    // for it.
    if (m_rows.field(m_jobColumn).toLong() != m_lastJobKey)
        drawJob();
    if (!m_summary)
        drawPayment();
}

void PaidoutPages::drawEmployee() {
    if (m_lastEmployeeKey != 0)
        m_pen.down(groupGap);
    m_lastEmployeeKey = m_rows.field(m_employeeColumn).toLong();
    drawRow(m_pen,
            {{pageLeft, text("SSN")},
             {2000, text("LastName") + ", " + text("FirstName")},
             {6500, "Type: " + text("Type")}},
            TextLook::defaultStep, largeSize);
    m_pen.rule(pageLeft, pageRight);
    m_pen.down(100);
}

void PaidoutPages::drawJob() {
    if (m_lastJobKey != 0)
        m_pen.down(groupGap);
    m_lastJobKey = m_rows.field(m_jobColumn).toLong();
    drawRow(m_pen, {{pageLeft, "Job#: " + text("JobNumber")}}, 0, smallSize, {.right = totalX});
    drawRow(m_pen, {{totalX, "Total: " + amountText(jobTotal())}, {3500, "Foreman: " + foreman()}}, 0);
    if (!m_summary)
        drawColumnHeads();
    m_pen.down(120);
}

void PaidoutPages::drawColumnHeads() {
    m_pen.down(200);
    drawRow(m_pen,
            {{pageLeft, "Plan"},
             {2000, "Lot/Block"},
             {3000, "Address"},
             {5000, "Task"},
             {7000, "Completed"},
             {8000, "Amount"},
             {8700, "Note"}},
            180);
    m_pen.rule(pageLeft, pageRight);
}

void PaidoutPages::drawPayment() {
    drawRow(m_pen,
            {{pageLeft, text("PlanName").left(longestText)},
             {2000, text("LotBlock")},
             {3000, text("Address").left(longestText)},
             {5000, text("Name").left(longestTask)},
             {7000, dateText(m_rows["Completed"])},
             {8000, amountText(m_rows.field(m_priceColumn))},
             {8700, text("Note").left(longestText)}},
            200);
}

/// An employee's payments for one job follow each other, so they begin at the current row.
double PaidoutPages::jobTotal() const {
    double total = 0;
    for (int row = m_rows.AbsolutePosition();
         m_rows.hasRow(row) && m_rows.valueAt(row, m_employeeColumn).toLong() == m_lastEmployeeKey &&
         m_rows.valueAt(row, m_jobColumn).toLong() == m_lastJobKey;
         ++row)
        total += m_rows.valueAt(row, m_priceColumn).toDouble();
    return total;
}

QString PaidoutPages::foreman() const {
    const QString ofJob = text("Job.Foreman");
    return ofJob.isEmpty() ? text("Employee.Foreman") : ofJob;
}

} // namespace

QString paidoutQuery(const ReportParameters& parameters) {
    const QString dates = "WHERE JobTaskEmployee.Completed BETWEEN #" + parameters.startDate + "# AND #" +
                          parameters.stopDate + "#";
    return "SELECT Employee.SSN, JobTaskEmployee.Price, JobTaskEmployee.Completed, JobTaskEmployee.Note, "
           "JobLotTask.Name, JobLot.LotBlock, JobLot.Address, JobLot.PlanName, Job.JobNumber, Employee.Type, "
           "Employee.LastName, Employee.FirstName, Employee.Foreman, Employee.EmployeeKey, Job.Foreman, "
           "Job.JobKey FROM ((Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) INNER JOIN JobLotTask ON "
           "JobLot.JobLotKey = JobLotTask.JobLotKey) INNER JOIN (Employee INNER JOIN JobTaskEmployee ON "
           "Employee.EmployeeKey = JobTaskEmployee.EmployeeKey) ON JobLotTask.JobLotTaskKey = "
           "JobTaskEmployee.JobLotTaskKey " +
           reportFilter(parameters, employeeFilter, dates) +
           " ORDER BY SSN, Employee.EmployeeKey, JobNumber, Job.JobKey, Completed, LotBlock";
}

void drawPaidout(ReportRun& run) {
    PaidoutPages pages(run);
    drawRecords(run, [&] { pages.drawRecord(); });
}

} // namespace tarnwell
