#include "jobs/JobScreen.h"

#include <QLineEdit>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

constexpr int nameColumn = 8, priceColumn = 9, excludeColumn = 12, startColumn = 13, stopColumn = 14,
              employeeColumn = 15;

struct JobGridTest : JobScreen {
    qint64 worker =
        data.db.add("Employee", {{"LastName", "Archer"}, {"FirstName", "Ann"}, {"Inactive", false}});
    qint64 walls_ = data.addTask("Walls", data.lot);

    qint64 count(const QString& where) { return data.count("JobLotTask WHERE " + where); }
    /// 11 over the 77 that somebody else gave the first task meanwhile; what leaves the row is refused.
    void typeOverAnotherPrice() {
        openJob();
        data.db.secondWorkstation()->Execute("UPDATE JobLotTask SET MasterPrice=77");
        clickCell("jgTasks", 1, priceColumn);
        driver->type("11");
        script.expect(Answer::Ok);
    }
    static QString lotIs(qint64 lot) { return " AND JobLotKey=" + QString::number(lot); }
};

} // namespace

TEST_F(JobGridTest, ATypedLotIsStoredWhenItsColumnChanges) {
    openJob();
    clickCell("jgJobLots", 3, 3);
    driver->type("C");
    EXPECT_EQ(data.count("JobLot"), 2);
    driver->press(Qt::Key_Return);
    EXPECT_EQ(data.count("JobLot WHERE LotBlock='C' AND ContractorPlanKey=0 AND ExcludeDependencyCheck=0 AND "
                         "JobKey=" +
                         QString::number(data.job)),
              1);
    EXPECT_EQ(form().statusText(), "Click the down arrow to select the plan / tasks");
    EXPECT_EQ(enabled(), "Exit Del Copy") << "it has a key now";
    driver->press(Qt::Key_Return);
    driver->type("5 Elm Street");
    driver->press(Qt::Key_Return);
    driver->press(Qt::Key_Space);
    driver->press(Qt::Key_Return);
    EXPECT_EQ(lots().Col(), 3) << "Enter begins the row again";
    driver->clickToolbar("Exit");
    EXPECT_EQ(data.count("JobLot WHERE Address='5 Elm Street' AND ExcludeDependencyCheck<>0"), 1);
    driver.reset();
}

TEST_F(JobGridTest, ATypedLotIsStoredHoweverItIsLeft) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"by an arrow key", [this] { driver->press(Qt::Key_Up); }},
        {"by Tab", [this] { driver->press(Qt::Key_Tab); }},
        {"by another lot", [this] { clickCell("jgJobLots", 1, 5); }},
        {"by another category", [this] { driver->choose("cmbType", "Drywall"); }},
        {"by Exit", [this] { driver->clickToolbar("Exit"); }},
    };
    for (const auto& [way, leave] : ways) {
        openJob();
        clickCell("jgJobLots", 3, 3);
        driver->type("C");
        leave();
        EXPECT_EQ(data.count("JobLot WHERE LotBlock='C' AND JobKey=" + QString::number(data.job)), 1) << way;
        form().Unload();
        driver.reset();
        data.db.run("DELETE FROM JobLot WHERE LotBlock='C'");
    }
}

TEST_F(JobGridTest, BehindAnotherCategoryATypedTaskBeginsWithItsName) {
    openJob();
    driver->focus("jgTasks");
    tasks().setCol(excludeColumn);
    driver->choose("cmbType", "Drywall");
    driver->focus("jgTasks");
    driver->type("Tape 75");
    driver->clickToolbar("Exit");
    EXPECT_EQ(count("Name='Tape 75' AND ExcludeDependency=0" + lotIs(data.lot)), 1);
    driver.reset();
}

