#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/MaskedBox.h"
#include "frame/Screen.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

/// A chain as entry screens have it: what comes later refuses the focus until something stands in the first
/// field. The trace lists which controls got and lost the focus.
class frmChain : public Screen {
public:
    frmChain() : Screen("frmChain", "Chain", {Part::Toolbar, Part::StatusBar}) {}

    QStringList trace;
    int pressed = 0;
    std::function<void()> firstLost = [] {};

    MaskedBox* first = new MaskedBox;
    QListWidget* lots = new QListWidget;
    Combo* category = new Combo;
    DateBox* day = new DateBox(DateBox::Arrows::Beside);
    QPushButton* apply = new QPushButton("&Apply");

protected:
    void Form_Load() override {
        auto* column = new QVBoxLayout(canvas());
        for (QWidget* control : std::initializer_list<QWidget*>{first, lots, category, day, apply})
            column->addWidget(control);
        lots->addItems({"one", "two"});
        category->setItems({{"Framing", 1}, {"Roof", 2}});
        nameControl(first, "MskField(2)", "Enter the job");
        nameControl(lots, "jgJobLots", "Select the lot");
        nameControl(category, "cmbType", "Select Category");
        nameControl(day, "rebCompleted", "Enter date");
        nameControl(apply, "cmdApplyTask", "Press to add");
        connect(apply, &QPushButton::clicked, this, [this] { ++pressed; });
        onGotFocus(lots, [this] { refuseTo(lots, first); });
        onGotFocus(category, [this] { refuseTo(category, lots); });
        onGotFocus(apply, [this] { refuseTo(apply, category); });
        onLostFocus(first, [this] {
            trace << "-" + first->objectName();
            firstLost();
        });
        BuildToolbar(*this, 0x50);
    }

    void Toolbar1_ButtonClick(const QString& caption) override {
        trace << caption + ":" + (ActiveControl() != nullptr ? ActiveControl()->objectName() : QString());
    }

private:
    void refuseTo(QWidget* control, QWidget* other) {
        trace << control->objectName();
        if (first->text().isEmpty())
            SetFocus(other);
        else
            showToolTip(control);
    }
};

struct ChainTest : ::testing::Test {
    frmChain& form = *new frmChain;
    ScreenDriver driver{form};

    ~ChainTest() override { form.Unload(); }
    QString active() const { return form.ActiveControl()->objectName(); }
};

} // namespace

TEST_F(ChainTest, ARefusedClickComesToRestOverSeveralHopsAndPressesNothing) {
    driver.click("cmdApplyTask");
    EXPECT_EQ(form.trace, QStringList({"-MskField(2)", "cmdApplyTask", "cmbType", "jgJobLots"}));
    EXPECT_EQ(active(), "MskField(2)");
    EXPECT_TRUE(form.first->hasFocus());
    EXPECT_EQ(form.statusText(), "Enter the job");
    EXPECT_EQ(form.pressed, 0);
    EXPECT_FALSE(form.apply->isDown());
    driver.type("7");
    EXPECT_EQ(form.first->text(), "7");
}

TEST_F(ChainTest, ARefusedClickChoosesNoLineAndOpensNoList) {
    driver.clickLine("jgJobLots", 1);
    EXPECT_EQ(form.lots->currentRow(), -1);
    driver.click("cmbType", QPoint(form.category->width() - 8, form.category->height() / 2));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    EXPECT_EQ(active(), "MskField(2)");
}

TEST_F(ChainTest, AnAcceptedClickWorksAtOnce) {
    driver.type("7");
    driver.clickLine("jgJobLots", 1);
    EXPECT_EQ(form.lots->currentRow(), 1);
    EXPECT_EQ(form.statusText(), "Select the lot");
    driver.click("cmdApplyTask");
    EXPECT_EQ(form.pressed, 1);
    EXPECT_EQ(form.trace, QStringList({"-MskField(2)", "jgJobLots", "cmdApplyTask"}));
}

TEST_F(ChainTest, TabAndMnemonicAreRefusedAsAClickIs) {
    driver.press(Qt::Key_Tab);
    EXPECT_EQ(active(), "MskField(2)");
    EXPECT_TRUE(form.first->hasFocus());
    driver.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(form.first->hasFocus());
    driver.press(Qt::Key_A, Qt::AltModifier);
    EXPECT_TRUE(form.first->hasFocus());
    EXPECT_EQ(form.trace.count("-MskField(2)"), 3);
    EXPECT_EQ(form.pressed, 0);
    driver.type("7");
    driver.press(Qt::Key_A, Qt::AltModifier);
    EXPECT_EQ(active(), "cmdApplyTask");
    EXPECT_EQ(form.pressed, 1);
}

