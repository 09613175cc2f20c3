#include "reports/PaidoutReport.h"

#include "reports/ReportTest.h"
#include "support/RaisedNumber.h"

#include <QRegularExpression>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report paidout{"frmRptEmployeePaidout", "Employee Paidout", paidoutQuery, drawPaidout};

class PaidoutReport : public ReportTest {
protected:
    PaidoutReport() {
        open = data.add(JobRow{.number = "24-100", .name = "North", .foreman = "Stone/Sid"});
        closed = data.add(JobRow{.number = "24-200", .name = "South", .completed = on("02/20/24")});
        const qint64 category = data.addCategory("Framing");
        const qint64 openLot =
            data.add(LotRow{.job = open, .lotBlock = "1/A", .plan = "Oak", .address = "1 Short St"});
        const qint64 closedLot = data.add(LotRow{.job = closed,
                                                 .lotBlock = "2/B",
                                                 .plan = "A plan with a name too long",
                                                 .address = "4711 Very Long Avenue North"});
        openTask = data.add(TaskRow{.lot = openLot, .category = category, .name = "Frame"});
        closedTask =
            data.add(TaskRow{.lot = closedLot, .category = category, .name = "Frame the whole second floor"});
    }

    qint64 addEmployee(const char* ssn, const char* lastName, Value foreman = Value::null()) {
        return data.add(EmployeeRow{
            .SSN = ssn, .lastName = lastName, .firstName = "Ann", .type = "Framer", .foreman = foreman});
    }

    void pay(qint64 task, qint64 employee, double price, const char* date, Value note = Value::null()) {
        data.add(PaymentRow{task, employee, price, on(date), note});
    }

    qint64 open = 0;
    qint64 closed = 0;
    qint64 openTask = 0;
    qint64 closedTask = 0;
    ReportParameters parameters{
        .incomplete = false, .startDate = "01/01/24", .stopDate = "03/31/24", .allJobsMarked = true};
};

} // namespace

TEST_F(PaidoutReport, Pages) {
    const qint64 ann = addEmployee("111-11-1111", "Adams", "Own/Foreman");
    const qint64 bea = addEmployee("222-22-2222", "Baker");
    const qint64 nobody = data.add(EmployeeRow{.SSN = "333-33-3333"});
    pay(openTask, ann, 100, "01/05/24");
    pay(openTask, ann, 50.555, "01/06/24", "A note that is longer than twenty");
    pay(closedTask, ann, 7, "01/07/24");
    pay(closedTask, bea, 8, "01/08/24");
    pay(openTask, nobody, 9, "01/09/24");
    for (const bool summary : {false, true}) {
        pages = {};
        parameters.summary = summary;
        draw(paidout, parameters);
        expectApproved(pages, summary ? "paidout-summary" : "paidout");
    }
    EXPECT_EQ(watcher.units, 5);
    EXPECT_EQ(watcher.steps, 5);
}

// The last job is not forgotten when the employee changes, so who goes on with it has no line and no total.
TEST_F(PaidoutReport, AJobThatGoesOnFromTheEmployeeBeforeHasNoLine) {
    pay(openTask, addEmployee("1", "Adams"), 10, "01/05/24");
    pay(openTask, addEmployee("2", "Baker"), 20, "01/05/24");
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
    pay(openTask, ann, 1, "01/05/24");
    pay(closedTask, ann, 2, "01/05/24");
    pay(openTask, bea, 4, "01/05/24");
    const auto totals = [&](ReportParameters with) {
        pages = {};
        with.startDate = parameters.startDate;
        with.stopDate = parameters.stopDate;
        with.summary = true;
        draw(paidout, with);
        return pages.texts().filter("Total: ").join(' ');
    };
    EXPECT_EQ(totals({.employeeKey = bea, .incomplete = false, .allJobsMarked = true}), "Total: 4.00");
    EXPECT_EQ(totals({.incomplete = false, .markedJobs = {closed}}), "Total: 2.00");
    EXPECT_EQ(totals({.employeeKey = ann, .incomplete = true, .allJobsMarked = true}), "Total: 1.00");
}

TEST_F(PaidoutReport, ANewPageRepeatsNoHeading) {
    const qint64 ann = addEmployee("1", "Adams");
    Transaction quickly(data.connection());
    for (int i = 0; i < 70; ++i)
        pay(openTask, ann, 1, "01/05/24");
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
        pay(openTask, ann, 1, "01/05/24");
    watcher.cancelAfter = 2;
    draw(paidout, parameters);
    EXPECT_EQ(watcher.steps, 2);
    EXPECT_EQ(pages.texts().filter("1 Short St").size(), 2);
}

TEST_F(PaidoutReport, AnErrorKeepsWhatWasDrawn) {
    pay(openTask, addEmployee("1", "Adams"), 1, "01/05/24");
    pay(closedTask, addEmployee("2", "Baker"), 2, "01/05/24");
    data.database().run("UPDATE JobTaskEmployee SET Price=Null WHERE Price=2");
    EXPECT_EQ(raisedNumber([&] { draw(paidout, parameters); }), numberOf(Failure::InvalidUseOfNull));
    EXPECT_TRUE(pages.texts().contains("Total: 1.00"));
    EXPECT_EQ(pages.texts().last(), "Job#: 24-200");
}
