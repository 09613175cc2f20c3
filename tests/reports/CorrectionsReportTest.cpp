#include "reports/CorrectionsReport.h"

#include "reports/ReportTest.h"

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report corrections{"frmRptEmployeeCorrections", "Employee Corrections", correctionsQuery,
                         drawCorrections};

class CorrectionsReport : public ReportTest {
protected:
    CorrectionsReport() {
        job = data.add(JobRow{.number = "24-100"});
        const qint64 lot = data.add(LotRow{.job = job, .lotBlock = "1/A"});
        task = data.add(TaskRow{.lot = lot, .category = data.addCategory("Framing"), .name = "Frame"});
        const qint64 closedJob = data.add(JobRow{.number = "24-200", .completed = on("02/20/24")});
        const qint64 closedLot = data.add(LotRow{.job = closedJob, .lotBlock = "2/B"});
        closedTask = data.add(TaskRow{.lot = closedLot, .name = "Frame"});
        ann = data.add(
            EmployeeRow{.SSN = "111-11-1111", .lastName = "Adams", .firstName = "Ann", .type = "Framer"});
        bea = data.add(EmployeeRow{.SSN = "222-22-2222", .lastName = "Baker"});
    }

    void log(qint64 ofTask, qint64 employee, const char* date, const QString& problem) {
        data.add(LogRow{ofTask, employee, on(date), problem});
    }

    [[nodiscard]] QStringList problems(const ReportParameters& with) {
        pages = {};
        draw(corrections, with);
        return pages.texts().filter("Problem: ");
    }

    qint64 job = 0;
    qint64 task = 0;
    qint64 closedTask = 0;
    qint64 ann = 0;
    qint64 bea = 0;
    ReportParameters parameters{
        .incomplete = false, .startDate = "01/01/24", .stopDate = "03/31/24", .allJobsMarked = true};
};

} // namespace

TEST_F(CorrectionsReport, Pages) {
    log(task, ann, "01/06/24", "Second");
    log(task, ann, "01/05/24", "First");
    log(closedTask, bea, "03/31/24", QString("A long problem is written in full ").repeated(8));
    data.add(LogRow{task, bea, on("03/31/24"), Value::null()});
    draw(corrections, parameters);
    expectApproved(pages, "corrections");
    EXPECT_EQ(watcher.units, 4);
    EXPECT_EQ(watcher.steps, 4);
}

TEST_F(CorrectionsReport, DatesEmployeeJobsAndIncompleteNarrowIt) {
    log(task, ann, "12/31/23", "before");
    log(task, ann, "01/01/24", "first day");
    log(closedTask, bea, "03/31/24", "last day");
    log(task, bea, "04/01/24", "behind");
    // A log row outlives its task; without one there is no job to print.
    log(0, ann, "02/01/24", "without a task");
    EXPECT_EQ(problems(parameters), (QStringList{"Problem: first day", "Problem: last day"}));
    ReportParameters one = parameters;
    one.employeeKey = bea;
    EXPECT_EQ(problems(one), QStringList{"Problem: last day"});
    ReportParameters incomplete = parameters;
    incomplete.incomplete = true;
    EXPECT_EQ(problems(incomplete), QStringList{"Problem: first day"});
    ReportParameters marked = parameters;
    marked.allJobsMarked = false;
    marked.markedJobs = {job};
    EXPECT_EQ(problems(marked), QStringList{"Problem: first day"});
}

TEST_F(CorrectionsReport, ANewPageHasColumnHeadsAndNoEmployee) {
    Transaction quickly(data.connection());
    for (int i = 0; i < 62; ++i)
        log(task, ann, "01/05/24", "Paid twice");
    quickly.commit();
    draw(corrections, parameters);
    EXPECT_EQ(pages.pageCount(), 2);
    EXPECT_EQ(pages.texts(2).mid(0, 6), (QStringList{"Employee Corrections: 03/05/24 08:15", "Page:2 of",
                                                     "SSN", "Type", "Name", "Job: 24-100"}));
}

TEST_F(CorrectionsReport, CancelEndsItBehindTheRecord) {
    for (int i = 0; i < 5; ++i)
        log(task, ann, "01/05/24", "Paid twice");
    watcher.cancelAfter = 3;
    EXPECT_EQ(problems(parameters).size(), 3);
}
