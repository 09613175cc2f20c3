#include "ToolRun.h"
#include "data/sqlite/SqliteDatabase.h"
#include "sample/SampleDatabase.h"
#include "sample/SampleRandom.h"
#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {
namespace {

QString makeSample(const QTemporaryDir& folder, const char* name, const QStringList& options) {
    QString path = folder.filePath(QString::fromLatin1(name));
    const ToolResult result = runToolWith(QStringList{"sample", path} + options);
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    return path;
}

TEST(Sample, TheSameSeedGivesTheSameRowsAndAnotherSeedGivesOthers) {
    const QTemporaryDir folder;
    const QString first = dump(makeSample(folder, "a.mdb", {"--seed", "7"}));
    EXPECT_EQ(first, dump(makeSample(folder, "b.mdb", {"--seed", "7"})));
    EXPECT_NE(first, dump(makeSample(folder, "c.mdb", {"--seed", "8"})));
    EXPECT_FALSE(first.contains(QLatin1String("nan")));
}

TEST(Sample, CarriesTheCountsByWhichTheEnginePlansItsJoins) {
    const QTemporaryDir folder;
    const data::SqliteDatabase handle(makeSample(folder, "a.mdb", {}),
                                      data::SqliteDatabase::Access::ReadOnly);
    auto counted = handle.prepare("SELECT COUNT(DISTINCT tbl) FROM sqlite_stat1 WHERE tbl IN "
                                  "('Job','JobLot','JobLotTask','JobTaskEmployee')");
    ASSERT_TRUE(counted.step());
    EXPECT_EQ(counted.integerAt(0), 4);
}

TEST(Sample, TheGeneratorIsTheSameOnEveryMachine) {
    sample::SampleRandom random(1);
    for (const int expected : {566, 745, 971, 444, 444, 762})
        EXPECT_EQ(random.below(1000), expected);
}

TEST(Sample, AQuotaGivesOutExactlyItsTotal) {
    sample::Quota quota(1000, 7);
    int dealt = 0;
    for (const int parts : {1, 2, 1, 3})
        dealt += quota.take(parts);
    EXPECT_EQ(dealt, 1000);
}

class SoundSample : public testing::TestWithParam<const char*> {};

TEST_P(SoundSample, HasNothingToFindAndNobodysRealNumber) {
    TemporaryDatabase database;
    sample::writeSample(database.connection(), sample::findScale(GetParam()).value(), 1);
    EXPECT_EQ(database.ask("SELECT COUNT(*) FROM Employee").toLong(),
              database.ask("SELECT COUNT(DISTINCT SSN) FROM Employee").toLong());
    const QString issued = QStringLiteral(
        "SELECT SSN FROM Employee WHERE NOT (SSN LIKE '9__-__-____' OR SSN LIKE '000-__-____')");
    EXPECT_TRUE(database.ask(issued).isEmpty());
    const ToolResult result = runToolWith({"check", database.path()});
    EXPECT_EQ(result.code, 0) << result.out.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Scales, SoundSample, testing::Values("small", "office"));

struct Feature {
    const char* what;
    const char* sql; // Gives at least one row.
};

// What somebody who explores the program must be able to come upon, whatever the seed.
constexpr Feature features[] = {
    {"open and completed jobs",
     "SELECT JobKey FROM Job WHERE CompletedDate IS NULL AND EXISTS(SELECT JobKey FROM "
     "Job WHERE CompletedDate IS NOT NULL)"},
    {"a job without foreman", "SELECT JobKey FROM Job WHERE Foreman IS NULL"},
    {"a name with a single quote", "SELECT ContractorKey FROM Contractor WHERE Name LIKE '%''%'"},
    {"a name of 50 characters", "SELECT MasterTaskKey FROM MasterTask WHERE length(Name)=50"},
    {"a deleted category", "SELECT CodeKey FROM Code WHERE Code1=2 AND Deleted=-1"},
    {"a lot left out of the dependency check",
     "SELECT JobLotKey FROM JobLot WHERE ExcludeDependencyCheck=-1"},
    {"a task of price 0", "SELECT JobLotTaskKey FROM JobLotTask WHERE MasterPrice=0"},
    {"an option", "SELECT JobLotTaskKey FROM JobLotTask WHERE Child=1"},
    {"a typed task", "SELECT JobLotTaskKey FROM JobLotTask WHERE MasterTaskKey=0"},
    {"a planned task of an open job",
     "SELECT JobLotTaskKey FROM JobLotTask INNER JOIN (JobLot INNER JOIN Job ON JobLot.JobKey=Job.JobKey) ON "
     "JobLotTask.JobLotKey=JobLot.JobLotKey WHERE CompletedDate IS NULL AND StartDate IS NOT NULL AND "
     "JobLotTask.EmployeeKey<>0 AND StartDate>#11/01/26#"},
    {"a partly paid task",
     "SELECT MasterPrice FROM JobLotTask INNER JOIN JobTaskEmployee ON JobLotTask.JobLotTaskKey="
     "JobTaskEmployee.JobLotTaskKey GROUP BY JobLotTask.JobLotTaskKey HAVING SUM(Price)<MasterPrice-1"},
    {"an overpaid task",
     "SELECT MasterPrice FROM JobLotTask INNER JOIN JobTaskEmployee ON JobLotTask.JobLotTaskKey="
     "JobTaskEmployee.JobLotTaskKey GROUP BY JobLotTask.JobLotTaskKey HAVING SUM(Price)>MasterPrice+1"},
    {"a task paid to two employees",
     "SELECT JobLotTaskKey FROM JobTaskEmployee GROUP BY JobLotTaskKey HAVING COUNT(DISTINCT EmployeeKey)>1"},
    {"a double payment and its log entry",
     "SELECT LogKey FROM EmployeeLog INNER JOIN JobTaskEmployee ON EmployeeLog.JobLotTaskKey="
     "JobTaskEmployee.JobLotTaskKey WHERE EmployeeLog.EmployeeKey=JobTaskEmployee.EmployeeKey"},
    {"a payment with a note", "SELECT Note FROM JobTaskEmployee WHERE Note<>''"},
    {"an inactive foreman", "SELECT EmployeeKey FROM Employee WHERE Inactive=-1 AND Type='Foreman'"},
    {"a due dependency: a paid-for lot whose earlier category is unpaid",
     "SELECT t.JobLotTaskKey FROM JobLotTask AS t INNER JOIN CategoryDependency AS d ON "
     "t.CodeKey=d.CategoryKey "
     "INNER JOIN JobLotTask AS e ON e.CodeKey=d.DependentKey WHERE e.JobLotKey=t.JobLotKey AND "
     "e.MasterPrice<>0 AND "
     "e.ExcludeDependency=0 AND t.ExcludeDependency=0 AND NOT EXISTS(SELECT JobLotTaskKey FROM "
     "JobTaskEmployee WHERE "
     "JobLotTaskKey=e.JobLotTaskKey)"},
};

TEST(Sample, TheSmallOneShowsEveryFeature) {
    for (const quint64 seed : {quint64{1}, quint64{424242}}) {
        TemporaryDatabase database;
        sample::writeSample(database.connection(), sample::findScale("small").value(), seed);
        for (const Feature& feature : features)
            EXPECT_FALSE(database.ask(QString::fromLatin1(feature.sql)).isEmpty())
                << seed << ": " << feature.what;
    }
}

} // namespace
} // namespace tarnwell::test
