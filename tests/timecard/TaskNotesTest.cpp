#include "controls/Combo.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"
#include "timecard/TimeCardData.h"
#include "timecard/frmPayroll.h"
#include "timecard/frmTaskNotes.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

/// The time card on a task with one payment of 40.00 to Ann, and the dialog behind its history.
class TaskNotes : public ScreenTest {
protected:
    using Work = std::function<void(const ScreenDriver& dialog)>;

    void SetUp() override { workOn(data.db); }

    void openHistory() {
        payroll.emplace(theForm<frmPayroll>());
        payroll->focus("MskField(2)");
        payroll->type("1");
        payroll->find<Combo>("cmbType").setListIndex(1);
    }
    /// Double-clicks a line of the history, works in the dialog and waits until it is hidden.
    void open(int line, const Work& work) {
        whenModal([&work](QWidget& dialog) {
            ASSERT_EQ(dialog.objectName(), "frmTaskNotes");
            work(ScreenDriver(dialog));
        });
        auto& list = payroll->find<ListBox>("lstTaskHistory");
        payroll->clickLine("lstTaskHistory", line);
        payroll->doubleClick("lstTaskHistory", list.visualItemRect(list.item(line)).center());
    }
    static QString text(const ScreenDriver& driver, const char* name) {
        return driver.find<MaskedBox>(name).text();
    }
    static void cancel(const ScreenDriver& dialog) { dialog.click("cmdCancel"); }
    static void expectEmpty(const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.find<Combo>("cmbEmployees").ListIndex(), -1);
        EXPECT_EQ(dialog.find<Combo>("cmbEmployees").Text(), "");
        EXPECT_EQ(dialog.find<NoteBox>("rchNote").text(), "");
    }

    TimeCardData data;
    qint64 payment = data.addPayment(data.task, data.ann, 40);
    MessageScript script;
    std::optional<ScreenDriver> payroll;
};

} // namespace

TEST_F(TaskNotes, ACorrectionMovesHistoryFiguresAndPrice) {
    data.db.run("UPDATE Employee SET Inactive=-1"); // Who has left can still be corrected.
    openHistory();
    open(1, [](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.window().windowTitle(), "Task Notes");
        EXPECT_EQ(dialog.find<QLabel>("lblTask").text(), "Walls, lot A-1 of job 1001");
        EXPECT_EQ(dialog.find<QLabel>("lblPaidTo").text(), "Paid to 111-11-1111/Archer,Ann");
        EXPECT_EQ(text(dialog, "txtField(0)"), "40.00");
        EXPECT_EQ(dialog.find<Combo>("cmbEmployees").Text(), "111-11-1111/Archer,Ann");
        dialog.retype("txtField(0)", "50");
        dialog.retype("rchNote", "agreed");
        dialog.retype("cmbEmployees", "2");
        EXPECT_EQ(dialog.find<Combo>("cmbEmployees").Text(), "222-22-2222/Baker,Bob");
        QTest::keyPress(QApplication::focusWidget(), Qt::Key_2); // Enter comes before its release.
        dialog.press(Qt::Key_Return);
        EXPECT_TRUE(dialog.window().isVisible());
        dialog.press(Qt::Key_Return);
        EXPECT_FALSE(dialog.window().isVisible());
    });
    auto& list = payroll->find<ListBox>("lstTaskHistory");
    EXPECT_EQ(list.item(0)->text(), "03/05/24 | 222-22-2222 | 50.00");
    EXPECT_EQ(text(*payroll, "txtField(0)"), "50.00");
    EXPECT_EQ(data.db.ask("SELECT Note FROM JobTaskEmployee"), Value("agreed"));
}

/// The reloaded history would leave Enter without a line.
TEST_F(TaskNotes, TheHistoryStandsOnThePaymentAgainOrWhereItWas) {
    data.addPayment(data.task, data.bob, 7, {2024, 4, 1});
    openHistory();
    auto& list = payroll->find<ListBox>("lstTaskHistory");
    open(3, [this](const ScreenDriver& dialog) {
        data.addPayment(data.task, data.bob, 8, {2024, 5, 1});
        cancel(dialog);
    });
    EXPECT_EQ(list.ListIndex(), 5) << "two lines came in above it";
    whenModal([this](QWidget& dialog) {
        script.expect(Answer::Yes);
        ScreenDriver(dialog).click("cmdRemove");
    });
    payroll->focus("lstTaskHistory");
    payroll->press(Qt::Key_Return);
    EXPECT_EQ(list.ListCount(), 4);
    EXPECT_EQ(list.ListIndex(), 3);
}

TEST_F(TaskNotes, EscapeCancelAndTheTitleBarWriteNothing) {
    openHistory();
    const Work ways[] = {[](const ScreenDriver& dialog) { dialog.press(Qt::Key_Escape); }, cancel,
                         [](const ScreenDriver& dialog) { dialog.window().close(); }};
    for (const Work& way : ways) {
        open(0, [&way](const ScreenDriver& dialog) {
            dialog.retype("txtField(0)", "99");
            way(dialog);
            EXPECT_FALSE(dialog.window().isVisible());
        });
        EXPECT_EQ(data.db.ask("SELECT Price FROM JobTaskEmployee"), Value(40.0));
        EXPECT_TRUE(theForm<frmTaskNotes>().isLoaded());
    }
}

