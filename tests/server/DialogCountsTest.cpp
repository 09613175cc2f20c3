// What opening and leaving each screen and dialog asks of the server, however many rows there are.

#include "builders/BuilderScreen.h"
#include "frame/Forms.h"
#include "jobs/JobScreen.h"
#include "master/frmMasterCodes.h"
#include "master/frmMasterTasks.h"
#include "reports/generator/frmReportParameters.h"
#include "server/ServedStatements.h"
#include "timecard/PayrollScreen.h"
#include "timecard/frmEmployee.h"

namespace tarnwell::test {

namespace {

struct Opened {
    const char* what;
    std::function<void()> open;
    qint64 statements;
};

/// Each is a modal window.
void expectServed(const TemporaryDatabase& database, const std::vector<Opened>& dialogs) {
    for (const auto& [what, open, statements] : dialogs) {
        whenShown([](const ScreenDriver& dialog) { dialog.window().close(); });
        const qint64 served = servedStatements(database, open);
        // What is read again when something was written is read again for another catalog's writes, too.
        EXPECT_TRUE(served == statements || served == statements + 1) << what << ": " << served;
    }
}

/// More of everything that a dialog offers.
void fillCatalogue(const TemporaryDatabase& database) {
    for (const QByteArray& sql :
         {QByteArray(
              "INSERT INTO \"Code\" (\"Code1\", \"Code2\", \"Description\") "
              "SELECT CASE n % 3 WHEN 0 THEN 5 ELSE 2 END, 1, 'Zone ' || n FROM generate_series(1, 90) n"),
          QByteArray("INSERT INTO \"MasterTask\" (\"CodeKey\", \"Name\", \"MasterPrice\") "
                     "SELECT 1 + n % 60, 'Task ' || n, 10 FROM generate_series(1, 300) n"),
          QByteArray("INSERT INTO \"ContractorPlan\" (\"ContractorKey\", \"PlanName\") "
                     "SELECT 1, 'Plan ' || n FROM generate_series(1, 40) n"),
          QByteArray("INSERT INTO \"ContractorPlanTask\" (\"ContractorPlanKey\", \"CodeKey\", \"Name\") "
                     "SELECT 1, 1 + n % 60, 'Task ' || n FROM generate_series(1, 300) n"),
          QByteArray(
              "INSERT INTO \"Employee\" (\"LastName\") SELECT 'Name ' || n FROM generate_series(1, 99) n")})
        fill(database, sql);
}

struct BuilderCounts : BuilderScreen {
    void SetUp() override {
        BuilderScreen::SetUp();
        fillCatalogue(data.db);
    }
};

TEST_F(BuilderCounts, OfTheDialogs) {
    EXPECT_EQ(servedStatements(data.db, [this] { open(); }), 15) << "opening the builders screen";
    openBuilder();
    expectServed(data.db, {{"finding a builder", [this] { driver->clickToolbar("Find"); }, 0}});
    driver->focus("jgTasks");
    expectServed(data.db, {{"picking tasks", [this] { driver->clickToolbar("Task"); }, 3},
                           {"option groups", [this] { driver->clickToolbar("Group"); }, 15}});
}

struct JobDialogCounts : JobScreen {
    void SetUp() override {
        JobScreen::SetUp();
        fillCatalogue(data.db);
    }
};

TEST_F(JobDialogCounts, OfTheDialogs) {
    EXPECT_EQ(servedStatements(data.db, [this] { open(); }), 16) << "opening the jobs screen";
    expectServed(data.db, {{"a new job", [this] { driver->clickToolbar("Add"); }, 2}});
    openJob();
    expectServed(data.db, {{"finding a job", [this] { driver->clickToolbar("Find"); }, 0}});
    clickCell("jgJobLots", 2, 3);
    driver->focus("jgTasks");
    expectServed(data.db, {{"picking tasks", [this] { driver->clickToolbar("Task"); }, 2},
                           {"option groups of a lot", [this] { driver->clickToolbar("Group"); }, 5}});
    clickCell("jgJobLots", 2, 4);
    expectServed(data.db, {{"filling a lot from a plan", [this] { driver->press(Qt::Key_F4); }, 2}});
}

struct OtherCounts : Payroll {
    void SetUp() override {
        Payroll::SetUp();
        fillCatalogue(data.db);
    }
};

TEST_F(OtherCounts, OfTheOtherScreens) {
    const auto opening = [this]<class Form>(Form& form) {
        return servedStatements(data.db, [&] { ScreenDriver shown(form); });
    };
    EXPECT_EQ(opening(theForm<frmMasterCodes>()), 10) << "master codes";
    EXPECT_EQ(opening(theForm<frmMasterTasks>()), 5) << "master tasks";
    EXPECT_EQ(opening(theForm<frmEmployee>()), 2) << "employees";
    EXPECT_EQ(opening(theForm<frmReportParameters>()), 8) << "reports";
    data.addPayment(data.task, data.ann, 10);
    openJob();
    driver->focus("jgTasks");
    driver->press(Qt::Key_Down);
    auto& list = driver->find<ListBox>("lstTaskHistory");
    const QPoint payment = list.visualItemRect(list.item(1)).center();
    driver->click("lstTaskHistory", payment);
    expectServed(data.db,
                 {{"a payment's notes", [&] { driver->doubleClick("lstTaskHistory", payment); }, 3}});
}

} // namespace

} // namespace tarnwell::test
