#include "timecard/EmployeeRecord.h"

#include "master/Foremen.h"
#include "support/RaisedNumber.h"
#include "timecard/TimeCardData.h"
#include "timecard/TimeCardJob.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class EmployeeRecords : public ::testing::Test {
protected:
    Connection& connection() { return data.db.connection(); }
    TimeCardData data;
};

} // namespace

TEST_F(EmployeeRecords, ANewOneIsActiveAndOtherwiseBlank) {
    const qint64 key = addEmployee(connection());
    EXPECT_EQ(data.db.ask("SELECT EmployeeKey FROM Employee WHERE Inactive=0 AND ISNULL(SSN)=-1"),
              Value(key));
    const EmployeeRecord blank = readEmployee(connection(), key);
    saveEmployee(connection(), key, blank);
    EXPECT_EQ(readEmployee(connection(), key).fields[EmployeeField::Dependants], "");
    EXPECT_TRUE(
        data.db.ask("SELECT Dependants FROM Employee WHERE EmployeeKey=" + QString::number(key)).isNull());
}

TEST_F(EmployeeRecords, EveryFieldComesBack) {
    const EmployeeRecord record{
        .inactive = true,
        .type = "Foreman",
        .foreman = "Baker/Bob",
        .maritalStatus = "MS",
        .fields = {"012-34-5678", "Archer", "Ann", "1 Elm", "Rear", "Salem", "OR", "02134", "x12", "3"},
        .information = "W-4\nexempt",
        .dateOfHire = DateTime{QDate(1929, 5, 1)},
        .dateOfTermination = Value::null()};
    saveEmployee(connection(), data.ann, record);
    EXPECT_TRUE(readEmployee(connection(), data.ann) == record);
    EXPECT_EQ(data.db.ask("SELECT Inactive FROM Employee WHERE Dependants=3 AND ISNULL(DateofTermination)=-1")
                  .toLong(),
              -1);
}

TEST_F(EmployeeRecords, TheInactiveLeaveOneListAndStayInTheOther) {
    data.db.run("UPDATE Employee SET Inactive=-1 WHERE EmployeeKey=" + QString::number(data.ann));
    EXPECT_EQ(readActiveEmployees(connection()),
              (std::vector<ListItem>{{"", 0}, {"222-22-2222/Baker,Bob", data.bob}}));
    EXPECT_EQ(readAllEmployees(connection()), (std::vector<ListItem>{{"111-11-1111/Archer,Ann", data.ann},
                                                                     {"222-22-2222/Baker,Bob", data.bob}}));
}

TEST_F(EmployeeRecords, ForemenComeByLastNameWithTheInactive) {
    data.db.run("UPDATE Employee SET Type='Foreman', Inactive=-1");
    data.addEmployee("333-33-3333", "Abel", "Al");
    EXPECT_EQ(readForemen(connection()), (std::vector<QString>{"Archer/Ann", "Baker/Bob"}));
    EXPECT_TRUE(isForeman("FOREMAN"));
    EXPECT_FALSE(isForeman("Foreman 2"));
    data.db.run("UPDATE Code SET Deleted=-1 WHERE Code1=1 AND Description<>'Foreman'");
    EXPECT_EQ(readEmployeeTypes(connection()), std::vector<QString>{"Foreman"});
}

TEST(EmployeeTexts, ASocialSecurityNumberIsBuiltByPosition) {
    const std::pair<const char*, const char*> cases[] = {
        {"012345678", "012-34-5678"},  {"1234567", "123-45-4567"}, {"12", "12--12"}, {"", "--"},
        {"0123456789", "012-34-6789"},
    };
    for (const auto& [digits, text] : cases)
        EXPECT_EQ(ssnText(digits), text);
}

TEST(EmployeeTexts, HoweverASocialSecurityNumberComesInItEndsDashed) {
    const std::pair<const char*, const char*> cases[] = {
        {"012345678", "012-34-5678"},       {" 012 34 5678\t", "012-34-5678"},
        {"012 - 34 - 5678", "012-34-5678"}, {"012 3", "0123"},
        {"012-34-56789", "012-34-56789"},
    };
    for (const auto& [typed, text] : cases)
        EXPECT_EQ(ssnAsTyped(typed), text);
}

TEST(EmployeeTexts, ATelephoneIsReadableAndFreeTextStays) {
    const std::pair<const char*, const char*> cases[] = {
        {"5035550142", "(503) 555-0142"},
        {"503.555.0142", "(503) 555-0142"},
        {"503 555 0142 x7", "503 555 0142 x7"},
        {"", ""},
    };
    for (const auto& [stored, text] : cases)
        EXPECT_EQ(telephoneText(stored), text);
}
