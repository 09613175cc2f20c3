#include "builders/TaskPicking.h"

#include "builders/BuilderData.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class TaskPicking : public ::testing::Test {
protected:
    /// The same list by one query for each category and each task.
    std::vector<ListItem> walk(const QString& taken) {
        std::vector<ListItem> lines;
        Recordset categories;
        categories.Open("SELECT * FROM Code WHERE Deleted=0 AND Code1=2 ORDER BY Description",
                        data.db.connection());
        for (; !categories.atEnd(); categories.MoveNext()) {
            bool armed = true;
            Recordset tasks;
            tasks.Open("SELECT * FROM MasterTask WHERE Deleted=0 AND CodeKey=" +
                           categories["CodeKey"].toText() + " ORDER BY Name",
                       data.db.connection());
            for (; !tasks.atEnd(); tasks.MoveNext()) {
                if (!data.db.ask(taken + tasks["MasterTaskKey"].toText()).isEmpty())
                    continue;
                if (std::exchange(armed, false))
                    lines.emplace_back("----" + categories["Description"].toText(), 0);
                lines.emplace_back(tasks["Name"].toText().left(30).leftJustified(50),
                                   tasks["MasterTaskKey"].toLong());
            }
        }
        return lines;
    }
    PickingList list(int mode, const PickingTarget& target) {
        return readPickingList(data.db.connection(), mode, target);
    }
    void add(int mode, const PickingTarget& target, const std::vector<ListItem>& lines,
             bool nonLinked = false) {
        addPicked(data.db.connection(), mode, target, nonLinked, lines);
    }

    BuilderData data;
    qint64 group = data.db.add("Code", {{"Code1", 5}, {"Code2", data.builder}, {"Description", "Deck"}});
    qint64 lot = data.db.add("JobLot", {{"JobKey", data.addJob("1", "Elm")}});
};

TEST_F(TaskPicking, OneStatementListsWhatTheWalkLists) {
    data.addMaster("A name of more than thirty characters", data.drywall, 1.0);
    data.addMaster("Gone", data.framing, 1.0, true);
    data.addMaster("Unseen", data.addCategory("Deleted", true), 1.0);
    for (const char* twin : {"Twin", "Twin"})
        data.addMaster("Same", data.addCategory(twin), 1.0);
    data.addCategory("Empty");
    data.db.add("ContractorPlanTask", {{"ContractorPlanKey", data.plan}, {"MasterTaskKey", Value::null()}});
    data.db.add("JobLotTask", {{"JobLotKey", lot}, {"MasterTaskKey", data.hang}});
    data.db.add("ContractorOptionGroup",
                {{"ContractorKey", data.builder}, {"CodeKey", group}, {"MasterTaskKey", data.beams}});
    const qint64 otherGroup = data.db.add("Code", {{"Code1", 5}, {"Description", "Bay"}});
    data.db.add("ContractorOptionGroup",
                {{"ContractorKey", data.builder}, {"CodeKey", otherGroup}, {"MasterTaskKey", data.walls}});
    const auto key = [](qint64 number) { return QString::number(number); };
    EXPECT_EQ(list(PickingMode::Plan, {data.plan}).lines,
              walk("SELECT * FROM ContractorPlanTask WHERE ContractorPlanKey=" + key(data.plan) +
                   " AND MasterTaskKey="));
    EXPECT_EQ(list(PickingMode::Lot, {lot}).lines,
              walk("SELECT * FROM JobLotTask WHERE JobLotKey=" + key(lot) + " AND MasterTaskKey="));
    EXPECT_EQ(list(PickingMode::OptionGroup, {data.builder, group}).lines,
              walk("SELECT OptionGroupKey FROM ContractorOptionGroup WHERE ContractorKey=" +
                   key(data.builder) + " AND CodeKey=" + key(group) + " AND MasterTaskKey="));
}

TEST_F(TaskPicking, ATakenCategoryShowsNoHeading) {
    data.addPlanTask("Hang", data.plan, data.hang, data.drywall, 1.0);
    const std::vector<ListItem> left = {{"----Framing", 0}, {QString("Beams").leftJustified(50), data.beams}};
    EXPECT_EQ(list(PickingMode::Plan, {data.plan}).lines, left);
    add(PickingMode::Plan, {data.plan}, left);
    EXPECT_TRUE(list(PickingMode::Plan, {data.plan}).lines.empty());
}

