#include "controls/grid/GridCellAccessible.h"

#include "controls/grid/Grid.h"
#include "controls/grid/GridAccessible.h"
#include "controls/grid/GridModel.h"
#include "runtime/EventGuard.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTimer>

namespace tarnwell {

namespace {

/// As a user who clicks there: the grid may refuse to leave its row.
bool goTo(Grid& grid, const QPersistentModelIndex& cell) {
    const QPointer<Grid> alive(&grid);
    grid.setFocus(Qt::OtherFocusReason);
    if (!alive.isNull() && cell.isValid())
        grid.setCurrentIndex(cell);
    return !alive.isNull() && cell.isValid() && grid.currentIndex() == cell;
}

void pressKey(Grid& grid, Qt::Key key) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&grid, &event);
}

} // namespace

QString columnName(const GridColumn& column) {
    for (const QString& name : {column.caption, column.headerToolTip, column.tag})
        if (!name.isEmpty())
            return name;
    return column.key;
}

GridCellAccessible::GridCellAccessible(Grid& grid, int row, int column)
    : m_grid(&grid), m_row(row), m_column(column) {}

GridAccessible* GridCellAccessible::owner() const {
    return m_grid.isNull()
               ? nullptr
               : dynamic_cast<GridAccessible*>(QAccessible::queryAccessibleInterface(m_grid.data()));
}

const GridModel& GridCellAccessible::model() const {
    return *qobject_cast<const GridModel*>(m_grid->model());
}

int GridCellAccessible::section() const {
    const GridAccessible* grid = owner();
    return grid != nullptr && m_column >= 0 ? grid->sectionOf(m_column) : -1;
}

const GridColumn& GridCellAccessible::column() const {
    return model().column(section() + 1);
}

QModelIndex GridCellAccessible::index() const {
    return model().index(m_row, section());
}

bool GridCellAccessible::isValid() const {
    return owner() != nullptr && (m_row < 0 || m_row < model().rowCount()) &&
           (m_column < 0 || section() >= 0);
}

QWindow* GridCellAccessible::window() const {
    return m_grid.isNull() ? nullptr : m_grid->window()->windowHandle();
}

QAccessibleInterface* GridCellAccessible::parent() const {
    return owner();
}

QString GridCellAccessible::text(QAccessible::Text kind) const {
    if (!isValid())
        return {};
    if (!isCell()) {
        const bool ofColumn = m_row < 0;
        if (kind == QAccessible::Description && ofColumn)
            return column().headerToolTip;
        if (kind != QAccessible::Name)
            return {};
        return ofColumn ? owner()->columnDescription(m_column) : owner()->rowDescription(m_row);
    }
    switch (kind) {
    case QAccessible::Name:
    case QAccessible::Value:
        return column().edit == ColumnEdit::ButtonOnly
                   ? columnName(column())
                   : index()
                         .data(showsCheckBox(column()) ? Qt::AccessibleTextRole : Qt::DisplayRole)
                         .toString();
    case QAccessible::Description:
        return description();
    default:
        return {};
    }
}

/// What the row's place in a tree is; else what to do here.
QString GridCellAccessible::description() const {
    QString inTree = index().data(Qt::AccessibleDescriptionRole).toString();
    if (!inTree.isEmpty())
        return inTree;
    return column().tag;
}

QRect GridCellAccessible::rect() const {
    if (!isValid() || !m_grid->isVisible())
        return {};
    const QHeaderView& across = *m_grid->horizontalHeader();
    const QHeaderView& down = *m_grid->verticalHeader();
    if (m_row < 0)
        return {across.viewport()->mapToGlobal(QPoint(across.sectionViewportPosition(section()), 0)),
                QSize(across.sectionSize(section()), across.height())};
    if (m_column < 0)
        return {down.viewport()->mapToGlobal(QPoint(0, down.sectionViewportPosition(m_row))),
                QSize(down.width(), down.sectionSize(m_row))};
    const QRect cell = m_grid->visualRect(index());
    return {m_grid->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::Role GridCellAccessible::role() const {
    if (m_row < 0)
        return QAccessible::ColumnHeader;
    return m_column < 0 ? QAccessible::RowHeader : QAccessible::Cell;
}

QAccessible::State GridCellAccessible::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.disabled = !m_grid->isEnabled();
    state.invisible = !m_grid->isVisible();
    if (!isCell()) {
        state.readOnly = true;
        return state;
    }
    const QRect inView(m_grid->viewport()->mapToGlobal(QPoint()), m_grid->viewport()->size());
    state.offscreen = !state.invisible && !inView.intersects(rect());
    state.selectable = isStop(column());
    state.selected = isSelected();
    state.focusable = isStop(column());
    state.focused = m_grid->hasFocus() && m_grid->currentIndex() == index();
    state.editable = model().isEditable(m_row, section() + 1);
    state.readOnly = !state.editable && !hasButton(column());
    state.checkable = showsCheckBox(column());
    state.checked = state.checkable && index().data(Qt::CheckStateRole).toInt() == Qt::Checked;
    state.hasPopup = column().edit == ColumnEdit::ValueList && state.editable;
    return state;
}

void* GridCellAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (!isCell())
        return nullptr;
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool GridCellAccessible::isSelected() const {
    return isCell() && isValid() && owner()->isRowSelected(m_row);
}

QList<QAccessibleInterface*> GridCellAccessible::columnHeaderCells() const {
    return isValid() ? QList<QAccessibleInterface*>{owner()->columnHeader(m_column)}
                     : QList<QAccessibleInterface*>();
}

QList<QAccessibleInterface*> GridCellAccessible::rowHeaderCells() const {
    return isValid() ? QList<QAccessibleInterface*>{owner()->rowHeader(m_row)}
                     : QList<QAccessibleInterface*>();
}

QStringList GridCellAccessible::actionNames() const {
    if (!isCell() || !isValid() || !isStop(column()))
        return {};
    const bool acts = hasButton(column()) || model().isEditable(m_row, section() + 1);
    const QString& pressed = showsCheckBox(column()) ? toggleAction() : pressAction();
    return acts ? QStringList{pressed, setFocusAction()} : QStringList{setFocusAction()};
}

Qt::Key GridCellAccessible::keyOf(const QString& action) const {
    if (action == setFocusAction())
        return Qt::Key_unknown;
    return showsCheckBox(column()) ? Qt::Key_Space : hasButton(column()) ? Qt::Key_F4 : Qt::Key_F2;
}

QStringList GridCellAccessible::keyBindingsForAction(const QString& action) const {
    const Qt::Key key = isCell() && isValid() ? keyOf(action) : Qt::Key_unknown;
    if (key == Qt::Key_unknown)
        return {};
    return {QKeySequence(key).toString(QKeySequence::NativeText)};
}

/// By the key that a user has for it, so that nothing happens that a user could not do; and later, since a
/// message may come up while the assistive tool waits for the end of this call.
void GridCellAccessible::doAction(const QString& action) {
    if (!actionNames().contains(action) || !m_grid->isEnabled())
        return;
    const auto act = [grid = m_grid, cell = QPersistentModelIndex(index()), key = keyOf(action)] {
        if (!grid.isNull() && goTo(*grid, cell) && key != Qt::Key_unknown)
            pressKey(*grid, key);
    };
    QTimer::singleShot(0, m_grid.data(), guarded(act));
}

void GridCellAccessible::tellValue() {
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
    if (!showsCheckBox(column()))
        return;
    QAccessible::State changed;
    changed.checked = true;
    QAccessibleStateChangeEvent ticked(this, changed);
    QAccessible::updateAccessibility(&ticked);
}

} // namespace tarnwell
