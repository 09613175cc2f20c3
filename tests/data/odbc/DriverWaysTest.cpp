#include "data/odbc/OdbcEngine.h"
#include "data/odbc/PostgresDialect.h"
#include "data/sql/ResultColumns.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

// What only another server's driver does, done by this one's as well.
namespace tarnwell::data {
namespace {

/// Its driver fetches one row at a time.
class RowByRow : public PostgresDialect {
public:
    [[nodiscard]] bool fetchesInBlocks() const override { return false; }
};

/// It ends a transaction over a failed statement, or says that it did.
class Ending : public PostgresDialect {
public:
    explicit Ending(QByteArray answer) : m_answer(std::move(answer)) {}
    [[nodiscard]] QByteArray openTransactions() const override { return m_answer; }

private:
    QByteArray m_answer;
};

std::shared_ptr<Engine> opened(const ServerDialect& dialect, const test::TemporaryDatabase& database) {
    return openOdbcEngine(dialect, database.connectionString(), std::chrono::seconds(5));
}

std::vector<Value> valuesOf(Engine& engine, const QString& sql) {
    const Translation statement = engine.translate(sql);
    const auto columns = statement.shape->columns(false);
    const auto cursor = engine.open(statement.shape->sql, statement.parameters);
    std::vector<Value> values;
    std::vector<Cell> row(static_cast<std::size_t>(columns->width()));
    TextArena texts;
    while (cursor->next()) {
        cursor->read(row, columns->types(), texts);
        for (const Cell& cell : row)
            values.push_back(valueOf(cell));
    }
    return values;
}

TEST(DriverWays, RowsThatComeAloneAreTheSame) {
    test::TemporaryDatabase database;
    const QString longText = QString("Größe 'ж' \n").repeated(12'000);
    for (int i = 0; i < 150; ++i)
        database.add("MasterTask", {{"Name", i % 3 == 0 ? Value::null() : Value(QString(i, u'ä'))},
                                    {"MasterPrice", i % 5 == 0 ? Value::null() : Value(i / 7.0)},
                                    {"Deleted", i % 2 == 0}});
    database.add(
        "Employee",
        {{"Information", longText}, {"SSN", QString()}, {"DateofHire", DateTime(QDate(9999, 12, 31))}});
    const RowByRow dialect;
    const PostgresDialect inBlocks;
    const auto engine = opened(dialect, database);
    const auto expected = opened(inBlocks, database);
    for (const char* sql : {"SELECT * FROM MasterTask ORDER BY MasterTaskKey", "SELECT * FROM Employee",
                            "SELECT COUNT(*), MAX(MasterPrice) FROM MasterTask", "SELECT * FROM Job"})
        for (int run = 0; run < 2; ++run) // the second one with the statement of the first
            EXPECT_EQ(valuesOf(*engine, sql), valuesOf(*expected, sql)) << sql;
    const schema::Table& table = *schema::findTable(u"Code");
    const Value value(5);
    EXPECT_GT(engine->insert(table, "INSERT INTO \"Code\" (\"Code1\") VALUES (?)", {&value, 1}), 0);
    EXPECT_EQ(test::raisedNumber([&] { (void)valuesOf(*engine, "SELECT Nowhere FROM Code"); }), -2147217904);
}

TEST(DriverWays, ATransactionThatTheServerEndedTakesNothingMore) {
    for (const auto& [answer, goesOn] : {std::pair("SELECT 0", false), std::pair("SELECT 1", true)}) {
        test::TemporaryDatabase database;
        const Ending dialect(answer);
        const auto engine = opened(dialect, database);
        const auto add = [&] {
            (void)engine->execute(engine->translate(u"INSERT INTO Job (ContractorKey) VALUES (1)"));
        };
        const auto raised = [&](const auto& routine) { return test::raisedFailure(routine); };
        const std::optional<Failure> refused =
            goesOn ? std::nullopt : std::optional(Failure::DatabaseFailure);
        database.add("Contractor", {});
        engine->begin();
        add();
        EXPECT_EQ(raised([&] {
                      (void)engine->execute(
                          engine->translate(u"INSERT INTO Job (ContractorKey) VALUES (99)"));
                  }),
                  Failure::Constraint);
        EXPECT_EQ(raised(add), refused);
        EXPECT_EQ(raised([&] { engine->commit(); }), refused);
        EXPECT_FALSE(engine->inTransaction());
        EXPECT_EQ(database.ask("SELECT COUNT(*) FROM Job"), Value(goesOn ? 2 : 0)) << answer;
        engine->begin();
        add();
        engine->commit();
        EXPECT_EQ(database.ask("SELECT COUNT(*) FROM Job"), Value(goesOn ? 3 : 1)) << answer;
    }
}

} // namespace
} // namespace tarnwell::data