TEST_F(TaskNotes, OnlyAYesRemovesAndCloses) {
    openHistory();
    open(0, [this](const ScreenDriver& dialog) {
        script.expect(Answer::Cancel);
        dialog.click("cmdRemove");
        EXPECT_TRUE(dialog.window().isVisible());
        script.expect(Answer::Yes);
        dialog.press(Qt::Key_R, Qt::AltModifier);
        EXPECT_FALSE(dialog.window().isVisible());
    });
    EXPECT_EQ(payroll->find<ListBox>("lstTaskHistory").ListCount(), 0);
    EXPECT_EQ(text(*payroll, "txtField(0)"), "100.00");
}

TEST_F(TaskNotes, EachShowingReadsThePaymentButKeepsTheFirstListOfEmployees) {
    const qint64 newer = data.addPayment(data.task, data.bob, 7, {2024, 4, 1});
    openHistory();
    open(0, [](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.find<Combo>("cmbEmployees").Text(), "222-22-2222/Baker,Bob");
        cancel(dialog);
    });
    const qint64 cat = data.addEmployee("333-33-3333", "Cole", "Cat");
    data.db.run(
        QString("UPDATE JobTaskEmployee SET EmployeeKey=%1 WHERE JobTaskEmployee=%2").arg(cat).arg(newer));
    open(2, [](const ScreenDriver& dialog) {
        EXPECT_EQ(text(dialog, "txtField(0)"), "40.00");
        EXPECT_EQ(dialog.find<Combo>("cmbEmployees").Text(), "111-11-1111/Archer,Ann");
        cancel(dialog);
    });
    script.expect(Answer::Ok);
    open(0, [](const ScreenDriver& dialog) {
        EXPECT_EQ(text(dialog, "txtField(0)"), "7.00");
        expectEmpty(dialog);
        cancel(dialog);
    });
    EXPECT_TRUE(script.shown().back().text.startsWith("Error #  381 "))
        << qPrintable(script.shown().back().text);
}

TEST_F(TaskNotes, NothingOfThePaymentBeforeIsLeftAfterAFailure) {
    data.addPayment(data.task, data.bob, 7, {2024, 4, 1});
    data.db.run(QString("UPDATE JobTaskEmployee SET Note='first' WHERE JobTaskEmployee=%1").arg(payment));
    data.db.run(QString("UPDATE JobTaskEmployee SET Note=NULL WHERE JobTaskEmployee<>%1").arg(payment));
    openHistory();
    open(2, cancel);
    script.expect(Answer::Ok);
    open(0, [](const ScreenDriver& dialog) {
        EXPECT_EQ(text(dialog, "txtField(0)"), "7.00") << "read before the note";
        expectEmpty(dialog);
        cancel(dialog);
    });
    EXPECT_TRUE(script.shown().back().text.startsWith("Error #  94 "));

    data.db.secondWorkstation()->Execute("DELETE FROM JobTaskEmployee");
    script.expect(Answer::Ok);
    open(2, [](const ScreenDriver& dialog) {
        EXPECT_EQ(text(dialog, "txtField(0)"), "");
        expectEmpty(dialog);
        cancel(dialog);
    });
    EXPECT_TRUE(script.shown().back().text.startsWith("Error #  3021 "));
}

TEST_F(TaskNotes, PassingThroughTheListKeepsTheEmployee) {
    data.db.run("UPDATE Employee SET SSN='', LastName='', FirstName=''");
    data.db.run("UPDATE JobTaskEmployee SET EmployeeKey=" + QString::number(data.bob));
    openHistory();
    open(0, [](const ScreenDriver& dialog) {
        dialog.focus("cmbEmployees");
        dialog.press(Qt::Key_Return);
    });
    EXPECT_EQ(data.db.ask("SELECT EmployeeKey FROM JobTaskEmployee"), Value(data.bob));
}

using TaskNotesDeathTest = TaskNotes;

/// The program ends with the number of the failure, and the row stays as the other workstation left it.
TEST_F(TaskNotesDeathTest, AcceptStopsTheProgramRatherThanOverwrite) {
    const struct {
        const char* theirWork;
        const char* ourEmployee;
        const char* number;
    } cases[] = {
        {"UPDATE JobTaskEmployee SET Price=45", "2", "'-2147217864'"},
        {"DELETE FROM JobTaskEmployee", "2", "'3021'"},
        {"UPDATE Code SET Deleted=0 WHERE CodeKey=0", "", "'381'"},
    };
    for (const auto& c : cases)
        EXPECT_EXIT(
            {
                setMessagePresenter({}); // the message goes to standard error
                openHistory();
                open(0, [&](const ScreenDriver& dialog) {
                    data.db.secondWorkstation()->Execute(c.theirWork);
                    dialog.find<Combo>("cmbEmployees").setText({});
                    dialog.retype("cmbEmployees", c.ourEmployee);
                    dialog.click("cmdAccept");
                });
            },
            ::testing::ExitedWithCode(1), c.number);
}