TEST_F(ChainTest, TabGoesThroughAllControlsWhenNothingRefuses) {
    driver.type("7");
    QStringList way;
    for (int i = 0; i < 5; ++i) {
        driver.press(Qt::Key_Tab);
        way << active();
    }
    EXPECT_EQ(way, QStringList({"jgJobLots", "cmbType", "rebCompleted", "cmdApplyTask", "MskField(2)"}));
}

TEST_F(ChainTest, AnEditorCountsAsTheControlThatHoldsIt) {
    form.SetFocus(form.day);
    EXPECT_TRUE(form.day->edit()->hasFocus());
    EXPECT_EQ(active(), "rebCompleted");
    driver.type("7");
    form.SetFocus(form.first);
    driver.type("7");
    driver.choose("cmbType", "Roof");
    EXPECT_EQ(form.category->ListIndex(), 1);
    EXPECT_EQ(active(), "cmbType");
    EXPECT_EQ(form.trace.count("cmbType"), 1);
}

TEST_F(ChainTest, TheToolbarTakesNoFocus) {
    driver.type("7");
    form.SetFocus(form.category);
    form.trace.clear();
    driver.clickToolbar("Find");
    driver.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(form.trace, QStringList({"Find:cmbType", "Find:cmbType"}));
    EXPECT_TRUE(form.category->hasFocus());
    form.toolbar()->findChild<QToolButton*>("Find")->setEnabled(false);
    driver.press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(form.trace.size(), 2);
}

TEST_F(ChainTest, SetFocusOnTheActiveControlRunsItsRoutineAgain) {
    driver.type("7");
    form.SetFocus(form.lots);
    form.SetFocus(form.lots);
    EXPECT_EQ(form.trace.count("jgJobLots"), 2);
    form.lots->setDisabled(true);
    form.SetFocus(form.lots);
    EXPECT_EQ(form.trace.count("jgJobLots"), 2);
}

TEST_F(ChainTest, ALostRoutineTakesTheFocusBackBeforeTheOtherControlHadIt) {
    form.firstLost = [this] { form.SetFocus(form.first); };
    driver.type("7");
    driver.click("cmdApplyTask");
    EXPECT_EQ(form.trace, QStringList("-MskField(2)"));
    EXPECT_TRUE(form.first->hasFocus());
    EXPECT_EQ(active(), "MskField(2)");
    EXPECT_EQ(form.statusText(), "Enter the job");
    EXPECT_EQ(form.pressed, 0);
}

TEST_F(ChainTest, AMessageWhileTheFocusMovesEatsTheClickThatMovedIt) {
    form.firstLost = [this] {
        whenModal([](QWidget& box) { QTest::keyClick(&box, Qt::Key_Return); });
        QMessageBox::question(&form, "Entry Verification", "Cancel Modification?");
    };
    driver.type("7");
    driver.click("cmdApplyTask");
    form.activateWindow();
    ASSERT_TRUE(waitFor([&] { return form.apply->hasFocus(); }));
    EXPECT_EQ(form.trace, QStringList({"-MskField(2)", "cmdApplyTask"}));
    EXPECT_EQ(form.pressed, 0);
    EXPECT_FALSE(form.apply->isDown());
    driver.click("cmdApplyTask");
    EXPECT_EQ(form.pressed, 1);
}

TEST_F(ChainTest, AnotherWindowKeepsTheActiveControl) {
    driver.type("7");
    form.SetFocus(form.lots);
    form.trace.clear();
    {
        QPushButton other("other");
        const ScreenDriver otherDriver(other);
        EXPECT_FALSE(form.isActiveWindow());
        EXPECT_EQ(active(), "jgJobLots");
        // Code may move it meanwhile; the routines run at once, and not again when the window is back.
        form.SetFocus(form.category);
        EXPECT_EQ(active(), "cmbType");
    }
    form.activateWindow();
    ASSERT_TRUE(waitFor([&] { return form.category->hasFocus(); }));
    EXPECT_EQ(form.trace, QStringList("cmbType"));
}

TEST_F(ChainTest, ControlsThatSendTheFocusToEachOtherDoNotHang) {
    form.firstLost = [this] { form.SetFocus(form.apply); };
    form.SetFocus(form.apply);
    EXPECT_TRUE(form.ActiveControl()->hasFocus());
}

} // namespace tarnwell::test