TEST_F(JobGridTest, AnEditedLotThatSomebodyElseDeletedLeavesWithItsTasks) {
    openJob();
    data.db.secondWorkstation()->Execute("DELETE FROM JobLot WHERE LotBlock='A'");
    lots().setCol(5);
    driver->focus("jgJobLots");
    driver->type("5 Elm Street");
    script.expect(Answer::Ok);
    driver->press(Qt::Key_Down);
    EXPECT_TRUE(lots().isPending()) << "what was typed is still there";
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(lots().RowCount(), 1);
    EXPECT_EQ(lots().value("LotBlock"), Value("B"));
    EXPECT_EQ(tasks().RowCount(), 0);
}

TEST_F(JobGridTest, TheTasksFollowTheLotAndATaskNeedsAStoredOne) {
    openJob();
    EXPECT_EQ(tasks().RowCount(), 1);
    clickCell("jgJobLots", 2, 3);
    EXPECT_EQ(tasks().RowCount(), 0);
    driver->press(Qt::Key_Down);
    driver->type("C");
    clickCell("jgTasks", 1, nameColumn);
    EXPECT_EQ(driver->focusedName(), "jgJobLots") << "the lot is not stored yet";
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_EQ(data.count("JobLot"), 2);
    combo().setListIndex(0);
    EXPECT_EQ(tasks().RowCount(), 0);
    driver->focus("cmbType");
    EXPECT_EQ(driver->focusedName(), "cmbType");
}

TEST_F(JobGridTest, WithoutALotTheFocusGoesToTheLots) {
    data.db.run("DELETE FROM JobLot");
    openJob();
    for (const char* control : {"cmbType", "jgTasks"}) {
        driver->focus(control);
        EXPECT_EQ(driver->focusedName(), "jgJobLots") << control;
    }
}

TEST_F(JobGridTest, ATypedTaskBelongsToItsLotAndCategoryHoweverItIsLeft) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"by an arrow key", [this] { driver->press(Qt::Key_Up); }},
        {"by another lot", [this] { clickCell("jgJobLots", 2, 3); }},
        {"by another category", [this] { driver->choose("cmbType", "Drywall"); }},
        {"by Tab", [this] { driver->press(Qt::Key_Tab, Qt::NoModifier, 8); }},
        {"by Exit",
         [this] {
             driver->clickToolbar("Exit");
             driver.reset();
         }},
    };
    for (const auto& [way, leave] : ways) {
        if (!driver)
            openJob();
        clickCell("jgJobLots", 1, 3);
        combo().setListIndex(1);
        driver->focus("jgTasks");
        driver->press(Qt::Key_Insert);
        driver->type("Sweep");
        driver->press(Qt::Key_Return);
        driver->type("12.5");
        leave();
        EXPECT_EQ(
            count("Name='Sweep' AND MasterPrice=12.5 AND MasterTaskKey=0 AND ParentKey=0 AND Child=0 AND "
                  "CodeKey=" +
                  QString::number(data.framing) + lotIs(data.lot)),
            1)
            << way;
        data.db.run("DELETE FROM JobLotTask WHERE Name='Sweep'");
    }
}

TEST_F(JobGridTest, EscapeGivesATypedRowUp) {
    openJob();
    for (const char* grid : {"jgJobLots", "jgTasks"}) {
        driver->focus(grid);
        driver->press(Qt::Key_Insert);
        driver->type("No");
        driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
        driver->press(Qt::Key_Up);
    }
    EXPECT_EQ(data.count("JobLot") + data.count("JobLotTask"), 3);
}

TEST_F(JobGridTest, EnterWalksThroughATaskAndHintsAtEachColumn) {
    openJob();
    clickCell("jgTasks", 1, nameColumn);
    const char* const hints[] = {"Enter the task name",
                                 "Enter the master price",
                                 "Is this a custom task?",
                                 "Exclude this task from dependency check in payroll?",
                                 "Enter date when the task will be started (mm/dd/yy hh:mm)",
                                 "Enter date when the task will be complete (mm/dd/yy hh:mm)",
                                 "Enter the employee to complete task",
                                 "Click to select linked or non-linked tasks"};
    driver->press(Qt::Key_Left);
    for (const char* hint : hints) {
        driver->press(Qt::Key_Return);
        EXPECT_EQ(form().statusText(), hint);
    }
}

