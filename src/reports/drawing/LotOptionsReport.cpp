#include "reports/drawing/LotOptionsReport.h"

#include "reports/drawing/LotOptionTasks.h"
#include "reports/drawing/PortraitPage.h"
#include "reports/drawing/ReportFilter.h"
#include "reports/drawing/ReportText.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr int rowStep = 200;
constexpr int groupGap = 200; // above a job, a lot and a parent's block
constexpr int gap = 120;      // below a rule
constexpr int blockRight = 9000;
constexpr int longestName = 30; // characters of an option's name

class LotOptionsPages {
public:
    explicit LotOptionsPages(ReportRun& run)
        : m_rows(run.rsReport), m_parameters(run.parameters), m_pen(portraitPen(run)),
          m_tasks(run.connection, run.rsReport) {}

    void drawRecord();

private:
    void startPage() { startPortraitPage(m_pen, "Lot Options: ", 150); }
    void drawJob();
    void drawLot();
    /// Whether the parent is on the report.
    bool drawParent(std::span<const OptionTask> options);
    void drawParentRows(double price);
    void drawOption(const OptionTask& option);
    void rule(int right);
    [[nodiscard]] QString text(const QString& column) const { return FieldText(m_rows[column]); }

    const Recordset& m_rows;
    const ReportParameters& m_parameters;
    ReportPen m_pen;
    LotOptionTasks m_tasks;
    qint64 m_lastJobKey = 0;
    qint64 m_lastLotKey = 0;
    double m_optionTotal = 0;
    double m_optionPaid = 0; // of all parents so far: it is never set back
    double m_taskPaid = 0;
};

void LotOptionsPages::drawRecord() {
    if (isPageFull(m_pen))
        startPage();
    if (m_rows["Job.JobKey"].toLong() != m_lastJobKey)
        drawJob();
    if (m_rows["JobLotKey"].toLong() != m_lastLotKey)
        drawLot();
    m_tasks.prepare();
    const auto options = m_tasks.optionsOf(m_rows["JobLotTaskKey"].toLong());
    if (!drawParent(options) || m_parameters.summary)
        return;
    for (const OptionTask& option : options) {
        if (isPageFull(m_pen))
            startPage();
        drawOption(option);
    }
    m_pen.down(100);
}

void LotOptionsPages::rule(int right) {
    m_pen.rule(pageLeft, right);
    m_pen.down(gap);
}

void LotOptionsPages::drawJob() {
    if (m_lastJobKey != 0)
        m_pen.down(groupGap);
    m_lastJobKey = m_rows["Job.JobKey"].toLong();
    m_lastLotKey = 0; // a job's first lot has no gap above it
    drawRow(m_pen, {{pageLeft, "Job#: " + text("JobNumber"), true}, {2500, text("Job.Name"), true}}, 250,
            largeSize);
    drawRow(m_pen,
            {{pageLeft, "Foreman: " + text("Foreman")},
             {3000, "Completed: " + dateText(m_rows["CompletedDate"])}},
            TextLook::defaultStep);
    rule(pageRight);
}

void LotOptionsPages::drawLot() {
    if (m_lastLotKey != 0)
        m_pen.down(groupGap);
    m_lastLotKey = m_rows["JobLotKey"].toLong();
    drawRow(m_pen,
            {{pageLeft, "Lot/Block: " + text("LotBlock")},
             {2500, "Plan: " + text("PlanName")},
             {5000, "Address: " + text("Address")}},
            rowStep);
    rule(pageRight);
}

bool LotOptionsPages::drawParent(std::span<const OptionTask> options) {
    const qint64 parentKey = m_rows["JobLotTaskKey"].toLong();
    m_taskPaid = m_tasks.paidFor(parentKey);
    m_optionTotal = m_tasks.optionTotalOf(parentKey);
    for (const OptionTask& option : options)
        m_optionPaid += m_tasks.paidFor(option.jobLotTaskKey);
    const double price = m_rows["MasterPrice"].toDouble();
    // The selection differs from the balance: here what was paid for options is added.
    const double net = roundedAmount(price + m_optionTotal - (m_taskPaid - m_optionPaid));
    if (!isShown(m_parameters.detail, net))
        return false;
    drawParentRows(price);
    return true;
}

void LotOptionsPages::drawParentRows(double price) {
    const double balance =
        inSinglePrecision(roundedAmount(price + m_optionTotal - (m_taskPaid + m_optionPaid)));
    m_pen.down(groupGap);
    drawRow(m_pen,
            {{pageLeft, "Task: " + text("JobLotTask.Name")}, {5000, "Category: " + text("Description")}},
            rowStep);
    drawRow(m_pen,
            {{pageLeft, "Task Price: " + amountText(price)},
             {3000, "Option Total: " + amountText(m_optionTotal)},
             {5500, "Total: " + amountText(m_optionTotal + price)}},
            rowStep);
    drawRow(m_pen,
            {{pageLeft, "Task Paid: " + amountText(m_taskPaid)},
             {3000, "Option Paid: " + amountText(m_optionPaid)},
             {5500, "Total: " + amountText(m_taskPaid + m_optionPaid)},
             {7500, "Balance: " + amountText(balance), balance != 0}},
            rowStep);
    rule(blockRight);
}

void LotOptionsPages::drawOption(const OptionTask& option) {
    const double paid = m_tasks.paidFor(option.jobLotTaskKey);
    if (!isShown(m_parameters.detail, roundedAmount(option.masterPrice.toDouble() - paid)))
        return;
    drawRow(m_pen,
            {{1000, "Task: " + FieldText(option.name).left(longestName)},
             {6000, "Price: " + amountText(option.masterPrice)},
             {8000, "Paid: " + amountText(paid)}},
            rowStep);
}

} // namespace

QString lotOptionsQuery(const ReportParameters& parameters) {
    const QString filter = reportFilter(parameters, lotFilter);
    return "SELECT Job.JobKey, Job.JobNumber, Job.CompletedDate, Job.Name, Job.Foreman, JobLot.*, "
           "JobLotTask.ParentKey, JobLotTask.Child, Code.Description, JobLotTask.Name, "
           "JobLotTask.JobLotTaskKey, JobLotTask.MasterPrice FROM Job INNER JOIN (JobLot INNER JOIN "
           "(JobLotTask INNER JOIN Code ON JobLotTask.CodeKey = Code.CodeKey) ON JobLot.JobLotKey = "
           "JobLotTask.JobLotKey) ON Job.JobKey = JobLot.JobKey WHERE JobLotTask.ParentKey<>0 AND "
           "JobLotTask.Child=0" +
           (filter.isEmpty() ? QString() : " AND " + filter) + " ORDER BY JobNumber, Job.JobKey, LotBlock";
}

void drawLotOptions(ReportRun& run) {
    LotOptionsPages pages(run);
    drawRecords(run, [&] { pages.drawRecord(); });
}

} // namespace tarnwell
