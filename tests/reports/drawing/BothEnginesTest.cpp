#include "data/engine/ConnectionString.h"
#include "data/file/DatabaseFile.h"
#include "reports/drawing/ReportList.h"
#include "reports/drawing/ReportTest.h"
#include "sample/SampleDatabase.h"

#include <QTemporaryDir>

namespace tarnwell::test {
namespace {

/// One sample in a file and in a catalog of the server.
class BothEngines : public ::testing::Test {
protected:
    /// The clock stands: a report shows when it was drawn.
    BothEngines() : before(setClock([] { return DateTime{QDate(2026, 3, 5), QTime(8, 15)}; })) {
        const QString path = folder.filePath("Tarnwell.mdb");
        createDatabase(path);
        file.setConnectionString(fileConnectionString(path));
        file.Open();
        for (Connection* connection : {&file, &catalog.connection()}) {
            sample::writeSample(*connection, sample::findScale("small").value(), 7);
            // Rows that were written again, and names that differ by their case.
            for (const char* sql :
                 {"UPDATE JobLotTask SET MasterPrice = MasterPrice + 0.11 WHERE JobLotTaskKey > 200",
                  "UPDATE JobTaskEmployee SET Price = Price + 0.21 WHERE EmployeeKey < 9",
                  "UPDATE JobLotTask SET Name = 'wall' WHERE JobLotTaskKey > 100 AND JobLotTaskKey < 140",
                  "UPDATE JobLotTask SET Name = 'Wall' WHERE JobLotTaskKey > 120 AND JobLotTaskKey < 130",
                  "UPDATE JobLotTask SET Name = NULL WHERE JobLotTaskKey > 300 AND JobLotTaskKey < 310",
                  "UPDATE JobLot SET LotBlock = NULL WHERE JobLotKey < 5",
                  "UPDATE Employee SET LastName = 'Ärmel' WHERE EmployeeKey = 3"})
                connection->Execute(sql);
        }
    }

    ~BothEngines() override { setClock(before); }

    /// What is drawn, and the number of an error that ends it.
    static QStringList drawn(const Report& report, const ReportParameters& parameters,
                             Connection& connection) {
        RecordedPages pages;
        try {
            Recordset rows;
            rows.Open(report.buildQuery(parameters), connection);
            if (rows.atEnd())
                return {};
            ScriptedWatcher watcher;
            ReportRun run{connection, rows, parameters, pages, pages.NewReport(), watcher};
            report.draw(run);
        } catch (const RunTimeError& error) { // of a task without a date, say, or a filter that fits no table
            return QStringList(pages.lines()) << QString::number(error.number());
        }
        return pages.lines();
    }

    /// The number of items, which are the same.
    qsizetype compare(const char* name, const ReportParameters& parameters) {
        const Report& report = *findReport(QString::fromLatin1(name));
        const QStringList expected = drawn(report, parameters, file);
        EXPECT_EQ(lineDifference(expected, drawn(report, parameters, catalog.connection())).toStdString(), "")
            << name << ": " << report.buildQuery(parameters).toStdString();
        return expected.size();
    }

    Clock before;
    QTemporaryDir folder;
    Connection file;
    TemporaryDatabase catalog;
};

TEST_F(BothEngines, DrawTheSamePages) {
    const QString foreman =
        firstValue(file, "SELECT Foreman FROM Job WHERE Foreman<>'' ORDER BY JobKey DESC").value().toText();
    const QString category =
        firstValue(file, "SELECT Description FROM Code WHERE Code1=2 ORDER BY Description").value().toText();
    const ReportParameters everything{.incomplete = false,
                                      .startDate = "01/01/20",
                                      .stopDate = "12/31/29",
                                      .allJobsMarked = true,
                                      .groupBy = GroupBy::Date};
    std::vector<ReportParameters> selections(6, everything);
    selections[1].incomplete = true;
    selections[2].foreman = foreman;
    selections[3].category = category;
    selections[4].allJobsMarked = false;
    selections[4].markedJobs = {2, 3, 5};
    selections[5].employeeKey = 4;
    for (ReportParameters parameters : selections) {
        qsizetype items = 0;
        items += compare("frmRptGantt", parameters);
        for (const GroupBy groupBy :
             {GroupBy::Category, GroupBy::Date, GroupBy::Employee, GroupBy::Foreman, GroupBy::Job})
            for (const int mode : {0, 1}) {
                parameters.groupBy = groupBy;
                parameters.calendarMode = mode;
                items += compare("frmRptCalendar", parameters);
            }
        for (const DetailLevel detail : {DetailLevel::All, DetailLevel::PaidFull, DetailLevel::Unpaid})
            for (const bool summary : {false, true}) {
                parameters.detail = detail;
                parameters.summary = summary;
                items += compare("frmRptLotBudget", parameters);
                items += compare("frmRptLotOptions", parameters);
            }
        items += compare("frmRptEmployeePaidout", parameters);
        items += compare("frmRptEmployeeCorrections", parameters);
        EXPECT_GT(items, 500);
    }
}

} // namespace
} // namespace tarnwell::test
