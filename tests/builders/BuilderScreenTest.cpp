#include "BuilderScreen.h"

#include "builders/frmAddMasterTasks.h"
#include "master/frmAddOptionGroup.h"

using namespace tarnwell;
using namespace tarnwell::test;

TEST_F(BuilderScreen, WithoutABuilderTheFocusStaysInTheEmptyName) {
    open();
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    EXPECT_EQ(form().statusText(), "Press Add to enter new record, Find to get record");
    EXPECT_EQ(enabled(), "Exit Add Find");
    for (const char* grid : {"jgPlans", "jgTasks"})
        EXPECT_EQ(driver->find<Grid>(grid).Row(), -1) << "a row of no builder can't be entered";
    driver->press(Qt::Key_Tab);
    driver->click("jgPlans");
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    script.expect(Answer::No);
    driver->type("x");
    EXPECT_EQ(field(0).text(), "");
    EXPECT_EQ(script.shown().back().text, "Do you want to add a new builder?");
    EXPECT_EQ(script.shown().back().defaultButton, 2);
    for (const auto key : {Qt::Key_Control, Qt::Key_CapsLock, Qt::Key_F2, Qt::Key_Down})
        driver->press(key);
    EXPECT_EQ(data.count("Contractor"), 1);
}

TEST_F(BuilderScreen, ATypedNameBecomesANewBuilderWithAPlanAndATask) {
    open();
    script.expect(Answer::Yes);
    driver->type("Oak");
    EXPECT_EQ(builderName(), "") << "the row stands from the first key on";
    EXPECT_EQ(enabled(), "Exit Add Del Find Group");
    driver->focus("jgPlans");
    EXPECT_EQ(form().statusText(), "Enter the plan name");
    EXPECT_EQ(enabled(), "Exit Group");
    driver->type("Birch");
    driver->click("jgTasks", {60, 10});
    EXPECT_EQ(data.count("ContractorPlan WHERE PlanName='Birch' AND ContractorKey=" +
                         QString::number(form().ContractorKey)),
              1);
    EXPECT_EQ(enabled(), "Exit Task Group");
    driver->type("Sweep");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(form().statusText(), "Enter the price for this task");
    driver->type("12.5");
    driver->press(Qt::Key_Return, Qt::NoModifier, 2);
    EXPECT_EQ(tasks().Col(), 5) << "Enter begins the row again behind its last column";
    EXPECT_EQ(form().statusText(), "Press button to add linked tasks to plan");
    driver->clickToolbar("Exit");
    EXPECT_EQ(builderName(), "Oak");
    EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='Sweep' AND MasterPrice=12.5 AND MasterTaskKey=0 AND "
                         "CodeKey=" +
                         QString::number(data.drywall)),
              1);
    driver.reset();
}

TEST_F(BuilderScreen, TheFramesMnemonicLeadsToTheName) {
    openBuilder();
    driver->focus("MskField(3)"); // the frame's field that had the focus last
    driver->focus("jgTasks");
    driver->press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
}

TEST_F(BuilderScreen, TheEmptyNameIsGuardedUntilAFindWithoutAChoice) {
    openBuilder();
    driver->focus("MskField(0)");
    field(0).clear();
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    find([](const ScreenDriver& search) { search.press(Qt::Key_Escape); });
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(driver->focusedName(), "MskField(1)") << "the guard is off until the next found builder";
    driver->focus("jgTasks");
    EXPECT_EQ(driver->focusedName(), "MskField(0)") << "the grids still send the focus back";
    driver->type("Abel");
    driver->press(Qt::Key_Tab, Qt::NoModifier, 2);
    driver->type("Suite");
    driver->clickToolbar("Add");
    EXPECT_EQ(data.count("Contractor WHERE Name='Abel' AND [Address 2]='Suite'"), 1);
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(driver->focusedName(), "MskField(0)") << "a new builder turns the guard on again";
}

