#include "reports/drawing/LotBudgetReport.h"

#include "reports/drawing/LotBudgetTasks.h"
#include "reports/drawing/LotReportTest.h"
#include "support/RaisedNumber.h"

#include <QRegularExpression>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report lotBudget{"frmRptLotBudget", "Lot Budget", lotBudgetQuery, drawLotBudget};

class LotBudgetReport : public LotReportTest {
protected:
    LotBudgetReport() : LotReportTest(lotBudget) {}

    /// A lot in which something is left of each kind of task.
    void addMixedLot() {
        const qint64 lot = addLot("1/A");
        pay(addTask(lot, "Paid in full", 100), 100);
        pay(addTask(lot, "Overpaid", 10), 12.5);
        pay(addTask(lot, "Partly paid", 50), 20);
        addTask(lot, "Not paid, and with a name too long", 30);
        addTask(lot, "Costs nothing", 0);
    }
};

} // namespace

TEST_F(LotBudgetReport, Pages) {
    addMixedLot();
    addLot("2/A"); // without tasks
    const qint64 settled = addLot("3/A");
    const qint64 task = addTask(settled, "Frame", 75.25);
    pay(task, 25.25, "02/07/24");
    pay(task, 50, "01/07/24");
    data.add(PaymentRow{task, data.add(EmployeeRow{.SSN = "2"}), 0, Value::null()});
    job = data.add(JobRow{.number = "24-200",
                          .name = "A name of a job that is too long for its place",
                          .completed = on("02/20/24")});
    data.add(LotRow{.job = job, .lotBlock = "1/A"});
    expectApprovedPages({{"lot-budget", DetailLevel::All, false},
                         {"lot-budget-summary", DetailLevel::All, true},
                         {"lot-budget-paid-full", DetailLevel::PaidFull, false},
                         {"lot-budget-unpaid", DetailLevel::Unpaid, true}},
                        4);
}

// Such a lot has nothing that "Unpaid:" could list, and "Paid Full:" leaves it out by the same test.
TEST_F(LotBudgetReport, PaidFullLeavesOutLotsInWhichEveryTaskHasAPayment) {
    const qint64 lot = addLot("1/A");
    pay(addTask(lot, "Paid in full", 100), 100);
    pay(addTask(lot, "A first payment is enough", 100), 1);
    EXPECT_EQ(drawn("Lot/Block").size(), 1);
    for (const DetailLevel detail : {DetailLevel::PaidFull, DetailLevel::Unpaid}) {
        parameters.detail = detail;
        EXPECT_EQ(drawn("Lot/Block").size(), 0);
    }
    addTask(lot, "Without one", 100);
    parameters.detail = DetailLevel::PaidFull;
    EXPECT_EQ(drawn("Task"), QStringList{"Task: Paid in full"});
}

// Sums of payments in which halves of cents meet: both neighbours of 0.125 and 0.135 are even.
TEST_F(LotBudgetReport, HalvesOfCentsGoToTheEvenOne) {
    const qint64 lot = addLot("1/A");
    addTask(lot, "A", 0.125);
    addTask(lot, "B", 0.135);
    EXPECT_EQ(drawn("Left"), (QStringList{"Left: 0.12", "Left: 0.14"}));
}

// Balances and what is left are held in single precision, where the cents of large amounts get lost.
TEST_F(LotBudgetReport, LargeAmountsLoseTheirCents) {
    addTask(addLot("1/A"), "A", 200000.01);
    EXPECT_EQ(drawn("Price"), QStringList{"Price: 200000.01"});
    EXPECT_EQ(drawn("Left"), QStringList{"Left: 200000.02"});
    EXPECT_EQ(drawn("Balance"), QStringList{"Balance: 200000.02"});
}

