#include "data/engine/Engine.h"
#include "data/file/DatabaseFile.h"
#include "data/sqlite/SqliteDatabase.h"
#include "support/DeathFolder.h"
#include "support/Limits.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <QFile>

#include <csignal>
#include <gtest/gtest.h>
#include <latch>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace tarnwell::test {

namespace {

int openingFails(const QString& connectionString) {
    Connection connection;
    connection.setConnectionString(connectionString);
    const int number = raisedNumber([&] { connection.Open(); });
    EXPECT_EQ(connection.State() == ObjectState::Open, number == 0);
    return number;
}

QString fileWith(const TemporaryDatabase& database, const QByteArray& content) {
    const QString path = database.folder() + "/other.mdb";
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
    return path;
}

TEST(Opening, RefusesWhatItCannotServe) {
    const TemporaryDatabase database;
    EXPECT_EQ(openingFails("Provider=Nobody.1;Data Source=" + database.path()), 3706);
    EXPECT_EQ(openingFails({}), 3706);
    EXPECT_EQ(
        openingFails(
            QString("provider=microsoft.jet.oledb.4.0; DATA SOURCE = \"%1\" ;x=y").arg(database.path())),
        0);
}

TEST(Opening, NeverMakesAMissingFile) {
    const TemporaryDatabase database;
    const QString path = database.folder() + "/missing.mdb";
    EXPECT_EQ(openingFails(connectionStringFor(path)), -2147467259);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_EQ(openingFails(connectionStringFor({})), -2147467259);
    EXPECT_EQ(openingFails(connectionStringFor(database.folder())), -2147467259);
}

TEST(Opening, LeavesForeignFilesAsTheyAre) {
    const TemporaryDatabase database;
    for (const QByteArray& content : {QByteArray(), QByteArray("no database"), QByteArray(8192, 'x')}) {
        const QString path = fileWith(database, content);
        Connection connection;
        connection.setConnectionString(connectionStringFor(path));
        EXPECT_TRUE(raisedText([&] { connection.Open(); }).contains(path));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), content);
    }
}

TEST(Opening, NamesADamagedCatalogue) {
    TemporaryDatabase database;
    database.connection().Close();
    QFile file(database.path());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.seek(110));
    file.write(QByteArray(1500, '\x7f'));
    file.close();
    EXPECT_EQ(openingFails(connectionStringFor(database.path())), -2147467259);
}

TEST(Opening, SaysThatSomebodyHoldsTheFileForItself) {
    TemporaryDatabase database;
    database.connection().Close();
    const data::SqliteDatabase holder(database.path(), data::SqliteDatabase::Access::ReadWrite);
    holder.run("PRAGMA locking_mode=EXCLUSIVE");
    holder.run("BEGIN EXCLUSIVE");
    database.connection().setBusyTimeout(std::chrono::milliseconds(1));
    // Several failures share the provider's one number.
    EXPECT_EQ(raisedFailure([&] { database.connection().Open(); }), Failure::DatabaseLocked);
}

TEST(Opening, ReadsAFileThatItCannotWriteOnlyWhereItSeesWhatOthersWrite) {
    for (const ::mode_t folderMode : {0755, 0777, 0555}) {
        TemporaryDatabase database;
        database.add("MasterTask", {{"Name", "Elm"}});
        const auto writer = database.secondWorkstation();
        database.connection().Close();
        ASSERT_EQ(::chmod(database.path().toUtf8().constData(), 0444), 0);
        ASSERT_EQ(::chmod(database.folder().toUtf8().constData(), folderMode), 0);
        {
            const WithoutPrivileges reader;
            database.connection().Open();
            EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("Elm"));
            EXPECT_EQ(raisedNumber([&] { database.run("DELETE FROM MasterTask"); }), -2147217911);
            EXPECT_EQ(raisedNumber([&] { database.add("MasterTask", {}); }), -2147217911);
        }
        (void)writer->Execute("UPDATE MasterTask SET Name='Oak'");
        {
            const WithoutPrivileges reader;
            EXPECT_EQ(database.ask("SELECT Name FROM MasterTask"), Value("Oak"));
            database.connection().Close();
        }
        writer->Close();
        {
            // Nobody shares a log with the reader, who can't make one: others could write unseen.
            const WithoutPrivileges reader;
            EXPECT_EQ(raisedNumber([&] { database.connection().Open(); }),
                      folderMode == 0777 ? 0 : -2147217911);
        }
        ASSERT_EQ(::chmod(database.folder().toUtf8().constData(), 0755), 0);
    }
}

// What the translation let through by mistake.
TEST(Statement, IsRefusedByTheEngineItself) {
    TemporaryDatabase database;
    for (const char* sql : {"DROP TABLE MasterTask", "PRAGMA foreign_keys=OFF", "ATTACH ':memory:' AS x"}) {
        auto shape = std::make_shared<data::TranslatedShape>();
        shape->sql = sql;
        EXPECT_EQ(raisedNumber([&] {
                      (void)database.connection().engine().execute({shape, {}});
                  }),
                  numberOf(Failure::PermissionDenied))
            << sql;
    }
}

