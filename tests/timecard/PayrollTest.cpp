#include "controls/DateBox.h"
#include "controls/ListBox.h"
#include "controls/NoteBox.h"
#include "data/sqlite/SqliteHandle.h"
#include "runtime/RunTime.h"
#include "support/DrivenScreen.h"
#include "timecard/TimeCardData.h"
#include "timecard/frmPayroll.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

struct Payroll : DrivenScreen<frmPayroll, TimeCardData> {
    void SetUp() override {
        DrivenScreen::SetUp();
        setClock([] { return DateTime{QDate(2024, 12, 31)}; });
        data.addJob("2002", "Oak Rise");
        data.addJob("1500", "Closed", DateTime{QDate(2024, 1, 1)});
        data.addTask("Beams", 40.0, data.framing);
    }
    void TearDown() override {
        ScreenTest::TearDown();
        setClock(nullptr);
    }
    /// Job 1001, its first lot, the category Framing and its first task, "Beams".
    void openJob() {
        open();
        driver->focus("MskField(2)");
        driver->type("1");
        combo().setListIndex(1);
    }
    Combo& employees() { return combo("cmbEmployees"); }
    void choose(const char* employee) {
        driver->focus("cmbEmployees");
        employees().lineEdit()->selectAll();
        driver->type(employee);
    }
    void apply() { driver->click("cmdApplyTask", {5, 5}); }

    QString text(const QString& name) { return driver->find<MaskedBox>(name).text(); }
    QString figure(const QString& name) { return driver->find<QLabel>(name).text(); }
    bool findEnabled() { return driver->enabledButtons().contains("Find"); }
    QStringList column(const char* name, int index) {
        QStringList texts;
        for (int row = 1; row <= grid(name).RowCount(); ++row)
            texts.append(grid(name).valueAt(row, index).toText());
        return texts;
    }
    QStringList lines(const QString& name) {
        QStringList texts;
        auto& list = driver->find<ListBox>(name);
        for (int i = 0; i < list.ListCount(); ++i)
            texts.append(list.item(i)->text());
        return texts;
    }
};

} // namespace

TEST_F(Payroll, OpensWithoutAJobAndWithTheBlankEmployee) {
    open();
    EXPECT_EQ(form().windowTitle(), "Timecards");
    EXPECT_EQ(grid("jgJobLots").RowCount(), 0);
    EXPECT_EQ(employees().ListIndex(), 0);
    EXPECT_EQ(employees().Text(), "");
    EXPECT_EQ(driver->find<DateBox>("rebCompleted").text(), "12/31/24");
    EXPECT_EQ(text("txtField(0)"), "0.00");
    EXPECT_TRUE(driver->find<MaskedBox>("MskField(8)").isHidden());
}

TEST_F(Payroll, TypingFindsTheJobAndKeepsTheCaret) {
    open();
    driver->focus("MskField(2)");
    auto& field = driver->find<MaskedBox>("MskField(2)");
    driver->type("1");
    EXPECT_EQ(field.text(), "1001");
    EXPECT_EQ(field.SelStart(), 1);
    EXPECT_EQ(text("MskField(1)"), "Elm Court");
    EXPECT_EQ(text("MskField(4)"), "Abel Homes");
    EXPECT_EQ(grid("jgJobLots").RowCount(), 1);
    driver->type("1");
    EXPECT_EQ(field.text(), "2002") << "the closed job 1500 is not offered";
    EXPECT_EQ(field.SelStart(), 2);
    driver->press(Qt::Key_Left);
    EXPECT_EQ(field.text(), "2002");
    EXPECT_EQ(field.SelStart(), 1);
    driver->press(Qt::Key_End);
    EXPECT_EQ(field.text(), "") << "End empties the job";
    driver->type("1");
    EXPECT_EQ(field.text(), "1001");
    driver->press(Qt::Key_Home);
    EXPECT_EQ(field.text(), "");
    EXPECT_EQ(grid("jgJobLots").RowCount(), 0);
    driver->type("9");
    EXPECT_EQ(field.text(), "") << "nothing stands behind the last job";
}

TEST_F(Payroll, AnEmptiedJobFieldKeepsTheGrids) {
    openJob();
    driver->focus("MskField(2)");
    driver->find<MaskedBox>("MskField(2)").selectAll();
    driver->press(Qt::Key_Delete);
    EXPECT_EQ(text("MskField(2)"), "");
    EXPECT_EQ(grid("jgJobLots").RowCount(), 1);
    driver->click("jgTasks", {20, 10});
    EXPECT_EQ(driver->focusedName(), "MskField(2)");
}

TEST_F(Payroll, AnEmptiedCategoryStaysInForce) {
    data.db.add("JobLot", {{"JobKey", data.job}, {"LotBlock", "Lot 9"}});
    openJob();
    const auto empty = [this] {
        driver->focus("cmbType");
        driver->press(Qt::Key_A, Qt::ControlModifier);
        driver->press(Qt::Key_Delete);
    };
    empty();
    clickCell("jgJobLots", 2, 3);
    EXPECT_EQ(combo().Text(), "Framing");
    EXPECT_EQ(grid("jgTasks").RowCount(), 0);
    clickCell("jgJobLots", 1, 3);
    EXPECT_EQ(grid("jgTasks").RowCount(), 2);
    empty();
    driver->focus("MskField(2)");
    driver->type("1");
    EXPECT_EQ(grid("jgTasks").RowCount(), 2);
}

