#include "frame/main/FirstSteps.h"

#include "data/recordset/Recordset.h"

namespace tarnwell {

namespace {

bool hasAny(Connection& connection, const char* sql) {
    return firstValue(connection, QLatin1String(sql)).has_value();
}

constexpr auto anyCategory = "SELECT CodeKey FROM Code WHERE Code1=2 AND Deleted=0";

/// A step is done when its statement finds a row.
struct StepRule {
    const char* caption;
    const char* hint;
    const char* screen;
    const char* done;
};

constexpr StepRule rules[] = {
    {"Categories and tasks", "What you do, and what each task pays", "frmMasterTasks",
     "SELECT MasterTaskKey FROM MasterTask WHERE Deleted=0"},
    {"Employees", "Who does the work; begin with the foremen", "frmEmployee",
     "SELECT EmployeeKey FROM Employee"},
    {"A builder and a plan", "Whose work it is, and the plan's tasks with their prices", "frmBuilder",
     "SELECT ContractorPlanKey FROM ContractorPlan"},
    {"A job and a lot", "Where it is done, filled from the plan", "frmJobs", "SELECT JobLotKey FROM JobLot"},
    {"The first payment", "A task of the lot, and who did it", "frmPayroll",
     "SELECT JobTaskEmployee FROM JobTaskEmployee"},
};

} // namespace

std::vector<FirstStep> readFirstSteps(Connection& connection) {
    if (hasAny(connection, std::rbegin(rules)->done))
        return {};
    std::vector<FirstStep> steps;
    for (const StepRule& rule : rules)
        steps.push_back({.caption = QLatin1String(rule.caption),
                         .hint = QLatin1String(rule.hint),
                         .screen = QLatin1String(rule.screen),
                         .isDone = hasAny(connection, rule.done)});
    // Tasks stand in categories, and those are made on another screen.
    if (!hasAny(connection, anyCategory))
        steps.front().screen = QStringLiteral("frmMasterCodes");
    return steps;
}

} // namespace tarnwell
