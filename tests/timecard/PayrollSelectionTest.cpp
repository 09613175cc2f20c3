// From an empty screen to a task: what can be chosen, and where the focus may go.

#include "controls/DateBox.h"
#include "timecard/PayrollScreen.h"

#include <QTest>

using namespace tarnwell;
using namespace tarnwell::test;

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
