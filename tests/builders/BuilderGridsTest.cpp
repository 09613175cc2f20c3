#include "BuilderScreen.h"

#include <QLineEdit>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

enum Column { PlanName = 3, TaskName = 6, Price, Exclude };

/// The plan "Aspen" holds "Beams" and "Walls" in Framing; the plan "Birch" is empty.
struct BuilderGrids : BuilderScreen {
    void closeScreen() {
        form().close();
        driver.reset();
    }
    void openPlans() {
        data.addPlanTask("Beams", data.plan, data.beams, data.framing, 50.0);
        data.addPlan("Birch", data.builder);
        openBuilder();
    }
    /// A price typed over that of "Walls", the second task; the row is not left yet.
    void typePrice(const char* price) {
        clickCell("jgTasks", 2, Price);
        driver->type(price);
    }
    /// On the line behind the two plans.
    void typeNewPlan(const char* name) {
        clickCell("jgPlans", 3, PlanName);
        driver->type(name);
    }
    qint64 plansNamed(const char* name) {
        return data.count("ContractorPlan WHERE ContractorKey=" + QString::number(data.builder) +
                          " AND PlanName='" + name + '\'');
    }
    qint64 tasksAt(const char* name, const char* price) {
        return data.count(QString("ContractorPlanTask WHERE Name='%1' AND MasterPrice=%2").arg(name, price));
    }
    /// "Walls" costs 77 by now, and 99 is typed over what it was: what leaves the row is refused.
    void typeOverAnotherPrice() {
        openPlans();
        data.db.secondWorkstation()->Execute(
            "UPDATE ContractorPlanTask SET MasterPrice=77 WHERE Name='Walls'");
        typePrice("99");
    }
    void deleteElsewhere(const QString& from) { data.db.secondWorkstation()->Execute("DELETE FROM " + from); }
};

struct Leaving {
    const char* name;
    void (*leave)(BuilderGrids& on);
};

class PlanLeaving : public BuilderGrids, public ::testing::WithParamInterface<Leaving> {};
class TaskLeaving : public BuilderGrids, public ::testing::WithParamInterface<Leaving> {};

} // namespace

