#include "jobs/LotTasks.h"

#include "data/recordset/Recordset.h"

namespace tarnwell {

QString taskRowsOfLot(qint64 jobLotKey, qint64 codeKey) {
    return "SELECT * FROM JobLotTask WHERE JobLotKey=" + QString::number(jobLotKey) +
           " AND CodeKey=" + QString::number(codeKey) + " ORDER BY Name, ParentKey, Child";
}

std::vector<ListItem> readTaskEmployees(Connection& connection) {
    Recordset employees;
    employees.Open("SELECT EmployeeKey, Employee.LastName + '\\'+ Employee.FirstName as Employee FROM "
                   "Employee WHERE InActive=0 ORDER BY LastName",
                   connection);
    std::vector<ListItem> entries;
    for (; !employees.atEnd(); employees.MoveNext())
        if (const Value name = employees.field(1); !name.isNull())
            entries.emplace_back(name.toText(), employees.field(0).toLong());
    return entries;
}

TaskRole taskRole(const Value& parentKey, const Value& child) {
    if (!child.isNoKey())
        return TaskRole::Option;
    return parentKey.isNoKey() ? TaskRole::Plain : TaskRole::Parent;
}

} // namespace tarnwell