TEST_F(Payroll, AQuoteInTheJobFieldIsShownAsAnError) {
    open();
    driver->focus("MskField(2)");
    script.expect(Answer::Ok);
    driver->type("'");
    EXPECT_EQ(script.shown().size(), 1u);
    EXPECT_EQ(text("MskField(2)"), "");
}

TEST_F(Payroll, ControlsRefuseTheFocusUntilTheChainIsThere) {
    struct Case {
        const char* job; // Typed; empty for none.
        const char* control;
        const char* restsOn;
    };
    const Case cases[] = {
        {"", "jgJobLots", "MskField(2)"},
        {"", "cmbType", "MskField(2)"},
        {"", "jgTasks", "MskField(2)"},
        {"", "txtField(0)", "MskField(2)"},
        {"", "cmdApplyTask", "MskField(2)"},
        {"", "cmbEmployees", "cmbEmployees"},
        {"2", "jgJobLots", "jgJobLots"},
        {"2", "cmbType", "jgJobLots"},
        {"2", "jgTasks", "jgJobLots"},
        {"2", "txtField(0)", "MskField(2)"},
        {"2", "cmdApplyTask", "jgJobLots"},
        {"2", "rchNote", "MskField(2)"},
        {"1", "cmdApplyTask", "jgTasks"},
        {"1", "cmbType", "cmbType"},
        {"1", "chkUseTaskEmployee", "chkUseTaskEmployee"},
        {"1", "rchNote", "MskField(2)"},
    };
    open();
    for (const Case& c : cases) {
        driver->focus("MskField(2)");
        driver->press(Qt::Key_Home);
        driver->type(c.job);
        driver->focus("lstTaskHistory");
        driver->click(c.control, {6, 6});
        EXPECT_EQ(driver->focusedName(), c.restsOn) << c.control << " with job " << c.job;
    }
}

TEST_F(Payroll, TabGoesTheWayOfAPayment) {
    openJob();
    driver->focus("MskField(2)");
    QStringList way;
    for (int i = 0; i < 9; ++i) {
        driver->press(Qt::Key_Tab);
        way.append(driver->focusedName());
    }
    EXPECT_EQ(way, (QStringList{"jgJobLots", "cmbType", "jgTasks", "cmbEmployees", "chkUseTaskEmployee",
                                "rebCompleted", "txtField(0)", "rchNote", "cmdApplyTask"}));
}

TEST_F(Payroll, FindIsEnabledExactlyWhereItFinds) {
    openJob();
    const std::pair<const char*, bool> cases[] = {{"MskField(2)", true},  {"jgJobLots", false},
                                                  {"cmbEmployees", true}, {"jgTasks", false},
                                                  {"MskField(2)", true},  {"txtField(0)", false}};
    for (const auto& [control, enabled] : cases) {
        driver->focus(control);
        EXPECT_EQ(findEnabled(), enabled) << control;
        EXPECT_EQ(form().statusText(), driver->find(control).toolTip());
    }
}

TEST_F(Payroll, FindServesTheActiveControl) {
    open();
    driver->focus("cmbEmployees");
    whenShown([](const ScreenDriver& search) {
        EXPECT_EQ(search.window().windowTitle(), "Employee Search");
        search.type("b");
        search.press(Qt::Key_Return);
    });
    driver->clickToolbar("Find");
    EXPECT_EQ(employees().Text(), "222-22-2222/Baker,Bob");

    driver->focus("MskField(2)");
    whenShown([](const ScreenDriver& search) {
        EXPECT_EQ(search.window().windowTitle(), "Job Search");
        search.click("optSearch(2)", {8, 8});
        search.focus("MskField(0)");
        search.type("1");
        search.press(Qt::Key_Down);
        search.press(Qt::Key_Return);
    });
    driver->clickToolbar("Find");
    QTest::keyRelease(&driver->find("MskField(2)"), Qt::Key_Return); // It went down in the dialog.
    EXPECT_EQ(text("MskField(2)"), "1500") << "the dialog also reaches closed jobs";
}

TEST_F(Payroll, APaymentMovesTheFiguresAndKeepsTheSelection) {
    openJob();
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
    const data::SqliteHandle other(data.db.path(), data::SqliteHandle::Access::ReadWrite);
    other.run(
        "CREATE TRIGGER Deleted AFTER INSERT ON JobTaskEmployee BEGIN DELETE FROM JobTaskEmployee; END");
    openJob();
    choose("2");
    QTimer::singleShot(0, &form(), [this] { driver->find<QPushButton>("cmdApplyTask").click(); });
    QTimer::singleShot(0, &form(), [&other] { other.run("DROP TRIGGER Deleted"); });
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
        {"'13'", // The arrows on a text that is no date.
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