TEST_F(JobGridTest, ATaskIsScheduledByTypingAndAWrongDateIsKeptToBeCorrected) {
    openJob();
    clickCell("jgTasks", 1, startColumn);
    driver->type("13/45/26");
    script.expect(Answer::Ok);
    driver->press(Qt::Key_Return);
    EXPECT_EQ(script.shown().back().text, "\"13/45/26\" is not a date. Enter it as mm/dd/yy hh:mm.");
    EXPECT_EQ(tasks().Col(), startColumn);
    driver->press(Qt::Key_Home);
    driver->press(Qt::Key_Right, Qt::ShiftModifier, 5);
    driver->type("12/05");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(tasks().Col(), stopColumn);
    driver->type("12/06/26 14:30");
    driver->press(Qt::Key_Return);
    driver->type("arch");
    driver->press(Qt::Key_Return);
    driver->press(Qt::Key_Down);
    EXPECT_EQ(count("StartDate=#12/05/26# AND StopDate=#12/06/26 14:30# AND EmployeeKey=" +
                    QString::number(worker)),
              1);
}

TEST_F(JobGridTest, TheEmployeesAreReadAtEachLoadAndAnInactiveOneKeepsTheTask) {
    data.db.run("UPDATE JobLotTask SET EmployeeKey=" + QString::number(worker));
    data.db.add("Employee", {{"LastName", "Nofirst"}, {"Inactive", false}});
    openJob();
    const auto onOffer = [this] { return tasks().columns()[employeeColumn - 1].valueList.size(); };
    EXPECT_EQ(onOffer(), 1U) << "who has no first name is left out";
    EXPECT_EQ(cell(tasks(), 1, employeeColumn), "Archer\\Ann");
    data.db.secondWorkstation()->Execute("UPDATE Employee SET Inactive=-1");
    combo().setListIndex(1);
    EXPECT_EQ(onOffer(), 0U);
    EXPECT_EQ(cell(tasks(), 1, employeeColumn), "");
    clickCell("jgTasks", 1, employeeColumn);
    driver->press(Qt::Key_F2);
    driver->press(Qt::Key_Return);
    clickCell("jgTasks", 1, priceColumn);
    driver->type("11");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(count("MasterPrice=11 AND EmployeeKey=" + QString::number(worker)), 1);
}

TEST_F(JobGridTest, ADeletedTaskLeavesATreeThatHolds) {
    const qint64 bay = data.addOption("Walls Bay", walls_);
    openJob();
    clickCell("jgTasks", 2, nameColumn);
    del();
    EXPECT_EQ(data.tree(data.lot), std::vector<QString>{"Walls"});
    EXPECT_EQ(tasks().value("ParentKey"), Value(0)) << "the grid shows that the parent is plain";
    ASSERT_NE(bay, data.addOption("Walls Deck", walls_));
    combo().setListIndex(1);
    clickCell("jgTasks", 1, nameColumn);
    del();
    EXPECT_EQ(data.tree(data.lot), std::vector<QString>{"Walls Deck"});
    EXPECT_EQ(tasks().value("ParentKey"), Value(0));
}

TEST_F(JobGridTest, RowsThatSomebodyElseDeletedLeaveAfterAMessage) {
    openJob();
    driver->focus("jgTasks");
    const auto other = data.db.secondWorkstation();
    other->Execute("DELETE FROM JobLotTask");
    script.expect(Answer::Yes, Answer::Ok);
    driver->clickToolbar("Del");
    EXPECT_EQ(tasks().RowCount(), 0);
    driver->focus("jgJobLots");
    other->Execute("DELETE FROM JobLot WHERE LotBlock='A'");
    script.expect(Answer::Yes, Answer::Ok);
    driver->clickToolbar("Del");
    EXPECT_EQ(lots().RowCount(), 1);
    EXPECT_EQ(lots().value("LotBlock"), Value("B"));
}

