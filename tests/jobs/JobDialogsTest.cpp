#include "LotData.h"
#include "controls/Combo.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "data/RunTimeError.h"
#include "jobs/frmAddJobTasks.h"
#include "jobs/frmJobAdd.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <QLabel>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class JobDialogs : public ScreenTest {
protected:
    void SetUp() override {
        owner.show();
        workOn(db);
    }

    /// The dialog, still loaded, after it was used.
    frmJobAdd& addJob(std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        auto& dialog = theForm<frmJobAdd>();
        dialog.Show(Screen::Modality::Modal, &owner);
        EXPECT_TRUE(dialog.isLoaded());
        return dialog;
    }

    QWidget owner;
    TemporaryDatabase db;
};

class LotFromPlan : public ScreenTest {
protected:
    void SetUp() override {
        owner.show();
        workOn(data.db);
        caller.lot = {data.job, data.builder, data.lot, data.plan};
        data.addPlanTask("Joists", birch, 0, data.framing, 5.0);
    }

    /// Returns whether the dialog counts as cancelled.
    bool fill(std::function<void(const ScreenDriver&)> use) {
        whenShown(std::move(use));
        auto& dialog = theForm<frmAddJobTasks>();
        dialog.fillFor(caller, &owner);
        return dialog.Cancelled;
    }
    static int selected(const ScreenDriver& form) {
        return static_cast<int>(form.find<ListBox>("lstTasks").selectedItems().size());
    }

    QWidget owner;
    LotData data;
    qint64 birch = data.addPlan("Birch", data.builder);
    LotCaller caller;
};

class NewJob : public JobDialogs {
protected:
    qint64 zeta = db.add("Contractor", {{"Name", "Zeta"}});
    qint64 abel = db.add("Contractor", {{"Name", "Abel"}});
};

} // namespace

TEST_F(NewJob, KeysAloneGiveAllAnswers) {
    frmJobAdd& dialog = addJob([](const ScreenDriver& form) {
        EXPECT_EQ(form.focusedName(), "MskField(0)");
        EXPECT_EQ(form.find<QLabel>("StatusBar1(1)").text(), "Enter the Job Number");
        EXPECT_EQ(form.find<Combo>("cmbContractors").Text(), "Abel");
        form.type("0815" + QString(40, u'7'));
        form.press(Qt::Key_Tab);
        form.type(" ");
        form.press(Qt::Key_Tab);
        EXPECT_EQ(form.focusedName(), "cmbContractors");
        form.type("z");
        form.press(Qt::Key_Return);
    });
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.jobNumber(), "0815" + QString(26, u'7')) << "thirty characters";
    EXPECT_EQ(dialog.jobName(), " ");
    EXPECT_EQ(dialog.contractorKey(), zeta);
}

TEST_F(NewJob, OnlyAnEmptyNumberOrNoBuilderStopsAccept) {
    frmJobAdd& dialog = addJob([](const ScreenDriver& form) {
        form.click("cmdAccept");
        EXPECT_TRUE(form.window().isVisible());
        form.click("MskField(0)");
        form.type(" ");
        form.press(Qt::Key_Tab, Qt::NoModifier, 2);
        form.press(Qt::Key_Backspace);
        EXPECT_EQ(form.find<Combo>("cmbContractors").Text(), "");
        form.click("cmdAccept");
        EXPECT_TRUE(form.window().isVisible());
        form.choose("cmbContractors", "Zeta");
        form.click("cmdAccept");
    });
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_EQ(dialog.jobNumber(), " ");
    EXPECT_EQ(dialog.contractorKey(), zeta);
}

TEST_F(NewJob, EveryOtherWayOutIsCancel) {
    const std::function<void(const ScreenDriver&)> ways[] = {
        [](const ScreenDriver& form) { form.click("cmdCancel"); },
        [](const ScreenDriver& form) { form.press(Qt::Key_Escape); },
        [](const ScreenDriver& form) { form.window().close(); },
    };
    for (const auto& leave : ways) {
        frmJobAdd& dialog = addJob([&](const ScreenDriver& form) {
            EXPECT_EQ(form.find<MaskedBox>("MskField(0)").text(), "") << "opens empty after an unload";
            form.type("1");
            leave(form);
        });
        EXPECT_TRUE(dialog.Cancelled);
        dialog.Unload();
    }
}

