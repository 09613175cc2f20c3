#include "controls/DateBox.h"
#include "controls/ListBox.h"
#include "controls/NoteBox.h"
#include "frame/ChangeWatch.h"
#include "runtime/RecentJobs.h"
#include "runtime/RunTime.h"
#include "support/DrivenScreen.h"
#include "support/RememberedSettings.h"
#include "timecard/PayrollScreen.h"
#include "timecard/TimeCardData.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace tarnwell;
using namespace tarnwell::test;

TEST_F(Payroll, APaymentMovesTheFiguresAndKeepsTheSelection) {
    const RememberedSettings settings;
    openJob();
    EXPECT_TRUE(rememberedJobs().empty()) << "typing passes over many";
    EXPECT_EQ(text("txtField(0)"), "40.00");
    choose("2");
    driver->retype("txtField(0)", "15");
    driver->focus("rchNote");
    driver->type("rear");
    apply();
    EXPECT_EQ(lines("lstTaskHistory"), (QStringList{"12/31/24 | 222-22-2222 | 15.00", "Baker,Bob"}));
    EXPECT_EQ(figure("lblFieldLabel(12)"), "15.00");
    EXPECT_EQ(figure("lblFieldLabel(5)"), "25.00");
    EXPECT_EQ(text("txtField(0)"), "25.00");
    EXPECT_EQ(driver->find<NoteBox>("rchNote").text(), "");
    EXPECT_EQ(employees().Text(), "222-22-2222/Baker,Bob");
    EXPECT_EQ(driver->focusedName(), "jgTasks");
    EXPECT_EQ(ask("SELECT Note FROM JobTaskEmployee"), Value("rear"));
    EXPECT_EQ(rememberedJobs(),
              std::vector<qint64>{ask("SELECT JobKey FROM Job WHERE JobNumber='1001'").toLong()});
}

TEST_F(Payroll, APressMeetsAllThreeWarnings) {
    data.db.add("CategoryDependency", {{"CategoryKey", data.framing}, {"DependentKey", data.footings}});
    data.addTask("Trench", 10.0, data.footings);
    openJob();
    choose("111");
    script.expect(Answer::Yes);
    apply();
    driver->focus("txtField(0)");
    driver->type("1");
    for (int i = 0; i < 3; ++i)
        script.expect(Answer::Yes);
    apply();
    EXPECT_EQ(script.shown().size(), 4u);
    EXPECT_EQ(lines("lstTaskHistory").size(), 4);
    EXPECT_EQ(lines("lstEmployeeHistory"), QStringList{"12/31/24 | Employee paid twice for same job/task"});
}

TEST_F(Payroll, GapsSendTheFocusToThem) {
    openJob();
    apply();
    EXPECT_EQ(driver->focusedName(), "cmbEmployees");
    driver->retype("txtField(0)", "");
    apply();
    EXPECT_EQ(driver->focusedName(), "txtField(0)");
    EXPECT_EQ(data.count("JobTaskEmployee"), 0);
}

TEST_F(Payroll, ATaskRowRefillsThePriceAndKeepsTheNote) {
    openJob();
    driver->focus("rchNote");
    driver->type("later");
    driver->focus("jgTasks");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(text("txtField(0)"), "100.00");
    EXPECT_EQ(driver->find<NoteBox>("rchNote").text(), "later");
    data.addPayment(data.task, data.ann, 30);
    driver->press(Qt::Key_Up);
    driver->press(Qt::Key_Down);
    driver->focus("txtField(0)");
    driver->type("7");
    driver->doubleClick("txtField(0)", {5, 5});
    EXPECT_EQ(text("txtField(0)"), "70.00") << "what is left of a partly paid task";
}

TEST_F(Payroll, ATaskWhoseHistoryFailsHasNoPrice) {
    const qint64 trench = data.addTask("Trench", 10.0, data.footings);
    for (const qint64 employee : {data.ann, data.bob})
        data.addPayment(trench, employee, 1.5e308);
    script.expect(Answer::Ok, Answer::Ok); // Footings is the first category.
    openJob();
    choose("2");
    EXPECT_EQ(text("txtField(0)"), "40.00");
    combo().setListIndex(0);
    EXPECT_EQ(grid("jgTasks").value("Name"), Value("Trench"));
    EXPECT_EQ(text("txtField(0)"), "") << "that of Beams is not paid for it";
    apply();
    EXPECT_EQ(driver->focusedName(), "txtField(0)");
    EXPECT_EQ(data.count("JobTaskEmployee"), 2);
}

