#pragma once

#include "support/TemporaryDatabase.h"

namespace tarnwell::test {

/// A small catalogue, and a builder with a plan of three tasks and jobs whose lots took them.
struct BuilderData {
    TemporaryDatabase db;
    qint64 framing = addCategory("Framing");
    qint64 drywall = addCategory("Drywall");
    qint64 walls = addMaster("Walls", framing, 100.0);
    qint64 beams = addMaster("Beams", framing, 50.0);
    qint64 hang = addMaster("Hang", drywall, 20.0);
    qint64 builder = db.add("Contractor", {{"Name", "Abel Homes"}});
    qint64 plan = addPlan("Aspen", builder);
    qint64 planWalls = addPlanTask("Walls", plan, walls, framing, 110.0);

    qint64 addCategory(const char* name, bool deleted = false) {
        return db.add("Code", {{"Code1", 2}, {"Description", name}, {"Deleted", deleted}});
    }
    qint64 addMaster(const char* name, qint64 category, const Value& price, bool deleted = false) {
        return db.add("MasterTask", {{"CodeKey", category},
                                     {"Name", name},
                                     {"MasterPrice", price},
                                     {"CustomTask", "N"},
                                     {"ExcludeDependency", true},
                                     {"Deleted", deleted}});
    }
    qint64 addPlan(const char* name, qint64 owner) {
        return db.add("ContractorPlan", {{"ContractorKey", owner}, {"PlanName", name}});
    }
    qint64 addPlanTask(const char* name, qint64 ofPlan, qint64 master, qint64 category, double price) {
        return db.add("ContractorPlanTask", {{"ContractorPlanKey", ofPlan},
                                             {"MasterTaskKey", master},
                                             {"CodeKey", category},
                                             {"Name", name},
                                             {"MasterPrice", price},
                                             {"ExcludeDependency", true}});
    }
    qint64 addJob(const char* number, const Value& name, const Value& completed = Value::null()) {
        return db.add("Job", {{"JobNumber", number},
                              {"Name", name},
                              {"ContractorKey", builder},
                              {"CompletedDate", completed}});
    }
    /// A lot of its own with a task that came from a plan's; returns the task.
    qint64 addLotTask(qint64 job, qint64 planTask, double price = 1.0) {
        const qint64 lot = db.add("JobLot", {{"JobKey", job}, {"LotBlock", "A"}});
        return db.add("JobLotTask", {{"JobLotKey", lot},
                                     {"ContractorPlanTaskKey", planTask},
                                     {"Name", "Walls"},
                                     {"MasterPrice", price}});
    }
    qint64 count(const QString& from) { return db.ask("SELECT COUNT(*) FROM " + from).toLong(); }
    double price(qint64 lotTask) {
        return db.ask("SELECT MasterPrice FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(lotTask))
            .toDouble();
    }
};

} // namespace tarnwell::test
