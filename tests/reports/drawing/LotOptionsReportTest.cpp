#include "reports/drawing/LotOptionsReport.h"

#include "reports/drawing/LotReportTest.h"
#include "support/RaisedNumber.h"

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report lotOptions{"frmRptLotOptions", "Lot Options", lotOptionsQuery, drawLotOptions};

class LotOptionsReport : public LotReportTest {
protected:
    LotOptionsReport() : LotReportTest(lotOptions) {}

    qint64 addParent(qint64 lot, const char* name, double price) {
        const qint64 task = addTask(lot, name, price);
        data.makeParent(task);
        return task;
    }
};

} // namespace

TEST_F(LotOptionsReport, Pages) {
    const qint64 lot = addLot("1/A");
    const qint64 frame = addParent(lot, "Frame", 100);
    pay(frame, 100);
    pay(data.addOption(frame, "Window", 20), 20);
    data.addOption(frame, "A door with a name that is too long", 15.5);
    pay(data.addOption(frame, "Overpaid", 5), 6);
    addParent(addLot("2/A"), "Without options", 40);
    data.add(TaskRow{.lot = lot, .category = category, .name = "No parent", .price = 1});
    job = data.add(JobRow{.number = "24-200", .completed = on("02/20/24")});
    const qint64 evened = addParent(data.add(LotRow{.job = job, .lotBlock = "1/A"}), "Evened out", 26);
    data.addOption(evened, "Free", 0);
    expectApprovedPages({{"lot-options", DetailLevel::All, false},
                         {"lot-options-summary", DetailLevel::All, true},
                         {"lot-options-unpaid", DetailLevel::Unpaid, false}},
                        3);
}

// What was paid for options is added up from parent to parent over the whole report.
TEST_F(LotOptionsReport, OptionPaidRunsOn) {
    const qint64 lot = addLot("1/A");
    const qint64 first = addParent(lot, "First", 100);
    pay(data.addOption(first, "Window", 20), 20);
    const qint64 second = addParent(lot, "Second", 100);
    pay(second, 3);
    pay(data.addOption(second, "Door", 10), 10);
    EXPECT_EQ(drawn("Option Paid: "), (QStringList{"Option Paid: 20.00", "Option Paid: 30.00"}));
    EXPECT_EQ(drawn("Balance: "), (QStringList{"Balance: 100.00", "Balance: 77.00"}));
    EXPECT_TRUE(drawn("Total: ").contains("Total: 33.00"));
}

// A parent that isn't shown counts too, and the selection adds what the balance subtracts.
TEST_F(LotOptionsReport, SelectionAddsWhatWasPaidForOptions) {
    const qint64 lot = addLot("1/A");
    const qint64 paid = addParent(lot, "Paid", 50);
    pay(paid, 200);
    pay(data.addOption(paid, "Window", 20), 20);
    pay(addParent(lot, "Evened out by the option", 10), 20);
    parameters.detail = DetailLevel::Unpaid;
    EXPECT_EQ(drawn("Task: "), QStringList{"Task: Evened out by the option"});
    EXPECT_EQ(drawn("Balance: "), QStringList{"Balance: -30.00"});
    parameters.detail = DetailLevel::PaidFull;
    EXPECT_EQ(drawn("Task: "), (QStringList{"Task: Paid", "Task: Window"}));
}

// Half a cent is rounded to the even 0.
TEST_F(LotOptionsReport, HalfACentIsPaidInFull) {
    data.addOption(addParent(addLot("1/A"), "Frame", 0), "Window", 0.005);
    parameters.detail = DetailLevel::PaidFull;
    EXPECT_EQ(drawn("Task: "), (QStringList{"Task: Frame", "Task: Window"}));
    parameters.detail = DetailLevel::Unpaid;
    EXPECT_EQ(drawn("Task: "), QStringList());
}

// The balance is held in single precision, where the cents of large amounts get lost.
TEST_F(LotOptionsReport, ALargeBalanceLosesItsCents) {
    addParent(addLot("1/A"), "Frame", 200000.01);
    EXPECT_EQ(drawn("Balance: "), QStringList{"Balance: 200000.02"});
    EXPECT_TRUE(pages.texts().contains("Total: 200000.01"));
}

TEST_F(LotOptionsReport, OptionsGoOnOnANewPageWithoutTheirHeadings) {
    const qint64 parent = addParent(addLot("1/A"), "Frame", 1);
    Transaction quickly(data.connection());
    for (int i = 0; i < 60; ++i)
        data.addOption(parent, QString("Option %1").arg(i, 2, 10, QChar('0')), 1);
    quickly.commit();
    draw();
    EXPECT_EQ(pages.pageCount(), 2);
    EXPECT_EQ(pages.texts(2).mid(0, 2), (QStringList{"Lot Options: 03/05/24 08:15", "Page:2 of"}));
    EXPECT_EQ(pages.texts(2).value(2), "Task: Option 53") << "the one before it stands at 13,500, the limit";
}

TEST_F(LotOptionsReport, BatchesOfParentsFollowEachOtherWithoutAGap) {
    QStringList expected;
    Transaction quickly(data.connection());
    for (int i = 130; i >= 1; --i) {
        const qint64 lot = addLot(qPrintable(QString("%1").arg(i, 3, 10, QChar('0'))));
        data.addOption(addParent(lot, "Frame", 1), "Window", i);
        expected.prepend(QString("Option Total: %1.00").arg(i));
    }
    quickly.commit();
    EXPECT_EQ(drawn("Option Total"), expected);
    EXPECT_EQ(pages.texts().filter("Price: ").size(), 2 * 130) << "each parent with its option";
}

TEST_F(LotOptionsReport, ForemanJobsAndIncompleteNarrowIt) {
    addParent(addLot("1/A"), "North", 1);
    const qint64 north = addOtherJob();
    addParent(addLot("2/B"), "South", 1);
    parameters.foreman = "Own/Ed";
    EXPECT_EQ(drawn("Task: "), QStringList{"Task: South"});
    parameters = {.incomplete = true, .allJobsMarked = true};
    EXPECT_EQ(drawn("Task: "), QStringList{"Task: North"});
    parameters = {.incomplete = false, .markedJobs = {north}};
    EXPECT_EQ(drawn("Task: "), QStringList{"Task: North"});
}

TEST_F(LotOptionsReport, CancelEndsItBehindTheParent) {
    const qint64 lot = addLot("1/A");
    for (const char* name : {"First", "Second"})
        addParent(lot, name, 1);
    watcher.cancelAfter = 1;
    EXPECT_EQ(drawn("Task: "), QStringList{"Task: First"});
}

TEST_F(LotOptionsReport, AnErrorKeepsWhatWasDrawn) {
    addParent(addLot("1"), "Frame", 10);
    data.makeParent(data.add(TaskRow{
        .lot = addLot("2"), .category = category, .name = "Without a price", .price = Value::null()}));
    EXPECT_EQ(raisedNumber([&] { draw(); }), numberOf(Failure::InvalidUseOfNull));
    EXPECT_EQ(pages.texts().filter("Lot/Block").size(), 2);
    EXPECT_EQ(pages.texts().filter("Task: "), QStringList{"Task: Frame"});
}