TEST_F(LotBudgetReport, TasksFillTheLeftColumnThenTheRightOneThenAPage) {
    const qint64 lot = addLot("1/A");
    Transaction quickly(data.connection());
    for (int i = 0; i < 125; ++i)
        addTask(lot, "Frame", 1);
    quickly.commit();
    parameters.summary = true;
    draw();
    std::vector<PageText> tasks;
    for (const PageText& item : pages.textItems())
        if (item.text.startsWith("Task"))
            tasks.push_back(item);
    const auto firstWhere = [&](qint64 page, int x) {
        return std::ranges::find_if(tasks,
                                    [&](const PageText& item) { return item.page == page && item.x == x; });
    };
    const auto right = firstWhere(1, 5700);
    const auto next = firstWhere(2, 500);
    ASSERT_NE(right, tasks.end());
    ASSERT_NE(next, tasks.end());
    EXPECT_GT(std::prev(right)->y, 13300);
    EXPECT_EQ(right->y, 1250);
    EXPECT_GT(std::prev(next)->y, 13300);
    EXPECT_EQ(next->y, 1250);
    EXPECT_EQ(pages.texts().filter("Lot/Block").size(), 1);
}

// The position is tested before a lot and before a task, and nowhere else.
TEST_F(LotBudgetReport, PaymentsAndHeadersRunPastTheLimit) {
    const qint64 task = addTask(addLot("1/A"), "Frame", 1);
    Transaction quickly(data.connection());
    for (int i = 0; i < 200; ++i)
        pay(task, 1);
    quickly.commit();
    draw();
    EXPECT_EQ(pages.pageCount(), 1);
    EXPECT_GT(pages.textItems().back().y, 13500);
    // Beyond 16 bits the pen stays where it is, and the report goes on.
    EXPECT_EQ(pages.textItems().back().y, pages.textItems().end()[-4].y);
    EXPECT_EQ(pages.texts().filter("01/05/24").size(), 200);
}

// The lots come in another order than their keys, so what a batch leaves behind would show in the next one.
TEST_F(LotBudgetReport, BatchesOfLotsFollowEachOtherWithoutAGap) {
    QStringList totals;
    QStringList payments;
    Transaction quickly(data.connection());
    for (int i = 230; i >= 1; --i) {
        pay(addTask(addLot(qPrintable(QString("%1").arg(i, 3, 10, QChar('0')))), "Frame", i), i);
        totals.prepend(QString("Total: %1.00").arg(i));
        payments.prepend(QString("%1.00").arg(i));
    }
    quickly.commit();
    EXPECT_EQ(drawn("Total"), totals);
    EXPECT_EQ(pages.texts().filter(QRegularExpression("^[0-9]+[.]00$")), payments);
}

TEST_F(LotBudgetReport, ForemanJobsAndIncompleteNarrowIt) {
    addLot("1/A");
    const qint64 north = addOtherJob();
    addLot("2/B");
    parameters.foreman = "Own/Ed";
    EXPECT_EQ(drawn("Lot/Block"), QStringList{"Lot/Block: 2/B"});
    parameters = {.incomplete = true, .allJobsMarked = true};
    EXPECT_EQ(drawn("Lot/Block"), QStringList{"Lot/Block: 1/A"});
    parameters = {.incomplete = false, .markedJobs = {north}};
    EXPECT_EQ(drawn("Lot/Block"), QStringList{"Lot/Block: 1/A"});
}

TEST_F(LotBudgetReport, CancelEndsItBehindTheLot) {
    for (const char* lotBlock : {"1", "2", "3"})
        addLot(lotBlock);
    watcher.cancelAfter = 1;
    EXPECT_EQ(drawn("Lot/Block"), QStringList{"Lot/Block: 1"});
}

TEST_F(LotBudgetReport, AnErrorKeepsWhatWasDrawn) {
    addTask(addLot("1"), "Frame", 10);
    data.add(TaskRow{.lot = addLot("2"), .name = "Without a price", .price = Value::null()});
    EXPECT_EQ(raisedNumber([&] { draw(); }), numberOf(Failure::InvalidUseOfNull));
    EXPECT_EQ(pages.texts().filter("Lot/Block").size(), 2);
    EXPECT_EQ(pages.texts().filter("Task: "), QStringList{"Task: Frame"});
}

