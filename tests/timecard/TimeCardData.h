#pragma once

#include "support/TemporaryDatabase.h"

namespace tarnwell::test {

/// A job of one lot with a task to pay, its category's prerequisite, and two employees.
struct TimeCardData {
    TemporaryDatabase db;
    qint64 framing = addCategory("Framing");
    qint64 footings = addCategory("Footings");
    qint64 builder = db.add("Contractor", {{"Name", "Abel Homes"}});
    qint64 job = addJob("1001", "Elm Court");
    qint64 lot = addLot("A-1", job);
    qint64 task = addTask("Walls", 100.0, framing);
    qint64 ann = addEmployee("111-11-1111", "Archer", "Ann");
    qint64 bob = addEmployee("222-22-2222", "Baker", "Bob");

    qint64 addCategory(const char* name) {
        return db.add("Code", {{"Code1", 2}, {"Description", name}, {"Deleted", false}});
    }
    qint64 addJob(const char* number, const char* name, const Value& completed = Value::null()) {
        return db.add("Job", {{"JobNumber", number},
                              {"Name", name},
                              {"ContractorKey", builder},
                              {"CompletedDate", completed}});
    }
    qint64 addLot(const char* lotBlock, qint64 ofJob) {
        return db.add("JobLot", {{"JobKey", ofJob}, {"LotBlock", lotBlock}, {"PlanName", "Aspen"}});
    }
    qint64 addTask(const char* name, const Value& price, qint64 category, bool exclude = false) {
        return db.add("JobLotTask", {{"JobLotKey", lot},
                                     {"MasterTaskKey", 0},
                                     {"CodeKey", category},
                                     {"Name", name},
                                     {"MasterPrice", price},
                                     {"ExcludeDependency", exclude}});
    }
    qint64 addEmployee(const char* ssn, const char* last, const char* first, bool inactive = false) {
        return db.add("Employee",
                      {{"SSN", ssn}, {"LastName", last}, {"FirstName", first}, {"Inactive", inactive}});
    }
    qint64 addPayment(qint64 ofTask, qint64 employee, double price, QDate on = {2024, 3, 5}) {
        return db.add("JobTaskEmployee", {{"JobLotTaskKey", ofTask},
                                          {"EmployeeKey", employee},
                                          {"Price", price},
                                          {"Completed", DateTime{on}},
                                          {"Note", ""}});
    }
    /// A line in Ann's log of corrections.
    qint64 addLog(const Value& occured, const Value& problem) {
        return db.add(
            "EmployeeLog",
            {{"EmployeeKey", ann}, {"JobLotTaskKey", task}, {"Occured", occured}, {"Problem", problem}});
    }
    qint64 count(const QString& table) { return db.ask("SELECT COUNT(*) FROM " + table).toLong(); }
};

} // namespace tarnwell::test
