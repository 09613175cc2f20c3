// Eight workstations work on the same few rows at once, each a process of its own. Whatever they did to each
// other, every cent is accounted for afterwards, and nobody wrote over what he had not seen.

#include "data/check/CatalogCheck.h"
#include "data/file/DatabaseCheck.h"
#include "jobs/LotData.h"
#include "support/RaisedNumber.h"
#include "support/TestProgram.h"
#include "support/TestServer.h"
#include "workstations/Workstation.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

namespace tarnwell::test {

namespace {

constexpr int workstations = 8, actionsOfEach = 1'250;
constexpr int longestMinutes = 4;

/// What the workstations say that they did: lines by their first word, without it.
using Journals = std::map<QString, std::vector<QStringList>>;

class Workstations : public ::testing::Test {
protected:
    Workstations() {
        for (const char* name : {"Archer", "Baker", "Carver"})
            data.db.add("Employee",
                        {{"LastName", name}, {"FirstName", "A"}, {"SSN", name}, {"Inactive", false}});
        for (int i = 0; i < 3; ++i) {
            const qint64 lot = data.addLot(QString("L-%1").arg(i));
            for (const auto& [name, master] :
                 {std::pair("Walls", data.walls), std::pair("Beams", data.beams)})
                data.addTask(name, lot, master);
        }
        const qint64 group = data.addGroup("Deck");
        for (const qint64 master : {data.walls, data.hang})
            data.addGroupTask(group, master, 7.0);
        data.addPlanTask("Hang", data.plan, data.hang, data.drywall, 20.0);
    }

