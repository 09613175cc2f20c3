#include "data/odbc/ConnectFailure.h"
#include "data/recordset/Connection.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"
#include "support/TestServer.h"

#include <functional>
#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

class Server : public ::testing::Test {
protected:
    std::string names(const QString& rest) {
        Recordset rows;
        rows.Open("SELECT Name FROM MasterTask " + rest, database.connection());
        QStringList list;
        for (; !rows.atEnd(); rows.MoveNext())
            list << (rows["Name"].isNull() ? QStringLiteral("-") : rows["Name"].toText());
        return list.join(' ').toStdString();
    }
    void addTasks(std::initializer_list<Value> all) {
        for (const Value& name : all)
            database.add("MasterTask", {{"Name", name}});
    }
    int numberOf(const QString& sql) {
        return raisedNumber([&] {
            Recordset rows;
            rows.Open(sql, database.connection());
        });
    }

    TemporaryDatabase database;
};

TEST(ServerOpening, SaysWhatIsWrong) {
    for (const char* text : {"Provider=PostgreSQL;Data Source=/nowhere;Initial Catalog=x",
                             "Provider=PostgreSQL;Data Source=127.0.0.1:1;Initial Catalog=x"}) {
        Connection connection;
        connection.setConnectionString(text);
        EXPECT_TRUE(raisedText([&] { connection.Open(); }).contains("could not be reached")) << text;
        EXPECT_EQ(connection.State(), ObjectState::Closed);
    }
    Connection foreign;
    foreign.setConnectionString(serverConnectionString("postgres"));
    EXPECT_TRUE(raisedText([&] { foreign.Open(); }).contains("not a Tarnwell database"));
    foreign.setConnectionString(serverConnectionString("nowhere"));
    EXPECT_TRUE(raisedText([&] { foreign.Open(); }).contains("nowhere"));
}

// Its words are in its own language; which they are tells whether anybody answered at all.
TEST(ServerOpening, TellsARefusalFromSilenceInEveryLanguage) {
    const std::pair<const char*, const char*> cases[] = {
        {"failed: FATAL: database \"x\" does not exist",
         "The database server has no such catalog. (database \"x\" does not exist)"},
        {"failed: FATAL: Datenbank »x« existiert nicht",
         "The database server refused the connection. (Datenbank »x« existiert nicht)"},
        {"failed: FATAL : la base n'existe pas",
         "The database server refused the connection. (la base n'existe pas)"},
        {"failed: 致命错误: 数据库不存在", "The database server refused the connection. (数据库不存在)"},
        {"failed: Connection refused",
         "The database server could not be reached. (failed: Connection refused)"},
    };
    for (const auto& [words, text] : cases)
        EXPECT_EQ(raisedText([&, said = QString::fromUtf8(words)] {
                      data::raiseConnectFailure({.state = "08001", .words = said}, "PostgreSQL");
                  }),
                  QString::fromUtf8(text));
    qputenv("LANGUAGE", "de");
    Connection connection;
    connection.setConnectionString("Provider=PostgreSQL;Data Source=/nowhere;Initial Catalog=x");
    EXPECT_TRUE(raisedText([&] { connection.Open(); }).contains("No such file or directory"));
    qunsetenv("LANGUAGE");
}

TEST_F(Server, ComparesAndOrdersTextsAsTheEmbeddedEngine) {
    addTasks({"b", "A", Value::null(), "a_", "B", "Ä", "", "z*"});
    EXPECT_EQ(names("ORDER BY Name"), "-  A a_ b B z* Ä");
    EXPECT_EQ(names("ORDER BY Name DESC"), "Ä z* b B a_ A  -");
    EXPECT_EQ(names("WHERE Name>='B' ORDER BY Name"), "b B z* Ä");
    EXPECT_EQ(names("WHERE Name='a' OR Name LIKE 'A_'"), "A a_");
    EXPECT_EQ(names("WHERE Name LIKE '*Z%'"), "z*");
    EXPECT_EQ(names("WHERE ISNULL(Name)=-1 OR Name + 'x' = 'bx'"), "b -");
    EXPECT_EQ(database.ask("SELECT ISNULL(Name) FROM MasterTask WHERE ISNULL(Name)"), Value(-1));
}

