#include "reports/drawing/CorrectionsReport.h"
#include "reports/drawing/PaidoutReport.h"
#include "reports/drawing/ReportTest.h"
#include "support/RaisedNumber.h"

#include <QRegularExpression>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report corrections{"frmRptEmployeeCorrections", "Employee Corrections", correctionsQuery,
                         drawCorrections};
const Report paidout{"frmRptEmployeePaidout", "Employee Paidout", paidoutQuery, drawPaidout};

/// The test of a report on employees, over all jobs: an open one and a completed one, with a task each.
class EmployeeReport : public ReportTest {
protected:
    qint64 addEmployee(const char* ssn, const char* lastName, const Value& foreman = Value::null()) {
        return data.add(EmployeeRow{
            .SSN = ssn, .lastName = lastName, .firstName = "Ann", .type = "Framer", .foreman = foreman});
    }

    qint64 open = data.add(JobRow{.number = "24-100", .name = "North", .foreman = "Stone/Sid"});
    qint64 closed = data.add(JobRow{.number = "24-200", .name = "South", .completed = on("02/20/24")});
    qint64 framing = data.addCategory("Framing");
    qint64 openTask = data.add(TaskRow{
        .lot = data.add(LotRow{.job = open, .lotBlock = "1/A", .plan = "Oak", .address = "1 Short St"}),
        .category = framing,
        .name = "Frame"});
    qint64 closedTask = data.add(TaskRow{.lot = data.add(LotRow{.job = closed,
                                                                .lotBlock = "2/B",
                                                                .plan = "A plan with a name too long",
                                                                .address = "4711 Very Long Avenue North"}),
                                         .category = framing,
                                         .name = "Frame the whole second floor"});
    ReportParameters parameters{
        .incomplete = false, .startDate = "01/01/24", .stopDate = "03/31/24", .allJobsMarked = true};
};

class CorrectionsReport : public EmployeeReport {
protected:
    void log(qint64 ofTask, qint64 employee, const char* date, const QString& problem = "Paid twice") {
        data.add(LogRow{ofTask, employee, on(date), problem});
    }
    [[nodiscard]] QStringList problems(const ReportParameters& with) {
        return drawn(corrections, with, "Problem: ");
    }

    qint64 ann = addEmployee("111-11-1111", "Adams");
    qint64 bea = data.add(EmployeeRow{.SSN = "222-22-2222", .lastName = "Baker"});
};

class PaidoutReport : public EmployeeReport {
protected:
    void pay(qint64 task, qint64 employee, double price, const char* date = "01/05/24",
             const Value& note = Value::null()) {
        data.add(PaymentRow{task, employee, price, on(date), note});
    }
    [[nodiscard]] QStringList totals(const ReportParameters& with) { return drawn(paidout, with, "Total: "); }
};

} // namespace

TEST_F(CorrectionsReport, Pages) {
    log(openTask, ann, "01/06/24", "Second");
    log(openTask, ann, "01/05/24", "First");
    log(closedTask, bea, "03/31/24", QString("A long problem is written in full ").repeated(8));
    data.add(LogRow{openTask, bea, on("03/31/24"), Value::null()});
    draw(corrections, parameters);
    expectApproved(pages, "corrections");
    EXPECT_EQ(watcher.units, 4);
    EXPECT_EQ(watcher.steps, 4);
}

TEST_F(CorrectionsReport, DatesEmployeeJobsAndIncompleteNarrowIt) {
    log(openTask, ann, "12/31/23", "before");
    log(openTask, ann, "01/01/24", "first day");
    log(closedTask, bea, "03/31/24", "last day");
    log(openTask, bea, "04/01/24", "behind");
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
    marked.markedJobs = {open};
    EXPECT_EQ(problems(marked), QStringList{"Problem: first day"});
}

TEST_F(CorrectionsReport, ANewPageHasColumnHeadsAndNoEmployee) {
    Transaction quickly(data.connection());
    for (int i = 0; i < 62; ++i)
        log(openTask, ann, "01/05/24");
    quickly.commit();
    draw(corrections, parameters);
    EXPECT_EQ(pages.pageCount(), 2);
    EXPECT_EQ(pages.texts(2).mid(0, 6), (QStringList{"Employee Corrections: 03/05/24 08:15", "Page:2 of",
                                                     "SSN", "Type", "Name", "Job: 24-100"}));
}

TEST_F(CorrectionsReport, CancelEndsItBehindTheRecord) {
    for (int i = 0; i < 5; ++i)
        log(openTask, ann, "01/05/24");
    watcher.cancelAfter = 3;
    EXPECT_EQ(problems(parameters).size(), 3);
}

