// What each action of a user asks of the server. Every statement is a trip over the office's network, so a
// number that grows here makes somebody wait: it may only change on purpose, and never with the number of
// rows. Who opens the first screen connects as well.

#include "jobs/JobScreen.h"
#include "master/FastSearch.h"
#include "server/ServedStatements.h"
#include "timecard/PayrollScreen.h"

namespace tarnwell::test {

namespace {

struct PayrollCounts : Payroll {
    void SetUp() override {
        Payroll::SetUp();
        fill(data.db, "INSERT INTO \"Job\" (\"JobNumber\", \"ContractorKey\") "
                      "SELECT '3' || n, 1 FROM generate_series(100, 299) n");
        fill(data.db, "INSERT INTO \"JobLot\" (\"JobKey\", \"LotBlock\") SELECT 1, 'B-' || n FROM "
                      "generate_series(1, 50) n");
        fill(data.db, "INSERT INTO \"JobLotTask\" (\"JobLotKey\", \"CodeKey\", \"Name\", \"MasterPrice\") "
                      "SELECT 1, (SELECT min(\"CodeKey\") FROM \"JobLotTask\"), 'Task ' || n, 10 FROM "
                      "generate_series(1, 200) n");
    }
    qint64 served(const std::function<void()>& action) { return servedStatements(data.db, action); }
};

TEST_F(PayrollCounts, OfATimeCard) {
    EXPECT_EQ(served([this] { open(); }), 12) << "opening the time card";
    driver->focus("MskField(2)");
    EXPECT_EQ(served([this] { driver->type("1"); }), 8) << "a key in the job lookup";
    EXPECT_EQ(served([this] { combo().setListIndex(1); }), 3) << "choosing a category";
    EXPECT_EQ(served([this] { clickCell("jgJobLots", 2, 3); }), 1) << "choosing a lot";
    clickCell("jgJobLots", 1, 3);
    EXPECT_EQ(served([this] { clickCell("jgTasks", 2, 3); }), 0) << "choosing a task";
    choose("Baker");
    EXPECT_EQ(served([this] { apply(); }), 15) << "a payment";
    script.expect(Answer::Yes);
    EXPECT_EQ(served([this] { apply(); }), 22) << "a payment that is a double one";
    EXPECT_EQ(data.count("JobTaskEmployee"), 2);
}

TEST_F(PayrollCounts, OfAKeyInEachSearch) {
    for (const int type : {SearchType::Job, SearchType::Employee, SearchType::Builder}) {
        const SearchKind& kind = *searchKind(type);
        for (int i = 0; i < static_cast<int>(kind.options.size()); ++i)
            EXPECT_EQ(served([&] { (void)searchRows(data.db.connection(), kind, i, "1"); }), 1)
                << kind.caption << ": " << kind.options[static_cast<std::size_t>(i)].caption;
    }
}

struct JobCounts : JobScreen {
    void SetUp() override {
        JobScreen::SetUp();
        fill(data.db, "INSERT INTO \"JobLot\" (\"JobKey\", \"LotBlock\") SELECT 1, 'C-' || n FROM "
                      "generate_series(1, 498) n");
        fill(data.db, "INSERT INTO \"JobLotTask\" (\"JobLotKey\", \"CodeKey\", \"Name\", \"MasterPrice\") "
                      "SELECT 1, 1, 'Task ' || n, 10 FROM generate_series(1, 200) n");
    }
    qint64 served(const std::function<void()>& action) { return servedStatements(data.db, action); }
};

TEST_F(JobCounts, OfAJobOf500Lots) {
    EXPECT_EQ(served([this] { open(); }), 16) << "opening the jobs screen";
    EXPECT_LE(served([this] { find("optSearch(0)"); }), 11) << "finding and showing the job";
    EXPECT_EQ(lots().RowCount(), 500);
    EXPECT_LE(served([this] { clickCell("jgJobLots", 3, 4); }), 3) << "choosing a lot";
}

} // namespace

} // namespace tarnwell::test
