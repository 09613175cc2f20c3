#include "jobs/JobScreen.h"

#include "controls/DateBox.h"
#include "frame/ChangeWatch.h"
#include "jobs/frmAddJobOptionGroup.h"
#include "jobs/frmJobAdd.h"
#include "runtime/MousePointer.h"
#include "runtime/RecentJobs.h"
#include "support/RememberedSettings.h"

using namespace tarnwell;
using namespace tarnwell::test;

TEST_F(JobScreen, WithoutAJobTheFocusStaysInTheEmptyNumber) {
    open();
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    EXPECT_EQ(form().statusText(), "Press Add or Find to get job");
    EXPECT_EQ(enabled(), "Exit Add Find");
    for (const char* grid : {"jgJobLots", "jgTasks"})
        EXPECT_EQ(driver->find<Grid>(grid).Row(), -1) << "a row of no job can't be entered";
    for (const char* control : {"cmbForeman", "MskField(1)", "rebCompletedDate"})
        EXPECT_FALSE(driver->find(control).isEnabled()) << control;
    driver->press(Qt::Key_Tab);
    for (const char* control : {"jgJobLots", "jgTasks", "cmbForeman", "MskField(1)"}) {
        driver->click(control, {40, 8});
        EXPECT_EQ(driver->focusedName(), "MskField(0)") << control;
    }
    driver->press(Qt::Key_Right);
    driver->press(Qt::Key_Control);
    script.expect(Answer::No);
    driver->type("x");
    EXPECT_EQ(field(0).text(), "");
    ASSERT_EQ(script.shown().size(), 1U) << "keys that type nothing ask nothing";
    EXPECT_EQ(script.shown()[0].text, "Do you want to add a new job?");
    EXPECT_EQ(script.shown()[0].title, "Add Record");
    EXPECT_EQ(script.shown()[0].defaultButton, 2);
}

TEST_F(JobScreen, OpensQuietlyWithoutCategoriesAndTellsAtTheNextLoad) {
    data.db.run("UPDATE Code SET Deleted=-1");
    open();
    EXPECT_EQ(combo().ListCount(), 0);
    script.expect(Answer::Ok);
    find("optSearch(0)");
    EXPECT_EQ(script.shown()[0].title, "Error");
    EXPECT_EQ(lots().RowCount(), 2) << "the job is there all the same";
}

TEST_F(JobScreen, ATypedKeyLeadsToANewJob) {
    const QString builder(50, u'B');
    data.db.run("UPDATE Contractor SET Name='" + builder + u'\'');
    open();
    script.expect(Answer::Yes);
    whenShown([](const ScreenDriver& dialog) {
        dialog.type("J-2");
        dialog.press(Qt::Key_Tab);
        dialog.type("Oak");
        dialog.click("cmdAccept");
    });
    driver->type("x");
    EXPECT_EQ(field(0).text(), "J-2") << "the key that asked is not typed into the number";
    EXPECT_EQ(field(2).text(), builder);
    EXPECT_EQ(form().ContractorKey, data.builder);
    EXPECT_EQ(data.count("Job WHERE JobNumber='J-2' AND Name='Oak' AND ISNULL(Foreman)=-1 AND "
                         "ISNULL(CompletedDate)=-1"),
              1);
    EXPECT_EQ(enabled(), "Exit Add Del Find");
    ASSERT_TRUE(waitFor([] { return form().isActiveWindow(); }));
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(driver->focusedName(), "MskField(1)") << "and its number is asked about by nobody";
}

TEST_F(JobScreen, AddSavesTheJobOnTheScreenFirstAndACancelledDialogKeepsIt) {
    openJob();
    driver->retype("MskField(0)", "J-9");
    whenShown([](const ScreenDriver& dialog) { dialog.press(Qt::Key_Escape); });
    driver->clickToolbar("Add");
    EXPECT_EQ(stored("JobNumber"), "J-9") << "without a question";
    EXPECT_EQ(form().JobKey, data.job);
    EXPECT_FALSE(theForm<frmJobAdd>().isLoaded());
}

