#include "data/file/DatabaseFile.h"

#include "data/RunTimeError.h"
#include "data/file/DatabaseCheck.h"
#include "data/sqlite/OpenDatabase.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>
#include <QLockFile>

#include <atomic>
#include <barrier>
#include <functional>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <thread>

namespace tarnwell::test {

namespace {

QString raisedText(const std::function<void()>& action) {
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.description();
    }
    return {};
}

class DatabaseFiles : public ::testing::Test {
protected:
    QString beside(const char* name) const { return database.folder() + '/' + name; }

    static Value ask(const QString& path, const char* sql) {
        Connection connection;
        connection.setConnectionString(connectionStringFor(path));
        connection.Open();
        return firstValue(connection, sql).value_or(Value());
    }

    /// Overwrites bytes of a closed file.
    static void damage(const QString& path, qint64 at, const QByteArray& bytes) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.seek(at));
        file.write(bytes);
    }

    TemporaryDatabase database;
};

TEST_F(DatabaseFiles, ANewOneHasItsInitialRows) {
    EXPECT_EQ(database.ask("SELECT Description FROM Code WHERE Code1=1 AND Description='FOREMAN'"),
              Value("Foreman"));
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM ReportDefinition WHERE objectName='frmRptCalendar' "
                           "AND (reportDefinitionKey=5 OR reportDefinitionKey=6)"),
              Value(2));
    EXPECT_TRUE(integrityProblems(database.path()).isEmpty());
}

TEST_F(DatabaseFiles, CreatingOverwritesNothing) {
    database.add("MasterTask", {});
    EXPECT_EQ(raisedNumber([&] { createDatabase(database.path()); }), 75);
    EXPECT_EQ(raisedNumber([&] { createDatabase(beside("no/such/folder.mdb")); }), 76);
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(1));
    EXPECT_TRUE(QDir(database.folder()).entryList({"*.tmp*"}, QDir::Files).isEmpty());
}

TEST_F(DatabaseFiles, BackupCopiesWhileInUse) {
    const QString copy = beside("copy.mdb");
    database.add("MasterTask", {{"Name", "kept"}});
    const auto other = database.secondWorkstation();
    const Transaction unfinished(*other);
    (void)other->Execute("DELETE FROM MasterTask");
    constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
    ASSERT_TRUE(QFile::setPermissions(database.path(), ownerOnly));
    backupDatabase(database.path(), copy, false);
    EXPECT_FALSE(QFile::permissions(copy).testAnyFlags(QFileDevice::ReadGroup | QFileDevice::ReadOther));
    EXPECT_EQ(ask(copy, "SELECT Name FROM MasterTask"), Value("kept"));
    EXPECT_EQ(raisedNumber([&] { backupDatabase(database.path(), copy, false); }), 75);
    EXPECT_EQ(raisedNumber([&] { backupDatabase(database.path(), database.path(), true); }), 75);
}

TEST_F(DatabaseFiles, BackupReplacesOnlyWhatNobodyUses) {
    const QString copy = beside("copy.mdb");
    createDatabase(copy);
    database.add("MasterTask", {{"Name", "new"}});
    Connection user;
    user.setConnectionString(connectionStringFor(copy));
    user.Open();
    EXPECT_NE(raisedNumber([&] { backupDatabase(database.path(), copy, true); }), 0);
    (void)user.Execute("INSERT INTO MasterTask (Name) VALUES ('old')");
    user.Close();
    backupDatabase(database.path(), copy, true);
    EXPECT_EQ(ask(copy, "SELECT Name FROM MasterTask"), Value("new"));
    // A log that a killed program left must not be played into the new file.
    damage(copy, 0, "garbage");
    QFile log(copy + "-wal");
    ASSERT_TRUE(log.open(QIODevice::WriteOnly));
    log.close();
    backupDatabase(database.path(), copy, true);
    EXPECT_EQ(ask(copy, "SELECT Name FROM MasterTask"), Value("new"));
    EXPECT_TRUE(QDir(database.folder()).entryList({"*.tmp*"}, QDir::Files).isEmpty());
}

TEST_F(DatabaseFiles, BackupTakesNoDamagedSource) {
    Transaction filling(database.connection());
    for (int i = 0; i < 500; ++i)
        database.add("MasterTask", {{"Name", "a name that fills the pages of the file"}});
    filling.commit();
    database.connection().Close();
    const qint64 size = QFile(database.path()).size();
    damage(database.path(), size - 4096, QByteArray(4096, '\x55'));
    EXPECT_FALSE(integrityProblems(database.path()).isEmpty());
    EXPECT_NE(raisedNumber([&] { backupDatabase(database.path(), beside("copy.mdb"), false); }), 0);
    EXPECT_FALSE(QFile::exists(beside("copy.mdb")));
}

