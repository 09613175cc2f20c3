#include "MasterScreenFixture.h"
#include "master/frmMasterTasks.h"

#include <QCheckBox>

namespace tarnwell::test {

namespace {

enum Column { CodeKey = 1, Name, Price, Custom, Exclude, MasterTaskKey, Deleted };

struct MasterTasksTest : MasterScreenTest<frmMasterTasks> {
    qint64 unpaid = data.addLotTask(data.openLot, data.walls);

    MasterTasksTest() {
        data.addTask("Beams", 40, data.framing);
        data.addTask("Pipes", 30, data.plumbing);
    }
    Grid& tasks() { return grid("jgMasterTasks"); }
    Grid& dependencies() { return grid("jgDependency"); }
    QString status() { return form().statusText(); }
    void carryPrice() {
        driver->find<Combo>("cmbCascade").setListIndex(3);
        driver->click("chkUpdatePrice");
    }
    double lotPrice() {
        return ask("SELECT MasterPrice FROM JobLotTask WHERE JobLotTaskKey=" + QString::number(unpaid))
            .toDouble();
    }
    Value master(const QString& column, const char* name) {
        return ask(QStringLiteral("SELECT %1 FROM MasterTask WHERE Name='%2'").arg(column, name));
    }
    /// A price typed over that of "Walls", not yet committed.
    void typePrice(const char* price) {
        driver->focus("jgMasterTasks");
        tasks().setRow(2);
        tasks().setCol(Price);
        driver->type(price);
    }
};

TEST_F(MasterTasksTest, OpensOnTheFirstCategoryAndLetsItBeTyped) {
    open();
    EXPECT_EQ(tasks().RowCount(), 2);
    EXPECT_EQ(tasks().value(Name), Value("Beams"));
    EXPECT_EQ(combo("cmbCascade").Text(), "No Update");
    driver->type("pl");
    EXPECT_EQ(category().Text(), "Plumbing");
    EXPECT_EQ(tasks().value(Name), Value("Pipes"));
    EXPECT_EQ(tasks().RowCount(), 1);
}

TEST_F(MasterTasksTest, WithoutACategoryOnlyExitIsLeft) {
    data.db.run("UPDATE Code SET Deleted=-1 WHERE Code1=2");
    open();
    EXPECT_FALSE(tasks().isEnabled());
    driver->focus("jgDependency");
    EXPECT_EQ(driver->enabledButtons(), "Exit");
    driver->clickToolbar("Exit");
}

TEST_F(MasterTasksTest, ButtonsAndHintsFollowTheActiveControl) {
    open();
    const struct {
        const char* control;
        const char* buttons;
        const char* hint;
    } cases[] = {{"cmbCascade", "Exit", "Update which tasks related to master task?"},
                 {"jgMasterTasks", "Exit Del", "Update which tasks related to master task?"},
                 {"chkUpdateExclude", "Exit Del", "Check to update exlcude dependency field"},
                 {"jgDependency", "Exit Add Del L", "Press function to add or remove dependent categories"},
                 {"cmbType", "Exit", "Select category to update"}};
    for (const auto& each : cases) {
        driver->focus(each.control);
        EXPECT_EQ(driver->enabledButtons(), each.buttons) << each.control;
        EXPECT_EQ(status(), each.hint) << each.control;
    }
}

TEST_F(MasterTasksTest, EnterWalksAlongTheRowAndBackToItsStart) {
    open();
    driver->focus("jgMasterTasks");
    tasks().setCol(Name);
    driver->type("Rafters");
    QStringList way;
    for (int i = 0; i < 4; ++i) {
        driver->press(Qt::Key_Return);
        way << QString::number(tasks().Col()) + " " + status();
    }
    EXPECT_EQ(way, QStringList({"3 Enter the Master Price for this task", "4 Is this a custom task?",
                                "5 Exclude dependency check for this task?",
                                "2 Enter the name of the Master Task"}));
    EXPECT_EQ(tasks().Row(), 1);
    EXPECT_TRUE(tasks().isPending());
}

struct Leaving {
    const char* name;
    std::function<void(MasterTasksTest&)> leave;
};

struct LeavingTest : MasterTasksTest, ::testing::WithParamInterface<Leaving> {};

TEST_P(LeavingTest, CarriesTheCommittedRowsOwnPrice) {
    SCOPED_TRACE(GetParam().name);
    open();
    carryPrice();
    typePrice("12.5");
    EXPECT_EQ(lotPrice(), 7);
    GetParam().leave(*this);
    EXPECT_EQ(lotPrice(), 12.5);
    EXPECT_EQ(master("MasterPrice", "Walls"), Value(12.5));
    EXPECT_EQ(master("MasterPrice", "Beams"), Value(40.0));
}

const Leaving waysToLeave[] = {
    {"Arrow", [](MasterTasksTest& on) { on.driver->press(Qt::Key_Up); }},
    {"Tab", [](MasterTasksTest& on) { on.driver->press(Qt::Key_Tab, Qt::NoModifier, 3); }},
    {"OtherRow", [](MasterTasksTest& on) { on.clickCell("jgMasterTasks", 2, Name); }},
    {"OtherCategory", [](MasterTasksTest& on) { on.driver->choose("cmbType", "Plumbing"); }},
    {"Exit", [](MasterTasksTest& on) { on.driver->clickToolbar("Exit"); }},
    {"Close", [](MasterTasksTest& on) { on.form().close(); }}};

INSTANTIATE_TEST_SUITE_P(Ways, LeavingTest, ::testing::ValuesIn(waysToLeave));

TEST_F(MasterTasksTest, ANewRowOnTheFirstLineJoinsItsCategoryAndCarriesNothing) {
    data.db.run("UPDATE JobLotTask SET MasterTaskKey=0");
    open();
    carryPrice();
    clickCell("jgMasterTasks", 1, Name);
    driver->type("Soffits");
    driver->press(Qt::Key_Return);
    driver->type("9");
    driver->choose("cmbType", "Plumbing");
    EXPECT_EQ(master("CodeKey", "Soffits"), Value(data.framing));
    EXPECT_EQ(master("ExcludeDependency", "Soffits"), Value(false));
    EXPECT_EQ(lotPrice(), 7);
    EXPECT_EQ(tasks().RowCount(), 1);
}

TEST_F(MasterTasksTest, BehindAnotherCategoryATypedTaskBeginsWithItsName) {
    const qint64 roofing = data.addCategory("Roofing");
    open();
    driver->focus("jgMasterTasks");
    tasks().setCol(Exclude);
    driver->choose("cmbType", "Roofing");
    driver->focus("jgMasterTasks");
    driver->type("Ridge 75");
    driver->press(Qt::Key_Return);
    driver->type("75");
    driver->clickToolbar("Exit");
    EXPECT_EQ(master("CodeKey", "Ridge 75"), Value(roofing));
    EXPECT_EQ(master("MasterPrice", "Ridge 75"), Value(75.0));
    EXPECT_EQ(master("ExcludeDependency", "Ridge 75"), Value(false));
}

TEST_F(MasterTasksTest, WhatIsDiscardedOrRefusedIsNeitherStoredNorCarried) {
    open();
    carryPrice();
    typePrice("55");
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    driver->press(Qt::Key_Up);
    typePrice("x");
    script.expect(Answer::Ok);
    driver->press(Qt::Key_Up);
    EXPECT_EQ(script.shown().size(), 1U);
    EXPECT_EQ(tasks().Row(), 2);
    script.expect(Answer::Ok);
    driver->click("cmbType");
    EXPECT_TRUE(waitFor([&] { return driver->focusedName() == "jgMasterTasks"; }));
    EXPECT_EQ(script.shown().size(), 2U);
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_EQ(master("MasterPrice", "Walls"), Value(100.0));
    EXPECT_EQ(lotPrice(), 7);
}

TEST_F(MasterTasksTest, DelAsksMarksTheTaskAndCarriesItOnceMore) {
    open();
    carryPrice();
    driver->focus("jgMasterTasks");
    tasks().setRow(2);
    driver->press(Qt::Key_Delete);
    driver->press(Qt::Key_Escape);
    script.expect(Answer::No);
    driver->clickToolbar("Del");
    EXPECT_EQ(master("Deleted", "Walls"), Value(false));
    script.expect(Answer::Yes);
    driver->press(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(script.shown().back().text, "Delete the Walls task?");
    EXPECT_EQ(master("Deleted", "Walls"), Value(true));
    EXPECT_EQ(lotPrice(), 100);
    EXPECT_EQ(tasks().RowCount(), 1);
    driver->press(Qt::Key_Insert);
    driver->clickToolbar("Del");
    EXPECT_EQ(script.shown().size(), 2U);
}

TEST_F(MasterTasksTest, ADelThatIsNotConfirmedCarriesNoPendingPrice) {
    open();
    carryPrice();
    typePrice("12.5");
    script.expect(Answer::No);
    driver->clickToolbar("Del");
    EXPECT_EQ(lotPrice(), 7);
    EXPECT_EQ(master("MasterPrice", "Walls"), Value(100.0));
    script.expect(Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_EQ(lotPrice(), 12.5);
    EXPECT_EQ(master("Deleted", "Walls"), Value(true));
    tasks().setRow(1);
    driver->type("x");
    script.expect(Answer::Yes, Answer::Ok);
    driver->clickToolbar("Del");
    EXPECT_EQ(master("Deleted", "Beams"), Value(false))
        << "what can't be written is reported and corrected first";
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
}

TEST_F(MasterTasksTest, ARowThatAnotherWorkstationDeletedKeepsItsCategory) {
    open();
    carryPrice();
    typePrice("12");
    data.db.secondWorkstation()->Execute("DELETE FROM MasterTask WHERE Name='Walls'");
    script.expect(Answer::Ok);
    driver->click("cmbType");
    script.expect(Answer::Ok);
    driver->choose("cmbType", "Plumbing");
    EXPECT_EQ(category().Text(), "Framing");
    EXPECT_EQ(driver->focusedName(), "jgMasterTasks");
    EXPECT_EQ(lotPrice(), 7);
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(tasks().RowCount(), 1);
}

TEST_F(MasterTasksTest, AnEmptyPriceThatIsToBeCarriedStopsTheProgram) {
    EXPECT_EXIT(
        {
            setMessagePresenter({}); // the message goes to standard error
            open();
            driver->find<Combo>("cmbCascade").setListIndex(1);
            driver->find<QCheckBox>("chkUpdatePrice").setChecked(true);
            typePrice("1");
            driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
            driver->press(Qt::Key_Delete);
            driver->press(Qt::Key_Up);
        },
        ::testing::ExitedWithCode(1), "-2147217900");
}

TEST_F(MasterTasksTest, AddingADependencyWhereThereIsNoOtherCategoryStopsTheProgram) {
    data.db.run("UPDATE Code SET Deleted=-1 WHERE Description='Plumbing'");
    EXPECT_EXIT(
        {
            setMessagePresenter({});
            open();
            driver->focus("jgDependency");
            whenModal([](QWidget& dialog) { ScreenDriver(dialog).press(Qt::Key_Return); });
            driver->clickToolbar("Add");
        },
        ::testing::ExitedWithCode(1), "381");
}

TEST_F(MasterTasksTest, DependenciesAreAddedByTypingAndRemovedWhenAsked) {
    data.addCategory("Roofing");
    open();
    driver->focus("jgDependency");
    whenShown([](const ScreenDriver& add) {
        EXPECT_EQ(add.window().windowTitle(), "Add Category Dependency");
        EXPECT_EQ(add.find<Combo>("cmbType").ListCount(), 2);
        add.type("r");
        add.press(Qt::Key_Return);
    });
    driver->press(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(dependencies().value("Description"), Value("Roofing"));
    whenModal([](QWidget& dialog) { ScreenDriver(dialog).press(Qt::Key_Escape); });
    driver->clickToolbar("Add");
    EXPECT_EQ(dependencies().RowCount(), 1);
    script.expect(Answer::No);
    driver->clickToolbar("Del L");
    EXPECT_EQ(dependencies().RowCount(), 1);
    script.expect(Answer::Yes);
    driver->press(Qt::Key_L, Qt::ControlModifier);
    EXPECT_EQ(dependencies().RowCount(), 0);
    EXPECT_EQ(script.shown().back().text, "Delete dependency?");
    driver->clickToolbar("Del L");
    EXPECT_EQ(script.shown().size(), 2U);
}

} // namespace

} // namespace tarnwell::test
