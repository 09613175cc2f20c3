#include "builders/PlanCopy.h"

#include "builders/CommitWritten.h"
#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

qint64 addPlan(Connection& connection, qint64 builderKey, const QString& name) {
    Recordset plan;
    plan.Open("SELECT * FROM ContractorPlan WHERE ContractorPlanKey=0", connection, CursorType::Static,
              LockType::Optimistic);
    plan.AddNew();
    plan.set("ContractorKey", builderKey);
    plan.set("PlanName", name);
    plan.Update();
    return plan["ContractorPlanKey"].toLong();
}

void copyTasks(Connection& connection, qint64 fromPlan, qint64 toPlan) {
    Recordset source;
    source.Open("SELECT * FROM ContractorPlanTask WHERE ContractorPlanKey=" + QString::number(fromPlan),
                connection);
    Recordset copies;
    copies.Open("ContractorPlanTask", connection, CursorType::Dynamic, LockType::Optimistic);
    for (; !source.atEnd(); source.MoveNext()) {
        copies.AddNew();
        copies.set("ContractorPlanKey", toPlan);
        for (const char* same : {"CodeKey", "MasterTaskKey", "MasterPrice", "ExcludeDependency"})
            copies.set(same, source[same]);
        for (const char* text : {"Name", "CustomTask"})
            copies.set(text, FieldText(source[text]));
        copies.Update();
    }
}

} // namespace

qint64 copyPlan(Connection& connection, qint64 builderKey, qint64 planKey, const QString& planName) {
    qint64 newKey = 0;
    commitWritten(connection, [&] {
        newKey = addPlan(connection, builderKey, "Copied " + planName);
        copyTasks(connection, planKey, newKey);
    });
    return newKey;
}

} // namespace tarnwell
