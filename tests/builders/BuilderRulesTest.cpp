#include "builders/BuilderData.h"
#include "builders/BuilderRecord.h"
#include "builders/CommitWritten.h"
#include "builders/OpenJobs.h"
#include "builders/PlanCopy.h"
#include "builders/PricePropagation.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

TEST(BuilderRecordRules, ANewBuilderHasAnEmptyNameAndKeepsEveryField) {
    BuilderData data;
    Connection& connection = data.db.connection();
    const qint64 key = addBuilder(connection);
    EXPECT_EQ(data.db.ask("SELECT Name FROM Contractor WHERE ContractorKey=" + QString::number(key)),
              Value(""));
    const BuilderTexts texts{"O'Neill", "1 Elm", "Suite 2", "Reno", "NV", "02134", "L-7"};
    saveBuilder(connection, key, texts);
    EXPECT_EQ(readBuilder(connection, key), texts);
    EXPECT_EQ(readBuilder(connection, data.builder), (BuilderTexts{"Abel Homes"}));
    EXPECT_EQ(readBuilder(connection, 0), BuilderTexts());
}

TEST(BuilderRecordRules, AJobKeepsItsBuilderAndEveryPlan) {
    BuilderData data;
    const qint64 job = data.addJob("1001", "Elm");
    EXPECT_EQ(raisedNumber([&] { deleteBuilder(data.db.connection(), data.builder); }),
              numberOf(Failure::Constraint));
    EXPECT_EQ(data.count("Contractor"), 1);
    EXPECT_EQ(data.count("ContractorPlanTask"), 1);
    data.db.run("DELETE FROM Job WHERE JobKey=" + QString::number(job));
    deleteBuilder(data.db.connection(), data.builder);
    EXPECT_EQ(data.count("Contractor") + data.count("ContractorPlan") + data.count("ContractorPlanTask"), 0);
}

TEST(BuilderRecordRules, PlansAndTheirTasksStandByName) {
    BuilderData data;
    const auto names = [&data](const QString& sql, const char* column) {
        QStringList result;
        Recordset rows;
        rows.Open(sql, data.db.connection());
        for (; !rows.atEnd(); rows.MoveNext())
            result << rows[column].toText();
        return result.join(' ');
    };
    data.addPlan("Cedar", data.builder);
    data.addPlan("Birch", data.builder);
    data.addPlanTask("Beams", data.plan, data.beams, data.framing, 1.0);
    data.addPlanTask("Hang", data.plan, data.hang, data.drywall, 1.0);
    EXPECT_EQ(names(plansOfBuilder(data.builder), "PlanName"), "Aspen Birch Cedar");
    EXPECT_EQ(names(tasksOfPlan(data.plan, data.framing), "Name"), "Beams Walls");
}

TEST(OpenJobsRules, LinesAreCutAndOnlyOpenJobsStand) {
    BuilderData data;
    const qint64 first = data.addJob("1001", "A name of thirty characters xx");
    const qint64 longNumber = data.addJob("30-character-number-xxxxxxxxxx", Value::null());
    data.addJob("2000", "Done", DateTime{QDate(2024, 1, 1)});
    const qint64 covered = data.addJob("123456789012345", "Oak");
    const std::vector<ListItem> expected = {
        {"JOB #     |NAME          ", 0},
        {"30-character-number-xxxxx", longNumber},
        {"1234567890|Oak5          ", covered},
        {"1001      |A name of thir", first},
    };
    EXPECT_EQ(readOpenJobs(data.db.connection(), data.builder), expected);
    EXPECT_EQ(readOpenJobs(data.db.connection(), 0).size(), 1U);
}