TEST_F(TaskPicking, CopiesWholeTasksAndPassesOverHeadingsAndTheGone) {
    const QString whole = "A name of more than thirty characters";
    const qint64 longName = data.addMaster(whole.toUtf8(), data.drywall, Value::null());
    const qint64 gone = data.addMaster("Gone", data.framing, 1.0, true);
    const qint64 nameless = data.db.add("MasterTask", {{"CodeKey", data.framing}, {"Deleted", false}});
    const std::vector<ListItem> picked = {
        {"----x", 0}, {"", longName}, {"", gone}, {"", data.hang}, {"", nameless}};
    add(PickingMode::Plan, {data.plan}, picked);
    add(PickingMode::Lot, {lot}, picked);
    add(PickingMode::OptionGroup, {data.builder, group}, picked);
    EXPECT_EQ(data.count("ContractorPlanTask"), 4) << "with the plan's own";
    EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='" + whole + "' AND MasterPrice IS NULL"), 1);
    const QString hung =
        " WHERE MasterPrice=20 AND ExcludeDependency=-1 AND MasterTaskKey=" + QString::number(data.hang) +
        " AND CodeKey=";
    EXPECT_EQ(data.count("ContractorPlanTask" + hung + QString::number(data.drywall) + " AND CustomTask='N'"),
              1);
    EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='' AND CustomTask=''"), 1);
    EXPECT_EQ(data.count("JobLotTask" + hung + QString::number(data.drywall) +
                         " AND ParentKey=0 AND Child=0 AND ContractorPlanTaskKey=0"),
              1);
    EXPECT_EQ(data.count("ContractorOptionGroup"), 3);
    EXPECT_EQ(data.count("ContractorOptionGroup" + hung + QString::number(group)), 1);
}

TEST_F(TaskPicking, OptionsComeFromThePlanTaskElseFromTheGeneralNames) {
    data.db.run("DELETE FROM Code WHERE Code1=4");
    data.db.add("Code", {{"Code1", 4}, {"Description", "Upgrade"}, {"Deleted", false}});
    const qint64 task = data.addLotTask(data.addJob("2", "Oak"), data.planWalls);
    const PickingTarget target{
        lot, {}, {task, data.planWalls, task, data.walls, data.framing, QString(45, u'N'), true}};
    PickingList options = list(PickingMode::TaskOptions, target);
    EXPECT_TRUE(options.nonLinked);
    EXPECT_EQ(options.lines, (std::vector<ListItem>{{"Upgrade", 1}}));
    add(PickingMode::TaskOptions, target, options.lines, true);
    EXPECT_EQ(data.count("JobLotTask WHERE Child=1 AND MasterPrice=0 AND CustomTask='Y' AND "
                         "ExcludeDependency=-1 AND Name='" +
                         QString(45, u'N') + " Upgr' AND ParentKey=" + QString::number(task)),
              1);

    std::vector<ListItem> linked;
    for (const char* name : {"Arch", "Bay"})
        linked.emplace_back(
            name,
            data.db.add("ContractorTaskOption",
                        {{"ContractorPlanTaskKey", data.planWalls}, {"Name", name}, {"MasterPrice", 7.5}}));
    options = list(PickingMode::TaskOptions, target);
    EXPECT_FALSE(options.nonLinked);
    EXPECT_EQ(options.lines, linked);
    add(PickingMode::TaskOptions, target, {linked.front()});
    EXPECT_EQ(data.count("JobLotTask WHERE MasterPrice=7.5 AND ContractorTaskOptionKey=" +
                         QString::number(linked.front().key)),
              1);
    EXPECT_EQ(list(PickingMode::TaskOptions, target).lines, (std::vector<ListItem>{linked.back()}));
    PickingTarget otherLot = target;
    otherLot.task.parentKey = data.addLotTask(data.addJob("3", "Ash"), data.planWalls);
    EXPECT_EQ(list(PickingMode::TaskOptions, otherLot).lines, linked) << "a task of another lot takes it too";
}

TEST_F(TaskPicking, SelectAllPassesOverHeadingsAndACapitalY) {
    for (const char* line : {"----Framing", "--", "Custom Y   ", "Y"})
        EXPECT_FALSE(isReachedBySelectAll(line)) << line;
    for (const char* line : {"Bay   ", "-Walls", "Yard", ""})
        EXPECT_TRUE(isReachedBySelectAll(line)) << line;
}

} // namespace
