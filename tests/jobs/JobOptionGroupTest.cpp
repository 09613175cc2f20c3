#include "jobs/JobOptionGroup.h"

#include "jobs/LotData.h"
#include "master/OptionGroups.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

using Lines = std::vector<QString>;

class JobOptionGroup : public ::testing::Test {
protected:
    void SetUp() override {
        data.addGroupTask(group, data.walls, 12.5);
        data.addGroupTask(group, data.hang, 3.0);
    }
    void apply(qint64 groupKey, const QString& name, const Value& lot) {
        Recordset rows;
        rows.Open(optionGroupTasks, data.db.connection(), CursorType::Static, LockType::Optimistic);
        rows.setFilter("CodeKey=" + QString::number(groupKey));
        applyOptionGroup(data.db.connection(), rows, name, lot);
    }

    LotData data;
    qint64 group = data.addGroup("Deck");
};

} // namespace

TEST_F(JobOptionGroup, ALotWithoutTheTasksGetsThemAtNoPrice) {
    apply(group, "Deck", data.lot);
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Hang", "Hang Deck < Hang", "+Walls", "Walls Deck < Walls"}));
    const QString lot = "JobLotTask WHERE JobLotKey=" + QString::number(data.lot);
    EXPECT_EQ(data.count(lot + " AND Child=0 AND MasterPrice=0 AND CustomTask='N' AND ExcludeDependency=-1"),
              2)
        << "the group's tick goes to the base task";
    EXPECT_EQ(data.count(lot +
                         " AND Child=1 AND CustomTask='Y' AND ExcludeDependency=0 AND "
                         "ContractorPlanTaskKey=0 AND MasterPrice=12.5 AND CodeKey=" +
                         QString::number(data.framing) + " AND MasterTaskKey=" + QString::number(data.walls)),
              1);
    EXPECT_EQ(data.count(lot + " AND Child=1 AND MasterPrice=3 AND CodeKey=" + QString::number(data.drywall)),
              1);
}

TEST_F(JobOptionGroup, TheLotsOwnTaskBecomesTheParentAndKeepsTheRest) {
    const qint64 walls = data.addTask("Bearing Walls", data.lot, data.walls, 110.0);
    data.addTask("Walls", data.addLot("B"), data.walls);
    apply(group, "Deck", data.lot);
    EXPECT_EQ(data.tree(data.lot),
              (Lines{"+Bearing Walls", "Bearing Walls Deck < Bearing Walls", "+Hang", "Hang Deck < Hang"}));
    EXPECT_EQ(data.price(walls), 110.0);
}

TEST_F(JobOptionGroup, MoreOptionsGatherUnderTheSameParent) {
    const qint64 second = data.addGroup("Trim");
    data.addGroupTask(second, data.walls, 1.0);
    data.addTask("Walls", data.lot, data.walls);
    data.addTask("Walls twin", data.lot, data.walls);
    apply(group, "Deck", data.lot);
    apply(second, "Trim", data.lot);
    apply(second, "Trim", data.lot);
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Hang", "Hang Deck < Hang", "+Walls", "Walls Deck < Walls",
                                          "Walls Trim < Walls", "Walls Trim < Walls", "Walls twin"}));
}

TEST_F(JobOptionGroup, AnOptionAloneTakesTheNextOneUnderIt) {
    const qint64 alone = data.addTask("Walls Deck", data.lot, data.walls);
    data.place(alone, {alone + 100, 1});
    apply(group, "Deck", data.lot);
    EXPECT_EQ(data.count("JobLotTask WHERE Child=1 AND Name='Walls Deck Deck' AND ParentKey=" +
                         QString::number(alone)),
              1);
    EXPECT_EQ(data.count("JobLotTask WHERE ParentKey=JobLotTaskKey AND Child=1 AND Name='Walls Deck'"), 1)
        << "its own mark stays";
}

TEST_F(JobOptionGroup, ANameIsNotCutAndAMissingOneLeavesTheOptions) {
    const QString longName(45, u'N');
    data.addTask(longName, data.lot, data.walls);
    data.addTask(Value::null(), data.lot, data.hang);
    apply(group, "Deck with rail", data.lot);
    EXPECT_EQ(data.count("JobLotTask WHERE Name='" + longName + " Deck with rail'"), 1);
    EXPECT_EQ(data.count("JobLotTask WHERE Name=' Deck with rail'"), 1);
}

TEST_F(JobOptionGroup, DeletedMasterTasksAreLeftOut) {
    data.db.run("UPDATE MasterTask SET Deleted=-1 WHERE Name='Walls'");
    apply(group, "Deck", data.lot);
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Hang", "Hang Deck < Hang"}));
}

TEST_F(JobOptionGroup, ATaskDeletedSinceTheGroupWasReadIsNamedAsMissing) {
    Recordset rows;
    rows.Open(optionGroupTasks, data.db.connection(), CursorType::Static, LockType::Optimistic);
    rows.setFilter("CodeKey=" + QString::number(group));
    data.db.run("UPDATE MasterTask SET Deleted=-1 WHERE Name='Walls'");
    applyOptionGroup(data.db.connection(), rows, "Deck", data.lot);
    EXPECT_EQ(data.tree(data.lot), (Lines{"+Hang", "Hang Deck < Hang", "+NO MASTER TASK FOUND",
                                          "NO MASTER TASK FOUND Deck < NO MASTER TASK FOUND"}));
    EXPECT_EQ(data.count("JobLotTask WHERE CodeKey=2"), 2);
}

TEST_F(JobOptionGroup, ALotWithoutAKeyIsRefused) {
    EXPECT_EQ(raisedNumber([&] { apply(group, "Deck", Value()); }), numberOf(Failure::SyntaxError));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}
