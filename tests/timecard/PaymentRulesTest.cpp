#include "timecard/PaymentRules.h"

#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "timecard/TaskHistory.h"
#include "timecard/TimeCardData.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class PaymentRules : public ::testing::Test {
protected:
    void SetUp() override { gProgramFolder = data.db.folder() + u'/'; }

    PaymentResult pay() {
        return applyPayment(data.db.connection(), selection,
                            {.ask = script.ask(), .logged = logged, .rowDeleted = rowDeleted});
    }
    /// A category in front of the task's, and a task in it.
    qint64 dependOn(qint64 category, const Value& price = 50.0, bool exclude = false) {
        data.db.add("CategoryDependency", {{"CategoryKey", data.framing}, {"DependentKey", category}});
        return data.addTask("Before", price, category, exclude);
    }
    void expectRows(qint64 payments, qint64 logRows) {
        EXPECT_EQ(data.count("JobTaskEmployee"), payments);
        EXPECT_EQ(data.count("EmployeeLog"), logRows);
    }

    TimeCardData data;
    MessageScript script;
    std::function<void()> logged = [] {};
    std::function<bool()> rowDeleted = [] { return false; };
    PaymentSelection selection{.jobLotTaskKey = data.task,
                               .codeKey = data.framing,
                               .excludeDependency = false,
                               .taskEmployeeKey = 0,
                               .jobLotKey = data.lot,
                               .excludeDependencyCheck = false,
                               .employeeKey = data.ann,
                               .priceText = "60.00",
                               .completed = DateTime{QDate(2024, 3, 9)},
                               .note = "north side",
                               .taskDifference = 100};
};

} // namespace

TEST_F(PaymentRules, WritesTheSelectionAsOneRow) {
    EXPECT_EQ(pay(), PaymentResult::Paid);
    Recordset row;
    row.Open("SELECT * FROM JobTaskEmployee", data.db.connection());
    EXPECT_EQ(row["JobLotTaskKey"], Value(data.task));
    EXPECT_EQ(row["EmployeeKey"], Value(data.ann));
    EXPECT_EQ(row["Price"], Value(60.0));
    EXPECT_EQ(row["Completed"], Value(DateTime{QDate(2024, 3, 9)}));
    EXPECT_EQ(row["Note"], Value("north side"));
    EXPECT_TRUE(script.shown().empty());
}

TEST_F(PaymentRules, AnEmptyNoteIsEmptyTextNotNull) {
    selection.note.clear();
    EXPECT_EQ(pay(), PaymentResult::Paid);
    EXPECT_EQ(data.db.ask("SELECT Note FROM JobTaskEmployee"), Value(""));
}

