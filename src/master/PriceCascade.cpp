#include "master/PriceCascade.h"

#include "data/recordset/Recordset.h"
#include "runtime/MousePointer.h"

#include <QStringList>

namespace tarnwell {

namespace {

bool reachesBuilders(int target) {
    return target == CascadeTarget::BuildersAndJobs || target == CascadeTarget::Builders;
}

bool reachesJobs(int target) {
    return target == CascadeTarget::BuildersAndJobs || target == CascadeTarget::Jobs;
}

/// As the grid gives it: nothing for Null, so that an empty price breaks its statement instead of wiping the
/// prices out.
QString sqlText(const Value& value) {
    return value.isNull() ? QString() : value.toText();
}

/// The assignments for plans and jobs, and those for option groups.
struct Assignments {
    QStringList plansAndJobs;
    QStringList optionGroups;

    void addToBoth(const QString& assignment) {
        plansAndJobs.append(assignment);
        optionGroups.append(assignment);
    }
};

Assignments assignmentsOf(const CommittedTask& task, const CascadeChoice& choice) {
    Assignments lists;
    if (choice.name)
        lists.plansAndJobs.append("Name = '" + sqlText(task.name) + "'");
    if (choice.price)
        lists.addToBoth("MasterPrice = " + sqlText(task.price));
    if (choice.exclude)
        lists.addToBoth("ExcludeDependency = " + sqlText(task.excludeDependency));
    return lists;
}

void updateByTask(Connection& connection, const QString& table, const QStringList& assignments,
                  const QString& key) {
    connection.Execute("UPDATE " + table + " SET " + assignments.join(", ") + " WHERE MasterTaskKey=" + key);
}

/// All unpaid tasks at once: a task can stand in a hundred thousand lots. Where there is none no statement
/// is sent, so that a name that would break it does no harm.
void updateUnpaidLotTasks(Connection& connection, const QStringList& assignments, const QString& key) {
    const QString unpaid = "SELECT JobLotTaskKey FROM (Job INNER JOIN JobLot ON Job.JobKey = JobLot.JobKey) "
                           "INNER JOIN JobLotTask ON JobLot.JobLotKey = JobLotTask.JobLotKey "
                           "WHERE Job.CompletedDate Is Null AND MasterTaskKey=" +
                           key +
                           " AND NOT EXISTS (SELECT * FROM JobTaskEmployee "
                           "WHERE JobTaskEmployee.JobLotTaskKey = JobLotTask.JobLotTaskKey)";
    if (firstValue(connection, unpaid))
        connection.Execute("UPDATE JobLotTask SET " + assignments.join(", ") + " WHERE JobLotTaskKey IN (" +
                           unpaid + ")");
}

} // namespace

void applyCascade(Connection& connection, const CommittedTask& task, const CascadeChoice& choice) {
    if (choice.target == CascadeTarget::None)
        return;
    const auto [plansAndJobs, optionGroups] = assignmentsOf(task, choice);
    if (plansAndJobs.isEmpty())
        return;
    const HourGlass hourGlass;
    const QString key = task.masterTaskKey.toText();
    Transaction transaction(connection);
    if (reachesBuilders(choice.target))
        updateByTask(connection, "ContractorPlanTask", plansAndJobs, key);
    if (reachesJobs(choice.target))
        updateUnpaidLotTasks(connection, plansAndJobs, key);
    if (reachesBuilders(choice.target) && !optionGroups.isEmpty())
        updateByTask(connection, "ContractorOptionGroup", optionGroups, key);
    transaction.commit();
}

} // namespace tarnwell
