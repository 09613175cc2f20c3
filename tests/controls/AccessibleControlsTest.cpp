#include "controls/AccessibleControls.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/DayArrows.h"
#include "controls/Label.h"
#include "controls/ShortcutTips.h"
#include "support/ScreenDriver.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QHelpEvent>
#include <QPushButton>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>
#include <memory>

namespace tarnwell::test {

namespace {

/// The toolkit keeps what it made for a control before.
struct AccessibleControls : ::testing::Test {
    AccessibleControls() { installAccessibleControls(); }
    static QAccessibleInterface& read(QWidget& control) {
        return *QAccessible::queryAccessibleInterface(&control);
    }
};

} // namespace

TEST_F(AccessibleControls, AComboIsKnownByItsLabelAndSaysItsText) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* combo = new Combo;
    combo->setTexts({"Cabinets", "Drywall"});
    column->addWidget(label("&Category:", "lblField(0)", combo));
    column->addWidget(combo);
    combo->setListIndex(1);
    QAccessibleInterface& known = read(*combo);
    EXPECT_EQ(known.role(), QAccessible::ComboBox);
    EXPECT_EQ(known.text(QAccessible::Name), "Category");
    EXPECT_EQ(known.text(QAccessible::Value), "Drywall");
    ASSERT_NE(known.textInterface(), nullptr);
    EXPECT_EQ(known.textInterface()->text(0, 7), "Drywall");
    for (int i = 0; i < known.childCount(); ++i) {
        EXPECT_EQ(known.child(i)->text(QAccessible::Name), "Category");
        EXPECT_EQ(known.indexOfChild(known.child(i)), i);
    }
    const ScreenDriver driver(window);
    EXPECT_TRUE(known.state().expandable && known.state().editable && !known.state().expanded);
    known.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(waitFor([&] { return known.state().expanded; }));
    combo->hidePopup();
    combo->setEnabled(false);
    EXPECT_TRUE(known.state().disabled);
    known.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(combo->view()->isVisible());
}

TEST_F(AccessibleControls, AToolButtonIsPressedWithoutKeepingItsCallerWaiting) {
    QToolButton button;
    button.setText("&Find");
    setTipKeys(button, QKeySequence("Ctrl+F"));
    bool pressed = false;
    QObject::connect(&button, &QToolButton::clicked, &button, [&] { pressed = true; });
    QAccessibleInterface& known = read(button);
    EXPECT_EQ(known.text(QAccessible::Name), "Find");
    EXPECT_EQ(known.actionInterface()->keyBindingsForAction(QAccessibleActionInterface::pressAction()),
              QStringList("Ctrl+F"));
    known.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(pressed);
    EXPECT_TRUE(waitFor([&] { return pressed; }));
}

TEST_F(AccessibleControls, ADateSaysWhatToDoAndItsArrowsTurnIt) {
    DateBox date(DateBox::Arrows::Beside);
    date.setToolTip("Enter completed date of job");
    EXPECT_EQ(read(*date.focusProxy()).text(QAccessible::Description), "Enter completed date of job");
    date.setText("06/01/26");
    QAccessibleActionInterface& arrows = *read(*date.findChild<DayArrows*>()).actionInterface();
    arrows.doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(date.text(), "06/02/26");
    arrows.doAction(QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(date.text(), "06/01/26");
}

TEST(ShortcutTips, ShowTheKeysBehindTheTextWhereverTheyComeFrom) {
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* own = new QPushButton("&Apply Payment");
    auto* given = new QToolButton;
    setTipKeys(*given, QKeySequence("Ctrl+N"));
    auto* ofAction = new QToolButton;
    auto* action = new QAction(&window);
    action->setShortcut(QKeySequence("Ctrl+P"));
    ofAction->setDefaultAction(action);
    auto* labelled = new Combo;
    column->addWidget(label("&Category:", "lblField(0)", labelled));
    auto* without = new QPushButton("OK");
    const std::pair<QWidget*, const char*> cases[] = {{own, "Tip (Alt+A)"},
                                                      {given, "Tip (Ctrl+N)"},
                                                      {ofAction, "Tip (Ctrl+P)"},
                                                      {labelled, "Tip (Alt+C)"},
                                                      {without, "Tip"}};
    const ShortcutTips tips;
    for (const auto& [control, shown] : cases) {
        column->addWidget(control);
        EXPECT_EQ(shownToolTip(*control), "");
        control->setToolTip("Tip");
        EXPECT_EQ(shownToolTip(*control), shown);
        EXPECT_EQ(control->toolTip(), "Tip");
    }
    const ScreenDriver driver(window);
    QHelpEvent hover(QEvent::ToolTip, QPoint(2, 2), own->mapToGlobal(QPoint(2, 2)));
    QCoreApplication::sendEvent(own, &hover);
    EXPECT_EQ(QToolTip::text(), "Tip (Alt+A)");
    QToolTip::hideText();
    own->setToolTip("Pay (Alt+A)");
    EXPECT_EQ(shownToolTip(*own), "Pay (Alt+A)") << "not twice";
}

} // namespace tarnwell::test