TEST_F(JobScreen, WithoutABuilderAddIsRefusedAndNothingIsAdded) {
    data.db.run("DELETE FROM Job");
    data.db.run("DELETE FROM Contractor");
    open();
    script.expect(Answer::Ok);
    driver->clickToolbar("Add");
    EXPECT_EQ(script.shown()[0].title, "Error");
    EXPECT_EQ(data.count("Job"), 0);
}

TEST_F(JobScreen, ButtonsFollowTheFocus) {
    openJob();
    const struct {
        const char* control;
        const char* buttons;
        const char* hint;
    } cases[] = {
        {"MskField(1)", "Exit Task Find Group Copy", "Press Add or Find to get job number"},
        {"MskField(0)", "Exit Add Del Find", "Press Add or Find to get job"},
        {"cmbForeman", "Exit Add Del Find", "Enter Job Foreman!"},
        {"rebCompletedDate", "Exit Add Del Find", "Enter completed date of job"},
        {"jgJobLots", "Exit Del Copy", "Select the lot/block to modify or enter new lot/block"},
        {"cmbType", "Exit Add Del", "Select Category to Display Tasks"},
        {"jgTasks", "Exit Del Task Group", "Enter new tasks, Press Task to include tasks"},
    };
    for (const auto& [control, buttons, hint] : cases) {
        driver->focus(control);
        EXPECT_EQ(enabled(), buttons) << control;
        EXPECT_EQ(form().statusText(), hint) << control;
    }
    clickCell("jgJobLots", 3, 3);
    EXPECT_EQ(enabled(), "Exit") << "a new lot";
    EXPECT_EQ(form().statusText(), "Enter the lot / block");
}

TEST_F(JobScreen, ARetypedNumberIsAskedAboutEachTimeThatItIsLeft) {
    openJob();
    driver->retype("MskField(0)", "J-7");
    for (const Answer answer : {Answer::No, Answer::No, Answer::Yes}) {
        script.expect(answer);
        driver->focus("MskField(1)");
        EXPECT_EQ(field(0).text(), answer == Answer::Yes ? "J-1" : "J-7");
        driver->focus("MskField(0)");
    }
    EXPECT_EQ(script.shown().back().text, "Job Number Modified.\nCancel Modification?");
    EXPECT_EQ(script.shown().back().title, "Entry Verification");
    driver->focus("MskField(1)");
    EXPECT_EQ(script.shown().size(), 3U);
    EXPECT_EQ(stored("JobNumber"), "J-1");
}

TEST_F(JobScreen, TheHeaderIsWrittenAtExitAndAnEmptyDateIsNull) {
    openJob();
    driver->focus("rebCompletedDate");
    driver->type("03/05/24");
    EXPECT_TRUE(form().statusText().startsWith("Completed: price changes no longer reach the job"));
    driver->focus("cmbForeman");
    driver->type("Nobody/Known");
    driver->clickToolbar("Exit");
    EXPECT_EQ(data.count("Job WHERE CompletedDate=#03/05/24# AND Foreman='Nobody/Known'"), 1);

    driver.reset();
    open();
    find("optSearch(2)"); // closed jobs
    EXPECT_EQ(driver->find<Combo>("cmbForeman").Text(), "Nobody/Known");
    auto& date = driver->find<DateBox>("rebCompletedDate");
    EXPECT_EQ(date.text(), "03/05/24");
    driver->retype("rebCompletedDate", "");
    EXPECT_TRUE(form().statusText().startsWith("Open: "));
    driver->clickToolbar("Exit");
    EXPECT_EQ(data.count("Job WHERE ISNULL(CompletedDate)=-1"), 1);
    driver.reset();
}

TEST_F(JobScreen, AWrongDateIsRefusedAndKeepsTheScreenOpen) {
    openJob();
    driver->focus("rebCompletedDate");
    driver->type("soon");
    EXPECT_EQ(form().statusText(), "Enter completed date of job") << "it completes nothing";
    script.expect(Answer::Ok);
    form().close();
    EXPECT_TRUE(form().isVisible());
    EXPECT_EQ(driver->find<DateBox>("rebCompletedDate").text(), "soon");
    driver->retype("rebCompletedDate", "3/5/24");
}

