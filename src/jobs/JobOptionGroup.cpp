#include "jobs/JobOptionGroup.h"

#include "builders/CommitWritten.h"
#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"

namespace tarnwell {

namespace {

constexpr int categoryOfTheMissing = 2;
constexpr auto nameOfTheMissing = "NO MASTER TASK FOUND";

/// The task costs nothing itself: the lot's plan did not hold it, and the option's price is what counts.
void addBaseTask(Connection& connection, const Recordset& groupRow, const Value& jobLotKey, Recordset& base) {
    Recordset master;
    master.Open("SELECT * FROM MasterTask WHERE Deleted=0 AND MasterTaskKey=" +
                    FieldText(groupRow["MasterTaskKey"]),
                connection);
    const bool found = !master.atEnd();
    base.AddNew();
    base.set("JobLotKey", jobLotKey);
    base.set("MasterTaskKey", groupRow["MasterTaskKey"]);
    base.set("ExcludeDependency", groupRow["ExcludeDependency"]);
    base.set("CodeKey", found ? master["CodeKey"] : Value(categoryOfTheMissing));
    base.set("Name", found ? Value(FieldText(master["Name"])) : Value(nameOfTheMissing));
    base.set("MasterPrice", 0);
    base.set("CustomTask", "N");
    base.Update();
}

/// The lot's first task of the group row's master task, made a parent; current in `base`.
void openBaseTask(Connection& connection, const Recordset& groupRow, const Value& jobLotKey,
                  Recordset& base) {
    base.Open("SELECT * FROM JobLotTask WHERE MasterTaskKey=" + FieldText(groupRow["MasterTaskKey"]) +
                  " AND JobLotKey=" + FieldText(jobLotKey),
              connection, CursorType::Static, LockType::Optimistic);
    if (base.atEnd())
        addBaseTask(connection, groupRow, jobLotKey, base);
    base.set("ParentKey", base["JobLotTaskKey"]);
    base.Update();
}

void addOption(const Recordset& groupRow, const Recordset& base, const QString& groupName,
               Recordset& options) {
    options.AddNew();
    options.set("JobLotKey", base["JobLotKey"]);
    options.set("MasterTaskKey", groupRow["MasterTaskKey"]);
    options.set("ParentKey", base["JobLotTaskKey"]);
    options.set("Name", FieldText(base["Name"]) + u' ' + groupName);
    options.set("CodeKey", base["CodeKey"]);
    options.set("MasterPrice", groupRow["MasterPrice"]);
    options.set("Child", 1);
    options.set("CustomTask", "Y");
    options.Update();
}

} // namespace

void applyOptionGroup(Connection& connection, Recordset& groupRows, const QString& groupName,
                      const Value& jobLotKey) {
    commitWritten(connection, [&] {
        Recordset options;
        options.Open("JobLotTask", connection, CursorType::Dynamic, LockType::Optimistic);
        for (; !groupRows.atEnd(); groupRows.MoveNext()) {
            Recordset base;
            openBaseTask(connection, groupRows, jobLotKey, base);
            addOption(groupRows, base, groupName, options);
        }
    });
}

} // namespace tarnwell
