#include "data/odbc/OdbcError.h"
#include "data/odbc/SqlServerCatalog.h"
#include "data/odbc/SqlServerDialect.h"
#include "data/odbc/SqlServerDriver.h"
#include "data/schema/SchemaVersion.h"
#include "data/sql/Dialect.h"
#include "data/sql/RowStatements.h"
#include "support/RaisedNumber.h"

#include <QFile>

#include <gtest/gtest.h>

// No such server runs here: what would be sent to it is compared with what was read and approved.
namespace tarnwell::data {
namespace {

using test::raisedNumber;

constexpr auto approved = TARNWELL_DATA_TESTS "/odbc/";

bool isApproving() {
    return qEnvironmentVariable("TARNWELL_APPROVE") == QLatin1String("1");
}

QByteArray approvedText(const char* name) {
    QFile file(QLatin1String(approved) + QLatin1String(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return file.readAll();
}

/// Compares with the approved file, or writes it where the environment says TARNWELL_APPROVE=1.
void expectApproved(const char* name, const QByteArray& text) {
    if (isApproving()) {
        QFile file(QLatin1String(approved) + QLatin1String(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    EXPECT_EQ(text.toStdString(), approvedText(name).toStdString());
}

class SqlServer : public ::testing::Test {
protected:
    Translation translated(const QString& sql) { return m_translation.translate(sql); }
    std::string text(const QString& sql) { return translated(sql).shape->sql.simplified().toStdString(); }

    SqlServerDialect server;

private:
    Dialect m_translation{&server};
};

TEST_F(SqlServer, TheSchemaIsTheApprovedScript) {
    QByteArray script;
    for (const QByteArray& statement : server.catalogSettings())
        script += statement + "\nGO\n";
    for (const QByteArray& statement : server.createStatements())
        script += statement + "\nGO\n";
    expectApproved("sqlserver-schema.sql", script);
}

TEST_F(SqlServer, TheUpgradeIsTheApprovedScript) {
    const SqlServerCatalog catalog;
    QByteArray script;
    const auto add = [&](const std::vector<QByteArray>& statements) {
        for (const QByteArray& statement : statements)
            script += statement + "\nGO\n";
    };
    add(catalog.lockSchema(std::chrono::minutes(2)));
    add({schema::readStamps(), catalog.findSchemaRights()});
    add(catalog.becomeOwner());
    add(server.upgradeStatements(schema::firstVersion));
    add({schema::insertStamp()});
    expectApproved("sqlserver-upgrade.sql", script);
}

/// What this server refuses to create: a row that a deletion reaches in two ways, and an index row of more
/// than 1,700 bytes.
TEST_F(SqlServer, TheCatalogueStaysWithinItsLimits) {
    for (const schema::Table& root : schema::tables()) {
        std::vector<QString> reached{root.name};
        for (std::size_t i = 0; i < reached.size(); ++i)
            for (const schema::Table& table : schema::tables())
                for (const schema::Relation& relation : table.relations)
                    if (relation.parentTable == reached[i] &&
                        relation.onDelete == schema::OnDelete::Cascade) {
                        EXPECT_EQ(std::ranges::count(reached, table.name), 0)
                            << root.name.toStdString() << " reaches " << table.name.toStdString() << " twice";
                        reached.push_back(table.name);
                    }
        for (const schema::Index& index : root.indexes)
            EXPECT_LE(std::ranges::count_if(index.columns,
                                            [&](const QString& column) {
                                                const auto at =
                                                    static_cast<std::size_t>(root.columnIndex(column));
                                                return root.columns[at].type == schema::ColumnType::Text;
                                            }),
                      2)
                << root.name.toStdString();
    }
}

/// The file has each statement as our code sends it, and below it, each behind a blank, the two forms that
/// the server gets: without and with the keys of its rows. tests/support/statements.py finds those that it
/// lacks.
TEST_F(SqlServer, EveryStatementOfTheProgramIsAsApproved) {
    QByteArray all;
    int statements = 0;
    for (const QByteArray& line : approvedText("sqlserver-statements.txt").split('\n')) {
        if (line.startsWith('#'))
            all += line + '\n';
        if (line.isEmpty() || line.startsWith(' ') || line.startsWith('#'))
            continue;
        ++statements;
        const Translation translation = translated(QString::fromUtf8(line));
        const TranslatedShape& shape = *translation.shape;
        EXPECT_EQ(shape.sql.count('?'), static_cast<int>(translation.parameters.size()))
            << line.toStdString();
        all += line + '\n';
        all += ' ' + shape.sql.simplified() + '\n';
        if (shape.sqlWithKeys != shape.sql)
            all += ' ' + shape.sqlWithKeys.simplified() + '\n';
    }
    EXPECT_GT(statements, 100);
    expectApproved("sqlserver-statements.txt", all);
}

TEST_F(SqlServer, WritesWhatTheProgramMaySendOneDay) {
    const std::pair<const char*, const char*> cases[] = {
        {"SELECT Name FROM Job WHERE Name LIKE 'a[*'",
         R"(SELECT "Name" FROM "Job" WHERE "Name" LIKE REPLACE(?, N'[', N'[[]') ORDER BY "Job"."JobKey")"},
        {"SELECT JobNumber + 5 & JobKey FROM Job",
         R"(SELECT coalesce("JobNumber" + ?,'') + coalesce(CAST("JobKey" AS nvarchar(max)),'') FROM "Job" )"
         R"(ORDER BY "Job"."JobKey")"},
        {"SELECT JobKey FROM Job WHERE JobNumber=5 AND JobKey=5 AND JobKey>2.5 AND JobNumber<>0",
         R"(SELECT "JobKey" FROM "Job" WHERE "JobNumber" = ? AND "JobKey" = CAST(? AS int) AND "JobKey" > )"
         R"(CAST(? AS float) AND "JobNumber" <> N'0' ORDER BY "Job"."JobKey")"},
        {"SELECT JobKey FROM Job ORDER BY Name, JobKey DESC, Job.Name LIMIT 3",
         R"(SELECT "JobKey" FROM "Job" ORDER BY "Job"."Name" , "Job"."JobKey" DESC OFFSET 0 ROWS FETCH NEXT )"
         R"(3 ROWS ONLY)"},
        {"SELECT SUBSTR(Name, 1, 2) AS Name FROM Job ORDER BY Name",
         R"(SELECT SUBSTRING ( "Name" , 1 , CAST(? AS int) ) AS "Name" FROM "Job" ORDER BY "Name" , )"
         R"("Job"."JobKey")"},
        {"SELECT Name FROM Job UNION ALL SELECT LastName FROM Employee ORDER BY Name",
         R"(SELECT "Name" FROM "Job" UNION ALL SELECT "LastName" FROM "Employee" ORDER BY "Name")"},
        {"INSERT INTO Code (Code1, Description, Deleted) SELECT 2, Name, False FROM Job",
         R"(INSERT INTO "Code" ( "Code1" , "Description" , "Deleted" ) SELECT CAST(? AS int) , "Name" , 0 FROM )"
         R"("Job")"},
    };
    for (const auto& [sql, expected] : cases)
        EXPECT_EQ(text(sql), expected) << sql;
}

TEST_F(SqlServer, SendsKeysByTheThousandAsNumbers) {
    QString sql = "SELECT Name FROM Job WHERE (JobKey=2";
    for (int key = 3; key < 5000; ++key)
        sql += " OR JobKey=" + QString::number(key);
    const Translation translation = translated(sql + ")");
    EXPECT_TRUE(translation.parameters.empty());
    EXPECT_NE(translation.shape->sql.indexOf("IN ( 2 ,   3 ,   4"), -1)
        << translation.shape->sql.left(200).data();
    QString shorter = "SELECT Name FROM Job WHERE JobKey IN (2";
    while (shorter.size() < 3990)
        shorter += ",2";
    EXPECT_LT(translated(shorter + ")").parameters.size(), 2100U);
}

// This server divides statements by nothing but the word that the next one begins with.
TEST_F(SqlServer, TypedTextAddsNoStatement) {
    const char* const second[] = {
        "SELECT * FROM Job DELETE FROM Job",
        "SELECT * FROM Job WHERE JobKey=1 UPDATE Job SET Name=''",
        "SELECT * FROM Job SELECT * FROM Code",
        "SELECT * FROM Job DROP TABLE Job",
        "SELECT * FROM Job EXEC sp_who",
        "INSERT INTO Job EXEC sp_who",
        "INSERT INTO Code (Code1) VALUES (1) SELECT * FROM Job",
        "INSERT INTO Code (Code1) SELECT 1 SELECT 1",
        "UPDATE Job SET Name='' SET XACT_ABORT ON",
        "DELETE FROM Job SET NOCOUNT ON",
        "DELETE FROM Job TRUNCATE(Job)",
        "SELECT OPENROWSET('a', 'b', 'c') FROM Job",
        "SELECT Name FROM OPENQUERY(other, 'SELECT 1')",
        "SELECT SUSER_NAME() FROM Job",
        "SELECT * FROM Job; DELETE FROM Job",
    };
    for (const char* sql : second)
        EXPECT_EQ(raisedNumber([&] { (void)text(sql); }), -2147217900) << sql;
    for (const char* sql :
         {"SELECT * INTO Copy FROM Job", "SELECT * FROM Job INSERT INTO Code (Code1) VALUES (1)",
          "SELECT Name FROM sys.objects", "SELECT Name FROM sysobjects", "SELECT Name FROM master..Job",
          "SELECT Name FROM master.dbo.Job", "SELECT Name FROM information_schema.tables",
          "SELECT Name FROM [SysLogins]"})
        EXPECT_EQ(raisedNumber([&] { (void)text(sql); }), -2147217911) << sql;
    for (const char* sql : {"UPDATE Job SET Name='' WHERE JobKey IN (SELECT JobKey FROM JobLot)",
                            "SELECT (SELECT COUNT(*) FROM Code) FROM Job"})
        EXPECT_EQ(raisedNumber([&] { (void)text(sql); }), 0) << sql;
}

TEST_F(SqlServer, WritesRowsInItsOwnWords) {
    const schema::Table& table = *schema::findTable(u"CategoryDependency");
    const int columns[] = {1, 2};
    EXPECT_EQ(
        server.returningKey(insertStatement(table, columns), table).toStdString(),
        R"(SET NOCOUNT ON; INSERT INTO "CategoryDependency" ("CategoryKey","DependentKey") VALUES (?,?); )"
        R"(SELECT CAST(SCOPE_IDENTITY() AS int))");
    EXPECT_EQ(server.locked(readRowStatement(table, columns)).toStdString(),
              R"(SELECT "CategoryDependencyKey","CategoryKey","DependentKey" FROM "CategoryDependency" WITH )"
              R"((UPDLOCK, ROWLOCK) WHERE "CategoryDependencyKey"=?)");
    EXPECT_EQ(server.firstRows("SELECT DISTINCT \"Name\" FROM \"Job\"", 2),
              "SELECT DISTINCT TOP (2) \"Name\" FROM \"Job\"");
    EXPECT_EQ(server.firstRows("SELECT 1 UNION SELECT 2", 1), "SELECT 1 UNION SELECT 2");
    EXPECT_EQ(server.withKeys(insertStatement(table, columns), table).toStdString(),
              R"(SET IDENTITY_INSERT "CategoryDependency" ON; INSERT INTO "CategoryDependency" )"
              R"(("CategoryKey","DependentKey") VALUES (?,?); SET IDENTITY_INSERT "CategoryDependency" OFF)");
    EXPECT_EQ(server.passKeys(table), "DBCC CHECKIDENT (N'CategoryDependency', RESEED) WITH NO_INFOMSGS");
    EXPECT_EQ(
        server.keysBehind(table, 17).toStdString(),
        "IF EXISTS (SELECT * FROM sys.identity_columns WHERE object_id = OBJECT_ID(N'CategoryDependency') "
        "AND last_value IS NULL) DBCC CHECKIDENT (N'CategoryDependency', RESEED, 18) WITH NO_INFOMSGS ELSE "
        "IF IDENT_CURRENT(N'CategoryDependency') < 17 DBCC CHECKIDENT (N'CategoryDependency', RESEED, 17) "
        "WITH NO_INFOMSGS");
    EXPECT_EQ(
        server.greatestKey(table).toStdString(),
        "SELECT COALESCE(MAX(k), 0) FROM (SELECT CAST(last_value AS int) AS k FROM sys.identity_columns "
        "WHERE object_id = OBJECT_ID(N'CategoryDependency') UNION ALL SELECT "
        "MAX(\"CategoryDependencyKey\") FROM \"CategoryDependency\") AS keys");
    const TranslatedShape& shape = *translated("SELECT LotBlock, Name FROM JobLot, Job ORDER BY Name").shape;
    EXPECT_EQ(shape.sqlWithKeys.left(shape.sortingAt).indexOf("ORDER"), -1) << "in a WITH nothing is sorted";
    const auto settings = server.settings(std::chrono::milliseconds(1500));
    ASSERT_EQ(settings.size(), 1U);
    EXPECT_TRUE(settings.front().endsWith("SET LOCK_TIMEOUT 1500")) << settings.front().data();
}

TEST(SqlServerDriverString, SaysWhatTheConnectionStringSays) {
    struct Case {
        const char* ours;
        const char* freeTds;
        const char* microsoft;
    };
    const Case cases[] = {
        {"Initial Catalog=jobs;Data Source=office;Integrated Security=SSPI;Persist Security Info=False;",
         "Server=office;Database=jobs;Trusted_Connection=Yes;Encryption=require;",
         "Server=office;Database=jobs;Trusted_Connection=Yes;Encrypt=yes;"},
        {"Initial Catalog=jobs;Data Source=\\\\Office,1444;User ID=ann;Password=p=}w",
         "Server=Office;Port=1444;Database=jobs;UID=ann;PWD={p=}w};Encryption=require;",
         "Server=Office,1444;Database=jobs;UID=ann;PWD={p=}w};Encrypt=yes;"},
        {"Initial Catalog=jobs;Data Source=office\\paint;Encrypt=No",
         "Server=office\\paint;Database=jobs;Trusted_Connection=Yes;Encryption=request;",
         "Server=office\\paint;Database=jobs;Trusted_Connection=Yes;Encrypt=no;"},
        {"Initial Catalog=jobs;Data Source=.\\paint;TrustServerCertificate=yes",
         "Server=localhost\\paint;Database=jobs;Trusted_Connection=Yes;Encryption=require;",
         "Server=localhost\\paint;Database=jobs;Trusted_Connection=Yes;Encrypt=yes;TrustServerCertificate="
         "yes;"},
        {"Initial Catalog=jobs;Data Source=office:1444",
         "Server=office;Port=1444;Database=jobs;Trusted_Connection=Yes;Encryption=require;",
         "Server=office,1444;Database=jobs;Trusted_Connection=Yes;Encrypt=yes;"},
        {"Initial Catalog=jobs;Data Source=(local)",
         "Server=localhost;Database=jobs;Trusted_Connection=Yes;Encryption=require;",
         "Server=localhost;Database=jobs;Trusted_Connection=Yes;Encrypt=yes;"},
        {"Initial Catalog=jobs;Data Source=",
         "Server=localhost;Database=jobs;Trusted_Connection=Yes;Encryption=require;",
         "Server=localhost;Database=jobs;Trusted_Connection=Yes;Encrypt=yes;"},
    };
    const QLatin1String freeTds(
        "Driver={FreeTDS};TDS_Version=7.4;ClientCharset=UTF-8;APP=Tarnwell;MARS_Connection=Yes;");
    const QLatin1String microsoft("Driver={ODBC Driver 18 for SQL Server};APP=Tarnwell;MARS_Connection=Yes;");
    for (const Case& entry : cases) {
        const QString ours = QLatin1String("Provider=SQLOLEDB.1;") + QLatin1String(entry.ours);
        EXPECT_EQ(sqlServerDriverString(ours, SqlServerDriver::FreeTds),
                  freeTds + QLatin1String(entry.freeTds));
        EXPECT_EQ(sqlServerDriverString(ours, SqlServerDriver::Microsoft),
                  microsoft + QLatin1String(entry.microsoft));
    }
}

TEST(SqlServerErrors, HaveTheProvidersNumbers) {
    struct Case {
        const char* state;
        int native;
        int number;
    };
    const Case cases[] = {
        {"42000", 102, -2147217900},  {"42S02", 208, -2147217865},  {"42S22", 207, -2147217904},
        {"42000", 4104, -2147217904}, {"23000", 547, -2147217873},  {"23000", 2627, -2147217873},
        {"42000", 8102, -2147217873}, {"42000", 229, -2147217911},  {"28000", 18456, -2147217911},
        {"22001", 8152, -2147217833}, {"42000", 2628, -2147217833}, {"22003", 8115, -2147217833},
        {"HY000", 1222, -2147467259}, {"40001", 1205, -2147467259}, {"42000", 4060, -2147467259},
        {"42000", 9002, -2147467259}, {"HY008", 0, 3712},           {"22018", 245, 3421},
    };
    for (const auto& [state, native, number] : cases)
        EXPECT_EQ(test::numberOf(failureOf({state, {}, native})), number) << state << ' ' << native;
    EXPECT_EQ(failureOf({"HY000", {}, 1222}), Failure::DatabaseLocked);
}

TEST(SqlServerErrors, SayWhichRuleWasBroken) {
    struct Case {
        int native;
        const char* words;
        const char* sql;
        const char* text;
    };
    const Case cases[] = {
        {515,
         "Cannot insert the value NULL into column 'JobKey', table 'jobs.dbo.JobLot'; column does not allow "
         "nulls.",
         "SET NOCOUNT ON; INSERT INTO \"JobLot\"", "The column JobKey must have a value."},
        {547, "The INSERT statement conflicted with the FOREIGN KEY constraint \"FK__JobLot\".",
         "SET NOCOUNT ON; INSERT INTO \"JobLot\"", "a record that it refers to does not exist."},
        {547, "The DELETE statement conflicted with the REFERENCE constraint \"FK__Job\".",
         "DELETE FROM \"Job\"", "cannot be deleted or changed because other records refer to it."},
        {547, "The UPDATE statement conflicted with the CHECK constraint \"CK__Code\".", "UPDATE \"Code\"",
         "CHECK constraint"},
    };
    for (const Case& entry : cases)
        EXPECT_TRUE(test::raisedText([&] {
                        raiseOdbcError({"23000", entry.words, entry.native}, "SQL Server", entry.sql);
                    }).contains(entry.text))
            << entry.words;
}

} // namespace
} // namespace tarnwell::data
