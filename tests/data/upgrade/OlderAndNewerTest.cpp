#include "DatabaseTool.h"
#include "OldDatabase.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/DatabaseTrial.h"
#include "runtime/RunTime.h"
#include "runtime/UpToDateDatabase.h"
#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

// What the program and tarnwell-db make of a database of another version.
namespace tarnwell::test {
namespace {

class OlderAndNewer : public ::testing::Test {
protected:
    /// What tarnwell-db says, and its exit code behind it.
    static QString whatToolSays(const QStringList& arguments) {
        QString out;
        QString err;
        QTextStream outStream(&out);
        QTextStream errStream(&err);
        const int code =
            tool::runTool(QStringList(QStringLiteral("tarnwell-db")) + arguments, {outStream, errStream});
        outStream.flush();
        errStream.flush();
        return out + err + QString::number(code);
    }
    static void expectSays(const QStringList& arguments, const char* text, const char* code) {
        const QString said = whatToolSays(arguments);
        EXPECT_TRUE(said.contains(text) && said.endsWith(code))
            << arguments.join(' ').toStdString() << ": " << said.toStdString();
    }

    OldDatabase old{OldDatabase::Holds::Rows};
};

TEST_F(OlderAndNewer, AStartSavesAnOlderOneBringsItUpToDateAndSaysSoOnce) {
    gConnectionString = old.connectionString();
    gReportDataPath = old.file("Report.mdb");
    EXPECT_TRUE(tryDatabase(gConnectionString).text.contains("An earlier version of Tarnwell made it:"));
    const QString rows = allRows(gConnectionString);
    const QString folder = backupPlace().folder;
    const QString backup = folder + "/before-version-2-" + Today().date.toString(Qt::ISODate) + ".mdb";
    QDir(folder).removeRecursively();
    ASSERT_TRUE(QDir().mkpath(folder));
    QFile earlier(backup);
    ASSERT_TRUE(earlier.open(QIODevice::WriteOnly));
    MessageScript messages{Answer::Ok};
    openDatabaseUpToDate();
    DataEnvironment::close();
    openDatabaseUpToDate();
    DataEnvironment::close();
    ASSERT_EQ(messages.shown().size(), 1U);
    const QString kept = QString(backup).replace(".mdb", "-2.mdb");
    EXPECT_TRUE(messages.shown().front().text.contains("has been brought up to date") &&
                messages.shown().front().text.endsWith(kept))
        << messages.shown().front().text.toStdString();
    EXPECT_EQ(allRows(connectionStringFor(kept)), rows);
    EXPECT_EQ(allRows(gConnectionString), rows);
    EXPECT_FALSE(tryDatabase(gConnectionString).text.contains("earlier version"));
}

TEST_F(OlderAndNewer, TheToolReadsAnOlderOneAndBringsItUpToDateOnlyWhenAsked) {
    const QString rows = allRows(old.connectionString());
    expectSays({"check", old.address()}, "An earlier version of Tarnwell made it.", "0");
    expectSays({"create", old.file("new.mdb")}, "Made", "0");
    expectSays({"copy", old.file("new.mdb"), old.address()}, "to be filled was made by an earlier version",
               "1");
    expectSays({"copy", old.address(), old.file("new.mdb")}, "and compared each", "0");
    EXPECT_EQ(allRows(connectionStringFor(old.file("new.mdb"))), rows);
    expectSays({"backup", old.address(), old.file("saved.mdb")}, "Saved", "0");
    expectSays({"restore", old.file("saved.mdb"), old.file("restored.mdb")}, "Restored", "0");
    EXPECT_EQ(allRows(connectionStringFor(old.file("restored.mdb"))), rows);
    expectSays({"migrate", old.address(), old.file("saved.mdb")}, "the copy needs a name of its own", "1");
    expectSays({"migrate", old.address(), old.file("before.mdb")},
               "from version 1 of the tables to version 2", "0");
    EXPECT_TRUE(QFile::exists(old.file("before.mdb")));
    expectSays({"migrate", old.address(), old.file("again.mdb")}, "is up to date", "0");
    EXPECT_FALSE(QFile::exists(old.file("again.mdb")));
    EXPECT_FALSE(whatToolSays({"check", old.address()}).contains("earlier version"));
    EXPECT_EQ(allRows(old.connectionString()), rows);
}

TEST_F(OlderAndNewer, NobodyTouchesANewerOne) {
    expectSays({"migrate", old.address(), old.file("before.mdb")}, "Brought", "0");
    old.makeNewer();
    for (const QStringList& arguments : {QStringList{"check", old.address()},
                                         {"backup", old.address(), old.file("saved.mdb")},
                                         {"copy", old.address(), old.file("copied.mdb")},
                                         {"copy", old.file("before.mdb"), old.address()},
                                         {"migrate", old.address(), old.file("again.mdb")}})
        expectSays(arguments, "from Tarnwell 9.1.0", "1");
    EXPECT_TRUE(tryDatabase(old.connectionString()).text.contains("a later version of Tarnwell"));
}

} // namespace
} // namespace tarnwell::test
