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
                          "PERFORM nextval(''tries''); PERFORM pg_terminate_backend(pg_backend_pid()); "
                          "RETURN NULL; END'",
                          "CREATE SEQUENCE tries", create.constData()}});
    }
    ~StopAtWrite() {
        m_database.runBeside(
            {.sqlite = nullptr,
             .postgres = {m_drop.constData(), "DROP FUNCTION stop()", "DROP SEQUENCE tries"}});
    }
    /// Raises the server's words where the write came in more than once.
    void requireTriedOnce() {
        m_database.runBeside(
            {.sqlite = nullptr, .postgres = {"DO 'BEGIN ASSERT (SELECT last_value = 1 FROM tries); END'"}});
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

// Nobody can say whether the server came to the end of it.
TEST_F(ServerStopsAtPayment, InTheMiddleOfAWriteByItselfItIsNotTriedAgain) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    StopAtWrite stop(data.db, "JobTaskEmployee");
    expectLost([&] { data.db.run("UPDATE JobTaskEmployee SET Price=Price+1"); });
    stop.requireTriedOnce();
}

TEST_F(ServerStopsAtPayment, WhileAQuestionIsOpenItIsPaidOverANewConnection) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    ask = [this](const MessageRequest&) {
        endConnections(data.db.connectionString());
        return Answer::Yes;
    };
    logged = [this] { endConnections(data.db.connectionString()); };
    EXPECT_EQ(pay(), PaymentResult::Paid);
    expectRows(2, 1);
}

TEST_F(ServerStopsAtPayment, ForGoodWhileAQuestionIsOpenNothingIsPaidOrLogged) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    std::optional<CatalogAway> away;
    ask = [&](const MessageRequest&) {
        away.emplace(data.db.connectionString());
        return Answer::Yes;
    };
    expectLost([&] { (void)pay(); });
    away.reset();
    expectRows(1, 0);
}

TEST_F(ServerStopsAtPayment, ForGoodBetweenTheLogAndThePaymentTheLogStays) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    std::optional<CatalogAway> away;
    logged = [&] { away.emplace(data.db.connectionString()); };
    expectLost([&] { (void)pay(); });
    away.reset();
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
    {
        const CatalogAway away(data.database().connectionString());
        EXPECT_FALSE(run());
    }
    expectOneMessage();
    EXPECT_TRUE(run());
    EXPECT_EQ(pages.texts().filter("1/").size(), 2);
}

/// Does something once the rows of the report are there.
class StoppingWatcher : public ScriptedWatcher {
public:
    explicit StoppingWatcher(std::function<void()> stop) : m_stop(std::move(stop)) {}
    void setMax(int max) override {
        ScriptedWatcher::setMax(max);
        m_stop();
    }

private:
    std::function<void()> m_stop;
};

TEST_F(ServerStopsAtReport, WhileItIsDrawnItIsDrawnOverANewConnection) {
    StoppingWatcher watching([this] { endConnections(data.database().connectionString()); });
    EXPECT_TRUE(RunReport(*findReport("frmRptLotBudget"), data.connection(), parameters, pages, watching));
    EXPECT_EQ(pages.texts().filter("1/").size(), 2);
}

TEST_F(ServerStopsAtReport, ForGoodWhileItIsDrawnItShowsWhatWasDrawn) {
    std::optional<CatalogAway> away;
    StoppingWatcher watching([&] { away.emplace(data.database().connectionString()); });
    (void)RunReport(*findReport("frmRptLotBudget"), data.connection(), parameters, pages, watching);
    expectOneMessage();
    away.reset();
    EXPECT_TRUE(run());
}

} // namespace
} // namespace tarnwell::test