// Though read for many lots at once, rows of one name or date come in the order of a statement for one lot or
// task: by category and place in the tree, and by employee.
TEST_F(LotBudgetReport, TiesComeAsInStatementsOfOneLot) {
    const qint64 lot = addLot("1/A");
    const qint64 other = data.addCategory("Roofing");
    for (const qint64 of : {other, category, other, category})
        data.add(TaskRow{.lot = lot, .category = of, .name = of == other ? "frame" : "Frame"});
    const qint64 task = addTask(lot, "Zinc", 1);
    const qint64 bea = data.add(EmployeeRow{.lastName = "Baker", .firstName = "Bea"});
    for (const qint64 employee : {bea, ann, bea, ann})
        data.add(PaymentRow{task, employee, 1, on("01/05/24")});
    const auto texts = [&](const QString& sql) {
        QStringList found;
        Recordset rows;
        for (rows.Open(sql, data.connection()); !rows.atEnd(); rows.MoveNext())
            found << rows.field(0).toText();
        return found;
    };
    Recordset lots;
    lots.Open(lotBudgetQuery(parameters), data.connection());
    LotBudgetTasks gathered(data.connection(), lots, true);
    gathered.prepare();
    QStringList tasks;
    for (const BudgetTask& row : gathered.tasksOf(lot))
        tasks << QString::number(row.jobLotTaskKey);
    EXPECT_EQ(tasks, texts("SELECT jobLotTaskKey, Name, MasterPrice FROM JobLot INNER JOIN JobLotTask ON "
                           "JobLot.JobLotKey = JobLotTask.JobLotKey WHERE JobLot.JobLotKey=" +
                           QString::number(lot) + " ORDER BY LotBlock, Name, CodeKey, ParentKey, Child"));
    QStringList payments;
    for (const BudgetPayment& row : gathered.paymentsOf(task))
        payments << row.employee.toText();
    EXPECT_EQ(
        payments,
        texts("SELECT Employee.LastName+', '+ Employee.FirstName AS Name FROM JobTaskEmployee INNER JOIN "
              "Employee ON JobTaskEmployee.EmployeeKey = Employee.EmployeeKey WHERE JobLotTaskKey=" +
              QString::number(task) + " ORDER BY Completed, JobTaskEmployee.EmployeeKey"));
}

// An imported database may hold such payments: they were paid, but to nobody who could be named.
TEST_F(LotBudgetReport, APaymentOfAVanishedEmployeeCountsWithoutARow) {
    const qint64 task = addTask(addLot("1/A"), "Frame", 100);
    pay(task, 10);
    data.add(PaymentRow{task, data.add(EmployeeRow{.SSN = "2"}), 20, on("01/06/24")});
    data.database().runBeside({.sqlite = "DELETE FROM Employee WHERE SSN='2'",
                               .postgres = {"ALTER TABLE \"Employee\" DISABLE TRIGGER ALL",
                                            "DELETE FROM \"Employee\" WHERE \"SSN\"='2'"}});
    EXPECT_EQ(drawn("01/06/24"), QStringList());
    EXPECT_EQ(pages.texts().filter("Paid: "), QStringList{"Paid: 30.00"});
    EXPECT_EQ(pages.texts().filter("Left: "), QStringList{"Left: 70.00"});
}

// Tenths have no exact double: one order of adding gives 0.6, another almost, and half cents depend on it.
TEST_F(LotBudgetReport, SumsAreTheSameInEveryOrderOfAdding) {
    for (const std::array amounts : {std::array{0.1, 0.2, 0.3}, {0.3, 0.2, 0.1}}) {
        const qint64 lot = addLot("1/A");
        for (const double amount : amounts)
            pay(addTask(lot, "Frame", amount), amount);
        Recordset lots;
        lots.Open(lotBudgetQuery(parameters), data.connection());
        LotBudgetTasks gathered(data.connection(), lots, false);
        gathered.prepare();
        EXPECT_EQ(gathered.sumsOf(lot).total, 0.6);
        EXPECT_EQ(gathered.sumsOf(lot).paid, 0.6);
    }
}