TEST_F(Server, KeepsEveryValueAsItIs) {
    const QString longText = QString("Größe 'ж' \n").repeated(12'000);
    const DateTime moments[] = {{QDate(1900, 1, 1)}, {QDate(9999, 12, 31), QTime(23, 59, 59)}};
    for (const DateTime& moment : moments)
        for (const double price : {0.0, 0.1, -1e308, 1e-300, 123456789.123456789})
            for (const QString& text : {QString(), QString("x"), longText}) {
                const qint64 job = database.add("Employee", {{"Information", text}, {"DateofHire", moment}});
                const qint64 task =
                    database.add("MasterTask", {{"MasterPrice", price}, {"Deleted", price > 0}});
                Recordset rows;
                rows.Open("SELECT * FROM Employee WHERE EmployeeKey=" + QString::number(job),
                          database.connection());
                EXPECT_TRUE(rows["Information"] == Value(text));
                EXPECT_EQ(rows["DateofHire"], Value(moment));
                rows = Recordset();
                rows.Open("SELECT * FROM MasterTask WHERE MasterTaskKey=" + QString::number(task),
                          database.connection());
                EXPECT_EQ(rows["MasterPrice"], Value(price));
                EXPECT_EQ(rows["Deleted"], Value(price > 0));
                EXPECT_EQ(rows["CodeKey"], Value(0));
            }
}

TEST_F(Server, RaisesTheProvidersNumbers) {
    const std::pair<const char*, int> cases[] = {
        {"SELECT * FRM MasterTask", -2147217900},
        {"SELECT * FROM Jobs", -2147217865},
        {"SELECT Nowhere FROM MasterTask", -2147217904},
        {"UPDATE MasterTask SET Nowhere=1", -2147217904},
        {"INSERT INTO JobLot (JobKey) VALUES (77)", -2147217873},
        {"UPDATE Code SET Code1=99999", -2147217833},
        {"UPDATE MasterTask SET MasterTaskKey=1", -2147217873},
        {"SELECT * FROM pg_user", -2147217911},
        {"SELECT pg_read_file('/etc/passwd') FROM Code", -2147217911},
        {"SELECT lo_import('/etc/passwd') FROM Code", -2147217900},
        {"SELECT * FROM Code; DELETE FROM Code", -2147217900},
    };
    addTasks({"A", "B"});
    for (const auto& [sql, number] : cases)
        EXPECT_EQ(numberOf(sql), number) << sql;
    EXPECT_EQ(names("ORDER BY Name"), "A B");
}

TEST_F(Server, WhatIsNotTheServersOwnNamesNoOtherEngine) {
    addTasks({"A"});
    Recordset rows;
    rows.Open("MasterTask", database.connection(), CursorType::Static, LockType::Optimistic);
    rows.set("Name", "mine");
    database.run("UPDATE MasterTask SET Name='theirs'");
    try {
        rows.Update();
        ADD_FAILURE() << "the other user's name was lost";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.source(), "the database");
    }
}

TEST_F(Server, ANullYesNoIsNo) {
    addTasks({"A"});
    database.run("UPDATE MasterTask SET Deleted=NULL");
    EXPECT_EQ(database.ask("SELECT Deleted FROM MasterTask"), Value(false));
    EXPECT_EQ(numberOf("UPDATE MasterTask SET Deleted=1"), -2147217873);
}

TEST_F(Server, TakesThousandsOfKeys) {
    addTasks({"A", "B", "C"});
    QString keys = "MasterTaskKey=2";
    for (int key = 3; key < 5000; ++key)
        keys += " OR MasterTaskKey=" + QString::number(key);
    EXPECT_EQ(names("WHERE (" + keys + ") ORDER BY MasterTaskKey"), "B C");
}

TEST_F(Server, ARowThatSomebodyHoldsIsLocked) {
    addTasks({"A", "B"});
    Connection other;
    other.setConnectionString(database.connectionString());
    other.setBusyTimeout(std::chrono::milliseconds(1));
    other.Open();
    const Transaction held(database.connection());
    database.run("UPDATE MasterTask SET Name='held' WHERE Name='A'");
    Recordset rows;
    rows.Open("SELECT Name FROM MasterTask ORDER BY Name", other, CursorType::Static, LockType::Optimistic);
    rows.set("Name", "mine");
    EXPECT_EQ(raisedFailure([&] { rows.Update(); }), Failure::DatabaseLocked);
    rows.CancelUpdate();
    rows.MoveNext();
    rows.set("Name", "free");
    rows.Update();
    EXPECT_EQ(rows["Name"], Value("free"));
}

TEST_F(Server, AWatchEndsAStatement) {
    QString sql = "SELECT COUNT(*) FROM Code a, Code b, Code c, Code d, Code e, Code f, Code g, Code h";
    int questions = 0;
    {
        const StatementWatch watch(database.connection(), [&] { return ++questions < 3; });
        EXPECT_EQ(numberOf(sql), tarnwell::makeError(Failure::Cancelled).number());
    }
    EXPECT_EQ(questions, 3);
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM MasterTask"), Value(0));
}