TEST_F(JobGridTest, ATaskThatSomebodyElseChangedIsNotOverwritten) {
    typeOverAnotherPrice();
    driver->press(Qt::Key_Down);
    EXPECT_TRUE(tasks().isPending()) << "what was typed is still there";
    script.expect(Answer::Ok);
    driver->clickToolbar("Exit");
    EXPECT_TRUE(form().isVisible()) << "and holds the screen";
    EXPECT_EQ(count("MasterPrice=77"), 1);
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(cell(tasks(), 1, priceColumn), "77.00");
}

TEST_F(JobGridTest, ARefusedTaskKeepsItsLotAndIsWrittenThereOnceItCanBe) {
    typeOverAnotherPrice();
    clickCell("jgJobLots", 2, 3);
    EXPECT_EQ(cell(tasks(), 1, priceColumn), "11.00") << "the other lot's tasks wait for the row";
    driver->focus("jgTasks");
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(tasks().RowCount(), 0) << "the tasks of the lot that is current";
}

TEST_F(JobGridTest, APriceThatIsNoNumberIsRefusedOnceEachTimeAndTheChoiceWaitsForIt) {
    openJob();
    clickCell("jgTasks", 1, priceColumn);
    driver->type("12x");
    const std::function<void()> ways[] = {
        [this] { clickCell("jgJobLots", 2, 3); },  [this] { combo().setListIndex(0); },
        [this] { driver->clickToolbar("Group"); }, [this] { driver->clickToolbar("Task"); },
        [this] { driver->clickToolbar("Exit"); },
    };
    for (const auto& leave : ways) {
        script.expect(Answer::Ok);
        leave();
        EXPECT_TRUE(waitFor([this] { return driver->focusedName() == "jgTasks"; }));
        EXPECT_EQ(script.shown().back().text, "\"12x\" is not a number.");
        EXPECT_EQ(cell(tasks(), 1, nameColumn), "Walls");
    }
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(tasks().RowCount(), 0) << "of the lot and category that were chosen meanwhile";
    clickCell("jgJobLots", 1, 3);
    EXPECT_EQ(tasks().RowCount(), 0);
}

TEST_F(JobGridTest, ADeletedLotLeavesNoPendingTask) {
    openJob();
    driver->focus("jgTasks");
    driver->press(Qt::Key_Insert);
    driver->type("Sweep");
    driver->focus("jgJobLots");
    del();
    EXPECT_EQ(lots().RowCount(), 1);
    EXPECT_EQ(tasks().RowCount(), 0);
    EXPECT_FALSE(tasks().isPending());
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(JobGridTest, AnEmptiedCategoryStaysInForceForTheNextLot) {
    openJob();
    data.addTask("Beams", lotB);
    driver->focus("cmbType");
    combo().lineEdit()->selectAll();
    driver->press(Qt::Key_Delete);
    clickCell("jgJobLots", 2, 3);
    EXPECT_EQ(combo().Text(), "Framing");
    EXPECT_EQ(cell(tasks(), 1, nameColumn), "Beams");
}

TEST_F(JobGridTest, ADeletedJobLeavesNoPendingRow) {
    openJob();
    clickCell("jgJobLots", 1, 5);
    driver->type("5 Elm Street");
    driver->focus("jgTasks");
    driver->press(Qt::Key_Insert);
    driver->type("Sweep");
    driver->focus("MskField(0)");
    EXPECT_TRUE(lots().isPending() && tasks().isPending());
    del();
    EXPECT_FALSE(lots().isPending() || tasks().isPending());
    driver->clickToolbar("Exit");
    EXPECT_FALSE(form().isLoaded());
    driver.reset();
}
