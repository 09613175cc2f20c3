#include "controls/grid/GridEditor.h"
#include "controls/grid/GridParts.h"

#include <QMouseEvent>

#include <utility>

namespace tarnwell {

/// The press that gave the grid the focus may have been answered by handing it on.
bool Grid::Parts::tookFocus() const {
    const QWidget* focus = grid.window()->focusWidget();
    return focus == &grid || (focus != nullptr && grid.isAncestorOf(focus));
}

void Grid::Parts::press(const QMouseEvent& event) {
    const QModelIndex index = grid.indexAt(event.position().toPoint());
    pressed = QPersistentModelIndex();
    const bool gaveFocus = std::exchange(clickedInto, false);
    if (event.button() != Qt::LeftButton || !tookFocus())
        return;
    if (!index.isValid()) {
        // In a grid that was empty there is no other row to leave the typed one for.
        if (finishEdit(Asked::ByUser) && model->pending().isNew())
            commit(Asked::ByUser, Then::Stay);
        return;
    }
    const int clicked = index.column() + 1;
    const int toColumn = isStop(model->column(clicked)) ? clicked : column;
    wasCurrent = index.row() == row && toColumn == column && !gaveFocus;
    const int toRow = index.row();
    grid.setAutoScroll(false); // the row must not slip away under the pointer
    const bool there = goTo(toRow, toColumn, Asked::ByUser);
    grid.setAutoScroll(true);
    if (!there || row != toRow || column != clicked)
        return;
    pressed = model->index(toRow, clicked - 1);
    const QRect button = GridDelegate::buttonRect(model->column(clicked), grid.visualRect(pressed));
    if (button.contains(event.position().toPoint())) {
        delegate->setPressed(pressed);
        grid.update(pressed);
    }
}

void Grid::Parts::release(const QMouseEvent& event) {
    delegate->setPressed({});
    const QModelIndex index = pressed;
    pressed = QPersistentModelIndex();
    if (!index.isValid() || index.row() != row || index.column() != column - 1)
        return;
    grid.update(index);
    const QPoint at = event.position().toPoint();
    const QRect cell = grid.visualRect(index);
    if (!cell.contains(at))
        return;
    if (GridDelegate::buttonRect(model->column(column), cell).contains(at))
        openList();
    else if (showsCheckBox(model->column(column))) {
        if (GridDelegate::checkBoxRect(cell).contains(at))
            toggle();
    } else if (wasCurrent) {
        beginEdit();
    }
}

void Grid::Parts::pressRow(int toRow) {
    grid.setFocus(Qt::MouseFocusReason);
    if (tookFocus() && column > 0)
        goTo(toRow, column, Asked::ByUser);
}

} // namespace tarnwell
