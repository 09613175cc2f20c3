#include "ServerCatalogs.h"
#include "data/recordset/Connection.h"
#include "data/transfer/DatabaseAddress.h"
#include "data/transfer/DatabaseCopy.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"
#include "support/TestServer.h"

#include <QFile>

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

class ServerTool : public ServerCatalogs {
protected:
    static void open(Connection& connection, const QString& database) {
        connection.setConnectionString(std::get<DatabaseAddress>(readAddress(database)).connectionString);
        connection.Open();
    }
    static qint64 newLogKey(const QString& database) {
        Connection connection;
        open(connection, database);
        Recordset rows;
        rows.Open("EmployeeLog", connection, CursorType::Dynamic, LockType::Optimistic);
        rows.AddNew();
        rows.set("EmployeeKey", 1);
        rows.Update();
        return rows.field("LogKey").toLong();
    }
    void alter(const char* name, const QByteArray& sql) const { runOnServer(catalog(name), sql); }
};

// Lost or changed values, keys given out again.
TEST_F(ServerTool, EveryRowComesBackFromTwoServersAsItWas) {
    makeStrangeFile("a.mdb");
    run({"copy", file("a.mdb"), address("first")});
    run({"create", address("second")});
    run({"copy", address("first"), address("second")});
    run({"copy", address("second"), file("b.mdb")});
    run({"create", file("c.mdb")});
    run({"copy", file("b.mdb"), file("c.mdb")});
    const QString rows = rowsOf(file("a.mdb"));
    EXPECT_TRUE(rows.contains("1.0e+308") && rows.contains("9999-12-31") && rows.contains("NULL"));
    for (const QString& copy : {address("first"), address("second"), file("b.mdb"), file("c.mdb")}) {
        EXPECT_TRUE(rowsOf(copy) == rows) << copy.toStdString();
        EXPECT_EQ(newLogKey(copy), 70001) << copy.toStdString();
    }
}

TEST_F(ServerTool, ABackupIsAFileAndGoesBackIntoAnEmptyCatalog) {
    run({"sample", address("first")});
    run({"check", address("first")});
    run({"backup", address("first"), file("saved.mdb")});
    EXPECT_NE(complaint({"backup", address("first"), file("saved.mdb")}).find("--overwrite"),
              std::string::npos);
    run({"backup", address("first"), file("saved.mdb"), "--overwrite"});
    run({"check", file("saved.mdb")});
    run({"restore", file("saved.mdb"), address("second")});
    EXPECT_TRUE(rowsOf(address("second")) == dump(file("saved.mdb")));
    run({"sample", file("sample.mdb")});
    EXPECT_TRUE(dump(file("sample.mdb")) == dump(file("saved.mdb")));
}

TEST_F(ServerTool, SaysInOneLineWhatStandsInTheWay) {
    runOnServer("postgres", QString("CREATE DATABASE \"%1\"").arg(catalog("foreign")).toUtf8());
    alter("foreign", "CREATE TABLE \"Job\" (\"JobKey\" integer)");
    run({"sample", file("a.mdb")});
    run({"copy", file("a.mdb"), address("first")});
    (void)newUser("clerk");
    const QString wrongUser = QString("postgresql://nobody@/x?host=%1").arg(testServer());
    const std::pair<QStringList, const char*> cases[] = {
        {{"create", address("first")}, "is a Tarnwell database already"},
        {{"create", address("foreign")}, "holds tables that are not Tarnwell's"},
        {{"create", address("second", "clerk")}, "ermission denied"},
        {{"create", address("first"), "--user", "Nobody At All"}, "Nobody At All"},
        {{"create", address("first").replace("first", QString(60, 'x'))}, "too long"},
        {{"sample", address("first")}, "is not empty: there are rows in Code"},
        {{"copy", file("a.mdb"), address("first")}, "is not empty: there are rows in Code"},
        {{"copy", file("a.mdb"), address("foreign")}, "holds tables that are not Tarnwell's"},
        {{"copy", address("first"), address("first")}, "cannot be copied to itself"},
        {{"copy", address("second"), file("b.mdb")}, "does not exist"},
        {{"copy", address("foreign"), file("b.mdb")}, "is not a Tarnwell database"},
        {{"backup", address("second"), file("b.mdb")}, "does not exist"},
        {{"check", wrongUser}, "nobody"},
        {{"check", "postgresql:///x?host=/nowhere"}, "could not be reached"},
        {{"check", address("first", "clerk")}, "ermission denied"},
    };
    for (const auto& [arguments, expected] : cases)
        EXPECT_NE(complaint(arguments).find(expected), std::string::npos)
            << arguments.join(' ').toStdString() << ": " << complaint(arguments);
    EXPECT_FALSE(QFile::exists(file("b.mdb")));
}

