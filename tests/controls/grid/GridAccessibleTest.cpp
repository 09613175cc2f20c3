#include "controls/grid/GridAccessible.h"

#include "GridFixture.h"

#include <QAccessible>
#include <QHeaderView>

namespace tarnwell::test {

namespace {

class GridAccessibleTest : public GridTest {
protected:
    GridAccessibleTest() { installAccessibleGrids(); }
    QAccessibleInterface& whole() { return *QAccessible::queryAccessibleInterface(grid); }
    QAccessibleTableInterface& table() { return *whole().tableInterface(); }
    /// Both count from 0, as assistive tools do.
    QAccessibleInterface& at(int row, int column) { return *table().cellAt(row, column); }
    QString name(int row, int column) { return at(row, column).text(QAccessible::Name); }
    void act(int row, int column, const QString& action) {
        at(row, column).actionInterface()->doAction(action);
        QCoreApplication::processEvents();
    }
};

} // namespace

TEST_F(GridAccessibleTest, HiddenColumnsAreNotThereAndEveryPartHasItsName) {
    start();
    ASSERT_EQ(table().columnCount(), 7);
    ASSERT_EQ(table().rowCount(), 4);
    QStringList names;
    for (int i = 0; i < whole().childCount(); ++i) {
        QAccessibleInterface* part = whole().child(i);
        EXPECT_EQ(whole().indexOfChild(part), i);
        EXPECT_EQ(part->parent(), &whole());
        names << part->text(QAccessible::Name);
    }
    EXPECT_EQ(names.mid(0, 15).join(u'|'), "AddOnButton|Name|Price|Custom|Exclude|Start|Employee|"
                                           "Row 1, current|AddOnButton|Brick|10.00|N|No||");
    EXPECT_EQ(names.mid(7 + 2 * 8, 3).join(u'|'), "Row 3|AddOnButton|Paint");
    EXPECT_EQ(names[7 + 3 * 8], "New row");
    // In the order on the screen.
    grid->horizontalHeader()->moveSection(grid->horizontalHeader()->visualIndex(Price - 1), 0);
    EXPECT_EQ(name(1, 0), "20.00");
    EXPECT_EQ(table().columnDescription(0), "Price");
}

TEST_F(GridAccessibleTest, CellsAndRowsTellTheirStates) {
    start();
    QAccessible::State state = at(0, 1).state();
    EXPECT_TRUE(state.focused && state.selected && state.editable && state.focusable && !state.readOnly);
    EXPECT_FALSE(at(1, 1).state().focused || at(1, 1).state().selected);
    EXPECT_TRUE(at(0, 4).state().checkable && !at(0, 4).state().checked);
    EXPECT_FALSE(at(0, 1).state().checkable);
    EXPECT_EQ(at(0, 4).role(), QAccessible::Cell);
    EXPECT_EQ(table().selectedRows(), QList<int>{0});
    driver->type("Wood");
    driver->press(Qt::Key_Return);
    EXPECT_EQ(table().rowDescription(0), "Row 1, being edited");
    driver->focus("after");
    EXPECT_FALSE(at(0, 1).state().focused) << "the keyboard is elsewhere";
    grid->setAllowEdit(false);
    EXPECT_TRUE(at(0, 1).state().readOnly);
    grid->setEnabled(false);
    EXPECT_TRUE(at(0, 1).state().disabled && whole().state().disabled);
}

TEST_F(GridAccessibleTest, ActionsDoWhatTheKeysDo) {
    start();
    act(2, 1, QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(grid->Row(), 3);
    act(1, 4, QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(name(1, 4), "Yes");
    EXPECT_TRUE(at(1, 4).state().checked);
    act(1, 0, QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(takeLog().contains("button 4"));
    act(0, 1, QAccessibleActionInterface::pressAction());
    ASSERT_NE(editor(), nullptr);
    EXPECT_EQ(editor()->accessibleName(), "Name");
    EXPECT_TRUE(at(0, 1).isValid());
    grid->bind(nullptr);
    EXPECT_EQ(table().cellAt(0, 1), nullptr);
}

} // namespace tarnwell::test
