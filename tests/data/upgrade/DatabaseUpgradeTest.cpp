#include "data/upgrade/DatabaseUpgrade.h"

#include "OldDatabase.h"
#include "data/schema/SchemaVersion.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <QFile>

#include <atomic>
#include <barrier>
#include <gtest/gtest.h>
#include <thread>

namespace tarnwell::test {
namespace {

using Holds = OldDatabase::Holds;

int versionOf(const QString& connectionString) {
    Connection connection;
    connection.setConnectionString(connectionString);
    connection.Open();
    return schemaVersion(connection);
}

class Upgrade : public ::testing::TestWithParam<Holds> {
protected:
    [[nodiscard]] QString backup() const { return old.file("before.mdb"); }
    void expectAsItWas() const {
        EXPECT_EQ(schemaOf(old.connectionString()), schema);
        EXPECT_EQ(allRows(old.connectionString()), rows);
        EXPECT_EQ(versionOf(old.connectionString()), schema::firstVersion);
    }

    OldDatabase old{GetParam()};
    QString schema = schemaOf(old.connectionString());
    QString rows = allRows(old.connectionString());
};

INSTANTIATE_TEST_SUITE_P(Databases, Upgrade, testing::Values(Holds::NewRows, Holds::Rows));

TEST_P(Upgrade, MakesOfAnOldDatabaseWhatANewOneIs) {
    EXPECT_EQ(upgradeDatabase(old.connectionString(), backup()), schema::firstVersion);
    {
        const TemporaryDatabase fresh;
        EXPECT_EQ(schemaOf(old.connectionString()), schemaOf(fresh.connectionString()));
        for (const QString& database : {old.connectionString(), fresh.connectionString()})
            EXPECT_EQ(plainRows(database, schema::readStamps()),
                      (std::vector<QStringList>{{"2", schema::currentStamp().program}}));
    }
    EXPECT_EQ(allRows(old.connectionString()), rows);
    EXPECT_EQ(allRows(connectionStringFor(backup())), rows);
    EXPECT_EQ(upgradeDatabase(old.connectionString(), old.file("again.mdb")), schema::currentVersion);
    EXPECT_FALSE(QFile::exists(old.file("again.mdb")));
}

TEST_P(Upgrade, ThatFailsInTheMiddleLeavesAllAsItWas) {
    int changes = 0;
    const auto failAtTheEnd = [&](int done, int all) {
        changes = done;
        if (done == all)
            raise(Failure::DiskFull);
    };
    const QString text =
        raisedText([&] { (void)upgradeDatabase(old.connectionString(), backup(), failAtTheEnd); });
    EXPECT_TRUE(text.contains("and it is as it was. Disk full")) << text.toStdString();
    EXPECT_GT(changes, 1);
    expectAsItWas();
    EXPECT_EQ(upgradeDatabase(old.connectionString(), old.file("second.mdb")), schema::firstVersion);
}

TEST_P(Upgrade, ThatCannotSaveTheDatabaseChangesNothing) {
    QFile taken(old.file("taken.mdb"));
    ASSERT_TRUE(taken.open(QIODevice::WriteOnly));
    const std::pair<const char*, const char*> places[] = {{"taken.mdb", "Path/File access error"},
                                                          {"no folder/before.mdb", "Path not found"}};
    for (const auto& [place, fault] : places) {
        const QString text =
            raisedText([&] { (void)upgradeDatabase(old.connectionString(), old.file(place)); });
        EXPECT_TRUE(text.contains("has to be saved, and that failed. Nothing was changed.") &&
                    text.contains(fault))
            << text.toStdString();
        expectAsItWas();
    }
}

TEST_P(Upgrade, IsDoneOnceWhenSeveralProgramsStart) {
    constexpr int programs = 4;
    std::atomic<int> upgrades = 0;
    std::atomic<int> failures = 0;
    std::barrier start(programs);
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < programs; ++i)
            threads.emplace_back([&, i] {
                start.arrive_and_wait();
                try {
                    const QString name = QString("before-%1.mdb").arg(i);
                    upgrades += upgradeDatabase(old.connectionString(), old.file(name.toLatin1())) ==
                                        schema::firstVersion
                                    ? 1
                                    : 0;
                } catch (const RunTimeError&) {
                    ++failures;
                }
            });
    }
    EXPECT_EQ(upgrades, 1);
    EXPECT_EQ(failures, 0);
    int backups = 0;
    for (int i = 0; i < programs; ++i)
        backups += QFile::exists(old.file(QString("before-%1.mdb").arg(i).toLatin1())) ? 1 : 0;
    EXPECT_EQ(backups, 1);
    EXPECT_EQ(plainRows(old.connectionString(), schema::readStamps()).size(), 1U);
    EXPECT_EQ(allRows(old.connectionString()), rows);
}

TEST_P(Upgrade, RefusesADatabaseOfALaterVersion) {
    (void)upgradeDatabase(old.connectionString(), backup());
    old.makeNewer();
    for (const auto& open : std::initializer_list<std::function<void()>>{
             [&] { (void)versionOf(old.connectionString()); },
             [&] { (void)upgradeDatabase(old.connectionString(), old.file("again.mdb")); }}) {
        const QString text = raisedText(open);
        for (const char* part : {"a later version of Tarnwell", "version 99, from Tarnwell 9.1.0",
                                 "up to version 2", "Install Tarnwell 9.1.0 or a later one"})
            EXPECT_TRUE(text.contains(part)) << text.toStdString();
        EXPECT_EQ(raisedNumber(open), -2147467259);
    }
    EXPECT_FALSE(QFile::exists(old.file("again.mdb")));
}

} // namespace
} // namespace tarnwell::test