TEST(PlanCopyRules, TheCopySharesNoRowWithItsSource) {
    BuilderData data;
    data.addPlanTask("Hang", data.plan, data.hang, data.drywall, 21.0);
    data.db.add("ContractorPlanTask", {{"ContractorPlanKey", data.plan}, {"MasterPrice", Value::null()}});
    const qint64 copy = copyPlan(data.db.connection(), data.builder, data.plan, "Aspen");
    const QString of = "ContractorPlanTask WHERE ContractorPlanKey=" + QString::number(copy);
    EXPECT_EQ(
        data.db.ask("SELECT PlanName FROM ContractorPlan WHERE ContractorPlanKey=" + QString::number(copy)),
        Value("Copied Aspen"));
    EXPECT_EQ(data.count(of), 3);
    EXPECT_EQ(data.count(of + " AND MasterPrice IS NULL AND Name=''"), 1);
    EXPECT_EQ(data.count(of + " AND ExcludeDependency=-1 AND MasterPrice=110 AND MasterTaskKey=" +
                         QString::number(data.walls)),
              1);
    data.db.run("UPDATE ContractorPlanTask SET MasterPrice=1 WHERE ContractorPlanKey=" +
                QString::number(copy));
    data.db.run("DELETE FROM ContractorPlan WHERE ContractorPlanKey=" + QString::number(copy));
    EXPECT_EQ(data.count("ContractorPlanTask WHERE MasterPrice IN (110, 21)"), 2)
        << "the source is untouched";
}

TEST(CommitWritten, TheFirstErrorIsRaisedAlsoWhenTheEngineRolledBackByItself) {
    BuilderData data;
    Connection& connection = data.db.connection();
    const auto write = [&](bool rolledBack) {
        commitWritten(connection, [&] {
            (void)addBuilder(connection);
            if (rolledBack)
                connection.RollbackTrans();
            raise(Failure::DiskFull);
        });
    };
    for (const bool rolledBack : {true, false}) {
        EXPECT_EQ(raisedNumber([&] { write(rolledBack); }), numberOf(Failure::DiskFull));
        EXPECT_EQ(data.count("Contractor"), rolledBack ? 1 : 2) << "what was written before stays";
    }
}

class Propagation : public ::testing::Test {
protected:
    int propagate(int column = propagatedColumn, const Value& planTask = {}) {
        const std::vector<qint64> jobs{0, open, closed};
        return propagatePrice(data.db.connection(),
                              {column, planTask.isEmpty() ? Value(data.planWalls) : planTask, 99.5}, jobs);
    }

    BuilderData data;
    qint64 open = data.addJob("1001", "Open");
    qint64 spared = data.addJob("1002", "Spared");
    qint64 closed = data.addJob("1003", "Closed", DateTime{QDate(2024, 1, 1)});
};

TEST_F(Propagation, ReachesEveryLotOfTheOpenSelectedJobs) {
    const qint64 planBeams = data.addPlanTask("Beams", data.plan, data.beams, data.framing, 5.0);
    const qint64 lot = data.addLotTask(open, data.planWalls), again = data.addLotTask(open, data.planWalls);
    const std::vector<qint64> others = {data.addLotTask(open, planBeams), data.addLotTask(open, 0),
                                        data.addLotTask(spared, data.planWalls),
                                        data.addLotTask(closed, data.planWalls)};
    EXPECT_EQ(propagate(), 2);
    EXPECT_EQ(data.price(lot), 99.5);
    EXPECT_EQ(data.price(again), 99.5);
    for (const qint64 other : others)
        EXPECT_EQ(data.price(other), 1.0) << other;
}

TEST_F(Propagation, ActsOnlyForItsColumnAndAStoredTask) {
    const qint64 lot = data.addLotTask(open, data.planWalls), free = data.addLotTask(open, 0);
    for (const int column : {4, 6, 7, 8})
        EXPECT_EQ(propagate(column), 0);
    EXPECT_EQ(propagate(propagatedColumn, 0), 0);
    EXPECT_EQ(propagate(propagatedColumn, Value::null()), 0);
    EXPECT_EQ(data.price(lot) + data.price(free), 2.0);
}