TEST_F(Server, AWriteThatWasDoneBeforeItWasGivenUpIsNoFailure) {
    class LateWatcher : public WaitWatcher {
    public:
        explicit LateWatcher(Connection& holder) : m_holder(holder) {}
        [[nodiscard]] bool goesOn(std::chrono::milliseconds /*waited*/) override {
            m_holder.CommitTrans();
            while (firstValue(m_holder, "SELECT Name FROM MasterTask") != Value("held, mine")) {
            }
            return false;
        }
        void ended() noexcept override {}

    private:
        Connection& m_holder;
    };
    addTasks({"A"});
    const auto holder = database.secondWorkstation();
    LateWatcher watcher(*holder);
    database.connection().setWaitWatcher(&watcher);
    holder->BeginTrans();
    holder->Execute("UPDATE MasterTask SET Name='held'");
    EXPECT_EQ(raisedText([&] { database.run("UPDATE MasterTask SET Name=Name+', mine'"); }).toStdString(),
              "");
    EXPECT_EQ(names(""), "held, mine");
}

// A report over a million payments is read for seconds after the statement has found them.
TEST_F(Server, AWatchIsAskedBetweenRowsAndEndsTheReading) {
    const QString sql = "SELECT a.CodeKey FROM Code a, Code b, Code c, Code d";
    const int codes = database.ask("SELECT COUNT(*) FROM Code").toLong();
    const int rows = codes * codes * codes * codes;
    constexpr int rowsOfBlock = 64;
    for (const bool goesOn : {true, false}) {
        int questions = 0;
        Recordset all;
        {
            const StatementWatch watch(database.connection(), [&] { return ++questions < 20 || goesOn; });
            EXPECT_EQ(raisedFailure([&] {
                          all.Open(sql, database.connection());
                          EXPECT_EQ(all.RecordCount(), rows);
                      }),
                      goesOn ? std::nullopt : std::optional(Failure::Cancelled));
        }
        EXPECT_GE(questions, goesOn ? rows / rowsOfBlock : 20);
        EXPECT_EQ(database.connection().Execute("UPDATE Code SET Code2=0"), codes)
            << "outside of the reading";
        EXPECT_EQ(firstValue(*database.secondWorkstation(), "SELECT COUNT(*) FROM Code WHERE Code2=0"),
                  Value(codes));
        database.run("UPDATE Code SET Code2=1");
    }
}

TEST_F(Server, AnIdleConnectionThatWasLostIsReplacedUnnoticed) {
    addTasks({"A"});
    Recordset opened; // and not read before the loss
    opened.Open("SELECT Name FROM MasterTask WHERE Name='A'", database.connection());
    Recordset edited;
    edited.Open("SELECT * FROM MasterTask", database.connection(), CursorType::Static, LockType::Optimistic);
    edited.set("MasterPrice", 5);
    const std::pair<const char*, std::function<void()>> actions[] = {
        {"read", [&] { EXPECT_EQ(names("WHERE Name='A'"), "A"); }},
        {"read on", [&] { EXPECT_EQ(opened["Name"], Value("A")); }},
        {"change a row", [&] { edited.Update(); }},
        {"add a row", [&] { addTasks({"B"}); }},
        {"write", [&] { database.run("UPDATE MasterTask SET Name=Name + 'x' WHERE Name='B'"); }},
        {"write again", [&] { database.run("UPDATE MasterTask SET Name=Name + 'x' WHERE Name='Bx'"); }},
        {"write all or nothing",
         [&] {
             Transaction transaction(database.connection());
             database.run("UPDATE MasterTask SET CodeKey=7");
             transaction.commit();
         }},
        {"watch for changes", [&] { EXPECT_GT(database.connection().dataVersion(), 0U); }},
    };
    for (const auto& [name, action] : actions)
        for (const bool ended : {true, false}) {
            if (ended)
                endConnections(database.connectionString());
            EXPECT_EQ(raisedText(action).toStdString(), "") << name;
        }
    EXPECT_EQ(names("WHERE CodeKey=7 ORDER BY MasterTaskKey"), "A Bxx Bxx");
    EXPECT_EQ(database.ask("SELECT MasterPrice FROM MasterTask WHERE Name='A'"), Value(5.0));
}

TEST_F(Server, AServerThatIsAwayIsAnErrorUntilItIsBack) {
    addTasks({"A"});
    {
        const CatalogAway away(database.connectionString());
        const auto read = [&] { (void)names(""); };
        EXPECT_EQ(raisedText(read), "The connection to the database server was lost. (terminating connection "
                                    "due to administrator command)");
        EXPECT_TRUE(raisedText(read).startsWith("The database server refused the connection."));
    }
    EXPECT_EQ(names(""), "A");
}

TEST_F(Server, ATransactionIsLostWithItsConnection) {
    {
        Transaction transaction(database.connection());
        addTasks({"B"});
        endConnections(database.connectionString());
        EXPECT_EQ(raisedNumber([&] { addTasks({"C"}); }), -2147467259);
        EXPECT_NE(raisedNumber([&] { addTasks({"D"}); }), 0) << "without the transaction's beginning";
        EXPECT_NE(raisedNumber([&] { transaction.commit(); }), 0);
    }
    EXPECT_EQ(names(""), "");
}

} // namespace

} // namespace tarnwell::test
