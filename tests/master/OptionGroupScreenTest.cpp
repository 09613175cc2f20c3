#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "master/frmAddOptionGroup.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class OptionGroupScreen : public ScreenTest {
protected:
    void SetUp() override {
        caller.show();
        workOn(db);
    }

    qint64 addGroup(const char* name, qint64 builder) {
        return db.add("Code", {{"Code1", 5}, {"Code2", builder}, {"Description", name}});
    }
    void addTask(const char* name, qint64 group, bool deleted = false) {
        const qint64 master = db.add("MasterTask", {{"Name", name}, {"Deleted", deleted}});
        db.add(
            "ContractorOptionGroup",
            {{"ContractorKey", abel}, {"CodeKey", group}, {"MasterTaskKey", master}, {"MasterPrice", 5.0}});
    }
    void open(qint64 builder, std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        theForm<frmAddOptionGroup>().openFor(
            {builder, "Abel"},
            [this](frmAddOptionGroup& screen) { addTask("Porch", screen.selectedGroup()); }, &caller);
    }
    static QString enabled(const ScreenDriver& screen) { return screen.enabledButtons(); }
    qint64 count(const QString& from) { return db.ask("SELECT COUNT(*) FROM " + from).toLong(); }

    QWidget caller;
    TemporaryDatabase db;
    MessageScript script;
    qint64 abel = db.add("Contractor", {{"Name", "Abel"}});
};

} // namespace

TEST_F(OptionGroupScreen, ABuilderWithoutGroupsCanOnlyAdd) {
    addTask("Elsewhere", addGroup("Other", abel + 1));
    open(abel, [](const ScreenDriver& screen) {
        EXPECT_EQ(screen.focusedName(), "lstGroups");
        EXPECT_EQ(enabled(screen), "Exit Add");
        EXPECT_EQ(screen.find<Grid>("jgGroupOptions").RowCount(), 0);
        screen.focus("jgGroupOptions");
        EXPECT_EQ(enabled(screen), "Exit");
        screen.clickToolbar("Exit");
    });
}

TEST_F(OptionGroupScreen, AnEditStaysWithItsGroupAndDelFollowsTheFocus) {
    const qint64 deck = addGroup("Deck", abel), patio = addGroup("Patio", abel);
    addTask("Rail", deck);
    addTask("Gone", deck, true);
    addTask("Slab", patio);
    open(abel, [&](const ScreenDriver& screen) {
        auto& grid = screen.find<Grid>("jgGroupOptions");
        EXPECT_EQ(enabled(screen), "Exit Add Del Info");
        EXPECT_EQ(grid.RowCount(), 1) << "a deleted master task is out of sight";
        screen.click("jgGroupOptions", {grid.columnViewportPosition(5) + 20, 10});
        EXPECT_EQ(enabled(screen), "Exit Del Task");
        screen.type("7.5");
        screen.clickLine("lstGroups", 1);
        EXPECT_EQ(count("ContractorOptionGroup WHERE MasterPrice=7.5 AND CodeKey=" + QString::number(deck)),
                  1);
        EXPECT_EQ(grid.value("Name"), Value("Slab"));
        screen.focus("jgGroupOptions");
        script.expect(Answer::Yes);
        screen.clickToolbar("Del");
        EXPECT_EQ(script.shown().back().text, "Delete Current Task?");
        EXPECT_EQ(enabled(screen), "Exit Task");
        screen.clickToolbar("Task");
        EXPECT_EQ(enabled(screen), "Exit Del Task");
        script.expect(Answer::Yes);
        screen.clickToolbar("Del");
        screen.clickLine("lstGroups", 0);
        script.expect(Answer::No, Answer::Yes);
        screen.clickToolbar("Del");
        screen.clickToolbar("Del");
        EXPECT_EQ(script.shown().back().text, "Delete Current Group?");
        EXPECT_EQ(screen.focusedName(), "jgGroupOptions");
        screen.clickToolbar("Exit");
    });
    EXPECT_EQ(count("ContractorOptionGroup"), 0);
    EXPECT_EQ(count("Code WHERE Code1=5"), 1);
}

