#include "ToolRun.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

class BackupTest : public testing::Test {
protected:
    BackupTest() {
        const qint64 builder = database.add("Contractor", {{"Name", "Builder"}});
        const qint64 job = database.add("Job", {{"JobNumber", "1"}, {"ContractorKey", builder}});
        const qint64 lot = database.add("JobLot", {{"JobKey", job}});
        const qint64 code = database.add("Code", {{"Code1", 2}, {"Description", "Framing"}});
        task = database.add("JobLotTask", {{"JobLotKey", lot}, {"CodeKey", code}, {"MasterTaskKey", 0}});
        worker = database.add("Employee", {{"Inactive", 0}});
    }

    void pay(double price) {
        database.add("JobTaskEmployee", {{"JobLotTaskKey", task},
                                         {"EmployeeKey", worker},
                                         {"Price", price},
                                         {"Completed", DateTime{QDate(2026, 10, 30)}},
                                         {"Note", ""}});
    }
    [[nodiscard]] QString file(const char* name) const {
        return QDir(database.folder()).filePath(QString::fromLatin1(name));
    }
    static qint64 payments(const QString& path) {
        Connection connection;
        connection.setConnectionString(connectionStringFor(path));
        connection.Open();
        return firstValue(connection, "SELECT COUNT(*) FROM JobTaskEmployee").value().toLong();
    }

    TemporaryDatabase database;
    qint64 task = 0;
    qint64 worker = 0;
};

TEST_F(BackupTest, HoldsTheLastCommittedPaymentAndNoneThatIsNotCommitted) {
    pay(40);
    const auto other = database.secondWorkstation();
    database.connection().BeginTrans();
    pay(60);
    const ToolResult result = runToolWith({"backup", database.path(), file("saved.mdb")});
    database.connection().CommitTrans();
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(payments(file("saved.mdb")), 1);
}

TEST_F(BackupTest, RestoreBringsTheSavedStateBackAndDropsALogThatWasLeft) {
    pay(40);
    ASSERT_EQ(runToolWith({"backup", database.path(), file("saved.mdb")}).code, 0);
    pay(60);
    database.connection().Close();
    for (const bool targetIsGone : {false, true}) {
        ASSERT_TRUE(!targetIsGone || QFile::remove(database.path()));
        QFile stale(database.path() + QStringLiteral("-wal"));
        ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
        stale.write("left over");
        stale.close();
        const ToolResult result = runToolWith({"restore", file("saved.mdb"), database.path(), "--overwrite"});
        EXPECT_EQ(result.code, 0) << result.err.toStdString();
        EXPECT_FALSE(stale.exists());
        EXPECT_EQ(payments(database.path()), 1);
        EXPECT_EQ(payments(file("saved.mdb")), 1);
    }
}

TEST_F(BackupTest, RestoreLeavesADatabaseAloneThatIsInUse) {
    ASSERT_EQ(runToolWith({"backup", database.path(), file("saved.mdb")}).code, 0);
    pay(60);
    const ToolResult result = runToolWith({"restore", file("saved.mdb"), database.path(), "--overwrite"});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err.count(QLatin1Char('\n')), 1) << result.err.toStdString();
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM JobTaskEmployee").toLong(), 1);
    EXPECT_TRUE(QDir(database.folder()).entryList({"*.tmp"}).isEmpty());
}

TEST_F(BackupTest, RestoreReplacesADamagedDatabase) {
    pay(40);
    ASSERT_EQ(runToolWith({"backup", database.path(), file("saved.mdb")}).code, 0);
    database.connection().Close();
    QFile damaged(database.path());
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
    damaged.write(QByteArray(200, '#'));
    damaged.close();
    const ToolResult result = runToolWith({"restore", file("saved.mdb"), database.path(), "--overwrite"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(payments(database.path()), 1);
}

TEST_F(BackupTest, RestoreRefusesADamagedBackup) {
    pay(40);
    ASSERT_EQ(runToolWith({"backup", database.path(), file("saved.mdb")}).code, 0);
    QFile damaged(file("saved.mdb"));
    ASSERT_TRUE(damaged.open(QIODevice::ReadWrite));
    damaged.seek(damaged.size() / 2);
    damaged.write(QByteArray(static_cast<int>(damaged.size() / 4), '#'));
    damaged.close();
    database.connection().Close();
    EXPECT_EQ(runToolWith({"restore", file("saved.mdb"), database.path(), "--overwrite"}).code, 1);
    EXPECT_EQ(payments(database.path()), 1);
}

TEST_F(BackupTest, RestoreRefusesABackupOfBrokenRelationsAndItself) {
    pay(40);
    database.connection().Close();
    ASSERT_EQ(runToolWith({"backup", database.path(), file("saved.mdb")}).code, 0);
    breakDatabase(file("saved.mdb"), QStringLiteral("DELETE FROM Employee"));
    EXPECT_EQ(runToolWith({"restore", file("saved.mdb"), database.path(), "--overwrite"}).code, 1);
    EXPECT_EQ(runToolWith({"restore", database.path(), database.path(), "--overwrite"}).code, 1);
    EXPECT_EQ(payments(database.path()), 1);
}

} // namespace
} // namespace tarnwell::test
