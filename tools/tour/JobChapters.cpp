#include "tour/Chapters.h"

namespace tarnwell::tour {

namespace {

/// A builder with a plan and an option group: builder, plan's name, its tasks that are still listed, group's
/// name and its tasks that are still in the catalogue.
constexpr auto builderWithOptions = R"sql(
SELECT b.Name, p.PlanName,
    (SELECT COUNT(*) FROM ContractorPlanTask t JOIN Code c USING (CodeKey)
     WHERE t.ContractorPlanKey = p.ContractorPlanKey AND c.Deleted = 0),
    g.Description,
    (SELECT COUNT(*) FROM ContractorOptionGroup o JOIN MasterTask m USING (MasterTaskKey)
     WHERE o.CodeKey = g.CodeKey AND m.Deleted = 0) AS options,
    p.ContractorPlanKey
FROM Contractor b JOIN ContractorPlan p USING (ContractorKey)
JOIN Code g ON g.Code1 = 5 AND g.Code2 = b.ContractorKey
WHERE options > 0
AND g.Description = (SELECT MIN(Description) FROM Code WHERE Code1 = 5 AND Code2 = b.ContractorKey)
ORDER BY b.Name, p.PlanName LIMIT 1)sql";

const QString jobNumber = QStringLiteral("26-7001");
const QString lots = QStringLiteral("jgJobLots");
const QString tasks = QStringLiteral("jgTasks");

QByteArray countTasks(const char* condition) {
    return "SELECT COUNT(*) FROM JobLotTask JOIN JobLot USING (JobLotKey) JOIN Job USING (JobKey) WHERE "
           "JobNumber='" +
           jobNumber.toUtf8() + "' AND " + condition;
}

void addJob(Driver& driver, const QString& builder) {
    driver.clickToolbar(QStringLiteral("Add"));
    driver.seeWindow(QStringLiteral("frmJobAdd"));
    driver.type(jobNumber);
    driver.press(QKeySequence(Qt::Key_Tab));
    driver.type(QStringLiteral("Tour Estates"));
    driver.choose(QStringLiteral("cmbContractors"), builder);
    driver.picture(QStringLiteral("07-new-job"));
    driver.press(QKeySequence(QStringLiteral("Alt+A")));
    driver.seeWindow(QStringLiteral("frmJobs"));
    driver.seeText(QStringLiteral("MskField(2)"), builder);
}

/// A typed lot, then its pulldown: the lot is stored before the dialog comes.
void fillLotFromPlan(Driver& driver, const QString& plan) {
    driver.clickCell(lots, 0, QStringLiteral("LotBlock"));
    driver.type(QStringLiteral("1/A"));
    driver.press(QKeySequence(Qt::Key_Return));
    driver.press(QKeySequence(Qt::Key_F4));
    driver.seeWindow(QStringLiteral("frmAddJobTasks"));
    const QStringList plans = driver.textOf(QStringLiteral("lstPlans")).split(u'\n');
    driver.clickLine(QStringLiteral("lstPlans"), static_cast<int>(plans.indexOf(plan)));
    driver.click(QStringLiteral("cmdSelectAll"));
    driver.picture(QStringLiteral("08-plan-tasks"));
    driver.clickToolbar(QStringLiteral("Add"));
    driver.seeWindow(QStringLiteral("frmJobs"));
}

void putOptionGroup(Driver& driver, const QString& group) {
    driver.clickCell(tasks, 0, QStringLiteral("Name"));
    driver.clickToolbar(QStringLiteral("Group"));
    driver.seeWindow(QStringLiteral("frmAddJobOptionGroup"));
    driver.seeText(QStringLiteral("lstGroups"), group);
    driver.picture(QStringLiteral("09-option-group"));
    driver.press(QKeySequence(QStringLiteral("Alt+S")));
    driver.seeWindow(QStringLiteral("frmJobs"));
}

} // namespace

void startJob(Driver& driver) {
    const QStringList builder = driver.firstRow(builderWithOptions, 5);
    if (builder.isEmpty())
        throw StepFailed(QStringLiteral("the sample has no builder with a plan and an option group"));
    driver.press(QKeySequence(QStringLiteral("Alt+J")));
    driver.seeWindow(QStringLiteral("frmJobs"));
    addJob(driver, builder[0]);
    fillLotFromPlan(driver, builder[1]);
    driver.seeStored(countTasks("Child = 0 AND ParentKey = 0"), builder[2]);
    putOptionGroup(driver, builder[3]);
    driver.seeStored(countTasks("Child = 1"), builder[4]);
    driver.seeStored(countTasks("Child = 1 AND ParentKey NOT IN (SELECT ParentKey FROM JobLotTask "
                                "WHERE ParentKey = JobLotTaskKey AND Child = 0)"),
                     QStringLiteral("0")); // every option has its parent
    driver.picture(QStringLiteral("10-job"));
    driver.clickToolbar(QStringLiteral("Exit"));
}

} // namespace tarnwell::tour
