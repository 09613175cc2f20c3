#include "jobs/JobRecord.h"

#include "jobs/LotData.h"
#include "jobs/LotTasks.h"
#include "master/JobLots.h"
#include "support/RaisedNumber.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

TEST(JobRecords, ANewJobIsOpenAndReadsAsEmptyTexts) {
    LotData data;
    const qint64 job = addJob(data.db.connection(), data.builder, "J-1", "Oak");
    const ShownJob shown = readJob(data.db.connection(), job);
    EXPECT_EQ(shown.record, (JobRecord{.jobNumber = "J-1", .name = "Oak", .foreman = ""}));
    EXPECT_EQ(shown.builderName, "Abel Homes") << "two names stand in the row";
    EXPECT_EQ(shown.contractorKey, data.builder);
}

TEST(JobRecords, ASavedJobComesBackAndItsBuilderStays) {
    LotData data;
    const JobRecord record{
        .jobNumber = "J-2", .name = "Ash", .foreman = "Any/Body", .completedDate = DateTime{{2024, 3, 5}}};
    saveJob(data.db.connection(), data.job, record);
    EXPECT_EQ(readJob(data.db.connection(), data.job).record, record);
    EXPECT_EQ(readJob(data.db.connection(), data.job).contractorKey, data.builder);
    saveJob(data.db.connection(), 0, {});
    JobRecord wrong = record;
    wrong.name = "Oak";
    wrong.completedDate = "soon";
    EXPECT_EQ(raisedNumber([&] { saveJob(data.db.connection(), data.job, wrong); }),
              makeError(Failure::WrongType).number());
    EXPECT_EQ(readJob(data.db.connection(), data.job).record, record) << "all of it or none";
}

TEST(JobRecords, AJobThatNoLongerExistsIsAnError) {
    LotData data;
    deleteJob(data.db.connection(), data.job);
    EXPECT_EQ(data.count("JobLot"), 0);
    const int missing = makeError(Failure::NoCurrentRecord).number();
    EXPECT_EQ(raisedNumber([&] { (void)readJob(data.db.connection(), data.job); }), missing);
    EXPECT_EQ(raisedNumber([&] { saveJob(data.db.connection(), data.job, {}); }), missing);
}

TEST(LotTasks, LotsStandByLotBlockAndTasksByNameParentAndChild) {
    LotData data;
    const auto keys = [&data](const QString& sql) {
        std::vector<qint64> result;
        Recordset rows;
        rows.Open(sql, data.db.connection());
        for (; !rows.atEnd(); rows.MoveNext())
            result.push_back(rows.field(0).toLong());
        return result;
    };
    const qint64 lotC = data.addLot("C"), lotB = data.addLot("B");
    EXPECT_EQ(keys(lotsOfJob(data.job)), (std::vector<qint64>{data.lot, lotB, lotC}));

    const qint64 last = data.addTask("Walls", data.lot), child = data.addTask("Same", data.lot),
                 parent = data.addTask("Same", data.lot), plain = data.addTask("Same", data.lot),
                 first = data.addTask("Beams", data.lot);
    data.place(child, {parent, 1});
    data.place(parent, {parent, 0});
    data.addTask("Other lot", lotB);
    EXPECT_EQ(keys(taskRowsOfLot(data.lot, data.framing)),
              (std::vector<qint64>{first, plain, parent, child, last}));
    EXPECT_TRUE(keys(taskRowsOfLot(data.lot, data.drywall)).empty());
}

TEST(LotTasks, EmployeesOnOfferAreActiveAndHaveBothNames) {
    TemporaryDatabase db;
    const auto add = [&db](const Value& last, const Value& first, bool inactive) {
        return db.add("Employee", {{"LastName", last}, {"FirstName", first}, {"Inactive", inactive}});
    };
    const qint64 baker = add("Baker", "Bob", false);
    const qint64 archer = add("Archer", "Ann", false);
    add("Cole", "Cy", true);
    add("Dunn", Value::null(), false);
    EXPECT_EQ(readTaskEmployees(db.connection()),
              (std::vector<ListItem>{{"Archer\\Ann", archer}, {"Baker\\Bob", baker}}));
}

TEST(LotTasks, TheTreeTellsARowsRole) {
    EXPECT_EQ(taskRole(0, 0), TaskRole::Plain);
    EXPECT_EQ(taskRole(Value(), Value()), TaskRole::Plain) << "a new row";
    EXPECT_EQ(taskRole(7, 0), TaskRole::Parent);
    EXPECT_EQ(taskRole(7, 1), TaskRole::Option);
}
