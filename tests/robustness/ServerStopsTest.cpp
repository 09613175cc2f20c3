#include "master/CatalogueData.h"
#include "master/PriceCascade.h"
#include "reports/drawing/LotBudgetReport.h"
#include "reports/drawing/LotReportTest.h"
#include "reports/drawing/ReportList.h"
#include "reports/drawing/RunReport.h"
#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"
#include "support/TestServer.h"
#include "timecard/PaymentRules.h"
#include "timecard/TimeCardData.h"

namespace tarnwell::test {
namespace {

constexpr auto lostNumber = -2147467259;

/// Ends the server's side of every connection to the database.
void stopServing(const TemporaryDatabase& database) {
    runOnServer(
        connectionValue(database.connectionString(), QLatin1String("Initial Catalog")),
        "SELECT pg_terminate_backend(pid) FROM pg_stat_activity WHERE datname = current_database() AND pid "
        "<> pg_backend_pid()");
}

/// While it lives, the server's side of a connection ends in the middle of a write to the table.
class StopAtWrite {
public:
    StopAtWrite(TemporaryDatabase& database, const char* table)
        : m_database(database), m_drop(dropOf(table)) {
        const QByteArray create = QByteArray("CREATE TRIGGER stop AFTER INSERT OR UPDATE ON \"") + table +
                                  "\" FOR EACH ROW EXECUTE FUNCTION stop()";
        m_database.runBeside(
            {.sqlite = nullptr,
             .postgres = {"CREATE FUNCTION stop() RETURNS trigger LANGUAGE plpgsql AS 'BEGIN "
                          "PERFORM pg_terminate_backend(pg_backend_pid()); RETURN NULL; END'",
                          create.constData()}});
    }
    ~StopAtWrite() {
        m_database.runBeside({.sqlite = nullptr, .postgres = {m_drop.constData(), "DROP FUNCTION stop()"}});
    }
    StopAtWrite(const StopAtWrite&) = delete;
    StopAtWrite& operator=(const StopAtWrite&) = delete;

private:
    static QByteArray dropOf(const char* table) {
        return QByteArray("DROP TRIGGER stop ON \"") + table + '"';
    }

    TemporaryDatabase& m_database;
    QByteArray m_drop;
};

/// The error of a lost connection, in words that need no knowledge of servers.
template <class Routine>
void expectLost(Routine routine) {
    try {
        routine();
        ADD_FAILURE() << "nothing was raised";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), lostNumber);
        EXPECT_TRUE(error.description().startsWith("The connection to the database server was lost."))
            << error.description().toStdString();
    }
}

class ServerStopsAtPayment : public ::testing::Test {
protected:
    PaymentResult pay() {
        return applyPayment(data.db.connection(), selection,
                            {.ask = ask, .logged = logged, .rowDeleted = [] { return false; }});
    }
    void expectRows(qint64 payments, qint64 logRows) {
        EXPECT_EQ(data.count("JobTaskEmployee"), payments);
        EXPECT_EQ(data.count("EmployeeLog"), logRows);
    }

    TimeCardData data;
    Ask ask = [](const MessageRequest&) { return Answer::Yes; };
    std::function<void()> logged = [] {};
    PaymentSelection selection{.jobLotTaskKey = data.task,
                               .codeKey = data.framing,
                               .excludeDependency = false,
                               .taskEmployeeKey = 0,
                               .jobLotKey = data.lot,
                               .excludeDependencyCheck = false,
                               .employeeKey = data.ann,
                               .priceText = "60.00",
                               .completed = DateTime{QDate(2024, 3, 9)},
                               .note = "north side",
                               .taskDifference = 100};
};

TEST_F(ServerStopsAtPayment, InTheMiddleOfTheWriteNothingIsPaid) {
    {
        const StopAtWrite stop(data.db, "JobTaskEmployee");
        expectLost([&] { (void)pay(); });
    }
    expectRows(0, 0);
    EXPECT_EQ(pay(), PaymentResult::Paid);
    expectRows(1, 0);
}

TEST_F(ServerStopsAtPayment, WhileAQuestionIsOpenNothingIsPaidOrLogged) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    ask = [this](const MessageRequest&) {
        stopServing(data.db);
        return Answer::Yes;
    };
    expectLost([&] { (void)pay(); });
    expectRows(1, 0);
    ask = [](const MessageRequest&) { return Answer::Yes; };
    EXPECT_EQ(pay(), PaymentResult::Paid);
    expectRows(2, 1);
}

TEST_F(ServerStopsAtPayment, BetweenTheLogAndThePaymentTheLogStays) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    logged = [this] { stopServing(data.db); };
    expectLost([&] { (void)pay(); });
    expectRows(1, 1);
}

TEST(ServerStops, InTheMiddleOfACascadeEveryCopyIsAsItWas) {
    CatalogueData data;
    data.addCopy("ContractorPlanTask", "ContractorPlanKey", data.plan, data.walls);
    data.addCopy("ContractorOptionGroup", "ContractorKey", data.builder, data.walls);
    data.addLotTask(data.openLot, data.walls);
    const auto carry = [&] {
        applyCascade(data.db.connection(), {data.walls, "New", 12.5, true},
                     {CascadeTarget::BuildersAndJobs, true, true, true});
    };
    const auto changed = [&] {
        int count = 0;
        for (const char* table : {"ContractorPlanTask", "JobLotTask", "ContractorOptionGroup"})
            count +=
                data.db.ask(QString("SELECT COUNT(*) FROM %1 WHERE MasterPrice=12.5").arg(table)).toLong();
        return count;
    };
    {
        const StopAtWrite stop(data.db, "ContractorOptionGroup"); // the last of the three
        expectLost(carry);
    }
    EXPECT_EQ(changed(), 0);
    carry();
    EXPECT_EQ(changed(), 3);
}

class ServerStopsAtReport : public LotReportTest {
protected:
    ServerStopsAtReport() : LotReportTest(*findReport("frmRptLotBudget")) {
        gProgramFolder = data.database().folder() + u'/';
        for (const char* lot : {"1/A", "1/B"})
            addTask(addLot(lot), "Frame", 10);
        parameters.allJobsMarked = true;
    }
    ~ServerStopsAtReport() override { gProgramFolder.clear(); }
    bool run() {
        return RunReport(*findReport("frmRptLotBudget"), data.connection(), parameters, pages, watcher)
            .has_value();
    }
    void expectOneMessage() {
        ASSERT_EQ(script.shown().size(), 1U);
        EXPECT_TRUE(script.shown().front().text.contains("The connection to the database server was lost."))
            << script.shown().front().text.toStdString();
    }

    MessageScript script{Answer::Ok};
};

TEST_F(ServerStopsAtReport, BeforeItsStatementItEndsWithAMessage) {
    stopServing(data.database());
    EXPECT_FALSE(run());
    expectOneMessage();
    EXPECT_TRUE(run());
    EXPECT_EQ(pages.texts().filter("1/").size(), 2);
}

TEST_F(ServerStopsAtReport, WhileItIsDrawnItShowsWhatWasDrawn) {
    class StoppingWatcher : public ScriptedWatcher {
    public:
        explicit StoppingWatcher(const TemporaryDatabase& database) : m_database(database) {}
        void setMax(int max) override {
            ScriptedWatcher::setMax(max);
            stopServing(m_database);
        }

    private:
        const TemporaryDatabase& m_database;
    };
    StoppingWatcher stopping(data.database());
    (void)RunReport(*findReport("frmRptLotBudget"), data.connection(), parameters, pages, stopping);
    expectOneMessage();
    EXPECT_TRUE(run());
}

} // namespace
} // namespace tarnwell::test