TEST_F(JobDialogs, WithoutABuilderTheNewJobFailsToOpen) {
    EXPECT_EQ(raisedNumber([&] { theForm<frmJobAdd>().Show(Screen::Modality::Modal, &owner); }),
              numberOf(Failure::InvalidProperty));
}

TEST_F(LotFromPlan, TheLotsPlanIsChosenAndKeysAloneFillTheLot) {
    EXPECT_FALSE(fill([&](const ScreenDriver& form) {
        EXPECT_EQ(form.window().windowTitle(), "Add Plan/Job Tasks");
        EXPECT_EQ(form.find<QLabel>("StatusBar1(1)").text(), "Select Master Tasks to Add");
        EXPECT_EQ(form.focusedName(), "lstPlans");
        EXPECT_EQ(form.find<ListBox>("lstPlans").ListIndex(), 0);
        EXPECT_EQ(form.find<ListBox>("lstTasks").item(1)->text().left(5), "Walls");
        form.press(Qt::Key_Down);
        EXPECT_EQ(form.find<ListBox>("lstTasks").item(1)->text().left(6), "Joists");
        form.press(Qt::Key_Tab);
        EXPECT_EQ(selected(form), 0);
        form.press(Qt::Key_Space); // the heading
        form.press(Qt::Key_Down);
        form.press(Qt::Key_Space);
        form.press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(selected(form), 2) << "coming back to the plans is no new choice";
        EXPECT_EQ(form.find<QLabel>("StatusBar1(1)").text(), "Select Master Tasks to Add");
        form.clickToolbar("Add");
    }));
    EXPECT_EQ(data.count("JobLotTask WHERE Name='Joists' AND JobLotKey=" + QString::number(data.lot)), 1);
    EXPECT_EQ(data.count("JobLotTask"), 1);
}

TEST_F(LotFromPlan, SelectAllStartsAnewWithEachPlan) {
    EXPECT_TRUE(fill([](const ScreenDriver& form) {
        form.click("cmdSelectAll");
        EXPECT_EQ(selected(form), 1) << "not the heading";
        form.click("cmdSelectAll");
        EXPECT_EQ(selected(form), 0);
        form.click("cmdSelectAll");
        form.clickLine("lstPlans", 1);
        EXPECT_EQ(selected(form), 0);
        form.click("cmdSelectAll");
        EXPECT_EQ(selected(form), 1);
        form.clickToolbar("Exit");
    }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(LotFromPlan, WithoutAPlanThereIsNothingToAdd) {
    for (const Value& plan : {Value(0), Value::null(), Value(4711)}) {
        caller.lot.contractorPlanKey = plan;
        EXPECT_TRUE(fill([](const ScreenDriver& form) {
            EXPECT_EQ(form.find<ListBox>("lstPlans").ListIndex(), -1);
            EXPECT_EQ(form.find<ListBox>("lstTasks").ListCount(), 0);
            form.clickToolbar("Add");
        }));
    }
    EXPECT_TRUE(fill([](const ScreenDriver& form) { form.window().close(); }));
}

TEST_F(LotFromPlan, ALotThatTookNothingStillCountsAsFilled) {
    EXPECT_FALSE(fill([](const ScreenDriver& form) { form.clickToolbar("Add"); }));
    EXPECT_EQ(data.count("JobLotTask"), 0);
}

TEST_F(LotFromPlan, APlanClickedForAnUnwrittenLotStopsTheProgram) {
    caller.lot.jobLotKey = {};
    EXPECT_EXIT(
        {
            setMessagePresenter({}); // the message goes to standard error
            fill([](const ScreenDriver& form) {
                EXPECT_EQ(form.find<ListBox>("lstPlans").ListIndex(), -1);
                form.clickLine("lstPlans", 0);
            });
        },
        ::testing::ExitedWithCode(1), "-2147217900");
}

TEST_F(LotFromPlan, APlanThatCannotBeListedWhileOpeningFailsForTheCaller) {
    data.addTask("Other", data.lot, data.hang);
    data.db.run("UPDATE ContractorPlanTask SET MasterTaskKey=Null");
    EXPECT_EQ(raisedNumber([&] { theForm<frmAddJobTasks>().fillFor(caller, &owner); }),
              numberOf(Failure::WrongArguments));
}
