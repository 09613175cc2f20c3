#pragma once

#include "support/TemporaryDatabase.h"

namespace tarnwell::test {

/// A catalogue of one task in one of two categories, and a builder with a plan and an open and a closed job.
struct CatalogueData {
    TemporaryDatabase db;
    qint64 framing = addCategory("Framing");
    qint64 plumbing = addCategory("Plumbing");
    qint64 walls = addTask("Walls", 100, framing);
    qint64 builder = db.add("Contractor", {{"Name", "Abel Homes"}});
    qint64 plan = db.add("ContractorPlan", {{"ContractorKey", builder}, {"PlanName", "Aspen"}});
    qint64 openLot = addLot(Value::null());
    qint64 closedLot = addLot(DateTime{{2024, 3, 5}});
    qint64 worker = db.add("Employee", {{"LastName", "Archer"}, {"Inactive", false}});

    qint64 addCategory(const char* name) {
        return db.add("Code", {{"Code1", 2}, {"Description", name}, {"Deleted", false}});
    }
    qint64 addTask(const char* name, double price, qint64 category) {
        return db.add("MasterTask", {{"CodeKey", category},
                                     {"Name", name},
                                     {"MasterPrice", price},
                                     {"CustomTask", "N"},
                                     {"Deleted", false}});
    }
    qint64 addLot(const Value& completed) {
        const qint64 job = db.add("Job", {{"ContractorKey", builder}, {"CompletedDate", completed}});
        return db.add("JobLot", {{"JobKey", job}});
    }
    /// A copy of a master task.
    qint64 addCopy(const QString& table, const QString& owner, qint64 ownerKey, qint64 masterTask) {
        std::vector<std::pair<QString, Value>> values{
            {owner, ownerKey}, {"MasterTaskKey", masterTask}, {"MasterPrice", 7.0}};
        if (table != "ContractorOptionGroup")
            values.emplace_back("Name", "Old");
        return db.add(table, values);
    }
    qint64 addLotTask(qint64 lot, qint64 masterTask) {
        return addCopy("JobLotTask", "JobLotKey", lot, masterTask);
    }
    void pay(qint64 lotTask) {
        db.add("JobTaskEmployee", {{"JobLotTaskKey", lotTask}, {"EmployeeKey", worker}, {"Price", 1.0}});
    }
};

} // namespace tarnwell::test