TEST_F(BuilderScreen, EveryOpenJobIsSelectedAfterALoad) {
    data.addJob("1001", "Elm");
    data.addJob("1002", "Oak");
    openBuilder();
    auto& jobs = driver->find<ListBox>("lstJobs");
    EXPECT_EQ(jobs.ListCount(), 3);
    EXPECT_EQ(selectedJobs(), 2);
    EXPECT_FALSE(jobs.item(0)->isSelected());
    driver->click("cmdSelectAll", {5, 5});
    EXPECT_EQ(selectedJobs(), 0);
    driver->click("cmdSelectAll", {5, 5});
    EXPECT_EQ(selectedJobs(), 2);
    driver->clickLine("lstJobs", 1);
    EXPECT_EQ(selectedJobs(), 1);
    driver->clickToolbar("Del");
    EXPECT_TRUE(script.shown().empty()) << "Del means nothing in the job list";
}

TEST_F(BuilderScreen, APriceEditedOnTheScreenReachesNoJob) {
    const qint64 lot = data.addLotTask(data.addJob("1001", "Elm"), data.planWalls);
    openBuilder();
    driver->click("jgTasks", {60, 10});
    EXPECT_EQ(enabled(), "Exit Del Task Group");
    driver->press(Qt::Key_Right);
    driver->type("99");
    driver->press(Qt::Key_Down);
    EXPECT_EQ(data.count("ContractorPlanTask WHERE MasterPrice=99"), 1);
    EXPECT_EQ(data.price(lot), 1.0);
}

TEST_F(BuilderScreen, APendingTaskKeepsThePlanAndCategoryItWasBegunUnder) {
    openBuilder();
    driver->click("jgTasks", {60, 10});
    driver->press(Qt::Key_Down);
    driver->type("Sweep");
    driver->choose("cmbType", "Drywall");
    EXPECT_EQ(
        data.count("ContractorPlanTask WHERE Name='Sweep' AND CodeKey=" + QString::number(data.framing)), 1);
    EXPECT_EQ(tasks().RowCount(), 0);
}