// A full disk makes the engine roll back by itself; what comes behind must not be written without its
// beginning.
TEST(Transactions, OneThatTheEngineRolledBackTakesNoMore) {
    TemporaryDatabase database;
    data::SqliteDatabase(database.path(), data::SqliteDatabase::Access::ReadWrite)
        .run("CREATE TRIGGER Full BEFORE INSERT ON Code WHEN NEW.Description='full' "
             "BEGIN SELECT RAISE(ROLLBACK, 'full'); END");
    Transaction transaction(database.connection());
    database.add("MasterTask", {});
    EXPECT_NE(raisedNumber([&] { database.add("Code", {{"Description", "full"}}); }), 0);
    EXPECT_NE(raisedNumber([&] { database.add("MasterTask", {}); }), 0);
    EXPECT_NE(raisedNumber([&] { database.run("DELETE FROM Code"); }), 0);
    EXPECT_NE(raisedNumber([&] { transaction.commit(); }), 0);
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
    EXPECT_EQ(raisedNumber([&] { database.add("MasterTask", {}); }), 0);
}

TEST(Closing, CountsTheRowsThatJoinsWerePlannedWithout) {
    TemporaryDatabase database;
    database.add("Job", {{"ContractorKey", database.add("Contractor", {})}});
    (void)database.ask("SELECT JobNumber FROM Job, Contractor WHERE "
                       "Job.ContractorKey=Contractor.ContractorKey AND Job.Foreman='A'");
    database.connection().Close();
    const data::SqliteDatabase handle(database.path(), data::SqliteDatabase::Access::ReadOnly);
    EXPECT_TRUE(handle.prepare("SELECT 1 FROM sqlite_stat1 WHERE tbl='Job'").step());
}

TEST(KilledProgramDeathTest, LeavesWhatItHadWritten) {
    const DeathFolder folder;
    const QString path = folder.filePath("Killed.mdb");
    Connection connection;
    connection.setConnectionString(connectionStringFor(path));
    EXPECT_EXIT(
        {
            createDatabase(path);
            connection.Open();
            Recordset rows;
            rows.Open("MasterTask", connection, CursorType::Dynamic, LockType::Optimistic);
            rows.AddNew();
            rows.Update();
            std::raise(SIGKILL);
        },
        testing::KilledBySignal(SIGKILL), "");
    connection.Open();
    EXPECT_EQ(firstValue(connection, "SELECT COUNT(*) FROM MasterTask"), Value(1));
}

TEST(TwoWorkstations, TheVersionOfTheDataTellsThatEitherHasWritten) {
    TemporaryDatabase database;
    const auto other = database.secondWorkstation();
    quint32 version = database.connection().dataVersion();
    const auto hasChanged = [&] {
        return std::exchange(version, database.connection().dataVersion()) != version;
    };
    EXPECT_FALSE(hasChanged());
    (void)database.ask("SELECT COUNT(*) FROM Code");
    EXPECT_FALSE(hasChanged()) << "by reading";
    database.run("UPDATE Code SET Description='x'");
    EXPECT_TRUE(hasChanged());
    EXPECT_FALSE(hasChanged());
    other->Execute("UPDATE Code SET Description='y'");
    EXPECT_TRUE(hasChanged());
}

TEST(TwoWorkstations, TheSecondWriterGivesUpAfterItsWait) {
    TemporaryDatabase database;
    Connection other;
    other.setConnectionString(database.connectionString());
    other.setBusyTimeout(std::chrono::milliseconds(1));
    other.Open();
    const Transaction held(database.connection());
    database.add("MasterTask", {});
    EXPECT_EQ(raisedNumber([&] { (void)other.Execute("DELETE FROM MasterTask"); }), -2147467259);
    EXPECT_EQ(raisedNumber([&] { other.BeginTrans(); }), -2147467259);
    EXPECT_EQ(firstValue(other, "SELECT COUNT(*) FROM MasterTask"), Value(0));
}

TEST(TwoWorkstations, WaitForEachOther) {
    TemporaryDatabase database;
    const auto other = database.secondWorkstation();
    std::latch aboutToWrite(1);
    int number = -1;
    Transaction held(database.connection());
    std::thread waiting([&] {
        aboutToWrite.count_down();
        number = raisedNumber([&] { (void)other->Execute("INSERT INTO MasterTask (Name) VALUES ('B')"); });
    });
    aboutToWrite.wait();
    for (int i = 0; i < 2000; ++i)
        database.run("INSERT INTO MasterTask (Name) VALUES ('A')");
    held.commit();
    waiting.join();
    EXPECT_EQ(number, 0);
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(2001));
}

} // namespace

} // namespace tarnwell::test