TEST_F(DatabaseFiles, WhatARestoreReplacesIsKeptAsItStood) {
    database.add("MasterTask", {{"Name", "saved"}});
    backupDatabase(database.path(), beside("saved.mdb"), false);
    database.run("UPDATE MasterTask SET Name='present'");
    const auto restore = [&](const char* kept, const GoesOn& goesOn = {}) {
        return raisedNumber(
            [&] { restoreDatabase(beside("saved.mdb"), database.path(), beside(kept), goesOn); });
    };
    EXPECT_NE(restore("kept.mdb"), 0) << "in use";
    database.connection().Close();
    EXPECT_EQ(restore("kept.mdb", [] { return false; }), 3712);
    EXPECT_EQ(restore("no/such/folder/kept.mdb"), 76);
    EXPECT_EQ(restore("saved.mdb"), 75) << "the name is taken";
    EXPECT_EQ(ask(database.path(), "SELECT Name FROM MasterTask"), Value("present"));
    EXPECT_FALSE(QFile::exists(beside("kept.mdb")));
    EXPECT_EQ(restore("kept.mdb"), 0);
    EXPECT_EQ(ask(database.path(), "SELECT Name FROM MasterTask"), Value("saved"));
    EXPECT_EQ(ask(beside("kept.mdb"), "SELECT Name FROM MasterTask"), Value("present"));
    EXPECT_TRUE(QDir(database.folder()).entryList({"kept.mdb-*"}, QDir::Files).isEmpty());
    damage(database.path(), 0, QByteArray(200, '#'));
    EXPECT_EQ(restore("damaged.mdb"), 0) << "what is damaged is kept too";
    EXPECT_EQ(ask(database.path(), "SELECT Name FROM MasterTask"), Value("saved"));
    QFile kept(beside("damaged.mdb"));
    EXPECT_TRUE(kept.open(QIODevice::ReadOnly) && kept.read(1) == "#");
    EXPECT_TRUE(QDir(database.folder()).entryList({"*.tmp*"}, QDir::Files).isEmpty());
}

TEST_F(DatabaseFiles, OfTwoThatAreMadeAtOnceOnlyOneTakesTheName) {
    for (int round = 0; round < 6; ++round) {
        const QString path = beside("new.mdb");
        std::atomic<int> made = 0;
        std::barrier start(3);
        {
            std::vector<std::jthread> programs;
            for (int i = 0; i < 3; ++i)
                programs.emplace_back([&] {
                    start.arrive_and_wait();
                    made += raisedNumber([&] { createDatabase(path); }) == 0 ? 1 : 0;
                });
        }
        ASSERT_EQ(made, 1) << "round " << round;
        ASSERT_TRUE(QFile::remove(path));
    }
}

TEST_F(DatabaseFiles, WhatAKilledProgramLeftIsRemovedUnlessItIsInUse) {
    const auto write = [&](const char* name, const QByteArray& bytes) {
        QFile file(beside(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    };
    write("new-killed.tmp", "SQLite format 3");
    write("new-killed.tmp-journal", "");
    write("new-killed.tmp.lock", "99999999\nother-program\n");
    write("new-inwork.tmp", "SQLite format 3");
    write("new-letter.tmp", "Dear builder,");
    QLockFile inUse(beside("new-inwork.tmp.lock"));
    ASSERT_TRUE(inUse.tryLock(0));
    backupDatabase(database.path(), beside("copy.mdb"), false);
    EXPECT_EQ(QDir(database.folder()).entryList({"*.tmp*"}, QDir::Files, QDir::Name),
              (QStringList{"new-inwork.tmp", "new-inwork.tmp.lock", "new-letter.tmp"}));
}

TEST_F(DatabaseFiles, OnANetworkDriveTheJournalIsRolledBack) {
    const std::pair<const char*, bool> drives[] = {{"ext4", false}, {"fuseblk", false}, {"nfs4", true},
                                                   {"cifs", true},  {"smb3", true},     {"fuse.sshfs", true}};
    for (const auto& [drive, isShared] : drives)
        EXPECT_EQ(data::isNetworkFileSystem(drive), isShared) << drive;
    const auto open = [&](data::Journal journal) {
        return data::openOurDatabase(database.path(), std::chrono::milliseconds(0), journal);
    };
    const auto mode = [](const data::SqliteDatabase& handle) {
        auto answer = handle.prepare("PRAGMA journal_mode");
        return answer.step() ? answer.textAt(0) : QString();
    };
    database.add("MasterTask", {{"Name", "still in the log"}});
    EXPECT_EQ(raisedNumber([&] { (void)open(data::Journal::Rollback); }), -2147467259); // in use
    database.connection().Close();
    {
        const auto first = open(data::Journal::Rollback);
        const auto second = open(data::Journal::Rollback);
        EXPECT_EQ(mode(first), "delete");
        second.run("DELETE FROM MasterTask WHERE Name='still in the log'");
        EXPECT_EQ(sqlite3_changes(second.get()), 1);
    }
    EXPECT_EQ(mode(open(data::Journal::WriteAhead)), "wal");
}

TEST_F(DatabaseFiles, ADamagedHeaderIsNamedAsDamage) {
    database.connection().Close();
    constexpr qint64 schemaFormatAt = 47;
    damage(database.path(), schemaFormatAt, "\x20");
    for (const auto& open :
         std::initializer_list<std::function<void()>>{[&] { (void)integrityProblems(database.path()); },
                                                      [&] { (void)checkDatabase(database.path()); }})
        EXPECT_EQ(raisedText(open),
                  "The file is damaged or is not a Tarnwell database. (" + database.path() + ")");
}

TEST_F(DatabaseFiles, NamesABrokenRelation) {
    const qint64 builder = database.add("Contractor", {});
    const qint64 job = database.add("Job", {{"ContractorKey", builder}});
    const qint64 lot = database.add("JobLot", {{"JobKey", job}});
    database.connection().Close();
    data::SqliteDatabase(database.path(), data::SqliteDatabase::Access::ReadWrite).run("DELETE FROM Job");
    const QStringList problems = integrityProblems(database.path());
    ASSERT_EQ(problems.size(), 1);
    EXPECT_EQ(problems.front(), QString("JobLot %1: there is no Job %2 for JobKey").arg(lot).arg(job));
}

TEST_F(DatabaseFiles, CheckingAForeignFileIsAnError) {
    damage(beside("text.mdb"), 0, "just a text");
    EXPECT_EQ(raisedNumber([&] { (void)integrityProblems(beside("text.mdb")); }), -2147467259);
}

} // namespace

} // namespace tarnwell::test
