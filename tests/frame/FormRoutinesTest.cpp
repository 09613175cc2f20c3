#include "frame/Screen.h"
#include "support/RaisedNumber.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

class frmBar : public Screen {
public:
    explicit frmBar(std::vector<Part> parts = {Part::Toolbar}) : Screen("frmBar", "Bar", std::move(parts)) {}
    using Screen::setToolbarButton;
    QStringList clicked;

    /// Captions in their order, "|" for a separator; only the enabled ones on demand.
    QString captions(bool enabledOnly = false) const {
        QStringList list;
        for (QAction* action : toolbar()->actions()) {
            const auto* button = qobject_cast<QToolButton*>(toolbar()->widgetForAction(action));
            if (action->isSeparator())
                list << (enabledOnly ? QString() : "|");
            else if (!enabledOnly || button->isEnabled())
                list << button->text();
        }
        list.removeAll(QString());
        return list.join(' ');
    }

protected:
    void Form_Load() override {}
    void Toolbar1_ButtonClick(const QString& caption) override { clicked << caption; }
};

} // namespace

TEST(Toolbar, AMaskGivesItsButtonsInTheTablesOrder) {
    const std::pair<ButtonMask, const char*> masks[] = {{0x1, ""},
                                                        {21, "Exit | Del |"},
                                                        {134217751, "Exit | Add Del Del L |"},
                                                        {198743, "Exit | Add Del Same | Find Group | Copy"},
                                                        {0x410, "Exit | EOF |"}};
    for (const auto& [mask, captions] : masks) {
        frmBar form;
        BuildToolbar(form, mask);
        EXPECT_EQ(form.captions(), captions);
    }
}

TEST(Toolbar, EveryButtonOfTheTableHasItsOwnBitAndKey) {
    frmBar form;
    BuildToolbar(form, 0xFFFFFFFF);
    ButtonMask seen = 0;
    for (const ToolbarButton& row : toolbarButtons()) {
        EXPECT_EQ(seen & row.bit, 0U) << row.key;
        seen |= row.bit;
        const auto* button = form.toolbar()->findChild<QToolButton*>(row.key);
        ASSERT_NE(button, nullptr) << row.key;
        EXPECT_EQ(button->toolTip(), row.toolTip);
        EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
    }
}

TEST(Toolbar, ButtonsAreEnabledByTheirKeysAlsoUnderAnotherCaption) {
    frmBar form;
    BuildToolbar(form, 0x30857);
    form.setToolbarButton("AddSame", "Task", "Add Task");
    ButtonMask current = 0;
    EnableToolbar(form, 0x20810, current);
    EXPECT_EQ(form.captions(true), "Exit Task Group");
    EXPECT_EQ(current, 0x20810U);
    EnableToolbar(form, 0xFFFFFFD1, current);
    EXPECT_EQ(form.captions(true), "Exit Task Find Group Copy");
    form.toolbar()->findChild<QToolButton*>("AddSame")->click();
    form.toolbar()->findChild<QToolButton*>("Add")->click();
    EXPECT_EQ(form.clicked, QStringList("Task"));
}

TEST(Toolbar, TheMaskThatHoldsAlreadyCostsNothing) {
    frmBar form;
    BuildToolbar(form, 81);
    ButtonMask current = 17;
    EnableToolbar(form, 17, current);
    EXPECT_EQ(form.captions(true), "Exit Find");
}

TEST(Toolbar, AFormWithoutOneIsAnError) {
    frmBar form{std::vector<Screen::Part>{}};
    ButtonMask current = 0;
    EXPECT_EQ(raisedNumber([&] { BuildToolbar(form, 81); }), 438);
    EXPECT_EQ(raisedNumber([&] { EnableToolbar(form, 81, current); }), 438);
}

TEST(ResizeForm, MovesEveryControlByItsShares) {
    QWidget canvas;
    canvas.resize(400, 200);
    auto* frame = new QGroupBox(&canvas);
    auto* inner = new QPushButton(frame);
    auto* combo = new QComboBox(&canvas);
    auto* upright = new QScrollBar(Qt::Vertical, &canvas);
    auto* flat = new QScrollBar(Qt::Horizontal, &canvas);
    frame->setGeometry(100, 20, 200, 100);
    inner->setGeometry(10, 30, 80, 20);
    combo->setEditable(true);
    combo->setGeometry(40, 150, 100, 24);
    upright->setGeometry(380, 0, 16, 100);
    flat->setGeometry(0, 180, 100, 16);
    const QRect editor = combo->lineEdit()->geometry();

    ControlPositions positions;
    StoreFormPositions(positions, canvas);
    EXPECT_EQ(positions.size(), 5U);
    EXPECT_FLOAT_EQ(positions[0].widthShare, 0.5F);
    EXPECT_FLOAT_EQ(positions[0].topShare, 0.1F);

    canvas.resize(800, 600);
    ResizeForm(positions, canvas);
    EXPECT_EQ(frame->geometry(), QRect(200, 60, 400, 300));
    EXPECT_EQ(inner->geometry(), QRect(20, 90, 160, 60));
    EXPECT_EQ(combo->geometry(), QRect(80, 450, 200, 24));
    EXPECT_EQ(upright->geometry(), QRect(760, 0, 16, 300));
    EXPECT_EQ(flat->geometry(), QRect(0, 540, 200, 16));
    EXPECT_EQ(combo->lineEdit()->height(), editor.height());

    canvas.resize(40, 20);
    ResizeForm(positions, canvas);
    EXPECT_EQ(inner->geometry(), QRect(1, 3, 8, 2));

    canvas.resize(400, 200);
    ResizeForm(positions, canvas);
    EXPECT_EQ(frame->geometry(), QRect(100, 20, 200, 100));
    delete inner;
    ResizeForm(positions, canvas);
}

} // namespace tarnwell::test
