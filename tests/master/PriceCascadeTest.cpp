#include "master/PriceCascade.h"

#include "CatalogueData.h"
#include "data/RunTimeError.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

/// One copy of the task in each place that a cascade may or must not reach.
struct PriceCascadeTest : ::testing::Test {
    CatalogueData data;
    qint64 inPlan = data.addCopy("ContractorPlanTask", "ContractorPlanKey", data.plan, data.walls);
    qint64 inGroup = data.addCopy("ContractorOptionGroup", "ContractorKey", data.builder, data.walls);
    qint64 unpaid = data.addLotTask(data.openLot, data.walls);
    qint64 paid = data.addLotTask(data.openLot, data.walls);
    qint64 closed = data.addLotTask(data.closedLot, data.walls);
    qint64 other = data.addLotTask(data.openLot, data.walls + 1000);
    CommittedTask task{data.walls, "New", 12.5, true};

    PriceCascadeTest() { data.pay(paid); }

    void apply(const CascadeChoice& choice) { applyCascade(data.db.connection(), task, choice); }
    /// "Name|price|flag" of a copy; the name is left out for a group's row.
    QString row(const QString& table, const QString& keyColumn, qint64 key) {
        Recordset rows;
        rows.Open("SELECT * FROM " + table + " WHERE " + keyColumn + "=" + QString::number(key),
                  data.db.connection());
        const QString name = rows.FieldIndex("Name") < 0 ? QString() : rows["Name"].toText();
        return name + "|" + rows["MasterPrice"].toText() + "|" + rows["ExcludeDependency"].toText();
    }
    QString planRow() { return row("ContractorPlanTask", "ContractorPlanTaskKey", inPlan); }
    QString groupRow() { return row("ContractorOptionGroup", "OptionGroupKey", inGroup); }
    QString lotRow(qint64 key) { return row("JobLotTask", "JobLotTaskKey", key); }
};

struct Reach {
    const char* fault;
    CascadeChoice choice;
    const char* plan;
    const char* job;
    const char* group;
};

constexpr const char* oldRow = "Old|7|False";
constexpr const char* oldGroup = "|7|False";

struct CascadeReachTest : PriceCascadeTest, ::testing::WithParamInterface<Reach> {};

TEST_P(CascadeReachTest, ChangesTheChosenFieldsInTheChosenPlacesAlone) {
    SCOPED_TRACE(GetParam().fault);
    apply(GetParam().choice);
    EXPECT_EQ(planRow(), GetParam().plan);
    EXPECT_EQ(lotRow(unpaid), GetParam().job);
    EXPECT_EQ(groupRow(), GetParam().group);
    for (const qint64 untouched : {paid, closed, other})
        EXPECT_EQ(lotRow(untouched), oldRow);
}

INSTANTIATE_TEST_SUITE_P(
    Targets, CascadeReachTest,
    ::testing::Values(
        Reach{"no update", {0, true, true, true}, oldRow, oldRow, oldGroup},
        Reach{"nothing chosen in the list", {-1, true, true, true}, oldRow, oldRow, oldGroup},
        Reach{"no field ticked", {1, false, false, false}, oldRow, oldRow, oldGroup},
        Reach{"everywhere", {1, true, true, true}, "New|12.5|True", "New|12.5|True", "|12.5|True"},
        Reach{
            "jobs by the builders' target", {2, true, true, false}, "New|12.5|False", oldRow, "|12.5|False"},
        Reach{"builders by the jobs' target", {3, false, true, true}, oldRow, "Old|12.5|True", oldGroup},
        Reach{"a name in the groups' statement", {2, true, false, false}, "New|7|False", oldRow, oldGroup},
        Reach{"the sign of the flag", {1, false, false, true}, "Old|7|True", "Old|7|True", "|7|True"}));

TEST_F(PriceCascadeTest, StoresTheFlagAsYesAndNoAreStored) {
    apply({.target = CascadeTarget::BuildersAndJobs, .exclude = true});
    EXPECT_EQ(data.db.ask("SELECT Count(*) FROM JobLotTask WHERE ExcludeDependency=-1"), Value(1));
    task.excludeDependency = false;
    apply({.target = CascadeTarget::BuildersAndJobs, .exclude = true});
    EXPECT_EQ(data.db.ask("SELECT Count(*) FROM JobLotTask WHERE ExcludeDependency=0"), Value(4));
    EXPECT_EQ(groupRow(), oldGroup);
}

TEST_F(PriceCascadeTest, CarriesNegativeAndHugePricesAsTheyAre) {
    for (const double price : {-3.25, 1e20, 0.0}) {
        task.price = price;
        apply({.target = CascadeTarget::Jobs, .price = true});
        EXPECT_EQ(
            data.db.ask("SELECT MasterPrice FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(unpaid)),
            Value(price));
    }
}

TEST_F(PriceCascadeTest, ABrokenStatementLeavesEverythingAsItWas) {
    const int syntaxError = numberOf(Failure::SyntaxError);
    task.price = Value::null();
    for (const int target : {1, 2, 3})
        EXPECT_EQ(raisedNumber([&] { apply({target, true, true, true}); }), syntaxError);
    task.price = 5;
    task.name = "Owner's";
    EXPECT_EQ(raisedNumber([&] { apply({1, true, true, false}); }), syntaxError);
    task.name = "New";
    task.price = "ContractorPlanTaskKey"; // no column of the option groups alone, which come last
    EXPECT_EQ(raisedNumber([&] { apply({1, true, true, false}); }), numberOf(Failure::NoSuchColumn));
    EXPECT_EQ(planRow(), oldRow);
    EXPECT_EQ(lotRow(unpaid), oldRow);
    EXPECT_EQ(groupRow(), oldGroup);
    data.db.connection().BeginTrans(); // none is left open
    data.db.connection().RollbackTrans();
}

TEST_F(PriceCascadeTest, AnUnfitNameDoesNoHarmWhereNoJobTakesIt) {
    task.name = "Owner's";
    data.pay(unpaid);
    apply({.target = CascadeTarget::Jobs, .name = true});
    EXPECT_EQ(lotRow(unpaid), oldRow);
}

} // namespace

} // namespace tarnwell::test