TEST_F(OptionGroupScreen, ARefusedPriceKeepsItsGroupAndTheScreen) {
    const qint64 deck = addGroup("Deck", abel), patio = addGroup("Patio", abel);
    addTask("Rail", deck);
    addTask("Slab", patio);
    open(abel, [&](const ScreenDriver& screen) {
        auto& grid = screen.find<Grid>("jgGroupOptions");
        screen.click("jgGroupOptions", {grid.columnViewportPosition(5) + 20, 10});
        screen.type("7x");
        for (const auto& leave : std::initializer_list<std::function<void()>>{
                 [&] { screen.clickLine("lstGroups", 1); }, [&] { screen.clickToolbar("Exit"); },
                 [&] { screen.window().close(); }}) {
            script.expect(Answer::Ok);
            leave();
            EXPECT_TRUE(waitFor([&] { return screen.focusedName() == "jgGroupOptions"; }));
            EXPECT_EQ(screen.find<ListBox>("lstGroups").ListIndex(), 0);
            EXPECT_EQ(grid.value("Name"), Value("Rail"));
        }
        EXPECT_EQ(script.shown().size(), 3U);
        screen.type("7");
        screen.window().close();
    });
    EXPECT_EQ(count("ContractorOptionGroup WHERE MasterPrice=7 AND CodeKey=" + QString::number(deck)), 1);
    EXPECT_EQ(count("ContractorOptionGroup WHERE MasterPrice=5 AND CodeKey=" + QString::number(patio)), 1);
}

TEST_F(OptionGroupScreen, EscapeGivesAPriceUpAndSoDoesAnotherWorkstationsDelete) {
    const qint64 deck = addGroup("Deck", abel);
    addTask("Rail", deck);
    addTask("Stair", deck);
    open(abel, [&](const ScreenDriver& screen) {
        auto& grid = screen.find<Grid>("jgGroupOptions");
        screen.click("jgGroupOptions", {grid.columnViewportPosition(5) + 20, 10});
        screen.type("8");
        screen.press(Qt::Key_Escape, Qt::NoModifier, 2);
        screen.press(Qt::Key_Down);
        EXPECT_EQ(count("ContractorOptionGroup WHERE MasterPrice=5"), 2);
        screen.type("9");
        db.secondWorkstation()->Execute("DELETE FROM ContractorOptionGroup");
        script.expect(Answer::Ok);
        screen.press(Qt::Key_Up);
        EXPECT_EQ(grid.Row(), 2);
        screen.press(Qt::Key_Escape);
        EXPECT_EQ(grid.RowCount(), 0);
        screen.clickToolbar("Exit");
    });
}

TEST_F(OptionGroupScreen, EnterLeadsDownThePricesAndTicksNothing) {
    const qint64 deck = addGroup("Deck", abel);
    addTask("Rail", deck);
    addTask("Stair", deck);
    open(abel, [&](const ScreenDriver& screen) {
        auto& grid = screen.find<Grid>("jgGroupOptions");
        screen.click("jgGroupOptions", {grid.columnViewportPosition(5) + 20, 10});
        for (const char* price : {"7", "8"}) {
            screen.type(price);
            screen.press(Qt::Key_Return);
        }
        EXPECT_EQ(grid.Row(), 2);
        screen.clickToolbar("Exit");
    });
    EXPECT_EQ(count("ContractorOptionGroup WHERE MasterPrice=7"), 1);
    EXPECT_EQ(count("ContractorOptionGroup WHERE MasterPrice=8"), 1);
    EXPECT_EQ(count("ContractorOptionGroup WHERE ExcludeDependency<>0"), 0);
}

TEST_F(OptionGroupScreen, RenamingByEnterSelectsTheFirstGroup) {
    addGroup("Deck", abel);
    addGroup("Patio", abel);
    open(abel, [&](const ScreenDriver& screen) {
        screen.clickLine("lstGroups", 1);
        for (const bool accept : {false, true}) {
            whenShown([accept](const ScreenDriver& name) {
                EXPECT_EQ(name.window().windowTitle(), "Change Option Group");
                EXPECT_EQ(name.find<MaskedBox>("MskField(0)").text(), "Patio");
                name.find<MaskedBox>("MskField(0)").clear();
                name.type("Zen");
                name.press(accept ? Qt::Key_Return : Qt::Key_Escape);
            });
            EXPECT_TRUE(waitFor([&] { return screen.focusedName() == "lstGroups"; }));
            screen.press(Qt::Key_Return);
            EXPECT_EQ(count("Code WHERE Description='Zen'"), accept ? 1 : 0);
        }
        EXPECT_EQ(screen.find<ListBox>("lstGroups").ListIndex(), 0);
        screen.clickToolbar("Exit");
    });
}
