#include "data/schema/Schema.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

/// A builder with a plan and a group, a job with a lot and two tasks, the first of them paid and logged.
class Relations : public ::testing::Test {
protected:
    void SetUp() override {
        database.run("DELETE FROM Code");
        for (const char* statement :
             {"INSERT INTO Contractor (Name) VALUES ('Ames'), ('Barlow')",
              "INSERT INTO ContractorPlan (ContractorKey, PlanName) VALUES (1, 'Ranch')",
              "INSERT INTO ContractorPlanTask (ContractorPlanKey, Name) VALUES (1, 'Tape')",
              "INSERT INTO ContractorTaskOption (ContractorPlanTaskKey, Name) VALUES (1, 'Bay')",
              "INSERT INTO Code (Code1, Code2) VALUES (5, 1), (5, 2), (2, 1)",
              "INSERT INTO ContractorOptionGroup (ContractorKey, CodeKey) VALUES (1, 1)",
              "INSERT INTO Job (JobNumber, ContractorKey) VALUES ('100', 2)",
              "INSERT INTO JobLot (JobKey) VALUES (1)", "INSERT INTO JobLotTask (JobLotKey) VALUES (1), (1)",
              "INSERT INTO Employee (LastName) VALUES (NULL)",
              "INSERT INTO JobTaskEmployee (JobLotTaskKey, EmployeeKey, Price, Completed) VALUES (1, 1, "
              "40.5, "
              "#1/15/02#)",
              "INSERT INTO EmployeeLog (EmployeeKey, JobLotTaskKey, Occured) VALUES (1, 1, #1/15/02#)"})
            database.run(statement);
    }
    [[nodiscard]] Value count(const QString& table) { return database.ask("SELECT COUNT(*) FROM " + table); }

    TemporaryDatabase database;
};

TEST_F(Relations, ABuilderTakesPlansAndGroupsAlong) {
    database.run("DELETE FROM Contractor WHERE ContractorKey=1");
    for (const char* table :
         {"ContractorPlan", "ContractorPlanTask", "ContractorTaskOption", "ContractorOptionGroup"})
        EXPECT_EQ(count(table), Value(0)) << table;
    EXPECT_EQ(count("Code"), Value(2));
    EXPECT_EQ(count("Code WHERE Code1=5 AND Code2=2"), Value(1)) << "of another builder";
    EXPECT_EQ(count("Code WHERE Code1=2 AND Code2=1"), Value(1)) << "of another list";
}

TEST_F(Relations, WhatAPaymentPointsToStays) {
    for (const char* statement :
         {"DELETE FROM Job", "DELETE FROM JobLot", "DELETE FROM JobLotTask", "DELETE FROM Employee"})
        EXPECT_EQ(raisedText([&] { database.run(statement); }),
                  "The change was refused by a rule of the database: the record is used by other records, or "
                  "one of its values is not allowed. (The record cannot be deleted or changed because other "
                  "records refer to it.)")
            << statement;
    EXPECT_EQ(count("JobLotTask"), Value(2));
}

TEST_F(Relations, ARowWithoutTheOneThatItRefersToIsRefused) {
    for (const char* statement :
         {"INSERT INTO JobLot (JobKey) VALUES (9)", "INSERT INTO ContractorPlan (ContractorKey) VALUES (9)",
          "INSERT INTO EmployeeLog (EmployeeKey) VALUES (9)"})
        EXPECT_TRUE(
            raisedText([&] {
                database.run(statement);
            }).contains("The record cannot be added because a record that it refers to does not exist."))
            << statement;
    EXPECT_EQ(raisedNumber([&] { database.run("INSERT INTO JobLot (LotBlock) VALUES ('1/A')"); }),
              numberOf(Failure::Constraint));
    EXPECT_TRUE(raisedText([&] {
                    database.run("INSERT INTO JobLot (LotBlock) VALUES ('1/A')");
                }).contains("JobKey must have a value."));
}

TEST_F(Relations, AnUnpaidJobTakesLotsAndTasksAlongAndLeavesTheLog) {
    database.run("DELETE FROM JobTaskEmployee");
    database.run("DELETE FROM Job");
    EXPECT_EQ(count("JobLot"), Value(0));
    EXPECT_EQ(count("JobLotTask"), Value(0));
    EXPECT_EQ(count("EmployeeLog"), Value(1));
}

TEST_F(Relations, NewRowsStartWithTheirDefaults) {
    Recordset task;
    task.Open(
        "SELECT ParentKey, Child, ExcludeDependency, ContractorPlanTaskKey, MasterPrice, StartDate FROM "
        "JobLotTask WHERE JobLotTaskKey=2",
        database.connection());
    const Value values[] = {0, 0, false, 0, Value::null(), Value::null()};
    for (int i = 0; i < task.FieldCount(); ++i)
        EXPECT_EQ(task.field(i), values[i]) << task.FieldName(i).toStdString();
    EXPECT_EQ(database.ask("SELECT Deleted FROM Code WHERE Code1=2"), Value(false));
    EXPECT_EQ(database.ask("SELECT Dependants FROM Employee"), Value::null());
}

TEST_F(Relations, AYesNoHoldsNothingElse) {
    EXPECT_EQ(raisedNumber([&] { database.run("UPDATE Employee SET Inactive=1"); }),
              numberOf(Failure::Constraint));
    database.run("UPDATE Employee SET Inactive=-1");
    database.run("UPDATE Employee SET Inactive=NULL");
    EXPECT_EQ(database.ask("SELECT Inactive FROM Employee"), Value(false));
}

// A freed key is looked up by links that were left behind.
TEST_F(Relations, NoTableGivesAKeyTwice) {
    for (const schema::Table& table : schema::tables()) {
        std::vector<std::pair<QString, Value>> owners;
        for (const schema::Relation& relation : table.relations)
            owners.emplace_back(relation.column, 1);
        qint64 highest = 0;
        for (int i = 0; i < 3; ++i) {
            const qint64 key = database.add(table.name, owners);
            EXPECT_GT(key, highest) << table.name.toStdString();
            highest = key;
            database.run("DELETE FROM " + table.name + " WHERE " + table.keyColumn + '=' +
                         QString::number(key));
        }
    }
}

TEST_F(Relations, AnIndexedTextMayBeAnyLength) {
    QString text;
    for (int i = 0; text.size() < 100'000; ++i)
        text += QString::number(qHash(i, 1), 36) + QChar(0x416 + i % 20);
    for (const schema::Table& table : schema::tables())
        for (const schema::Index& index : table.indexes)
            for (const QString& column : index.columns) {
                const QString name = '[' + column + ']';
                if (table.columns[static_cast<std::size_t>(table.columnIndex(column))].type !=
                    schema::ColumnType::Text)
                    continue;
                std::vector<std::pair<QString, Value>> values{{column, text}};
                for (const schema::Relation& relation : table.relations)
                    values.emplace_back(relation.column, 1);
                database.add(table.name, values);
                for (const char* comparison : {"=", ">=", "<="}) {
                    Recordset rows;
                    rows.Open("SELECT " + name + " FROM " + table.name + " WHERE " + name + comparison +
                                  '\'' + text + "' ORDER BY " + name + " DESC",
                              database.connection());
                    ASSERT_FALSE(rows.atEnd()) << table.name.toStdString();
                    EXPECT_TRUE(rows.field(0) == Value(text) || *comparison == '<')
                        << table.name.toStdString() << comparison;
                }
            }
}

} // namespace
} // namespace tarnwell::test