TEST_F(BuilderScreen, CopyStandsOnTheCopyAndDelAsksForWhatIsActive) {
    openBuilder();
    driver->focus("jgPlans");
    EXPECT_EQ(enabled(), "Exit Del Group Copy");
    driver->clickToolbar("Copy");
    EXPECT_EQ(plans().value("PlanName"), Value("Copied Aspen"));
    EXPECT_EQ(tasks().RowCount(), 1);
    driver->click("jgTasks", {60, 10});
    driver->type("Walls and more");
    script.expect(Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_EQ(script.shown().back().title, "Confirm Delete");
    EXPECT_EQ(data.count("ContractorPlanTask"), 1);
    EXPECT_EQ(tasks().RowCount(), 0);
    driver->focus("jgPlans");
    script.expect(Answer::No, Answer::Yes);
    driver->clickToolbar("Del");
    driver->clickToolbar("Del");
    EXPECT_EQ(script.shown().back().text, "Delete the Copied Aspen Plan?");
    EXPECT_EQ(plans().RowCount(), 1);
    EXPECT_EQ(driver->focusedName(), "jgPlans");
}

TEST_F(BuilderScreen, ABuilderWithAJobStaysAndTheScreenWithIt) {
    const qint64 job = data.addJob("1001", "Elm");
    openBuilder();
    driver->focus("MskField(3)");
    script.expect(Answer::Yes, Answer::Ok); // the refusal
    driver->clickToolbar("Del");
    EXPECT_EQ(script.shown().front().text, "Delete Current Builder?");
    EXPECT_EQ(field(0).text(), "Abel Homes");
    EXPECT_EQ(plans().RowCount(), 1);
    data.db.run("DELETE FROM Job WHERE JobKey=" + QString::number(job));
    script.expect(Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_EQ(data.count("Contractor"), 0);
    EXPECT_EQ(field(0).text(), "");
    EXPECT_EQ(plans().RowCount(), 0);
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    EXPECT_EQ(enabled(), "Exit Add Find");
}

TEST_F(BuilderScreen, ABuilderThatSomebodyElseDeletedLeavesTheScreenAfterOneMessage) {
    const std::function<void()> ways[] = {
        [this] { driver->clickToolbar("Exit"); },
        [this] { driver->clickToolbar("Add"); },
        [this] { driver->clickToolbar("Group"); },
        [this] {
            find([](const ScreenDriver& search) {
                search.type("Abel");
                search.press(Qt::Key_Return);
            });
        },
    };
    for (const auto& leave : ways) {
        openBuilder();
        driver->focus("MskField(3)");
        data.db.secondWorkstation()->Execute("DELETE FROM Contractor");
        data.db.add("Contractor", {{"Name", "Abel Homes"}});
        script.expect(Answer::Ok);
        leave();
        EXPECT_EQ(form().ContractorKey, 0);
        EXPECT_EQ(field(0).text(), "");
        EXPECT_EQ(plans().RowCount() + tasks().RowCount(), 0);
        EXPECT_EQ(driver->focusedName(), "MskField(0)");
        EXPECT_EQ(enabled(), "Exit Add Find");
        driver->clickToolbar("Exit");
        EXPECT_FALSE(form().isLoaded());
        driver.reset();
    }
}

TEST_F(BuilderScreen, APlanThatSomebodyElseDeletedLeavesAfterAMessage) {
    openBuilder();
    driver->focus("jgPlans");
    data.db.run("DELETE FROM ContractorPlan");
    script.expect(Answer::Yes, Answer::Ok);
    driver->clickToolbar("Del");
    EXPECT_EQ(plans().RowCount(), 0);
    EXPECT_EQ(tasks().RowCount(), 0);
}

TEST_F(BuilderScreen, PickedTasksFillThePlanAndSelectAllCarriesOver) {
    data.addMaster("Bay Y", data.framing, 1.0);
    openBuilder();
    driver->click("jgTasks", {60, 10});
    whenShown([](const ScreenDriver& dialog) {
        auto& list = dialog.find<ListBox>("lstTasks");
        EXPECT_EQ(list.ListCount(), 5);
        EXPECT_EQ(dialog.focusedName(), "lstTasks");
        dialog.click("cmdSelectAll");
        EXPECT_EQ(list.selectedItems().size(), 2) << "no heading and no capital Y";
        dialog.clickToolbar("Exit");
    });
    driver->clickToolbar("Task");
    EXPECT_EQ(tasks().RowCount(), 1);
    whenShown([](const ScreenDriver& dialog) {
        auto& list = dialog.find<ListBox>("lstTasks");
        dialog.click("cmdSelectAll");
        EXPECT_EQ(list.selectedItems().size(), 0) << "the first press clears";
        dialog.press(Qt::Key_Backtab, Qt::ShiftModifier);
        dialog.press(Qt::Key_Space); // the heading
        dialog.press(Qt::Key_Down, Qt::NoModifier, 3);
        dialog.press(Qt::Key_Space);
        dialog.clickToolbar("Add");
    });
    driver->press(Qt::Key_Left);
    driver->press(Qt::Key_Space);
    EXPECT_EQ(tasks().RowCount(), 2);
    EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='Bay Y' AND ContractorPlanKey=" +
                         QString::number(data.plan)),
              1);
}

TEST_F(BuilderScreen, AGroupIsKeptAndFilledForTheBuilder) {
    openBuilder();
    const auto group = [&] {
        return data.db
            .ask("SELECT Description FROM Code WHERE Code1=5 AND Code2=" + QString::number(data.builder))
            .toText();
    };
    whenShown([&](const ScreenDriver& groups) {
        EXPECT_EQ(groups.find<MaskedBox>("txtField(0)").text(), "Abel Homes");
        whenShown([](const ScreenDriver& name) {
            name.press(Qt::Key_Return);
            EXPECT_TRUE(name.window().isVisible()) << "an empty name is not accepted";
            name.type("Deck");
            name.press(Qt::Key_Return);
        });
        groups.clickToolbar("Add");
        EXPECT_EQ(group(), "Deck");
        groups.focus("jgGroupOptions");
        whenShown([](const ScreenDriver& picking) {
            picking.clickLine("lstTasks", 1);
            picking.clickToolbar("Add");
        });
        groups.clickToolbar("Task");
        auto& grid = groups.find<Grid>("jgGroupOptions");
        EXPECT_EQ(grid.RowCount(), 1);
        groups.click("jgGroupOptions", {grid.columnViewportPosition(5) + 20, 10});
        groups.type("33");
        groups.clickToolbar("Exit");
    });
    driver->clickToolbar("Group");
    EXPECT_EQ(data.count("ContractorOptionGroup WHERE MasterPrice=33 AND MasterTaskKey=" +
                         QString::number(data.hang)),
              1);
}
