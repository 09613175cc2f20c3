#include "ToolRun.h"
#include "data/file/DatabaseCheck.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

/// A small sample made once; each test breaks a copy of its own.
const QByteArray& soundFile() {
    static const QByteArray content = [] {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("sound.mdb"));
        EXPECT_EQ(runToolWith({"sample", path}).code, 0);
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }();
    return content;
}

class CheckTest : public testing::Test {
protected:
    void SetUp() override { write(soundFile()); }
    void write(const QByteArray& content) const {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("copy.mdb")); }

private:
    QTemporaryDir m_folder;
};

struct Fault {
    const char* sql;
    const char* rule;
};

// One task or payment stands for all: the last of its kind.
constexpr Fault faults[] = {
    {"UPDATE Job SET CompletedDate='2026-13-45 00:00:00' WHERE JobKey=1", "Job.CompletedDate is not a date"},
    {"UPDATE Job SET CompletedDate='2026-02-30 00:00:00' WHERE JobKey=1", "Job.CompletedDate is not a date"},
    {"UPDATE Job SET CompletedDate='0026-02-03 00:00:00' WHERE JobKey=1",
     "Job.CompletedDate lies outside 1900 to 2099"},
    {"UPDATE JobLotTask SET StopDate='2100-01-01 00:00:00' WHERE JobLotTaskKey=1",
     "JobLotTask.StopDate lies outside 1900 to 2099"},
    {"UPDATE Employee SET Inactive=1 WHERE EmployeeKey=1", "Employee.Inactive is neither 0 nor -1"},
    {"UPDATE MasterTask SET CustomTask='X' WHERE MasterTaskKey=1",
     "MasterTask.CustomTask is neither Y nor N"},
    {"UPDATE JobTaskEmployee SET Price=9e999 WHERE JobTaskEmployee=1",
     "JobTaskEmployee.Price is not a finite number"},
    {"UPDATE JobLotTask SET MasterPrice='dear' WHERE JobLotTaskKey=1",
     "JobLotTask.MasterPrice is not a finite number"},
    {"UPDATE JobTaskEmployee SET EmployeeKey=99999 WHERE JobTaskEmployee=1",
     "JobTaskEmployee.EmployeeKey leads to no row of Employee"},
    {"DELETE FROM JobLotTask WHERE JobLotTaskKey=(SELECT JobLotTaskKey FROM JobTaskEmployee WHERE "
     "JobTaskEmployee=1)",
     "JobTaskEmployee.JobLotTaskKey leads to no row of JobLotTask"},
    {"DELETE FROM Contractor WHERE ContractorKey=(SELECT ContractorKey FROM Job LIMIT 1)",
     "Job.ContractorKey leads to no row of Contractor"},
    {"UPDATE JobLotTask SET CodeKey=99999 WHERE JobLotTaskKey=1",
     "JobLotTask.CodeKey leads to no row of Code"},
    {"UPDATE JobLotTask SET MasterTaskKey=99999 WHERE JobLotTaskKey=1",
     "JobLotTask.MasterTaskKey leads to no row of MasterTask"},
    {"UPDATE JobLotTask SET EmployeeKey=99999 WHERE JobLotTaskKey=1",
     "JobLotTask.EmployeeKey leads to no row of Employee"},
    {"UPDATE MasterTask SET CodeKey=(SELECT CodeKey FROM Code WHERE Code1=1 LIMIT 1) WHERE MasterTaskKey=1",
     "MasterTask.CodeKey names no category"},
    {"UPDATE ContractorOptionGroup SET ContractorKey=ContractorKey%2+1 WHERE OptionGroupKey=1",
     "ContractorOptionGroup.CodeKey names no option group of its builder"},
    {"UPDATE Code SET Deleted=-1 WHERE Code1=1", "Code.Deleted is set on the foreman type"},
    {"UPDATE JobLotTask SET ParentKey=JobLotTaskKey+1 WHERE JobLotTaskKey=1",
     "JobLotTask.ParentKey of a parent does not point at itself"},
    {"UPDATE JobLotTask SET ParentKey=JobLotTaskKey WHERE Child=1",
     "JobLotTask.ParentKey of an option names no base task of its lot"},
    {"UPDATE JobLotTask SET ParentKey=0 WHERE Child=0",
     "JobLotTask.ParentKey of an option names a task that is not marked as its parent"},
    {"UPDATE JobLotTask SET CodeKey=CodeKey+1 WHERE Child=1",
     "JobLotTask.CodeKey of an option is not its parent's"},
    {"UPDATE JobLotTask SET Name='Something else' WHERE Child=1",
     "JobLotTask.Name of an option does not begin with its parent's"},
    {"DELETE FROM JobLotTask WHERE Child=1", "JobLotTask.ParentKey marks a parent without options"},
    {"UPDATE JobLotTask SET ParentKey=NULL WHERE JobLotTaskKey=1", "JobLotTask.ParentKey is missing"},
    {"UPDATE JobLotTask SET Child=NULL WHERE JobLotTaskKey=1", "JobLotTask.Child is missing"},
    {"UPDATE JobTaskEmployee SET Note=NULL WHERE JobTaskEmployee=1", "JobTaskEmployee.Note is missing"},
    {"UPDATE JobLotTask SET Child=2 WHERE Child=1", "JobLotTask.Child is neither 0 nor 1"},
};

