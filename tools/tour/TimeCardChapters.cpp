#include "tour/Chapters.h"

#include <QPoint>

namespace tarnwell::tour {

namespace {

const QKeySequence yes(QStringLiteral("Alt+Y"));
const QKeySequence no(QStringLiteral("Alt+N"));
const QKeySequence enter(Qt::Key_Return);
constexpr auto lastPayment = "SELECT Price FROM JobTaskEmployee ORDER BY JobTaskEmployee DESC LIMIT 1";

/// The first task of an open job's first lot and of a category, paid in full to an employee while a category
/// that it depends on is not paid: paying it once more meets all three warnings.
constexpr auto taskWithWarnings = R"sql(
SELECT j.JobNumber, c.Description, e.SSN FROM JobTaskEmployee p
JOIN JobLotTask t USING (JobLotTaskKey) JOIN JobLot l USING (JobLotKey) JOIN Job j USING (JobKey)
JOIN Code c ON c.CodeKey = t.CodeKey JOIN Employee e ON e.EmployeeKey = p.EmployeeKey
WHERE j.CompletedDate IS NULL AND e.Inactive = 0 AND l.ExcludeDependencyCheck = 0 AND t.ExcludeDependency = 0
AND l.JobLotKey = (SELECT JobLotKey FROM JobLot WHERE JobKey = j.JobKey ORDER BY LotBlock LIMIT 1)
AND t.JobLotTaskKey = (SELECT JobLotTaskKey FROM JobLotTask WHERE JobLotKey = l.JobLotKey
    AND CodeKey = t.CodeKey ORDER BY Name, ParentKey, Child LIMIT 1)
AND t.MasterPrice <= (SELECT SUM(Price) FROM JobTaskEmployee WHERE JobLotTaskKey = t.JobLotTaskKey)
AND EXISTS (SELECT 1 FROM CategoryDependency d
    JOIN JobLotTask o ON o.CodeKey = d.DependentKey AND o.JobLotKey = l.JobLotKey
    WHERE d.CategoryKey = t.CodeKey AND o.ExcludeDependency = 0 AND o.MasterPrice <> 0
    AND NOT EXISTS (SELECT 1 FROM JobTaskEmployee x WHERE x.JobLotTaskKey = o.JobLotTaskKey))
ORDER BY j.JobNumber, c.Description LIMIT 1)sql";

/// Opens the Time Card and stands on the task.
void openTask(Driver& driver, const QString& job, const QString& category) {
    driver.press(QKeySequence(QStringLiteral("Alt+C")));
    driver.seeWindow(QStringLiteral("frmPayroll"));
    driver.type(job);
    driver.seeText(QStringLiteral("MskField(2)"), job);
    driver.clickCell(QStringLiteral("jgJobLots"), 0, QStringLiteral("LotBlock"));
    driver.press(QKeySequence(QStringLiteral("Alt+C")));
    driver.type(category);
    driver.seeText(QStringLiteral("cmbType"), category);
    driver.clickCell(QStringLiteral("jgTasks"), 0, QStringLiteral("Name"));
}

void enterPrice(Driver& driver, const QString& price) {
    driver.press(QKeySequence(QStringLiteral("Alt+E, Ctrl+A")));
    driver.type(price);
    driver.press(QKeySequence(QStringLiteral("Alt+A")));
}

void leave(Driver& driver) {
    driver.clickToolbar(QStringLiteral("Exit"));
    driver.seeWindow(QStringLiteral("frmSwitchboard"));
}

} // namespace

void payWithEveryWarning(Driver& driver) {
    const QStringList task = driver.firstRow(taskWithWarnings, 3);
    if (task.isEmpty())
        throw StepFailed(QStringLiteral("the sample has no task that meets all three warnings"));
    const QByteArray payments("SELECT COUNT(*) FROM JobTaskEmployee");
    const QByteArray logged("SELECT COUNT(*) FROM EmployeeLog");
    const int paidBefore = driver.ask(payments).toInt();
    const int loggedBefore = driver.ask(logged).toInt();

    openTask(driver, task[0], task[1]);
    driver.click(QStringLiteral("cmbEmployees"), QPoint(20, 10));
    driver.press(QKeySequence(QStringLiteral("Ctrl+A")));
    driver.type(task[2]);
    driver.seeText(QStringLiteral("cmbEmployees"), task[2]);
    driver.picture(QStringLiteral("01-time-card"));

    enterPrice(driver, QStringLiteral("25"));
    driver.answer(QStringLiteral("This task has a dependent task in category"), no);
    driver.seeStored(payments, QString::number(paidBefore));

    driver.press(QKeySequence(QStringLiteral("Alt+A")));
    driver.answer(QStringLiteral("This task has a dependent task in category"), yes);
    driver.answer(QStringLiteral("Price entered is greater than task difference."), yes);
    driver.picture(QStringLiteral("02-paid-before"));
    driver.answer(QStringLiteral("This employee was paid for this task on:"), yes);
    driver.seeText(QStringLiteral("lstTaskHistory"), QStringLiteral("25.00"));
    driver.picture(QStringLiteral("03-paid"));
    driver.seeStored(payments, QString::number(paidBefore + 1));
    driver.seeStored(lastPayment, QStringLiteral("25.0"));
    driver.seeStored(logged, QString::number(loggedBefore + 1));
    leave(driver);
}

void correctPayment(Driver& driver) {
    const QStringList task = driver.firstRow(taskWithWarnings, 3);
    const QByteArray payments("SELECT COUNT(*) FROM JobTaskEmployee");
    const QString before = driver.ask(payments);
    openTask(driver, task.value(0), task.value(1));
    driver.seeText(QStringLiteral("lstTaskHistory"), QStringLiteral("25.00"));
    int line = -1;
    const QStringList lines = driver.textOf(QStringLiteral("lstTaskHistory")).split(u'\n');
    for (int at = 0; at < lines.size(); ++at)
        if (lines[at].endsWith(QStringLiteral("25.00")))
            line = at;
    driver.doubleClickLine(QStringLiteral("lstTaskHistory"), line);
    driver.seeWindow(QStringLiteral("frmTaskNotes"));
    driver.picture(QStringLiteral("04-task-notes"));
    driver.fill(QStringLiteral("txtField(0)"), QStringLiteral("15.5"));
    driver.press(QKeySequence(QStringLiteral("Alt+A")));
    driver.seeWindow(QStringLiteral("frmPayroll"));
    driver.seeText(QStringLiteral("lstTaskHistory"), QStringLiteral("15.50"));
    driver.picture(QStringLiteral("05-corrected"));
    driver.seeStored(payments, before);
    driver.seeStored(lastPayment, QStringLiteral("15.5"));
    leave(driver);
}

} // namespace tarnwell::tour
