#include "controls/Combo.h"
#include "controls/MaskedBox.h"
#include "data/RunTimeError.h"
#include "frame/DataEnvironment.h"
#include "frame/modGlobalVariables.h"
#include "jobs/frmJobAdd.h"
#include "support/RaisedNumber.h"
#include "support/ScreenDriver.h"
#include "support/TemporaryDatabase.h"

#include <QLabel>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

class JobDialogs : public ::testing::Test {
protected:
    void SetUp() override {
        owner.show();
        gProgramFolder = db.folder() + u'/';
        gConnectionString = connectionStringFor(db.path());
    }
    void TearDown() override {
        unloadRemainingForms();
        DataEnvironment::close();
    }

    /// The dialog, still loaded, after it was used.
    frmJobAdd& addJob(std::function<void(const ScreenDriver&)> use) {
        whenModal([use = std::move(use)](QWidget& window) { use(ScreenDriver(window)); });
        auto& dialog = theForm<frmJobAdd>();
        dialog.Show(Screen::Modality::Modal, &owner);
        EXPECT_TRUE(dialog.isLoaded());
        return dialog;
    }

    QWidget owner;
    TemporaryDatabase db;
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
