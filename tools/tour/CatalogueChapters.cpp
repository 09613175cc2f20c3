#include "tour/Chapters.h"

namespace tarnwell::tour {

namespace {

/// A master task that plans, unpaid tasks of open jobs and paid tasks share: category, name, key.
constexpr auto sharedTask = R"sql(
SELECT c.Description, m.Name, m.MasterTaskKey FROM MasterTask m JOIN Code c USING (CodeKey)
WHERE m.Deleted = 0 AND c.Deleted = 0
AND EXISTS (SELECT 1 FROM ContractorPlanTask WHERE MasterTaskKey = m.MasterTaskKey)
AND EXISTS (SELECT 1 FROM JobLotTask t JOIN JobTaskEmployee USING (JobLotTaskKey) WHERE t.MasterTaskKey = m.MasterTaskKey)
AND EXISTS (SELECT 1 FROM JobLotTask t JOIN JobLot USING (JobLotKey) JOIN Job USING (JobKey)
    WHERE t.MasterTaskKey = m.MasterTaskKey AND CompletedDate IS NULL
    AND NOT EXISTS (SELECT 1 FROM JobTaskEmployee p WHERE p.JobLotTaskKey = t.JobLotTaskKey))
ORDER BY c.Description, m.Name LIMIT 1)sql";

constexpr auto newPrice = "777.25";

/// Tasks of lots that stem from the master task and have the price, among those that are open (or closed) to
/// it.
QByteArray countTasks(const QString& masterTask, const char* isOpen, const char* comparison) {
    return QStringLiteral(
               "SELECT COUNT(*) FROM JobLotTask t JOIN JobLot USING (JobLotKey) JOIN Job USING (JobKey) "
               "WHERE t.MasterTaskKey = %1 AND t.MasterPrice %2 %3 AND (CompletedDate IS NULL AND NOT "
               "EXISTS (SELECT 1 FROM JobTaskEmployee p WHERE p.JobLotTaskKey = t.JobLotTaskKey)) = %4")
        .arg(masterTask, QLatin1String(comparison), QLatin1String(newPrice), QLatin1String(isOpen))
        .toUtf8();
}

} // namespace

void raiseMasterPrice(Driver& driver) {
    const QStringList task = driver.firstRow(sharedTask, 3);
    if (task.isEmpty())
        throw StepFailed(QStringLiteral("the sample has no master task with copies of every kind"));
    const QString& key = task[2];
    driver.press(QKeySequence(QStringLiteral("Alt+M")));
    driver.seeWindow(QStringLiteral("frmMasterTasks"));
    driver.type(task[0]);
    driver.seeText(QStringLiteral("cmbType"), task[0]);
    driver.choose(QStringLiteral("cmbCascade"), QStringLiteral("Update Builder, Jobs"));
    driver.click(QStringLiteral("chkUpdatePrice"));
    const int row = driver.rowOf(QStringLiteral("jgMasterTasks"), QStringLiteral("Name"), task[1]);
    driver.clickCell(QStringLiteral("jgMasterTasks"), row, QStringLiteral("MasterPrice"));
    driver.type(QLatin1String(newPrice));
    driver.picture(QStringLiteral("06-master-task"));
    driver.press(QKeySequence(Qt::Key_Down));

    driver.seeStored("SELECT MasterPrice FROM MasterTask WHERE MasterTaskKey=" + key.toUtf8(),
                     QLatin1String(newPrice));
    driver.seeStored(
        "SELECT COUNT(*) FROM ContractorPlanTask WHERE MasterPrice <> 777.25 AND MasterTaskKey=" +
            key.toUtf8(),
        QStringLiteral("0"));
    driver.seeStored(countTasks(key, "1", "<>"),
                     QStringLiteral("0")); // every unpaid task of an open job took it
    driver.seeStored(countTasks(key, "0", "="), QStringLiteral("0")); // nothing paid or completed changed
    driver.clickToolbar(QStringLiteral("Exit"));
}

} // namespace tarnwell::tour
