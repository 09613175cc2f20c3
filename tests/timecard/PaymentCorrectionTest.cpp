#include "timecard/PaymentCorrection.h"

#include "support/MessageScript.h"
#include "support/RaisedNumber.h"
#include "timecard/PaymentRules.h"
#include "timecard/TaskHistory.h"
#include "timecard/TimeCardData.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class PaymentCorrection : public ::testing::Test {
protected:
    [[nodiscard]] ShownPayment read() { return readPayment(data.db.connection(), payment); }
    void accept(const ShownPayment& shown, const CorrectedPayment& corrected) {
        acceptCorrection(data.db.connection(), payment, shown.row, corrected);
    }
    [[nodiscard]] Value stored(const char* column) {
        return data.db.ask(
            QString("SELECT %1 FROM JobTaskEmployee WHERE JobTaskEmployee=%2").arg(column).arg(payment));
    }

    TimeCardData data;
    qint64 payment = data.addPayment(data.task, data.ann, 40);
    MessageScript script;
};

} // namespace

TEST_F(PaymentCorrection, ChangesPriceNoteAndEmployeeAndNothingElse) {
    // A second payment of Bob for the task asks nothing and logs nothing here.
    data.addPayment(data.task, data.bob, 30);
    accept(read(), {.priceText = "50.5x", .note = "two\nlines", .employeeKey = data.bob});
    EXPECT_EQ(stored("Price"), Value(50.5));
    EXPECT_EQ(stored("Note"), Value("two\nlines"));
    EXPECT_EQ(stored("EmployeeKey"), Value(data.bob));
    EXPECT_EQ(stored("JobLotTaskKey"), Value(data.task));
    EXPECT_EQ(stored("Completed"), Value(DateTime{QDate(2024, 3, 5)}));
    EXPECT_EQ(data.count("EmployeeLog"), 0);
    EXPECT_EQ(data.count("JobTaskEmployee"), 2);
}

TEST_F(PaymentCorrection, APaymentOfAnInactiveEmployeeCanBeCorrected) {
    data.db.run("UPDATE Employee SET Inactive=-1");
    EXPECT_EQ(read().employeeKey, data.ann);
    accept(read(), {.priceText = "41", .note = "", .employeeKey = data.ann});
    EXPECT_EQ(stored("Price"), Value(41.0));
}

TEST_F(PaymentCorrection, TheSecondOfTwoWorkstationsOverwritesNothing) {
    const ShownPayment shown = read();
    const auto other = data.db.secondWorkstation();
    acceptCorrection(*other, payment, readPayment(*other, payment).row,
                     {.priceText = "45", .note = "theirs", .employeeKey = data.ann});
    EXPECT_EQ(
        raisedNumber([&] { accept(shown, {.priceText = "60", .note = "ours", .employeeKey = data.bob}); }),
        -2147217864);
    EXPECT_EQ(stored("Price"), Value(45.0));
    EXPECT_EQ(stored("Note"), Value("theirs"));
    EXPECT_EQ(stored("EmployeeKey"), Value(data.ann));
}

TEST_F(PaymentCorrection, APaymentThatNoLongerExistsOrWasNeverShownIsNotWritten) {
    EXPECT_EQ(raisedNumber([&] { accept({}, {.priceText = "60", .note = "", .employeeKey = data.bob}); }),
              numberOf(Failure::NoCurrentRecord));
    EXPECT_EQ(stored("Price"), Value(40.0));
    const ShownPayment shown = read();
    data.db.secondWorkstation()->Execute("DELETE FROM JobTaskEmployee");
    EXPECT_EQ(raisedNumber([&] { accept(shown, {.priceText = "60", .note = "", .employeeKey = data.bob}); }),
              numberOf(Failure::NoCurrentRecord));
    EXPECT_EQ(raisedNumber([&] { static_cast<void>(read()); }), numberOf(Failure::NoCurrentRecord));
    EXPECT_EQ(data.count("JobTaskEmployee"), 0);
}

TEST_F(PaymentCorrection, OnlyAYesRemoves) {
    for (const Answer answer : {Answer::No, Answer::Cancel}) {
        script.expect(answer);
        EXPECT_FALSE(removePayment(data.db.connection(), payment, script.ask()));
        EXPECT_EQ(data.count("JobTaskEmployee"), 1);
    }
    script.expect(Answer::Yes);
    EXPECT_TRUE(removePayment(data.db.connection(), payment, script.ask()));
    EXPECT_EQ(data.count("JobTaskEmployee"), 0);
    EXPECT_EQ(script.shown().back().text, "You have selected to remove the payment from the current\n"
                                          "employee. Are YOU sure you want to do this?");
    EXPECT_EQ(script.shown().back().defaultButton, 1);
}

TEST_F(PaymentCorrection, ARemovalBringsTheDependencyBackAndLeavesTheLog) {
    data.db.add("CategoryDependency", {{"CategoryKey", data.footings}, {"DependentKey", data.framing}});
    data.addLog(Value::null(), "twice");
    PaymentSelection selection;
    selection.codeKey = data.footings;
    selection.jobLotKey = data.lot;
    EXPECT_EQ(CheckDependency(data.db.connection(), selection), "0");
    script.expect(Answer::Yes);
    EXPECT_TRUE(removePayment(data.db.connection(), payment, script.ask()));
    EXPECT_EQ(CheckDependency(data.db.connection(), selection), QString::number(data.framing));
    PaymentFigures figures;
    EXPECT_EQ(readTaskHistory(data.db.connection(), data.task, 100.0, figures, [](const QString&, qint64) {}),
              100.0);
    EXPECT_EQ(data.count("EmployeeLog"), 1);
}
