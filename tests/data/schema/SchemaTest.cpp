#include "data/schema/Schema.h"

#include "data/PlainDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell {
namespace {

using Rows = std::vector<std::string>;

/// A builder with a plan and a group, a job with a lot and two tasks, the first of them paid and logged.
class SchemaTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* statement :
             {"INSERT INTO Contractor (ContractorKey, Name) VALUES (1, 'Ames'), (2, 'Barlow')",
              "INSERT INTO ContractorPlan VALUES (1, 1, 'Ranch')",
              "INSERT INTO ContractorPlanTask (ContractorPlanKey, Name) VALUES (1, 'Tape')",
              "INSERT INTO ContractorTaskOption VALUES (1, 1, 'Bay', 10)",
              "INSERT INTO Code (Code1, Code2) VALUES (5, 1), (5, 2), (2, 1)",
              "INSERT INTO ContractorOptionGroup (ContractorKey, CodeKey) VALUES (1, 1)",
              "INSERT INTO Job (JobKey, JobNumber, ContractorKey) VALUES (1, '100', 2)",
              "INSERT INTO JobLot (JobLotKey, JobKey) VALUES (1, 1)",
              "INSERT INTO JobLotTask (JobLotTaskKey, JobLotKey) VALUES (1, 1), (2, 1)",
              "INSERT INTO Employee (EmployeeKey) VALUES (1)",
              "INSERT INTO JobTaskEmployee VALUES (1, 1, 1, 40, '2002-01-15 00:00:00', '')",
              "INSERT INTO EmployeeLog VALUES (1, 1, 1, '2002-01-15 00:00:00', 'Paid twice')"})
            ASSERT_EQ(m_database.run(statement), "") << statement;
    }
    [[nodiscard]] std::string count(const char* table) {
        return m_database.rows(QByteArray("SELECT COUNT(*) FROM ") + table).front();
    }

    test::PlainDatabase m_database;
};

TEST_F(SchemaTest, ABuilderTakesPlansAndGroupsAlong) {
    ASSERT_EQ(m_database.run("DELETE FROM Contractor WHERE ContractorKey=1"), "");
    for (const char* table :
         {"ContractorPlan", "ContractorPlanTask", "ContractorTaskOption", "ContractorOptionGroup"})
        EXPECT_EQ(count(table), "0") << table;
    EXPECT_EQ(m_database.rows("SELECT Code1, Code2 FROM Code ORDER BY Code1"), (Rows{"2|1", "5|2"}));
}

TEST_F(SchemaTest, WhatAPaymentPointsToStays) {
    for (const char* statement :
         {"DELETE FROM Job", "DELETE FROM JobLot", "DELETE FROM JobLotTask", "DELETE FROM Employee"})
        EXPECT_NE(m_database.run(statement), "") << statement;
    EXPECT_EQ(count("JobLotTask"), "2");
}

TEST_F(SchemaTest, AnUnpaidJobTakesLotsAndTasksAlongAndLeavesTheLog) {
    ASSERT_EQ(m_database.run("DELETE FROM JobTaskEmployee"), "");
    ASSERT_EQ(m_database.run("DELETE FROM Job"), "");
    EXPECT_EQ(count("JobLot") + count("JobLotTask"), "00");
    EXPECT_EQ(count("EmployeeLog"), "1");
}

TEST_F(SchemaTest, NewRowsStartWithTheirDefaults) {
    EXPECT_EQ(m_database.rows(
                  "SELECT ParentKey, Child, ExcludeDependency, ContractorPlanTaskKey, MasterPrice, StartDate "
                  "FROM JobLotTask WHERE JobLotTaskKey=2"),
              Rows{"0|0|0|0|NULL|NULL"});
    EXPECT_EQ(m_database.rows("SELECT Deleted, Code2 FROM Code WHERE Code1=2"), Rows{"0|1"});
    EXPECT_EQ(m_database.rows("SELECT Inactive, LastName, Dependants FROM Employee"), Rows{"0|NULL|NULL"});
}

TEST_F(SchemaTest, AYesNoHoldsNothingElse) {
    EXPECT_NE(m_database.run("UPDATE Employee SET Inactive=1"), "");
    EXPECT_EQ(m_database.run("UPDATE Employee SET Inactive=-1"), "");
    EXPECT_EQ(m_database.run("UPDATE Employee SET Inactive=NULL"), "");
    EXPECT_EQ(m_database.rows("SELECT Inactive FROM Employee"), Rows{"0"});
}

} // namespace
} // namespace tarnwell
