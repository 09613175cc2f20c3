#include "controls/ListBox.h"
#include "jobs/LotData.h"
#include "jobs/frmAddJobOptionGroup.h"
#include "support/RaisedNumber.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class OptionGroupDialog : public ScreenTest {
protected:
    void SetUp() override {
        owner.show();
        workOn(data.db);
        data.addGroupTask(deck, data.walls, 12.5);
        data.addGroupTask(trim, data.hang, 3.0);
        caller.lot = {data.job, data.builder, data.lot, data.plan};
    }

    /// Returns whether the dialog counts as cancelled.
    bool apply(std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        auto& dialog = theForm<frmAddJobOptionGroup>();
        dialog.applyTo(caller, &owner);
        return dialog.Cancelled;
    }
    qint64 optionsNamed(const QString& name) {
        return data.count("JobLotTask WHERE Child=1 AND Name='" + name + "'");
    }

    QWidget owner;
    LotData data;
    LotCaller caller;
    qint64 trim = data.addGroup("Trim");
    qint64 deck = data.addGroup("Deck");
};

} // namespace

TEST_F(OptionGroupDialog, ShowsTheBuildersGroupsByNameWithTheFirstChosen) {
    const qint64 other = data.db.add("Contractor", {{"Name", "Other"}});
    data.db.add("Code", {{"Code1", 5}, {"Code2", other}, {"Description", "Attic"}});
    EXPECT_TRUE(apply([](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.window().windowTitle(), "Add Job Option Group");
        const auto& groups = dialog.find<ListBox>("lstGroups");
        ASSERT_EQ(groups.ListCount(), 2);
        EXPECT_EQ(groups.item(0)->text(), "Deck");
        EXPECT_EQ(groups.ListIndex(), 0);
        EXPECT_EQ(dialog.focusedName(), "lstGroups");
        dialog.click("cmdCancel");
    }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(OptionGroupDialog, EveryWayOfChoosingAppliesTheGroupOnce) {
    const std::vector<std::function<void(const ScreenDriver&)>> ways = {
        [](const ScreenDriver& dialog) {
            dialog.clickLine("lstGroups", 1);
            dialog.click("cmdSelect");
        },
        [](const ScreenDriver& dialog) {
            auto& groups = dialog.find<ListBox>("lstGroups");
            dialog.doubleClick("lstGroups", groups.visualItemRect(groups.item(1)).center());
        },
        [](const ScreenDriver& dialog) {
            dialog.press(Qt::Key_Down);
            dialog.press(Qt::Key_Return);
        },
        [](const ScreenDriver& dialog) {
            dialog.press(Qt::Key_Down);
            dialog.press(Qt::Key_S, Qt::AltModifier);
        }};
    for (const auto& way : ways) {
        const qint64 before = optionsNamed("Hang Trim");
        EXPECT_FALSE(apply(way));
        EXPECT_EQ(optionsNamed("Hang Trim"), before + 1);
    }
    EXPECT_EQ(optionsNamed("Walls Deck"), 0);
}

TEST_F(OptionGroupDialog, EscapeCancels) {
    EXPECT_TRUE(apply([](const ScreenDriver& dialog) { dialog.press(Qt::Key_Escape); }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(OptionGroupDialog, SelectWithoutAGroupStays) {
    data.db.run("DELETE FROM Code WHERE Code1=5");
    EXPECT_TRUE(apply([](const ScreenDriver& dialog) {
        dialog.click("cmdSelect");
        dialog.press(Qt::Key_Return);
        EXPECT_TRUE(dialog.window().isVisible());
        dialog.click("cmdCancel");
    }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(OptionGroupDialog, AGroupLeftWithoutTasksClosesUncancelled) {
    data.db.run("DELETE FROM ContractorOptionGroup");
    EXPECT_FALSE(apply([](const ScreenDriver& dialog) { dialog.click("cmdSelect"); }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(OptionGroupDialog, AnErrorClosesTheDialogAndReachesItsCaller) {
    caller.lot.jobLotKey = Value();
    EXPECT_EQ(raisedNumber([&] { apply([](const ScreenDriver& dialog) { dialog.click("cmdSelect"); }); }),
              numberOf(Failure::SyntaxError));
    caller.lot.jobLotKey = data.lot;
    EXPECT_FALSE(apply([](const ScreenDriver& dialog) { dialog.click("cmdSelect"); }));
    EXPECT_EQ(optionsNamed("Walls Deck"), 1);
}