TEST_F(Payroll, LotsAndTasksStandInTheirOrder) {
    data.addLot("A-0", data.job);
    data.addTask("Awning", 1.0, data.framing);
    data.db.run(QString("UPDATE JobLotTask SET Name='Beams', ParentKey=%1, Child=1 WHERE Name='Awning'")
                    .arg(data.task));
    data.db.run(
        QString("UPDATE JobLotTask SET ParentKey=%1, MasterPrice=2 WHERE Name='Walls'").arg(data.task));
    data.db.run("UPDATE JobLotTask SET Name='Beams' WHERE Name='Walls'");
    openJob();
    EXPECT_EQ(column("jgJobLots", 3), (QStringList{"A-0", "A-1"}));
    clickCell("jgJobLots", 2, 3);
    EXPECT_EQ(column("jgTasks", 6), (QStringList{"40", "2", "1"}))
        << "a plain task, then a parent and its option";
}

TEST_F(Payroll, APressWhileAPaymentIsUnderWayDoesNothing) {
    data.addPayment(data.task, data.ann, 100);
    openJob();
    choose("1");
    driver->focus("jgTasks");
    driver->press(Qt::Key_Down);
    int asked = 0;
    const Ask before = setMessagePresenter([&](const MessageRequest&) {
        if (++asked == 1)
            driver->find<QPushButton>("cmdApplyTask").click();
        return Answer::Yes;
    });
    apply();
    setMessagePresenter(before);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(data.count("JobTaskEmployee"), 2);
}

TEST_F(Payroll, APressWhileItWaitsForADeletedRowPaysOnce) {
    data.db.runBeside(
        {.sqlite =
             "CREATE TRIGGER Deleted AFTER INSERT ON JobTaskEmployee BEGIN DELETE FROM JobTaskEmployee; END",
         .postgres = {
             "CREATE FUNCTION deleted() RETURNS trigger LANGUAGE plpgsql AS "
             "'BEGIN DELETE FROM \"JobTaskEmployee\"; RETURN NULL; END'",
             "CREATE TRIGGER deleted AFTER INSERT ON \"JobTaskEmployee\" EXECUTE FUNCTION deleted()"}});
    openJob();
    choose("2");
    QTimer::singleShot(0, &form(), [this] { driver->find<QPushButton>("cmdApplyTask").click(); });
    QTimer::singleShot(0, &form(), [this] {
        data.db.runBeside(
            {.sqlite = "DROP TRIGGER Deleted", .postgres = {"DROP TRIGGER deleted ON \"JobTaskEmployee\""}});
    });
    apply();
    EXPECT_TRUE(script.shown().empty());
    EXPECT_EQ(lines("lstTaskHistory"), (QStringList{"12/31/24 | 222-22-2222 | 40.00", "Baker,Bob"}));
    EXPECT_EQ(data.count("JobTaskEmployee"), 1);
}

TEST_F(Payroll, TheEmployeesLogIsReplacedAndReadWhole) {
    data.addLog(DateTime{QDate(2024, 3, 5)}, QString(400, u'x') + "\nend");
    open();
    for (int times = 0; times < 2; ++times) {
        choose("1");
        EXPECT_EQ(lines("lstEmployeeHistory"), QStringList{"03/05/24 | " + QString(400, u'x') + " end"});
    }
    driver->focus("lstEmployeeHistory");
    const QScrollBar* bar = driver->find<ListBox>("lstEmployeeHistory").horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    driver->press(Qt::Key_Right, Qt::NoModifier, 100);
    EXPECT_EQ(bar->value(), bar->maximum());
    choose("2");
    EXPECT_TRUE(lines("lstEmployeeHistory").isEmpty());
}

TEST_F(Payroll, ATicksWordsEndBesideItInALargeWindow) {
    open();
    driver->window().resize(1900, 1000);
    const auto& words = driver->find<QLabel>("lblFieldLabel(14)");
    const auto& tick = driver->find<QCheckBox>("chkUseTaskEmployee");
    EXPECT_TRUE(words.alignment().testFlag(Qt::AlignRight));
    EXPECT_LT(tick.x() - words.geometry().right(), 2 * words.fontMetrics().height());
}

