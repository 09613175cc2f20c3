#include "reports/drawing/LotBudgetReport.h"

#include "reports/drawing/LotBudgetTasks.h"
#include "reports/drawing/PortraitPage.h"
#include "reports/drawing/ReportFilter.h"
#include "reports/drawing/ReportText.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr int rightColumnX = 5200;
constexpr int columnRight = 5200;     // from the column's left
constexpr qint16 rightColumnY = 1250; // level with the first text of the left column
constexpr int rowStep = 200;
constexpr int gap = 120;         // below a heading's rule, the payments of a task, the tasks of a lot
constexpr int longestName = 25;  // characters of a task's and an employee's name
constexpr int longestTitle = 30; // characters of a job's name

class LotBudgetPages {
public:
    explicit LotBudgetPages(ReportRun& run)
        : m_rows(run.rsReport), m_parameters(run.parameters), m_pen(portraitPen(run)),
          m_tasks(run.connection, run.rsReport, !run.parameters.summary) {}

    void drawRecord();

private:
    void nextColumn();
    void drawJob();
    /// Whether the lot is on the report.
    bool drawLot(qint64 jobLotKey);
    /// Whether the task is on the report.
    bool drawTask(const BudgetTask& task);
    void drawPayments(qint64 jobLotTaskKey);
    void closeHeading();
    void drawInColumn(std::initializer_list<RowText> texts, int step);
    [[nodiscard]] QString text(const QString& column) const { return FieldText(m_rows[column]); }

    const Recordset& m_rows;
    const ReportParameters& m_parameters;
    ReportPen m_pen;
    LotBudgetTasks m_tasks;
    int m_columnX = 1; // 0 or rightColumnX; 1 before the first page
    qint64 m_lastJobKey = 0;
};

void LotBudgetPages::drawRecord() {
    if (isPageFull(m_pen))
        nextColumn();
    // The position isn't tested after a job's header, so a lot may begin below the limit.
    if (m_rows["Job.JobKey"].toLong() != m_lastJobKey)
        drawJob();
    m_tasks.prepare();
    const qint64 jobLotKey = m_rows["JobLotKey"].toLong();
    if (!drawLot(jobLotKey))
        return;
    bool taskPrinted = false;
    for (const BudgetTask& task : m_tasks.tasksOf(jobLotKey)) {
        if (isPageFull(m_pen))
            nextColumn();
        taskPrinted = drawTask(task) || taskPrinted;
    }
    if (taskPrinted)
        m_pen.down(gap);
}

void LotBudgetPages::nextColumn() {
    if (m_columnX == 0) {
        m_columnX = rightColumnX;
        m_pen.moveTo(rightColumnY);
        return;
    }
    m_columnX = 0;
    startPortraitPage(m_pen, "Lot Budget: ", 150);
}

void LotBudgetPages::drawInColumn(std::initializer_list<RowText> texts, int step) {
    drawRow(m_pen, texts, step, smallSize, {.x = m_columnX, .right = m_columnX + rightColumnX + pageLeft});
}

void LotBudgetPages::closeHeading() {
    m_pen.rule(m_columnX + pageLeft, m_columnX + columnRight);
    m_pen.down(gap);
}

void LotBudgetPages::drawJob() {
    if (m_lastJobKey != 0)
        m_pen.down(200);
    m_lastJobKey = m_rows["Job.JobKey"].toLong();
    drawInColumn(
        {{pageLeft, "Job#: " + text("JobNumber"), true}, {2000, text("Name").left(longestTitle), true}}, 250);
    drawInColumn({{pageLeft, "Foreman: " + text("Foreman")},
                  {3000, "Completed: " + dateText(m_rows["CompletedDate"])}},
                 TextLook::defaultStep);
    closeHeading();
}

bool LotBudgetPages::drawLot(qint64 jobLotKey) {
    const BudgetSums sums = m_tasks.sumsOf(jobLotKey);
    // "Paid Full:" leaves such a lot out, as "Unpaid:" does.
    if (m_parameters.detail != DetailLevel::All && sums.settled)
        return false;
    const double balance = inSinglePrecision(roundedAmount(sums.total - sums.paid));
    drawInColumn({{pageLeft, "Lot/Block: " + text("LotBlock")}, {2500, "Plan: " + text("PlanName")}},
                 rowStep);
    drawInColumn({{pageLeft, "Address: " + text("Address")}}, rowStep);
    drawInColumn({{pageLeft, "Total: " + amountText(sums.total)},
                  {2400, "Paid: " + amountText(sums.paid)},
                  {3800, "Balance: " + amountText(balance), balance != 0}},
                 rowStep);
    closeHeading();
    return true;
}

bool LotBudgetPages::drawTask(const BudgetTask& task) {
    const double left = roundedAmount(task.masterPrice.toDouble() - m_tasks.paidFor(task.jobLotTaskKey));
    if (!isShown(m_parameters.detail, left))
        return false;
    drawInColumn({{pageLeft, "Task: " + FieldText(task.name).left(longestName)},
                  {3200, "Price: " + amountText(task.masterPrice)},
                  {4500, "Left: " + amountText(inSinglePrecision(left)), left != 0}},
                 rowStep);
    if (!m_parameters.summary)
        drawPayments(task.jobLotTaskKey);
    return true;
}

/// Payments are never parted from their task: they run down the column, past the limit if need be.
void LotBudgetPages::drawPayments(qint64 jobLotTaskKey) {
    for (const BudgetPayment& payment : m_tasks.paymentsOf(jobLotTaskKey))
        drawInColumn({{550, dateText(payment.completed)},
                      {1250, FieldText(payment.employee).left(longestName)},
                      {4550, amountText(payment.price)}},
                     rowStep);
    m_pen.down(gap);
}

} // namespace

QString lotBudgetQuery(const ReportParameters& parameters) {
    return "SELECT Job.JobKey, Job.JobNumber, Job.CompletedDate, Job.Name, Job.Foreman, JobLot.* FROM Job "
           "INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey" +
           whereClause(reportFilter(parameters, lotFilter)) + " ORDER BY JobNumber, Job.JobKey, LotBlock";
}

void drawLotBudget(ReportRun& run) {
    LotBudgetPages pages(run);
    drawRecords(run, [&] { pages.drawRecord(); });
}

} // namespace tarnwell
