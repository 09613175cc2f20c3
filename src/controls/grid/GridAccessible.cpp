#include "controls/grid/GridAccessible.h"

#include "controls/grid/Grid.h"
#include "controls/grid/GridCellAccessible.h"
#include "controls/grid/GridModel.h"

#include <QHeaderView>

namespace tarnwell {

namespace {

const GridModel& modelOf(const Grid& grid) {
    return *qobject_cast<const GridModel*>(grid.model());
}

/// The row's number and what the margin shows of it.
QString rowName(const Grid& grid, int row) {
    const GridModel& model = modelOf(grid);
    const QString mark = row == model.pendingLine()         ? Grid::tr("being edited")
                         : row == grid.currentIndex().row() ? Grid::tr("current")
                                                            : QString();
    const QString name =
        row == model.newRowLine() ? Grid::tr("New row") : Grid::tr("Row %1").arg(model.numberOf(row));
    return mark.isEmpty() ? name : QStringLiteral("%1, %2").arg(name, mark);
}

QAccessibleInterface* accessibleGrid(const QString& className, QObject* object) {
    auto* grid = className == QStringLiteral("tarnwell::Grid") ? qobject_cast<Grid*>(object) : nullptr;
    return grid != nullptr ? new GridAccessible(*grid) : nullptr;
}

} // namespace

GridAccessible::GridAccessible(Grid& grid) : QAccessibleWidget(&grid, QAccessible::Table), m_grid(grid) {}

GridAccessible::~GridAccessible() {
    forgetCells();
}

void GridAccessible::forgetCells() {
    for (const auto& [place, id] : std::exchange(m_cells, {}))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessible::State GridAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = !modelOf(m_grid).takesEdits();
    return state;
}

int GridAccessible::sectionOf(int column) const {
    const QHeaderView& header = *m_grid.horizontalHeader();
    for (int place = 0; place < header.count(); ++place)
        if (const int section = header.logicalIndex(place); !header.isSectionHidden(section) && column-- == 0)
            return section;
    return -1;
}

int GridAccessible::columnOf(int section) const {
    const QHeaderView& header = *m_grid.horizontalHeader();
    if (section < 0 || section >= header.count() || header.isSectionHidden(section))
        return -1;
    int column = 0;
    for (int place = 0; header.logicalIndex(place) != section; ++place)
        column += header.isSectionHidden(header.logicalIndex(place)) ? 0 : 1;
    return column;
}

int GridAccessible::columnCount() const {
    const QHeaderView& header = *m_grid.horizontalHeader();
    return header.count() - header.hiddenSectionCount();
}

int GridAccessible::rowCount() const {
    return m_grid.model()->rowCount();
}

int GridAccessible::childCount() const {
    return columnCount() + rowCount() * (columnCount() + 1);
}

QAccessibleInterface* GridAccessible::child(int index) const {
    const int columns = columnCount();
    if (index < 0 || index >= childCount())
        return nullptr;
    if (index < columns)
        return at({-1, index});
    const int behind = index - columns;
    return at({behind / (columns + 1), behind % (columns + 1) - 1});
}

int GridAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* cell = dynamic_cast<const GridCellAccessible*>(child);
    if (cell == nullptr)
        return -1;
    return cell->rowIndex() < 0
               ? cell->columnIndex()
               : columnCount() + cell->rowIndex() * (columnCount() + 1) + cell->columnIndex() + 1;
}

QAccessibleInterface* GridAccessible::childAt(int x, int y) const {
    const QModelIndex index = m_grid.indexAt(m_grid.viewport()->mapFromGlobal(QPoint(x, y)));
    return index.isValid() ? cellAt(index.row(), columnOf(index.column())) : nullptr;
}

QAccessibleInterface* GridAccessible::focusChild() const {
    const QModelIndex current = m_grid.currentIndex();
    if (m_grid.hasFocus() && current.isValid())
        return cellAt(current.row(), columnOf(current.column()));
    return QAccessibleWidget::focusChild();
}

void* GridAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessibleInterface* GridAccessible::cellAt(int row, int column) const {
    const bool there = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return there ? at({row, column}) : nullptr;
}

QAccessibleInterface* GridAccessible::columnHeader(int column) const {
    return at({-1, column});
}

QAccessibleInterface* GridAccessible::rowHeader(int row) const {
    return at({row, -1});
}

QAccessibleInterface* GridAccessible::at(Place place) const {
    if (const auto known = m_cells.find(place); known != m_cells.end())
        return QAccessible::accessibleInterface(known->second);
    auto* cell = new GridCellAccessible(m_grid, place.first, place.second);
    m_cells[place] = QAccessible::registerAccessibleInterface(cell); // which owns it
    return cell;
}

QString GridAccessible::columnDescription(int column) const {
    const int section = sectionOf(column);
    return section >= 0 ? columnName(modelOf(m_grid).column(section + 1)) : QString();
}

QString GridAccessible::rowDescription(int row) const {
    return row >= 0 && row < rowCount() ? rowName(m_grid, row) : QString();
}

int GridAccessible::selectedRowCount() const {
    return m_grid.currentIndex().isValid() ? 1 : 0;
}

QList<int> GridAccessible::selectedRows() const {
    const QModelIndex current = m_grid.currentIndex();
    return current.isValid() ? QList<int>{current.row()} : QList<int>{};
}

bool GridAccessible::isRowSelected(int row) const {
    return row >= 0 && m_grid.currentIndex().row() == row;
}

int GridAccessible::selectedCellCount() const {
    return selectedRowCount() * columnCount();
}

QList<QAccessibleInterface*> GridAccessible::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        for (int column = 0; column < columnCount(); ++column)
            cells.append(cellAt(row, column));
    return cells;
}

bool GridAccessible::selectRow(int row) {
    const QModelIndex current = m_grid.currentIndex();
    if (!m_grid.isEnabled() || !current.isValid() || row < 0 || row >= rowCount())
        return false;
    m_grid.setCurrentIndex(current.siblingAtRow(row));
    return isRowSelected(row);
}

/// Cells that only have other values stay what they are, and the current one says so.
void GridAccessible::modelChange(QAccessibleTableModelChangeEvent* event) {
    if (event->modelChangeType() != QAccessibleTableModelChangeEvent::DataChanged) {
        forgetCells();
        return;
    }
    const QModelIndex current = m_grid.currentIndex();
    if (!m_grid.hasFocus() || current.row() < event->firstRow() || current.row() > event->lastRow())
        return;
    auto* cell = dynamic_cast<GridCellAccessible*>(cellAt(current.row(), columnOf(current.column())));
    if (cell != nullptr)
        cell->tellValue();
}

void installAccessibleGrids() {
    static const bool installed = (QAccessible::installFactory(accessibleGrid), true);
    static_cast<void>(installed);
}

void tellCurrentCell(Grid& grid) {
    if (!QAccessible::isActive() || !grid.hasFocus())
        return;
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&grid);
    QAccessibleInterface* cell = table != nullptr ? table->focusChild() : nullptr;
    if (cell == nullptr)
        return;
    for (const auto kind : {QAccessible::Focus, QAccessible::Selection}) {
        QAccessibleEvent event(cell, kind);
        QAccessible::updateAccessibility(&event);
    }
}

} // namespace tarnwell