TEST_F(JobScreen, TheLastToLeaveAJobWins) {
    openJob();
    data.db.secondWorkstation()->Execute("UPDATE Job SET Name='Other', Foreman='Them'");
    driver->clickToolbar("Exit");
    EXPECT_EQ(stored("Name"), "Elm");
    EXPECT_EQ(stored("Foreman"), "");
    driver.reset();
}

TEST_F(JobScreen, AJobThatSomebodyElseDeletedLeavesTheScreenAfterOneMessage) {
    const std::function<void()> ways[] = {
        [this] { driver->clickToolbar("Exit"); },
        [this] { driver->clickToolbar("Add"); },
        [this] { find("optSearch(0)"); },
        [] { form().close(); },
    };
    for (const auto& leave : ways) {
        openJob();
        data.db.secondWorkstation()->Execute("DELETE FROM Job");
        data.addJob("J-1", "Another");
        script.expect(Answer::Ok);
        leave();
        EXPECT_EQ(form().JobKey, 0);
        EXPECT_EQ(field(0).text() + field(1).text() + field(2).text(), "");
        EXPECT_EQ(lots().RowCount() + tasks().RowCount(), 0);
        EXPECT_EQ(driver->focusedName(), "MskField(0)");
        driver->clickToolbar("Exit");
        EXPECT_FALSE(form().isLoaded());
        driver.reset();
    }
}

TEST_F(JobScreen, TwoJobsOfOneNumberAreDistinguished) {
    const qint64 twin = data.addJob("J-1", "Twin");
    open();
    for (const qint64 key : {twin, data.job, twin}) {
        whenShown([&](const ScreenDriver& search) {
            search.click("optSearch(0)");
            search.focus("MskField(0)");
            search.type("J-1");
            search.clickLine("lstItems", key == twin ? 1 : 0);
            search.press(Qt::Key_Return);
        });
        driver->clickToolbar("Find");
        EXPECT_EQ(form().JobKey, key);
        EXPECT_EQ(field(1).text(), key == twin ? "Twin" : "Elm");
        EXPECT_EQ(lots().RowCount(), key == twin ? 0 : 2);
    }
    clickCell("jgJobLots", 1, 3);
    driver->type("T-1");
    driver->clickToolbar("Exit");
    EXPECT_EQ(data.count("JobLot WHERE LotBlock='T-1' AND JobKey=" + QString::number(twin)), 1);
    driver.reset();
}

TEST_F(JobScreen, FindWritesTheJobFirstAndOneThatCannotBeReadIsNotKept) {
    data.addJob("J-2", "Oak");
    openJob();
    driver->retype("MskField(1)", "Fir");
    script.expect(Answer::Ok);
    whenShown([this](const ScreenDriver& search) {
        search.click("optSearch(0)");
        search.focus("MskField(0)");
        search.type("J-2");
        data.db.secondWorkstation()->Execute("DELETE FROM Job WHERE JobNumber='J-2'");
        search.press(Qt::Key_Return);
    });
    driver->clickToolbar("Find");
    EXPECT_EQ(stored("Name"), "Fir");
    EXPECT_EQ(form().JobKey, 0);
    EXPECT_EQ(lots().RowCount(), 0) << "no lots of the job before";
    driver->clickToolbar("Exit");
    EXPECT_EQ(stored("JobNumber"), "J-1") << "the empty fields were written over nothing";
    driver.reset();
}

TEST_F(JobScreen, AJobOfTheMainWindowIsShownAsAFoundOneIsAndRemembered) {
    const RememberedSettings settings;
    const qint64 oak = data.addJob("J-2", "Oak");
    openJob();
    driver->retype("MskField(0)", "J-9");
    form().ShowJob(oak);
    EXPECT_EQ(field(0).text(), "J-2");
    EXPECT_EQ(stored("JobNumber"), "J-9") << "the one before was saved, unasked";
    EXPECT_EQ(rememberedJobs(), (std::vector<qint64>{oak, data.job}));
    script.expect(Answer::Ok);
    form().ShowJob(999);
    EXPECT_EQ(form().JobKey, 0);
    EXPECT_EQ(rememberedJobs().front(), oak);
}