TEST_F(Payroll, TheArrowsGoOverTheEndOfTheYear) {
    open();
    auto& arrows = driver->find("vscrCompleted");
    driver->click("vscrCompleted", {arrows.width() / 2, 3});
    EXPECT_EQ(driver->find<DateBox>("rebCompleted").text(), "01/01/25");
    driver->click("vscrCompleted", {arrows.width() / 2, arrows.height() - 3});
    EXPECT_EQ(driver->find<DateBox>("rebCompleted").text(), "12/31/24");
    driver->find<DateBox>("rebCompleted").setText("");
    driver->click("vscrCompleted", {arrows.width() / 2, 3});
    EXPECT_EQ(driver->find<DateBox>("rebCompleted").text(), "");
}

TEST_F(Payroll, ALogRowStandsWhenTheComboHasNoChoice) {
    data.db.run("UPDATE JobLotTask SET EmployeeKey=" + QString::number(data.bob));
    openJob();
    driver->click("chkUseTaskEmployee", {6, 6});
    apply();
    EXPECT_EQ(data.count("JobTaskEmployee"), 1);
    employees().setText("nobody");
    driver->focus("txtField(0)");
    driver->type("0");
    script.expect(Answer::Yes, Answer::Ok);
    apply();
    EXPECT_EQ(data.count("EmployeeLog"), 1);
    EXPECT_EQ(data.count("JobTaskEmployee"), 1);
}

TEST_F(Payroll, WhatOthersPayIsShownAndATypedPriceStays) {
    const qint64 first = data.addPayment(data.task, data.ann, 10);
    openJob();
    driver->focus("jgTasks");
    driver->press(Qt::Key_Down);
    driver->clickLine("lstTaskHistory", 1);
    ChangeWatch watch;
    watch.look();
    const auto others = data.db.secondWorkstation();
    const auto pay = [&](int price) {
        others->Execute(QString("INSERT INTO JobTaskEmployee (JobLotTaskKey, EmployeeKey, Price, Completed) "
                                "VALUES (%1, %2, %3, #3/7/2024#)")
                            .arg(data.task)
                            .arg(data.bob)
                            .arg(price));
        watch.look();
    };
    pay(30);
    auto& history = driver->find<ListBox>("lstTaskHistory");
    EXPECT_EQ(lines("lstTaskHistory").size(), 4);
    EXPECT_EQ(std::pair(history.ListIndex(), history.ItemData(3)), std::pair(3, first))
        << "the chosen line moved along";
    EXPECT_EQ(text("txtField(0)"), "60.00");
    driver->retype("txtField(0)", "45");
    pay(5);
    EXPECT_EQ(text("txtField(0)"), "45");
    EXPECT_EQ(lines("lstTaskHistory").size(), 6);
    EXPECT_EQ(driver->focusedName(), "txtField(0)");
}

TEST_F(Payroll, ADoubleClickInTheHistoryOpensThePayment) {
    data.addPayment(data.task, data.ann, 10);
    openJob();
    driver->focus("jgTasks");
    driver->press(Qt::Key_Down);
    whenShown([&](const ScreenDriver& notes) {
        EXPECT_EQ(notes.find<MaskedBox>("txtField(0)").text(), "10.00");
        data.db.run("DELETE FROM JobTaskEmployee");
        notes.press(Qt::Key_Escape);
    });
    auto& list = driver->find<ListBox>("lstTaskHistory");
    driver->click("lstTaskHistory", list.visualItemRect(list.item(1)).center());
    driver->doubleClick("lstTaskHistory", list.visualItemRect(list.item(1)).center());
    EXPECT_TRUE(lines("lstTaskHistory").isEmpty());
}

TEST_F(Payroll, FailuresOutsideTheTrapsStopTheProgram) {
    const std::pair<const char*, std::function<void()>> cases[] = {
        {"3704",
         [this] {
             driver->click("rchNote", {6, 6});
         }},     // No job was loaded yet.
        {"'13'", // The arrows on a text that is not a date.
         [this] {
             driver->find<DateBox>("rebCompleted").setText("13/45/02");
             driver->click("vscrCompleted", {5, 3});
         }},
        {"'381'", [this] { // An inactive employee is found and not in the list.
             data.addEmployee("000-00-0001", "Gone", "Gus", true);
             driver->focus("cmbEmployees");
             whenShown([](const ScreenDriver& search) {
                 search.type("g");
                 search.press(Qt::Key_Return);
             });
             driver->clickToolbar("Find");
         }}};
    for (const auto& [number, routine] : cases)
        EXPECT_EXIT(
            {
                setMessagePresenter({}); // the message goes to standard error
                open();
                routine();
            },
            ::testing::ExitedWithCode(1), number);
}