TEST_P(PlanLeaving, ANewPlanIsStoredForItsBuilderWithTasksOfItsOwn) {
    openPlans();
    typeNewPlan("Cedar");
    EXPECT_EQ(plansNamed("Cedar"), 0);
    GetParam().leave(*this);
    EXPECT_EQ(plansNamed("Cedar"), 1);
    EXPECT_EQ(data.count("ContractorPlan"), 3);
    if (!driver)
        return;
    clickCell("jgPlans", 3, PlanName);
    EXPECT_EQ(plans().value("PlanName"), Value("Cedar"));
    EXPECT_EQ(tasks().RowCount(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, PlanLeaving,
    ::testing::Values(Leaving{"Tab", [](BuilderGrids& on) { on.driver->press(Qt::Key_Tab); }},
                      Leaving{"BackTab",
                              [](BuilderGrids& on) { on.driver->press(Qt::Key_Backtab, Qt::ShiftModifier); }},
                      Leaving{"OtherRow", [](BuilderGrids& on) { on.clickCell("jgPlans", 1, PlanName); }},
                      Leaving{"Tasks", [](BuilderGrids& on) { on.clickCell("jgTasks", 1, TaskName); }},
                      Leaving{"Arrow", [](BuilderGrids& on) { on.driver->press(Qt::Key_Up); }},
                      Leaving{"Field", [](BuilderGrids& on) { on.driver->click("MskField(2)"); }},
                      Leaving{"Close", [](BuilderGrids& on) { on.closeScreen(); }}),
    [](const auto& way) { return way.param.name; });

TEST_P(TaskLeaving, APriceIsStoredInItsOwnRowAlone) {
    openPlans();
    typePrice("99.5");
    EXPECT_EQ(tasksAt("Walls", "99.5"), 0);
    GetParam().leave(*this);
    EXPECT_EQ(tasksAt("Walls", "99.5"), 1);
    EXPECT_EQ(tasksAt("Beams", "50"), 1);
    EXPECT_EQ(data.count("ContractorPlanTask"), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Ways, TaskLeaving,
    ::testing::Values(
        Leaving{"Tab", [](BuilderGrids& on) { on.driver->press(Qt::Key_Tab, Qt::NoModifier, 2); }},
        Leaving{"OtherRow", [](BuilderGrids& on) { on.clickCell("jgTasks", 1, TaskName); }},
        Leaving{"OtherPlan", [](BuilderGrids& on) { on.clickCell("jgPlans", 2, PlanName); }},
        Leaving{"OtherCategory", [](BuilderGrids& on) { on.driver->choose("cmbType", "Drywall"); }},
        Leaving{"Arrow", [](BuilderGrids& on) { on.driver->press(Qt::Key_Up); }},
        Leaving{"Close", [](BuilderGrids& on) { on.closeScreen(); }}),
    [](const auto& way) { return way.param.name; });

TEST_F(BuilderGrids, InAnotherPlanOrCategoryATypedTaskBeginsWithItsName) {
    const std::function<void()> ways[] = {[this] { driver->choose("cmbType", "Drywall"); },
                                          [this] { clickCell("jgPlans", 2, PlanName); }};
    for (const auto& leave : ways) {
        openPlans();
        driver->focus("jgTasks");
        tasks().setCol(Exclude);
        leave();
        driver->focus("jgTasks");
        driver->type("75");
        closeScreen();
        EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='75' AND ExcludeDependency=0"), 1);
        data.db.run("DELETE FROM ContractorPlanTask");
        data.db.run("DELETE FROM ContractorPlan WHERE PlanName='Birch'");
    }
}

TEST_F(BuilderGrids, EscapeGivesUpAPendingPlanAndLeavesTheOthers) {
    openPlans();
    typeNewPlan("Ced");
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_FALSE(plans().isPending());
    EXPECT_EQ(plans().RowCount(), 2);
    clickCell("jgPlans", 1, PlanName);
    driver->type("Alder");
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    EXPECT_EQ(plans().value("PlanName"), Value("Aspen"));
    EXPECT_EQ(tasks().RowCount(), 2);
    driver->press(Qt::Key_Tab);
    closeScreen();
    EXPECT_EQ(plansNamed("Aspen"), 1);
    EXPECT_EQ(data.count("ContractorPlan"), 2);
}

TEST_F(BuilderGrids, ARefusedPriceIsKeptToBeCorrected) {
    openPlans();
    typePrice("12x");
    const struct {
        int messages;
        std::function<void()> leave;
    } ways[] = {
        {1, [&] { driver->press(Qt::Key_Up); }},
        {1, [&] { clickCell("jgTasks", 1, TaskName); }},
        {1, [&] { clickCell("jgPlans", 2, PlanName); }},
        // One when the list opens, one for the choice.
        {2, [&] { driver->choose("cmbType", "Drywall"); }},
        {1, [&] { driver->clickToolbar("Exit"); }},
        {1, [&] { form().close(); }},
    };
    std::size_t shown = 0;
    for (const auto& [messages, leave] : ways) {
        for (int i = 0; i < messages; ++i)
            script.expect(Answer::Ok);
        leave();
        EXPECT_TRUE(waitFor([&] { return driver->focusedName() == "jgTasks"; }));
        EXPECT_EQ(script.shown().size(), shown += static_cast<std::size_t>(messages));
        EXPECT_EQ(tasks().Row(), 2);
        EXPECT_EQ(tasks().RowCount(), 2);
    }
    driver->type("12");
    driver->press(Qt::Key_Up);
    EXPECT_EQ(tasksAt("Walls", "12"), 1);
    EXPECT_EQ(tasksAt("Beams", "50"), 1);
    EXPECT_EQ(tasks().RowCount(), 0) << "what was chosen meanwhile is shown";
}

TEST_F(BuilderGrids, ARefusedPriceStaysWithItsBuilderAndPlan) {
    typeOverAnotherPrice();
    data.db.add("Contractor", {{"Name", "Zed"}});
    const std::function<void()> ways[] = {
        [&] { driver->clickToolbar("Add"); },
        [&] {
            find([](const ScreenDriver& search) {
                search.type("Zed");
                search.press(Qt::Key_Return);
            });
        },
        [&] { clickCell("jgPlans", 2, PlanName); },
    };
    for (const auto& leave : ways) {
        driver->focus("MskField(3)"); // where Add and Find are enabled
        script.expect(Answer::Ok);
        leave();
        EXPECT_EQ(field(0).text(), "Abel Homes");
        EXPECT_TRUE(tasks().isPending());
        EXPECT_EQ(tasks().value("MasterPrice"), Value(99.0));
    }
    EXPECT_EQ(data.count("Contractor"), 2) << "none was added";
    driver->focus("jgTasks"); // without another message
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(tasks().RowCount(), 0) << "of the plan that was chosen meanwhile";
}

TEST_F(BuilderGrids, ATypedTaskBelongsToThePlanOnShowNotToTheOneClickedNext) {
    openPlans();
    clickCell("jgTasks", 3, TaskName);
    driver->type("Sweep");
    clickCell("jgPlans", 2, PlanName);
    EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='Sweep' AND ContractorPlanKey=" +
                         QString::number(data.plan)),
              1);
}

TEST_F(BuilderGrids, ATaskTypedAfterTheCategoryWasEmptiedBelongsToThePlanOnShow) {
    openPlans();
    driver->focus("cmbType");
    combo().lineEdit()->selectAll();
    driver->press(Qt::Key_Delete);
    clickCell("jgPlans", 2, PlanName);
    EXPECT_EQ(combo().Text(), "Framing");
    EXPECT_EQ(tasks().RowCount(), 0);
    clickCell("jgTasks", 1, TaskName);
    driver->type("Sweep");
    closeScreen();
    EXPECT_EQ(ask("SELECT PlanName FROM ContractorPlan INNER JOIN ContractorPlanTask ON "
                  "ContractorPlan.ContractorPlanKey=ContractorPlanTask.ContractorPlanKey WHERE Name='Sweep' "
                  "AND CodeKey=" +
                  QString::number(data.framing)),
              Value("Birch"));
}

TEST_F(BuilderGrids, ADeletedPlanOrBuilderLeavesNoPendingRow) {
    openPlans();
    typePrice("99");
    driver->focus("jgPlans");
    script.expect(Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_FALSE(tasks().isPending());
    EXPECT_EQ(plans().value("PlanName"), Value("Birch"));
    clickCell("jgPlans", 1, PlanName);
    driver->type("Alder");
    clickCell("jgTasks", 1, TaskName);
    driver->type("Sweep");
    driver->focus("MskField(1)");
    EXPECT_TRUE(plans().isPending() && tasks().isPending());
    script.expect(Answer::Yes);
    driver->clickToolbar("Del");
    EXPECT_FALSE(plans().isPending() || tasks().isPending());
    EXPECT_EQ(data.count("Contractor") + data.count("ContractorPlanTask"), 0);
}

TEST_F(BuilderGrids, ATaskThatSomebodyElseDeletedLeavesWithEscape) {
    openPlans();
    typePrice("99");
    deleteElsewhere("ContractorPlanTask WHERE Name='Walls'");
    script.expect(Answer::Ok);
    driver->press(Qt::Key_Up);
    EXPECT_EQ(tasks().Row(), 2);
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(tasks().RowCount(), 1);
    deleteElsewhere("ContractorPlanTask");
    script.expect(Answer::Yes, Answer::Ok);
    driver->clickToolbar("Del");
    EXPECT_EQ(script.shown().size(), 3U);
    EXPECT_EQ(tasks().RowCount(), 0);
}

TEST_F(BuilderGrids, RenamingAPlanThatSomebodyElseDeletedIsRefused) {
    openPlans();
    clickCell("jgPlans", 1, PlanName);
    driver->type("Alder");
    deleteElsewhere("ContractorPlan WHERE PlanName='Aspen'");
    script.expect(Answer::Ok);
    driver->press(Qt::Key_Down);
    driver->press(Qt::Key_Escape);
    EXPECT_EQ(plans().RowCount(), 1);
    EXPECT_EQ(plans().value("PlanName"), Value("Birch"));
    EXPECT_EQ(tasks().RowCount(), 0) << "no tasks of the deleted plan";
    EXPECT_EQ(data.count("ContractorPlan"), 1);
}

TEST_F(BuilderGrids, TasksAreTypedOneBehindTheOtherOnTheNewRowLine) {
    openPlans();
    clickCell("jgTasks", 3, TaskName);
    driver->type("Sweep");
    driver->press(Qt::Key_Return);
    driver->type("7");
    driver->press(Qt::Key_Return);
    driver->press(Qt::Key_Space);
    driver->press(Qt::Key_Down);
    EXPECT_EQ(tasks().Row(), 4);
    driver->press(Qt::Key_Home);
    driver->press(Qt::Key_Right);
    driver->type("Gone");
    driver->press(Qt::Key_Escape, Qt::NoModifier, 2);
    driver->type("Trim");
    driver->press(Qt::Key_Tab);
    clickCell("jgTasks", 1, TaskName);
    const QString own = " AND CustomTask IS NULL AND CodeKey=" + QString::number(data.framing) +
                        " AND ContractorPlanKey=" + QString::number(data.plan);
    EXPECT_EQ(
        data.count("ContractorPlanTask WHERE Name='Sweep' AND MasterPrice=7 AND ExcludeDependency=-1" + own),
        1);
    EXPECT_EQ(data.count("ContractorPlanTask WHERE Name='Trim' AND ExcludeDependency=0" + own), 1);
    EXPECT_EQ(tasks().RowCount(), 4);
}