    [[nodiscard]] QString journal(int workstation) const {
        return data.db.folder() + QString("/journal-%1").arg(workstation);
    }
    void start(int count) {
        for (int i = 0; i < count; ++i) {
            const WorkOrder order{data.db.connectionString(), QString("w%1").arg(i),
                                  static_cast<quint32>(4711 + i), actionsOfEach, journal(i)};
            running.push_back(std::make_unique<QProcess>());
            running.back()->setProcessChannelMode(QProcess::ForwardedErrorChannel);
            running.back()->start(QCoreApplication::applicationFilePath(),
                                  QStringList("--work") + order.arguments());
            EXPECT_TRUE(running.back()->waitForStarted());
        }
    }
    void waitForAll() {
        for (const auto& process : running) {
            EXPECT_TRUE(process->waitForFinished(longestMinutes * 60'000)) << "a workstation hangs";
            EXPECT_EQ(process->exitCode(), 0);
        }
        readJournals();
    }
    void readJournals() {
        for (std::size_t i = 0; i < running.size(); ++i)
            readJournal(journal(static_cast<int>(i)));
    }
    void readJournal(const QString& path) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (const QByteArray& line : file.readAll().trimmed().split('\n')) {
            QStringList parts = QString::fromUtf8(line).split('\t');
            const QString what = parts.takeFirst();
            journals[what].push_back(std::move(parts));
        }
    }

    /// Each write was made on what the one before had written: what a row held is replaced by one write only.
    void expectNothingOverwritten(const char* what) {
        std::map<std::pair<QString, QString>, QString> replaced;
        for (const QStringList& write : journals[what]) {
            const auto [before, isFirst] = replaced.try_emplace({write[0], write[1]}, write[2]);
            EXPECT_TRUE(isFirst) << what << ' ' << qPrintable(write[0]) << ": both " << qPrintable(write[2])
                                 << " and " << qPrintable(before->second) << " replaced "
                                 << qPrintable(write[1]);
        }
    }
    /// Every payment is stored once, as its last correction left it, but for those that were removed. What
    /// was tried and never reported may have come to its end or not.
    void expectEveryCent() {
        std::map<QString, QString> priceOf; // by the note, which stands for one write
        std::set<QString> expected, possible;
        for (const QStringList& attempt : journals["tries"]) {
            priceOf[attempt[0]] = attempt[1];
            possible.insert(attempt[0].section('|', 0, 0));
        }
        for (const QStringList& payment : journals["paid"])
            expected.insert(payment[0]);
        for (const QStringList& removal : journals["removes"])
            expected.erase(removal[0]);
        for (const QStringList& removal : journals["removed"])
            possible.erase(removal[0]);
        Recordset stored;
        stored.Open("SELECT Note, Price FROM JobTaskEmployee", data.db.connection());
        for (; !stored.atEnd(); stored.MoveNext()) {
            const QString note = stored.field(0).toText();
            expected.erase(note.section('|', 0, 0));
            EXPECT_EQ(possible.erase(note.section('|', 0, 0)), 1U)
                << qPrintable(note) << " is there twice, or removed";
            EXPECT_EQ(QString::number(stored.field(1).toDouble(), 'f', 2), priceOf[note]) << qPrintable(note);
        }
        EXPECT_TRUE(expected.empty()) << qPrintable(*expected.begin()) << " and others are lost";
    }
    /// The last cascade of a task reached all that others reached before.
    void expectWholeCascades() {
        for (const qint64 master : {data.walls, data.hang}) {
            const QString of = " WHERE MasterTaskKey=" + QString::number(master);
            EXPECT_EQ(data.db.ask("SELECT MAX(MasterPrice) FROM ContractorPlanTask" + of),
                      data.db.ask("SELECT MAX(MasterPrice) FROM ContractorOptionGroup" + of));
        }
    }
    void expectSound() {
        const CheckResult result =
            testServer().isEmpty() ? checkDatabase(data.db.path()) : checkCatalog(data.db.connectionString());
        for (const QString& problem : result.engineProblems)
            ADD_FAILURE() << qPrintable(problem);
        for (const FindingGroup& group : result.groups)
            ADD_FAILURE() << qPrintable(group.rule) << ": " << group.count << ", the first "
                          << qPrintable(group.first.front().text());
    }
    /// Conflicts, and nothing else, kept a workstation from what it wanted.
    void expectConflictsOnly() {
        const std::set<int> conflicts{numberOf(Failure::RowChanged), numberOf(Failure::RowDeleted),
                                      numberOf(Failure::NoCurrentRecord), numberOf(Failure::Constraint),
                                      numberOf(Failure::DatabaseLocked)};
        std::map<QString, int> counted;
        for (const QStringList& refusal : journals["refused"]) {
            ++counted[refusal.join(' ')];
            EXPECT_TRUE(conflicts.contains(refusal[0].toInt())) << qPrintable(refusal.join(' '));
            EXPECT_FALSE(refusal[1].contains("deadlock")) << "not in the server's words";
        }
        for (const auto& [refusal, count] : counted)
            RecordProperty(refusal.toStdString(), count);
    }

    LotData data;
    std::vector<std::unique_ptr<QProcess>> running;
    Journals journals;
};

TEST_F(Workstations, LoseNothingAndDoubleNothing) {
    start(workstations);
    waitForAll();
    EXPECT_GT(journals["paid"].size(), 1000U);
    EXPECT_GT(journals["corrected"].size(), 500U);
    EXPECT_GT(journals["refused"].size(), 100U) << "they hardly met";
    expectEveryCent();
    expectNothingOverwritten("corrected");
    expectNothingOverwritten("edited");
    expectWholeCascades();
    expectConflictsOnly();
    expectSound();
}

/// With a server of its own, which is restarted.
class WorkstationsOfAServer : public Workstations {
protected:
    static void SetUpTestSuite() { serverScript("start"); }
    static void TearDownTestSuite() { serverScript("stop"); }
    static void serverScript(const char* action) {
        ASSERT_EQ(QProcess::execute(TARNWELL_SOURCE_DIR "/tests/support/postgres.sh", {action, testServer()}),
                  0);
    }
    /// The server's side of one of the workstations' connections ends.
    void cutOne() {
        runOnServer("postgres",
                    "SELECT pg_terminate_backend(pid) FROM (SELECT pid FROM pg_stat_activity WHERE "
                    "datname NOT IN ('postgres', 'tarnwell_template') ORDER BY random() LIMIT 1) one");
    }
    /// Whatever they do then has not ended.
    void killAll() {
        for (const auto& process : running) {
            EXPECT_EQ(process->state(), QProcess::Running) << "it ended by itself";
            process->kill();
            process->waitForFinished();
        }
        readJournals();
    }
};

TEST_F(WorkstationsOfAServer, LoseNothingThatTheyWereToldIsDone) {
    if (testServer().isEmpty())
        GTEST_FAIL() << "TARNWELL_TEST_SERVER names no folder for the server";
    constexpr int cuts = 200, cutsBetweenRestarts = 10;
    QRandomGenerator random(4711);
    start(3);
    for (int i = 1; i <= cuts; ++i) {
        QThread::msleep(random.bounded(100));
        if (i % cutsBetweenRestarts == 0)
            serverScript("restart");
        else
            cutOne();
    }
    killAll();
    EXPECT_GT(journals["paid"].size(), 20U);
    expectEveryCent();
    expectNothingOverwritten("corrected");
    expectNothingOverwritten("edited");
    expectWholeCascades();
    expectConflictsOnly();
    expectSound();
}

} // namespace

} // namespace tarnwell::test

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == "--work")
        return tarnwell::test::work(tarnwell::test::WorkOrder::fromArguments(arguments.mid(2)));
    tarnwell::test::beginTests(argc, argv);
    return RUN_ALL_TESTS();
}