TEST_F(CheckTest, FindsEachPlantedFaultAndNothingIsFoundWithout) {
    EXPECT_TRUE(checkDatabase(path()).isClean());
    for (const Fault& fault : faults) {
        write(soundFile());
        breakDatabase(path(), QString::fromLatin1(fault.sql));
        const CheckResult result = checkDatabase(path());
        const bool found = std::ranges::any_of(result.groups, [&](const FindingGroup& group) {
            return group.rule == QLatin1String(fault.rule) && group.count > 0 && !group.first.empty();
        });
        EXPECT_TRUE(found) << fault.sql;
    }
}

TEST_F(CheckTest, NamesTheRowAndTheValueAndEndsWithOne) {
    breakDatabase(path(),
                  QStringLiteral("UPDATE JobTaskEmployee SET EmployeeKey=99999 WHERE JobTaskEmployee=3"));
    const ToolResult result = runToolWith({"check", path()});
    EXPECT_EQ(result.code, 1);
    EXPECT_TRUE(result.out.contains(QLatin1String("  JobTaskEmployee 3: EmployeeKey is 99999\n")))
        << result.out.toStdString();
    EXPECT_TRUE(result.out.endsWith(QLatin1String("has 1 fault.\n")));
}

TEST_F(CheckTest, ListsTheFirstFiftyAndCountsTheRest) {
    breakDatabase(path(), QStringLiteral("UPDATE JobLotTask SET StartDate='soon' WHERE JobLotTaskKey<=60"));
    EXPECT_EQ(checkDatabase(path(), 0).count(), 60);
    const ToolResult result = runToolWith({"check", path()});
    EXPECT_TRUE(result.out.contains(QLatin1String("JobLotTask.StartDate is not a date: 60\n")));
    EXPECT_EQ(result.out.count(QLatin1String("StartDate is soon")), 50);
    EXPECT_TRUE(result.out.contains(QLatin1String("  and 10 more\n")));
}

TEST_F(CheckTest, LetsLinksBeThatMayLeadNowhere) {
    breakDatabase(path(),
                  QStringLiteral("DELETE FROM ContractorPlanTask; DELETE FROM ContractorPlan; "
                                 "DELETE FROM ContractorTaskOption; "
                                 "UPDATE Code SET Deleted=-1 WHERE Code1=2; "
                                 "UPDATE JobLotTask SET ContractorPlanTaskKey=NULL WHERE JobLotTaskKey=1"));
    const CheckResult result = checkDatabase(path());
    EXPECT_TRUE(result.isClean()) << result.groups.size();
}

TEST_F(CheckTest, SaysWhichTableAndPageAreDamaged) {
    constexpr qsizetype pageSize = 4096;
    QByteArray damaged = soundFile();
    const qsizetype at = damaged.indexOf("Base and casing") / pageSize * pageSize;
    damaged.replace(at, pageSize, QByteArray(pageSize, 'x'));
    write(damaged);
    const ToolResult result = runToolWith({"check", path()});
    EXPECT_EQ(result.code, 1);
    const QString page = QStringLiteral(": Page %1: ").arg(at / pageSize + 1);
    EXPECT_TRUE(result.out.contains(page)) << result.out.toStdString() << result.err.toStdString();
    const ToolResult backup = runToolWith({"backup", path(), path() + QStringLiteral(".copy")});
    EXPECT_TRUE(backup.err.contains(page)) << backup.err.toStdString();
    EXPECT_TRUE(result.out.contains(QLatin1String("Task: "))) << result.out.toStdString();
}

TEST_F(CheckTest, NamesAMissingTableOnce) {
    breakDatabase(path(),
                  QStringLiteral("DROP TABLE ReportDefinition; ALTER TABLE Contractor DROP COLUMN License"));
    EXPECT_EQ(checkDatabase(path()).engineProblems,
              (QStringList{"Contractor.License is missing", "ReportDefinition is missing"}));
}

TEST_F(CheckTest, RefusesWhatIsNoDatabase) {
    write("this is a shopping list, not a database");
    const ToolResult result = runToolWith({"check", path()});
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err.count(QLatin1Char('\n')), 1);
}

} // namespace
} // namespace tarnwell::test