TEST_F(PaymentRules, ALongNoteIsKeptWhole) {
    selection.note = QString(100'000, u'x') + "O'Neil's";
    EXPECT_EQ(pay(), PaymentResult::Paid);
    EXPECT_EQ(data.db.ask("SELECT Note FROM JobTaskEmployee"), Value(selection.note));
}

TEST_F(PaymentRules, GapsStopSilentlyInTheirOrder) {
    selection.employeeKey = std::nullopt;
    EXPECT_EQ(pay(), PaymentResult::NoEmployee);
    selection.employeeKey = 0;
    EXPECT_EQ(pay(), PaymentResult::NoEmployee);
    selection.jobLotTaskKey = Value();
    EXPECT_EQ(pay(), PaymentResult::NoTask);
    selection.priceText.clear();
    EXPECT_EQ(pay(), PaymentResult::NoPrice);
    expectRows(0, 0);
}

TEST_F(PaymentRules, ThePayeeIsTheTasksEmployeeOnlyWhenTickedAndAssigned) {
    struct Case {
        bool ticked;
        Value assigned;
        std::optional<qint64> chosen;
        qint64 payee; // 0: stops
    };
    const Case cases[] = {{true, data.bob, data.ann, data.bob},
                          {true, data.bob, std::nullopt, data.bob},
                          {true, 0, data.ann, data.ann},
                          {true, Value::null(), data.ann, data.ann},
                          {true, 0, std::nullopt, 0},
                          {false, data.bob, data.ann, data.ann},
                          {false, data.bob, 0, 0}};
    for (const Case& c : cases) {
        data.db.run("DELETE FROM JobTaskEmployee");
        selection.useTaskEmployee = c.ticked;
        selection.taskEmployeeKey = c.assigned;
        selection.employeeKey = c.chosen;
        EXPECT_EQ(pay(), c.payee == 0 ? PaymentResult::NoEmployee : PaymentResult::Paid);
        EXPECT_EQ(data.db.ask("SELECT EmployeeKey FROM JobTaskEmployee"),
                  c.payee == 0 ? Value() : Value(c.payee));
    }
}

TEST_F(PaymentRules, EachWarningGoesOnWithYesAndStopsWithNo) {
    struct Case {
        const char* text;
        int defaultButton;
        qint64 logRows;
        std::function<void()> prepare;
    };
    const Case cases[] = {
        {"This task has a dependent task in category Footings\nContinue paying task?", 2, 0,
         [this] { dependOn(data.footings); }},
        {"Price entered is greater than task difference.\nContinue paying task?", 1, 0,
         [this] {
             data.db.run("DELETE FROM CategoryDependency");
             selection.taskDifference = 59.99;
         }},
        {"This employee was paid for this task on: 03/05/24\nPay this employee again?", 1, 1, [this] {
             data.addPayment(data.task, data.ann, 10);
             selection.taskDifference = 90;
         }}};
    for (const Case& c : cases) {
        data.db.run("DELETE FROM JobTaskEmployee");
        c.prepare();
        const qint64 before = data.count("JobTaskEmployee");
        script.expect(Answer::No);
        EXPECT_EQ(pay(), PaymentResult::Refused);
        expectRows(before, 0);
        const MessageRequest asked = script.shown().back();
        EXPECT_EQ(asked.text, c.text);
        EXPECT_EQ(asked.title, "Payment Error!");
        EXPECT_EQ(asked.buttons, MessageButtons::YesNo);
        EXPECT_EQ(asked.icon, MessageIcon::Critical);
        EXPECT_EQ(asked.defaultButton, c.defaultButton);
        script.expect(Answer::Yes);
        EXPECT_EQ(pay(), PaymentResult::Paid);
        expectRows(before + 1, c.logRows);
    }
}

TEST_F(PaymentRules, TheWarningsComeInTheirOrder) {
    dependOn(data.footings);
    data.addPayment(data.task, data.ann, 50);
    selection.taskDifference = 50;
    for (int i = 0; i < 3; ++i)
        script.expect(Answer::Yes);
    EXPECT_EQ(pay(), PaymentResult::Paid);
    ASSERT_EQ(script.shown().size(), 3u);
    EXPECT_TRUE(script.shown()[0].text.startsWith("This task has"));
    EXPECT_TRUE(script.shown()[1].text.startsWith("Price entered"));
    EXPECT_TRUE(script.shown()[2].text.startsWith("This employee"));
}

TEST_F(PaymentRules, AnotherEmployeeOnAFullyPaidTaskIsNotAskedAbout) {
    data.addPayment(data.task, data.bob, 100);
    selection.priceText = "0.00";
    selection.taskDifference = 0;
    EXPECT_EQ(pay(), PaymentResult::Paid);
    EXPECT_EQ(data.db.ask("SELECT Price FROM JobTaskEmployee WHERE EmployeeKey=" + QString::number(data.ann)),
              Value(0.0));
}

TEST_F(PaymentRules, ThePriceIsComparedAsExactDoubles) {
    struct Case {
        const char* text;
        double difference;
        bool asks;
    };
    // The third: what the screen prefills for 10.005. The fourth: an overpaid task.
    const Case cases[] = {{"100", 100, false},      {"100.01", 100, true},     {"10.01", 10.005, true},
                          {"10.015", 10.012, true}, {"10.015", 10.015, false}, {"0.00", -5, true},
                          {"abc", 0, false}};
    for (const Case& c : cases) {
        data.db.run("DELETE FROM JobTaskEmployee");
        selection.priceText = c.text;
        selection.taskDifference = c.difference;
        if (c.asks)
            script.expect(Answer::No);
        EXPECT_EQ(pay(), c.asks ? PaymentResult::Refused : PaymentResult::Paid) << c.text;
    }
}

TEST_F(PaymentRules, ThePricePaidIsTheNumericPrefix) {
    const std::pair<const char*, double> cases[] = {
        {"12.5 dollars", 12.5}, {"7abc", 7},        {"none", 0},     {" ", 0},
        {"1.2.3", 1.2},         {"10.015", 10.015}, {"1e308", 1e308}};
    selection.taskDifference = 1e308;
    for (const auto& [text, price] : cases) {
        data.db.run("DELETE FROM JobTaskEmployee");
        selection.priceText = text;
        EXPECT_EQ(pay(), PaymentResult::Paid);
        EXPECT_EQ(data.db.ask("SELECT Price FROM JobTaskEmployee"), Value(price)) << text;
    }
}

TEST_F(PaymentRules, WhatCountsAsAnUnpaidDependency) {
    struct Case {
        const char* what;
        double price;
        bool excluded;
        double paid;
        bool blocks;
    };
    const Case cases[] = {{"unpaid", 50, false, 0, true},
                          {"paid a cent", 50, false, 0.01, false},
                          {"without a price", 0, false, 0, false},
                          {"excluded", 50, true, 0, false}};
    for (const Case& c : cases) {
        const qint64 category = data.addCategory(c.what);
        const qint64 task = dependOn(category, c.price, c.excluded);
        if (c.paid > 0)
            data.addPayment(task, data.bob, c.paid);
        EXPECT_EQ(CheckDependency(data.db.connection(), selection),
                  c.blocks ? QString::number(category) : QStringLiteral("0"))
            << c.what;
        data.db.run("DELETE FROM CategoryDependency");
    }
}

TEST_F(PaymentRules, ADependencyWithNoTaskInThisLotBlocksNothing) {
    const qint64 here = data.lot;
    data.lot = data.addLot("B-2", data.job);
    dependOn(data.footings);
    data.lot = here;
    EXPECT_EQ(CheckDependency(data.db.connection(), selection), "0");
}

TEST_F(PaymentRules, OneUnpaidTaskAmongPaidOnesBlocks) {
    data.addPayment(dependOn(data.footings), data.bob, 50);
    data.addTask("Also before", 20.0, data.footings);
    EXPECT_EQ(CheckDependency(data.db.connection(), selection), QString::number(data.footings));
}

TEST_F(PaymentRules, EveryPrerequisiteCategoryIsChecked) {
    const qint64 roofs = data.addCategory("Roofs");
    const qint64 tasks[] = {dependOn(data.footings), dependOn(data.addCategory("Sills")), dependOn(roofs)};
    for (const qint64 open : tasks) {
        data.db.run("DELETE FROM JobTaskEmployee");
        for (const qint64 task : tasks)
            if (task != open)
                data.addPayment(task, data.bob, 1);
        EXPECT_EQ(Value(CheckDependency(data.db.connection(), selection)).toLong(),
                  data.db.ask("SELECT CodeKey FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(open))
                      .toLong());
    }
}

TEST_F(PaymentRules, LotAndTaskCanSkipTheDependencyCheck) {
    dependOn(data.footings);
    selection.excludeDependencyCheck = true;
    EXPECT_EQ(CheckDependency(data.db.connection(), selection), "0");
    selection.excludeDependencyCheck = Value::null();
    EXPECT_NE(CheckDependency(data.db.connection(), selection), "0");
    selection.excludeDependency = true;
    EXPECT_EQ(CheckDependency(data.db.connection(), selection), "0");
}

TEST_F(PaymentRules, AFailingDependencyCheckIsShownAndThePaymentGoesOn) {
    dependOn(data.footings);
    selection.codeKey = "x'";
    script.expect(Answer::Ok);
    EXPECT_EQ(pay(), PaymentResult::Paid);
    EXPECT_EQ(script.shown().size(), 1u);
}

TEST_F(PaymentRules, AnAcceptedDoublePaymentIsLoggedBeforeItIsPaid) {
    data.addPayment(data.task, data.ann, 10);
    int calls = 0;
    logged = [&] {
        ++calls;
        expectRows(1, 1);
    };
    script.expect(Answer::Yes);
    EXPECT_EQ(pay(), PaymentResult::Paid);
    EXPECT_EQ(calls, 1);
    Recordset log;
    log.Open("SELECT * FROM EmployeeLog", data.db.connection());
    EXPECT_EQ(log["JobLotTaskKey"], Value(data.task));
    EXPECT_EQ(log["EmployeeKey"], Value(data.ann));
    EXPECT_EQ(log["Occured"], Value(DateTime{QDate(2024, 3, 9)}));
    EXPECT_EQ(log["Problem"], Value("Employee paid twice for same job/task"));
}

TEST_F(PaymentRules, TheLogRowStandsWhenThePaymentFails) {
    data.addPayment(data.task, data.ann, 10);
    logged = [] { raise(Failure::InvalidProperty); };
    script.expect(Answer::Yes);
    EXPECT_THROW(static_cast<void>(pay()), RunTimeError);
    expectRows(1, 1);
}

TEST_F(PaymentRules, WhatIsNoDateIsRefusedWhenItIsStored) {
    for (const Value& completed : {Value(), Value::null(), Value(""), Value("13/45/02"), Value("02/29/23")}) {
        selection.completed = completed;
        EXPECT_THROW(static_cast<void>(pay()), RunTimeError);
    }
    data.addPayment(data.task, data.ann, 10);
    script.expect(Answer::Yes);
    EXPECT_THROW(static_cast<void>(pay()), RunTimeError);
    expectRows(1, 0);
}

TEST_F(PaymentRules, AStatementOnADeletedRowRunsAgainUntilGivenUp) {
    data.addPayment(data.task, data.ann, 10);
    int runs = 0;
    logged = [&] {
        if (++runs < 3)
            raise(Failure::RowDeleted);
    };
    rowDeleted = [] { return true; };
    script.expect(Answer::Yes);
    EXPECT_EQ(pay(), PaymentResult::Paid);
    EXPECT_EQ(runs, 3);
    expectRows(2, 1);

    rowDeleted = [] { return false; };
    logged = [] { raise(Failure::RowDeleted); };
    script.expect(Answer::Yes);
    EXPECT_THROW(static_cast<void>(pay()), RunTimeError);
    expectRows(2, 2);
}
