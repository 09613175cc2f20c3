#include "builders/BuilderData.h"
#include "builders/frmAddMasterTasks.h"
#include "controls/ListBox.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

/// Stands for a screen that opens the dialog for a lot.
class LotCaller : public PickingCaller {
public:
    [[nodiscard]] PickingTarget pickingTarget() const override { return target; }
    void makeTaskParent() override { ++parents; }

    PickingTarget target;
    int parents = 0;
};

class PickingDialog : public ScreenTest {
protected:
    void SetUp() override {
        owner.show();
        workOn(data.db);
        caller.target.ownerKey = data.db.add("JobLot", {{"JobKey", data.addJob("1", "Elm")}});
    }

    /// Returns whether the dialog was left by Exit.
    bool pick(int mode, std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        auto& dialog = theForm<frmAddMasterTasks>();
        dialog.Mode = mode;
        dialog.pickFor(caller, &owner);
        return dialog.Cancelled;
    }

    QWidget owner;
    BuilderData data;
    LotCaller caller;
};

} // namespace

TEST_F(PickingDialog, OnlyPickedTasksReachTheLot) {
    EXPECT_FALSE(pick(PickingMode::Lot, [](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.window().windowTitle(), "Add Master Tasks");
        EXPECT_EQ(dialog.find<ListBox>("lstTasks").selectedItems().size(), 0);
        dialog.press(Qt::Key_Space); // the first heading
        dialog.clickToolbar("Add");
    }));
    EXPECT_EQ(data.count("JobLotTask"), 0) << "a heading adds nothing";
    EXPECT_TRUE(pick(PickingMode::Lot, [](const ScreenDriver& dialog) {
        dialog.clickLine("lstTasks", 1);
        dialog.clickToolbar("Exit");
    }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
    EXPECT_FALSE(pick(PickingMode::Lot, [](const ScreenDriver& dialog) {
        dialog.clickLine("lstTasks", 1);
        dialog.clickToolbar("Add");
    }));
    EXPECT_EQ(data.count("JobLotTask WHERE MasterTaskKey=" + QString::number(data.hang)), 1);
    EXPECT_EQ(caller.parents, 0);
}

TEST_F(PickingDialog, OptionsMakeTheTaskAParentAndTellTheirKind) {
    const qint64 task = data.addLotTask(data.addJob("2", "Oak"), data.planWalls);
    caller.target.task = {task, data.planWalls, task, data.walls, data.framing, "Walls", false};
    pick(PickingMode::TaskOptions, [](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.window().windowTitle(), "Add Non-Linked Options to Task");
        dialog.clickLine("lstTasks", 0);
        dialog.clickToolbar("Add");
    });
    EXPECT_EQ(data.count("JobLotTask WHERE Child=1 AND MasterPrice=0"), 1);
    EXPECT_EQ(caller.parents, 1);
    data.db.add("ContractorTaskOption", {{"ContractorPlanTaskKey", data.planWalls}, {"Name", "Arch"}});
    pick(PickingMode::TaskOptions, [](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.window().windowTitle(), "Add Linked Options to Task");
        dialog.clickToolbar("Exit");
    });
}

TEST_F(PickingDialog, AnEmptyListAddsNothing) {
    data.db.run("DELETE FROM MasterTask");
    pick(PickingMode::Lot, [](const ScreenDriver& dialog) {
        EXPECT_EQ(dialog.find<ListBox>("lstTasks").ListCount(), 0);
        dialog.clickToolbar("Add");
    });
    EXPECT_EQ(data.count("JobLotTask"), 0);
}
