#include "frame/main/HomeFigures.h"

#include "data/recordset/Workstations.h"
#include "frame/main/FirstSteps.h"
#include "support/TemporaryDatabase.h"
#include "support/TestServer.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

const DateTime today{QDate(2024, 3, 5)};

struct HomeRules : ::testing::Test {
    qint64 addJob(const char* number, const Value& completed = Value::null()) {
        return db.add("Job", {{"JobNumber", number},
                              {"Name", QString("Job ") + number},
                              {"ContractorKey", builder},
                              {"CompletedDate", completed}});
    }
    /// In a lot and a task of their own.
    void pay(qint64 job, double price, const DateTime& when) {
        const qint64 lot = db.add("JobLot", {{"JobKey", job}, {"LotBlock", "A"}});
        const qint64 task = db.add("JobLotTask", {{"JobLotKey", lot}, {"Name", "Walls"}});
        db.add("JobTaskEmployee",
               {{"JobLotTaskKey", task}, {"EmployeeKey", employee}, {"Price", price}, {"Completed", when}});
    }
    [[nodiscard]] QStringList lastJobs(const std::vector<qint64>& remembered = {}) {
        QStringList numbers;
        for (const ListedJob& job : readHomeFigures(db.connection(), today, remembered).lastJobs)
            numbers << job.number;
        return numbers;
    }
    [[nodiscard]] QString steps() {
        QString done;
        for (const FirstStep& step : readFirstSteps(db.connection()))
            done += step.isDone ? u'x' : u'.';
        return done;
    }

    TemporaryDatabase db;
    qint64 builder = db.add("Contractor", {{"Name", "Smith"}});
    qint64 employee = db.add("Employee", {{"SSN", "1"}});
};

} // namespace

TEST_F(HomeRules, CountsOpenJobsAndThePaymentsOfTheDay) {
    HomeFigures figures = readHomeFigures(db.connection(), today, {});
    EXPECT_EQ(figures.openJobs, 0);
    EXPECT_EQ(figures.payments, 0);
    EXPECT_EQ(figures.paid, 0);
    EXPECT_TRUE(figures.lastJobs.empty());
    const qint64 job = addJob("1");
    addJob("2", today);
    addJob("3");
    pay(job, 10.25, today);
    pay(job, 20, {today.date, QTime(23, 59)});
    pay(job, 400, {today.date.addDays(1)});
    pay(job, 800, {today.date.addDays(-1), QTime(23, 59)});
    figures = readHomeFigures(db.connection(), today, {});
    EXPECT_EQ(figures.openJobs, 2);
    EXPECT_EQ(figures.payments, 2);
    EXPECT_EQ(figures.paid, 30.25);
}

TEST_F(HomeRules, ListsTheUsersJobsThenThosePaidLastThenTheNewest) {
    const qint64 one = addJob("1");
    const qint64 two = addJob("2");
    const qint64 done = addJob("3", today);
    addJob("4");
    EXPECT_EQ(lastJobs(), (QStringList{"4", "2", "1"})) << "the newest open ones";
    pay(two, 1, today);
    pay(done, 1, today);
    pay(one, 1, {today.date.addYears(-1)});
    EXPECT_EQ(lastJobs(), (QStringList{"1", "2", "4"})) << "in the order of entry, whatever their date";
    EXPECT_EQ(lastJobs({done, 999, two}), (QStringList{"3", "2", "1"})) << "999 was deleted";
    pay(two, 1, today);
    EXPECT_EQ(lastJobs(), (QStringList{"2", "1", "4"}));
}

TEST_F(HomeRules, TicksOffTheStepsToTheFirstPayment) {
    EXPECT_EQ(steps(), ".x...");
    EXPECT_EQ(readFirstSteps(db.connection()).front().screen, "frmMasterCodes");
    const qint64 category = db.add("Code", {{"Code1", 2}, {"Description", "Framing"}});
    EXPECT_EQ(steps(), ".x...");
    EXPECT_EQ(readFirstSteps(db.connection()).front().screen, "frmMasterTasks");
    db.add("MasterTask", {{"CodeKey", category}, {"Name", "Walls"}});
    EXPECT_EQ(steps(), "xx...");
    db.add("ContractorPlan", {{"ContractorKey", builder}, {"PlanName", "Aspen"}});
    EXPECT_EQ(steps(), "xxx..");
    const qint64 job = addJob("1");
    EXPECT_EQ(steps(), "xxx..");
    db.add("JobLot", {{"JobKey", job}, {"LotBlock", "A"}});
    EXPECT_EQ(steps(), "xxxx.");
    pay(job, 1, today);
    EXPECT_EQ(steps(), "") << "the figures take their place";
}

TEST_F(HomeRules, CountsTheWorkstationsWhereTheEngineKnowsThem) {
    const bool isServer = !testServer().isEmpty();
    const auto known = [&](int count) { return isServer ? std::optional(count) : std::nullopt; };
    EXPECT_EQ(workstations(db.connection()), known(1));
    const auto second = db.secondWorkstation();
    EXPECT_EQ(workstations(db.connection()), known(2));
}

} // namespace tarnwell::test