TEST_F(ServerTool, AFailedCopyLeavesTheCatalogAsItWas) {
    run({"create", address("first")});
    const QString before = rowsOf(address("first"));
    const std::pair<const char*, const char*> faults[] = {
        {"UPDATE Job SET CompletedDate='soon' WHERE JobKey=3", "Job 3: "},
        {"UPDATE JobTaskEmployee SET EmployeeKey=5000000000 WHERE JobTaskEmployee=4", "there is no Employee"},
        {"UPDATE JobLotTask SET EmployeeKey=5000000000 WHERE JobLotTaskKey=4", "JobLotTask 4: "},
        {"UPDATE JobTaskEmployee SET Note=CAST(x'610062' AS TEXT) WHERE JobTaskEmployee=5",
         "JobTaskEmployee 5"},
    };
    for (const auto& [sql, expected] : faults) {
        run({"sample", file("a.mdb"), "--overwrite"});
        breakDatabase(file("a.mdb"), sql);
        const std::string words = complaint({"copy", file("a.mdb"), address("first")});
        EXPECT_NE(words.find(expected), std::string::npos) << sql << ": " << words;
        EXPECT_TRUE(rowsOf(address("first")) == before) << sql;
        (void)complaint({"copy", file("a.mdb"), address("second")});
        EXPECT_NE(complaint({"copy", address("second"), file("b.mdb")}).find("does not exist"),
                  std::string::npos)
            << sql;
    }
}

TEST_F(ServerTool, ACopyReadsOneStateWhileOthersWrite) {
    run({"sample", file("a.mdb")});
    run({"copy", file("a.mdb"), address("first")});
    const QString before = rowsOf(file("a.mdb"));
    for (const QString& from : {file("a.mdb"), address("first")}) {
        run({"create", file("b.mdb"), "--overwrite"});
        Connection source;
        open(source, from);
        Connection other;
        open(other, from);
        Connection target;
        open(target, file("b.mdb"));
        const auto write = [&](const CopyProgress&) {
            other.Execute("INSERT INTO EmployeeLog (EmployeeKey) VALUES (1)");
            other.Execute("UPDATE Code SET Description='changed' WHERE CodeKey=1");
        };
        EXPECT_TRUE(copyDatabase(source, target, write).usedTable.isEmpty());
        target.Close();
        EXPECT_TRUE(dump(file("b.mdb")) == before) << from.toStdString();
    }
}

TEST_F(ServerTool, AServerThatStopsInACopyLeavesTheCatalogAsItWas) {
    run({"sample", file("a.mdb")});
    run({"create", address("first")});
    const QString before = rowsOf(address("first"));
    Connection source;
    open(source, file("a.mdb"));
    Connection target;
    open(target, address("first"));
    const auto stop = [&](const CopyProgress& progress) {
        if (progress.table == QLatin1String("JobLotTask"))
            alter("first", "SELECT pg_terminate_backend(pid) FROM pg_stat_activity "
                           "WHERE datname = current_database() AND pid <> pg_backend_pid()");
    };
    EXPECT_EQ(raisedNumber([&] { (void)copyDatabase(source, target, stop); }), -2147467259);
    EXPECT_TRUE(rowsOf(address("first")) == before);
    run({"copy", file("a.mdb"), address("first")});
}

TEST_F(ServerTool, CheckFindsWhatACatalogLacksAndTheRowsThatBreakARule) {
    run({"sample", address("first")});
    const std::pair<const char*, const char*> faults[] = {
        {"DROP INDEX \"JobLot_JobKey_LotBlock\"", "JobLot has no index of JobKey,LotBlock\n"},
        {"ALTER TABLE \"JobLot\" DROP CONSTRAINT \"JobLot_JobKey_fkey\"",
         "JobLot.JobKey has no relation to Job"},
        {"SELECT setval('\"Job_JobKey_seq\"', 1)", "Job would give out keys that it has already\n"},
        {"ALTER TABLE \"Contractor\" DROP COLUMN \"License\"", "Contractor.License is missing\n"},
    };
    for (const auto& [sql, expected] : faults) {
        alter("first", sql);
        const ToolResult result = runToolWith({"check", address("first")});
        EXPECT_EQ(result.code, 1) << sql;
        EXPECT_TRUE(result.out.contains(expected)) << result.out.toStdString();
    }
    run({"sample", address("second")});
    const std::pair<const char*, const char*> rows[] = {
        {"UPDATE \"Job\" SET \"CompletedDate\"='1899-12-31' WHERE \"JobKey\"=1",
         "Job.CompletedDate lies outside 1900 to 2099: 1\n  Job 1: CompletedDate is 12/31/1899\n"},
        {"UPDATE \"JobTaskEmployee\" SET \"Price\"='NaN' WHERE \"JobTaskEmployee\"=1",
         "JobTaskEmployee.Price is not a finite number: 1\n"},
        {"UPDATE \"JobTaskEmployee\" SET \"Note\"=NULL WHERE \"JobTaskEmployee\"=1",
         "  JobTaskEmployee 1: Note is Null\n"},
        {"UPDATE \"JobLotTask\" SET \"MasterTaskKey\"=99999 WHERE \"JobLotTaskKey\"=1",
         "JobLotTask.MasterTaskKey leads to no row of MasterTask: 1\n"},
        {"UPDATE \"MasterTask\" SET \"CustomTask\"='X' WHERE \"MasterTaskKey\"=1",
         "MasterTask.CustomTask is neither Y nor N: 1\n"},
        {"UPDATE \"JobLotTask\" SET \"Name\"='Something else' WHERE \"Child\"=1",
         "JobLotTask.Name of an option does not begin with its parent's"},
        {"UPDATE \"JobLotTask\" SET \"Child\"=2 WHERE \"Child\"=1", "JobLotTask.Child is neither 0 nor 1"},
    };
    for (const auto& [sql, expected] : rows) {
        alter("second", sql);
        EXPECT_TRUE(runToolWith({"check", address("second")}).out.contains(expected)) << sql;
    }
}

} // namespace
} // namespace tarnwell::test