TEST_F(PaidoutReport, Pages) {
    const qint64 ann = addEmployee("111-11-1111", "Adams", "Own/Foreman");
    const qint64 bea = addEmployee("222-22-2222", "Baker");
    const qint64 nobody = data.add(EmployeeRow{.SSN = "333-33-3333"});
    pay(openTask, ann, 100);
    pay(openTask, ann, 50.555, "01/06/24", "A note that is longer than twenty");
    pay(closedTask, ann, 7, "01/07/24");
    pay(closedTask, bea, 8, "01/08/24");
    pay(openTask, nobody, 9, "01/09/24");
    for (const bool summary : {false, true}) {
        parameters.summary = summary;
        draw(paidout, parameters);
        expectApproved(pages, summary ? "paidout-summary" : "paidout");
    }
    EXPECT_EQ(watcher.units, 5);
    EXPECT_EQ(watcher.steps, 5);
}

// The last job is not forgotten when the employee changes, so who goes on with it has no line and no total.
TEST_F(PaidoutReport, AJobThatGoesOnFromTheEmployeeBeforeHasNoLine) {
    pay(openTask, addEmployee("1", "Adams"), 10);
    pay(openTask, addEmployee("2", "Baker"), 20);
    parameters.summary = true;
    draw(paidout, parameters);
    EXPECT_TRUE(pages.texts().contains("Baker, Ann"));
    EXPECT_EQ(pages.texts().filter("Job#: ").size(), 1);
    EXPECT_EQ(pages.texts().filter("Total: "), QStringList{"Total: 10.00"});
}

TEST_F(PaidoutReport, ThePeriodIncludesBothItsDays) {
    const qint64 ann = addEmployee("1", "Adams");
    for (const char* date : {"12/31/23", "01/01/24", "03/31/24", "04/01/24"})
        pay(openTask, ann, 1, date);
    draw(paidout, parameters);
    EXPECT_EQ(pages.texts().filter("/24").filter(QRegularExpression("^../../..$")),
              (QStringList{"01/01/24", "03/31/24"}));
}

TEST_F(PaidoutReport, EmployeeJobsAndIncompleteNarrowIt) {
    const qint64 ann = addEmployee("1", "Adams");
    const qint64 bea = addEmployee("2", "Baker");
    pay(openTask, ann, 1);
    pay(closedTask, ann, 2);
    pay(openTask, bea, 4);
    parameters.summary = true;
    ReportParameters narrowed = parameters;
    narrowed.employeeKey = bea;
    EXPECT_EQ(totals(narrowed), QStringList{"Total: 4.00"});
    narrowed.employeeKey = ann;
    narrowed.incomplete = true;
    EXPECT_EQ(totals(narrowed), QStringList{"Total: 1.00"});
    narrowed = parameters;
    narrowed.allJobsMarked = false;
    narrowed.markedJobs = {closed};
    EXPECT_EQ(totals(narrowed), QStringList{"Total: 2.00"});
}

TEST_F(PaidoutReport, ANewPageRepeatsNoHeading) {
    const qint64 ann = addEmployee("1", "Adams");
    Transaction quickly(data.connection());
    for (int i = 0; i < 70; ++i)
        pay(openTask, ann, 1);
    quickly.commit();
    draw(paidout, parameters);
    EXPECT_EQ(pages.texts(1).filter("Total: "), QStringList{"Total: 70.00"});
    EXPECT_EQ(pages.texts(2).mid(0, 3),
              (QStringList{"Employee Paidout: 03/05/24 08:15", "Page:2 of", "Oak"}));
    EXPECT_FALSE(pages.texts(2).contains("Plan"));
}

TEST_F(PaidoutReport, CancelEndsItBehindTheRecord) {
    const qint64 ann = addEmployee("1", "Adams");
    for (int i = 0; i < 5; ++i)
        pay(openTask, ann, 1);
    watcher.cancelAfter = 2;
    draw(paidout, parameters);
    EXPECT_EQ(watcher.steps, 2);
    EXPECT_EQ(pages.texts().filter("1 Short St").size(), 2);
}

TEST_F(PaidoutReport, AnErrorKeepsWhatWasDrawn) {
    pay(openTask, addEmployee("1", "Adams"), 1);
    pay(closedTask, addEmployee("2", "Baker"), 2);
    data.database().run("UPDATE JobTaskEmployee SET Price=Null WHERE Price=2");
    EXPECT_EQ(raisedNumber([&] { draw(paidout, parameters); }), numberOf(Failure::InvalidUseOfNull));
    EXPECT_TRUE(pages.texts().contains("Total: 1.00"));
    EXPECT_EQ(pages.texts().last(), "Job#: 24-200");
}
