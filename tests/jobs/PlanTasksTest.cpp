#include "jobs/PlanTasks.h"

#include "LotData.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class PlanTasks : public ::testing::Test {
protected:
    std::vector<ListItem> list() { return readPlanTasks(data.db.connection(), data.plan, data.lot); }
    qint64 addPlanTask(const char* name, qint64 master, qint64 category, const Value& price) {
        return data.db.add("ContractorPlanTask", {{"ContractorPlanKey", data.plan},
                                                  {"MasterTaskKey", master},
                                                  {"CodeKey", category},
                                                  {"Name", name},
                                                  {"MasterPrice", price},
                                                  {"CustomTask", "Y"},
                                                  {"ExcludeDependency", true}});
    }
    void add(const CurrentLot& target, const std::vector<qint64>& keys) {
        std::vector<ListItem> picked;
        for (const qint64 key : keys)
            picked.emplace_back("", key);
        addPlanTasks(data.db.connection(), target, {"Aspen", data.plan}, picked);
    }
    CurrentLot lotOf(const Value& jobLotKey) { return {data.job, data.builder, jobLotKey, 0}; }
    QString plan() { return QString::number(data.plan); }

    LotData data;
};

} // namespace

TEST_F(PlanTasks, ListsNamesAndPricesUnderTheirCategories) {
    const qint64 deck = addPlanTask("A name of more than twenty-five", 0, data.drywall, 1234567.5);
    const qint64 hang = addPlanTask("Hang", data.hang, data.drywall, Value::null());
    addPlanTask("Unseen", 0, data.addCategory("Closed", true), 1.0);
    EXPECT_EQ(list(),
              (std::vector<ListItem>{
                  {"----Drywall", 0},
                  {QString("A name of more than twent 1234567.50").leftJustified(60), deck},
                  {QString("Hang").leftJustified(60), hang},
                  {"----Framing", 0},
                  {QString("Walls" + QString(23, u' ') + "110.00").leftJustified(60), data.planWalls}}));
}

TEST_F(PlanTasks, PassesOverMasterTasksThatTheLotHolds) {
    data.addTask("Renamed", data.lot, data.walls);
    data.addTask("Elsewhere", data.addLot("B"), data.hang);
    const qint64 hang = addPlanTask("Hang", data.hang, data.drywall, 5.0);
    addPlanTask("Walls again", data.walls, data.framing, 1.0);
    const qint64 typed = addPlanTask("Typed", 0, data.drywall, 5.0);
    const auto keys = [&] {
        std::vector<qint64> shown;
        for (const auto& [line, key] : list())
            shown.push_back(key);
        return shown;
    };
    EXPECT_EQ(keys(), (std::vector<qint64>{0, hang, typed})) << "no heading over an empty category";
    data.addTask("Typed by hand", data.lot);
    EXPECT_EQ(keys(), (std::vector<qint64>{0, hang})) << "typed tasks count as one";
    data.addTask("Hang", data.lot, data.hang);
    EXPECT_TRUE(list().empty());
}

TEST_F(PlanTasks, NeedsAStoredLotAndMasterKeys) {
    for (const Value& key : {Value(), Value::null()})
        EXPECT_EQ(raisedNumber([&] { (void)readPlanTasks(data.db.connection(), data.plan, key); }),
                  numberOf(Failure::SyntaxError));
    data.db.run("UPDATE ContractorPlanTask SET MasterTaskKey=Null WHERE ContractorPlanTaskKey=" +
                QString::number(data.planWalls));
    EXPECT_EQ(list().size(), 2U) << "nothing is looked for in an empty lot";
    data.addTask("Other", data.lot, data.hang);
    EXPECT_EQ(raisedNumber([&] { (void)list(); }), numberOf(Failure::WrongArguments));
}

TEST_F(PlanTasks, ACopyIsTheLotsOwnAndKeepsItsLink) {
    const qint64 nameless = data.db.add(
        "ContractorPlanTask",
        {{"ContractorPlanKey", data.plan}, {"CodeKey", data.drywall}, {"MasterTaskKey", data.beams}});
    const qint64 hang = addPlanTask("Hang", data.hang, data.drywall, 12.5);
    add(lotOf(data.lot), {0, hang, hang + 100, nameless});
    const QString inLot = "JobLotTask WHERE JobLotKey=" + QString::number(data.lot);
    EXPECT_EQ(data.count(inLot), 2) << "headings and missing tasks add nothing";
    EXPECT_EQ(data.count(inLot +
                         " AND Name='Hang' AND MasterPrice=12.5 AND CustomTask='Y' AND ParentKey=0 "
                         "AND Child=0 AND ExcludeDependency=0 AND CodeKey=" +
                         QString::number(data.drywall) + " AND MasterTaskKey=" + QString::number(data.hang) +
                         " AND ContractorPlanTaskKey=" + QString::number(hang)),
              1);
    EXPECT_EQ(data.count(inLot + " AND Name IS NULL AND MasterPrice IS NULL AND CustomTask=''"), 1);
}

TEST_F(PlanTasks, ALotKeepsTheFirstPlanNamedOnIt) {
    const qint64 lots = data.count("JobLot");
    const QString filled = "JobLot WHERE PlanName='Aspen' AND ContractorPlanKey=" + plan();
    data.db.run("UPDATE JobLot SET PlanName=Null, ContractorPlanKey=0");
    add(lotOf(data.lot), {data.planWalls});
    EXPECT_EQ(data.count(filled + " AND LotBlock='A'"), 1);
    data.db.run("UPDATE JobLot SET PlanName='Birch', ContractorPlanKey=77");
    add(lotOf(data.lot), {data.planWalls});
    EXPECT_EQ(data.count("JobLot WHERE PlanName='Birch' AND ContractorPlanKey=77"), 1);
    EXPECT_EQ(data.count("JobLot"), lots) << "no second record";
}

TEST_F(PlanTasks, ALotWithoutAKeyIsAddedToTheJob) {
    add(lotOf(Value()), {});
    add(lotOf(Value::null()), {data.planWalls});
    const QString made = "JobLot WHERE PlanName='Aspen' AND LotBlock IS NULL AND Address IS NULL AND "
                         "JobKey=" +
                         QString::number(data.job) + " AND ContractorPlanKey=" + plan();
    EXPECT_EQ(data.count(made), 2) << "also without a task";
    EXPECT_EQ(data.count("JobLotTask WHERE JobLotKey IN (SELECT JobLotKey FROM " + made + ')'), 1);
}

TEST_F(PlanTasks, WhatWasWrittenBeforeAnErrorStays) {
    const qint64 lots = data.count("JobLot");
    data.db.run("DELETE FROM JobLot WHERE JobLotKey=" + QString::number(data.lot));
    EXPECT_EQ(raisedNumber([&] { add(lotOf(data.lot), {data.planWalls}); }),
              numberOf(Failure::NoCurrentRecord))
        << "somebody else deleted the lot";
    EXPECT_EQ(data.count("JobLot"), lots - 1);
    EXPECT_EQ(data.count("JobLotTask"), 0);
}