TEST_F(JobScreen, DelMeansWhatIsActive) {
    data.addTask("Walls", data.lot);
    openJob();
    driver->focus("cmbForeman");
    driver->clickToolbar("Del");
    EXPECT_TRUE(script.shown().empty());
    const std::pair<const char*, const char*> questions[] = {
        {"MskField(0)", "Delete Current Job?"},
        {"jgTasks", "Delete the Walls Task?"},
        {"jgJobLots", "Delete the Aspen Lot/Block?"},
    };
    for (const auto& [control, question] : questions) {
        driver->focus(control);
        del(Answer::No);
        EXPECT_EQ(script.shown().back().text, question);
        EXPECT_EQ(script.shown().back().title, "Confirm Delete");
        EXPECT_EQ(script.shown().back().defaultButton, 1);
    }
    driver->focus("MskField(0)");
    del();
    EXPECT_EQ(data.count("Job") + data.count("JobLot") + data.count("JobLotTask"), 0);
    EXPECT_EQ(lots().RowCount() + tasks().RowCount(), 0);
    EXPECT_EQ(field(0).text() + field(1).text() + field(2).text(), "");
    EXPECT_EQ(driver->focusedName(), "MskField(0)");
    EXPECT_EQ(enabled(), "Exit Add Find");
}

TEST_F(JobScreen, WhatWasPaidIsNotDeletedAndTheScreenShowsIt) {
    bool hourGlass = false;
    setMousePointerPresenter([&](bool on) { hourGlass = on; });
    data.addTask("Beams", data.lot);
    const qint64 task = data.addTask("Walls", data.lot);
    const qint64 worker = data.db.add("Employee", {{"LastName", "Archer"}, {"Inactive", false}});
    data.db.add("JobTaskEmployee", {{"JobLotTaskKey", task}, {"EmployeeKey", worker}, {"Price", 1.0}});
    openJob();
    for (const char* control : {"MskField(0)", "jgJobLots", "jgTasks"}) {
        tasks().setRow(2);
        driver->focus(control);
        script.expect(Answer::Yes, Answer::Ok); // the refusal
        driver->clickToolbar("Del");
        EXPECT_EQ(script.shown().back().title, "Error") << control;
        EXPECT_EQ(lots().RowCount(), 2);
        EXPECT_EQ(tasks().RowCount(), 2);
        EXPECT_EQ(form().JobKey, data.job);
    }
    EXPECT_EQ(tasks().Row(), 2) << "another Del would mean the same task";
    EXPECT_TRUE(hourGlass);
    tasks().setRow(1);
    del();
    EXPECT_FALSE(hourGlass);
    setMousePointerPresenter(nullptr);
}

TEST_F(JobScreen, CopyAsksEverywhereAndCopiesWhereTheLotIsActive) {
    data.addOption("Walls Bay", data.addTask("Walls", data.lot));
    openJob();
    driver->focus("MskField(1)");
    script.expect(Answer::Yes);
    driver->clickToolbar("Copy");
    EXPECT_EQ(script.shown().back().text, "Copy the Aspen Lot/Block?");
    EXPECT_EQ(script.shown().back().title, "Confirm Copy");
    EXPECT_EQ(data.count("JobLot"), 2);
    driver->focus("jgJobLots");
    script.expect(Answer::Yes);
    driver->clickToolbar("Copy");
    const Value copy = lots().value("JobLotKey");
    EXPECT_EQ(copy, data.db.ask("SELECT MAX(JobLotKey) FROM JobLot"));
    EXPECT_EQ(lots().Row(), 2) << "it stands on the copy";
    EXPECT_EQ(data.tree(copy.toLong()), data.tree(data.lot));
    EXPECT_EQ(tasks().RowCount(), 2);
    EXPECT_EQ(enabled(), "Exit Del Copy");
}

