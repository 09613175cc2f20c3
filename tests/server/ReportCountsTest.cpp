// What each report asks of the server: a few statements, and where it needs the tasks of its lots a few for
// each hundred of these, however many tasks and payments they have.

#include "reports/drawing/ReportList.h"
#include "reports/drawing/ReportTest.h"
#include "server/ServedStatements.h"

namespace tarnwell::test {

namespace {

/// Jobs of 100 lots, each lot with two tasks, an option of the first, a payment of each and a line in the
/// log.
class ReportCounts : public ReportTest {
protected:
    ReportCounts() {
        data.addCategory("Framing");
        data.add(EmployeeRow{.lastName = "Archer"});
        data.add(JobRow{.number = "1", .foreman = "Stone/Sid"});
    }
    void addJobs(int count) {
        const QByteArray jobs = "generate_series(1, " + QByteArray::number(count) + ") j";
        for (const QByteArray& sql :
             {"INSERT INTO \"Job\" (\"JobNumber\", \"ContractorKey\", \"Foreman\") "
              "SELECT 'N' || j, 1, 'Stone/Sid' FROM " +
                  jobs,
              QByteArray(
                  "INSERT INTO \"JobLot\" (\"JobKey\", \"LotBlock\") "
                  "SELECT \"JobKey\", 'L' || n FROM \"Job\", generate_series(1, 100) n WHERE \"JobKey\" > 1"),
              QByteArray(
                  "INSERT INTO \"JobLotTask\" (\"JobLotKey\", \"CodeKey\", \"Name\", \"MasterPrice\", "
                  "\"StartDate\", "
                  "\"StopDate\", \"EmployeeKey\") SELECT \"JobLotKey\", (SELECT max(\"CodeKey\") FROM "
                  "\"Code\"), "
                  "'Task ' || n, 10, '2024-03-05', '2024-03-06', 1 FROM \"JobLot\", generate_series(1, 3) n"),
              QByteArray("UPDATE \"JobLotTask\" t SET \"ParentKey\" = (SELECT min(\"JobLotTaskKey\") FROM "
                         "\"JobLotTask\" p "
                         "WHERE p.\"JobLotKey\" = t.\"JobLotKey\"), \"Child\" = CASE \"Name\" WHEN 'Task 1' "
                         "THEN 0 ELSE 1 "
                         "END WHERE \"Name\" IN ('Task 1', 'Task 2')"),
              QByteArray("INSERT INTO \"JobTaskEmployee\" (\"JobLotTaskKey\", \"EmployeeKey\", \"Price\", "
                         "\"Completed\") "
                         "SELECT \"JobLotTaskKey\", 1, 5, '2024-03-06' FROM \"JobLotTask\""),
              QByteArray("INSERT INTO \"EmployeeLog\" (\"EmployeeKey\", \"JobLotTaskKey\", \"Occured\", "
                         "\"Problem\") "
                         "SELECT 1, \"JobLotTaskKey\", '2024-03-06', 'Twice' FROM \"JobLotTask\"")})
            fill(data.database(), sql);
    }
};

TEST_F(ReportCounts, DoNotGrowWithTheRows) {
    struct Case {
        const char* report;
        qint64 statements;
    };
    constexpr Case cases[] = {
        {"frmRptGantt", 4},           {"frmRptCalendar", 2},
        {"frmRptEmployeePaidout", 2}, {"frmRptEmployeeCorrections", 2},
        {"frmRptLotBudget", 51},      {"frmRptLotOptions", 41},
    };
    const ReportParameters everything{.incomplete = false,
                                      .startDate = "01/01/24",
                                      .stopDate = "12/31/24",
                                      .allJobsMarked = true,
                                      .groupBy = GroupBy::Date};
    addJobs(10);
    for (const auto& [name, statements] : cases) {
        const Report& report = *findReport(QString::fromLatin1(name));
        EXPECT_EQ(servedStatements(data.database(), [&] { draw(report, everything); }), statements) << name;
        EXPECT_GT(pages.lines().size(), 100) << name;
    }
}

} // namespace

} // namespace tarnwell::test
