#include "jobs/TaskTree.h"

#include "jobs/LotData.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

using Lines = std::vector<QString>;

class TaskTree : public ::testing::Test {
protected:
    void remove(qint64 task) {
        const QString from = LotData::fromTask(task);
        const TreePlace place{data.db.ask("SELECT ParentKey" + from).toLong(),
                              data.db.ask("SELECT Child" + from).toLong()};
        deleteFromTree(data.db.connection(), place, [&] { data.db.run("DELETE" + from); });
    }
    [[nodiscard]] LotToCopy source() const {
        return {data.lot, data.job, "A", "Aspen", Value::null(), data.plan};
    }
    qint64 copy() { return copyLot(data.db.connection(), source()); }

    LotData data;
};

} // namespace

TEST_F(TaskTree, AParentStaysOneUntilItsLastOptionGoes) {
    const qint64 walls = data.addTask("Walls", data.lot);
    const qint64 arch = data.addOption("Walls Arch", walls);
    const qint64 bay = data.addOption("Walls Bay", walls);
    remove(arch);
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Walls", "Walls Bay < Walls"}));
    remove(bay);
    EXPECT_EQ(data.tree(data.lot), (Lines{"Walls"}));
}

TEST_F(TaskTree, OptionsOutliveTheirParentAsPlainTasks) {
    const qint64 walls = data.addTask("Walls", data.lot);
    data.addOption("Walls Arch", walls);
    data.addOption("Walls Bay", walls);
    data.addOption("Beams Oak", data.addTask("Beams", data.lot));
    remove(walls);
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Beams", "Beams Oak < Beams", "Walls Arch", "Walls Bay"}));
    EXPECT_EQ(data.count("JobLotTask WHERE MasterPrice=5"), 3) << "they keep their prices";
}

TEST_F(TaskTree, APlainTaskLeavesTheOthersAlone) {
    data.addOption("Walls Arch", data.addTask("Walls", data.lot));
    remove(data.addTask("Beams", data.lot));
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Walls", "Walls Arch < Walls"}));
}

TEST_F(TaskTree, AnOptionWithoutItsParentIsAnError) {
    const qint64 gone = data.addTask("Gone", data.lot);
    EXPECT_EQ(raisedNumber([&] {
                  deleteFromTree(data.db.connection(), {gone, 1},
                                 [&] { data.db.run("DELETE" + LotData::fromTask(gone)); });
              }),
              numberOf(Failure::NoCurrentRecord));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(TaskTree, TheCopyIsLinkedInItselfAndTheSourceStays) {
    const qint64 walls = data.addTask("Walls", data.lot);
    data.addOption("Walls Arch", walls);
    data.addOption("Walls Bay", walls);
    data.addTask("Beams", data.lot);
    const Lines before = data.tree(data.lot);
    EXPECT_EQ(data.tree(copy()), before);
    EXPECT_EQ(data.tree(data.lot), before);
}

// What stands between a parent and its option, in the order of the copy, parts them.
TEST_F(TaskTree, AnOptionBehindAnotherTaskIsCopiedPlain) {
    const qint64 walls = data.addTask("Walls", data.lot);
    data.addOption("Walls Arch", walls);
    data.addOption("Walls Nook", walls);
    data.addTask("Walls Bay", data.lot);
    EXPECT_EQ(data.tree(copy()), (Lines{"+Walls", "Walls Arch < Walls", "Walls Bay", "Walls Nook"}));
}

TEST_F(TaskTree, AParentRightBehindAParentMakesTheFirstOnePlainInTheSource) {
    const qint64 walls = data.addTask("Walls", data.lot);
    data.addOption("Walls Nook", walls);
    data.addOption("Walls Bay Oak", data.addTask("Walls Bay", data.lot));
    EXPECT_EQ(data.tree(copy()), (Lines{"+Walls", "+Walls Bay", "Walls Bay Oak < Walls Bay", "Walls Nook"}));
    EXPECT_EQ(data.tree(data.lot),
              (Lines{"Walls", "+Walls Bay", "Walls Bay Oak < Walls Bay", "Walls Nook < Walls"}));
}

TEST_F(TaskTree, AnOptionOfAnEarlierParentIsCopiedPlainAndEndsTheRun) {
    const qint64 beams = data.addTask("Beams", data.lot);
    const qint64 walls = data.addTask("Walls", data.lot);
    data.addOption("Beams Oak", beams);
    data.addOption("Walls Arch", walls);
    data.addOption("Walls Bay", beams);
    data.addOption("Walls Nook", walls);
    EXPECT_EQ(data.tree(copy()), (Lines{"+Beams", "Beams Oak < Beams", "+Walls", "Walls Arch < Walls",
                                        "Walls Bay", "Walls Nook"}));
}

TEST_F(TaskTree, TheLotIsCopiedAsItsGridShowsIt) {
    data.db.run("UPDATE JobLot SET ExcludeDependencyCheck=-1");
    const QString key = QString::number(copy());
    EXPECT_EQ(data.count("JobLot WHERE JobLotKey=" + key + " AND JobKey=" + QString::number(data.job) +
                         " AND LotBlock='A' AND PlanName='Aspen' AND Address='' AND ContractorPlanKey=" +
                         QString::number(data.plan) + " AND ExcludeDependencyCheck=0"),
              1);
}

TEST_F(TaskTree, TasksOfAllCategoriesAreCopiedWithTheirOwnPricesButUnscheduled) {
    data.db.add("JobLotTask", {{"JobLotKey", data.lot},
                               {"MasterTaskKey", data.hang},
                               {"CodeKey", data.drywall},
                               {"ContractorPlanTaskKey", data.planWalls},
                               {"ContractorTaskOptionKey", 7},
                               {"Name", Value::null()},
                               {"MasterPrice", 3.25},
                               {"CustomTask", Value::null()},
                               {"ExcludeDependency", true},
                               {"StartDate", dateFromText("01/15/02")},
                               {"StopDate", dateFromText("01/16/02")},
                               {"EmployeeKey", 1}});
    data.addTask("Beams", data.lot, 0, Value::null());
    const qint64 lot = copy();
    EXPECT_EQ(data.tree(lot), (Lines{"Null", "Beams"}));
    EXPECT_EQ(data.count("JobLotTask WHERE JobLotKey=" + QString::number(lot) + " AND MasterTaskKey=" +
                         QString::number(data.hang) + " AND CodeKey=" + QString::number(data.drywall) +
                         " AND ContractorPlanTaskKey=" + QString::number(data.planWalls) +
                         " AND ContractorTaskOptionKey=7 AND MasterPrice=3.25 AND CustomTask IS NULL AND "
                         "ExcludeDependency=-1 AND StartDate IS NULL AND StopDate IS NULL AND EmployeeKey=0"),
              1);
    EXPECT_EQ(data.count("JobLotTask WHERE Name='Beams' AND MasterPrice IS NULL"), 2);
}

TEST_F(TaskTree, TheNewLotStaysWhenItsTasksCanNotBeRead) {
    LotToCopy unwritten = source();
    unwritten.jobLotKey = Value();
    EXPECT_EQ(raisedNumber([&] { copyLot(data.db.connection(), unwritten); }),
              numberOf(Failure::SyntaxError));
    EXPECT_EQ(data.count("JobLot"), 2);
}