TEST_F(JobScreen, ThePulldownFillsTheLotThatItStartedFromAndMakesNoOther) {
    openJob();
    clickCell("jgJobLots", 2, 4);
    const auto pullDown = [this](std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        driver->press(Qt::Key_F4);
        EXPECT_TRUE(waitFor([] { return form().isActiveWindow(); }));
    };
    pullDown([](const ScreenDriver& plans) { plans.clickToolbar("Exit"); });
    EXPECT_EQ(data.count("JobLotTask"), 0);
    const auto fill = [](const ScreenDriver& plans) {
        plans.clickLine("lstPlans", 0);
        plans.clickLine("lstTasks", 1);
        plans.clickToolbar("Add");
    };
    pullDown(fill);
    EXPECT_EQ(data.tree(lotB), std::vector<QString>{"Walls"});
    EXPECT_EQ(lots().value("JobLotKey"), Value(lotB)) << "not the first lot";
    EXPECT_EQ(tasks().RowCount(), 1);
    EXPECT_EQ(enabled(), "Exit Del Copy");

    driver->press(Qt::Key_Down);
    driver->type("Aspen"); // a new lot, typed in the very cell of the button
    pullDown(fill);
    EXPECT_EQ(data.count("JobLot"), 3) << "the typed row is the lot that is filled";
    EXPECT_EQ(data.tree(lots().value("JobLotKey").toLong()), std::vector<QString>{"Walls"});
    driver->focus("jgTasks");
    EXPECT_EQ(driver->focusedName(), "jgTasks");
}

TEST_F(JobScreen, WhatOthersWriteIsShownAndMovesNothing) {
    const qint64 beams = data.addTask("Beams", lotB);
    data.addTask("Walls", lotB);
    openJob();
    clickCell("jgJobLots", 2, 5);
    clickCell("jgTasks", 2, 8);
    const auto others = data.db.secondWorkstation();
    ChangeWatch watch;
    watch.look();
    others->Execute("INSERT INTO JobLot (JobKey, LotBlock) VALUES (1, '0')");
    others->Execute("UPDATE JobLot SET Address='5 Elm' WHERE LotBlock='B'");
    others->Execute("DELETE FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(beams));
    watch.look();
    EXPECT_EQ(cell(lots(), 1, 3) + ' ' + cell(lots(), 3, 5), "0 5 Elm");
    EXPECT_EQ(std::pair(lots().value("JobLotKey"), lots().Col()), std::pair(Value(lotB), 5));
    EXPECT_EQ(std::pair(tasks().RowCount(), tasks().value("Name")), std::pair(1, Value("Walls")));
    EXPECT_EQ(driver->focusedName(), "jgTasks");

    driver->type("Roof");
    others->Execute("UPDATE JobLotTask SET MasterPrice=77");
    watch.look();
    EXPECT_TRUE(tasks().isPending()) << "what is typed stays";
    driver->press(Qt::Key_Escape, {}, 2);
    watch.look();
    EXPECT_EQ(tasks().value("MasterPrice"), Value(77.0)) << "and is asked again";

    others->Execute("DELETE FROM JobLot WHERE JobLotKey=" + QString::number(lotB));
    watch.look();
    EXPECT_EQ(lots().value("JobLotKey"), Value(lotB)) << "the current row never vanishes under the user";
}

TEST_F(JobScreen, PickedTasksAndAGroupFillTheCurrentLot) {
    const qint64 group =
        data.db.add("Code", {{"Code1", 5}, {"Code2", data.builder}, {"Description", "Deck"}});
    data.db.add("ContractorOptionGroup", {{"ContractorKey", data.builder},
                                          {"CodeKey", group},
                                          {"MasterTaskKey", data.walls},
                                          {"MasterPrice", 7.0}});
    openJob();
    clickCell("jgJobLots", 2, 3);
    driver->focus("jgTasks");
    whenShown([](const ScreenDriver& picking) {
        picking.clickLine("lstTasks", 3); // the first heading is Drywall's, the second Framing's
        picking.clickToolbar("Add");
    });
    driver->clickToolbar("Task");
    EXPECT_EQ(cell(tasks(), 1, 8), "Beams");
    whenShown([](const ScreenDriver& picking) { picking.clickToolbar("Exit"); });
    clickCell("jgTasks", 1, 4);
    EXPECT_EQ(tasks().RowCount(), 1);
    whenShown([](const ScreenDriver& groups) { groups.click("cmdSelect"); });
    driver->clickToolbar("Group");
    EXPECT_EQ(data.tree(lotB), (std::vector<QString>{"Beams", "+Walls", "Walls Deck < Walls"}));
    EXPECT_EQ(tasks().RowCount(), 3);
}
