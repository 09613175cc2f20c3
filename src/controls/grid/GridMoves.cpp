#include "controls/grid/GridParts.h"
#include "data/recordset/Recordset.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace tarnwell {

bool Grid::Parts::goTo(int toRow, int toColumn, Asked asked) {
    if (toRow == row && toColumn == column)
        return true;
    const unsigned before = bindings;
    if (!finishEdit(asked) || (toRow != row && !commit(asked, Then::Leave)) || bindings != before)
        return false; // refused, or a handler bound other rows
    const bool there = model->hasIndex(toRow, toColumn - 1);
    if (there)
        place(toRow, toColumn);
    else
        stand(row, column);
    return there;
}

bool Grid::Parts::step(int rows) {
    // A pending new row becomes one row more when it is left.
    const int last = model->rowCount() - (model->pending().isNew() ? 0 : 1);
    if (row >= 0)
        goTo(std::clamp(row + rows, 0, last), column, Asked::ByUser);
    return true;
}

bool Grid::Parts::stepColumn(int direction) {
    if (const int next = nextColumn(column, direction); next != 0)
        goTo(row, next, Asked::ByUser);
    return true;
}

/// Behind a typed text comes the next text: who types a list by Enter must not meet a tick, which the next
/// Enter would turn.
void Grid::Parts::moveOn() {
    if (const int next = textColumn(nextColumn(column, 1)); next != 0) {
        goTo(row, next, Asked::ByUser);
    } else if (row != model->newRowLine()) {
        const int toRow = std::min(row + 1, model->rowCount() - 1);
        goTo(toRow, toRow == row ? column : startColumn(toRow), Asked::ByUser);
    } else {
        goToNewRow();
    }
}

void Grid::Parts::goToNewRow() {
    const int line = model->newRowLine();
    if (line < 0)
        return;
    if (line != row || !model->pending().isActive()) {
        goTo(line, startColumn(line), Asked::ByUser);
        return;
    }
    // What was typed on the line becomes a row; the line behind it is another one.
    if (const unsigned before = bindings; commit(Asked::ByUser, Then::Leave) && bindings == before)
        place(model->newRowLine(), startColumn(model->newRowLine()));
}

int Grid::Parts::nextColumn(int from, int direction) const {
    const QHeaderView& header = *grid.horizontalHeader();
    const int start = from > 0 ? header.visualIndex(from - 1) : (direction > 0 ? -1 : header.count());
    for (int place = start + direction; place >= 0 && place < header.count(); place += direction) {
        const int candidate = header.logicalIndex(place) + 1;
        if (model->hasColumn(candidate) && isStop(model->column(candidate)))
            return candidate;
    }
    return 0;
}

int Grid::Parts::endColumn(int direction) const {
    return nextColumn(0, -direction);
}

int Grid::Parts::startColumn(int toRow) const {
    const int start = endColumn(-1);
    if (toRow != model->newRowLine())
        return start;
    // A new row begins by typing.
    const int text = textColumn(start);
    return text != 0 ? text : start;
}

int Grid::Parts::textColumn(int from) const {
    int each = from;
    while (each != 0 && !takesText(model->column(each)))
        each = nextColumn(each, 1);
    return each;
}

int Grid::Parts::rowsOnPage() const {
    const int height = grid.verticalHeader()->defaultSectionSize();
    return std::max(1, grid.viewport()->height() / height - 1);
}

void Grid::Parts::arrange() {
    delegate->setHintColumn(startColumn(model->newRowLine()) - 1);
    const int toRow = std::min(row, model->rowCount() - 1);
    const bool keeps = model->hasColumn(column) && isStop(model->column(column));
    stand(toRow, keeps ? column : startColumn(toRow));
}

void Grid::Parts::showRows(std::shared_ptr<Recordset> rows, int number, const QString& ofList) {
    ++bindings;
    pressed = QPersistentModelIndex();
    abandonEdit();
    const bool isOpen = rows != nullptr && rows->State() == ObjectState::Open;
    const QString throughFilter = isOpen ? rows->Filter() : QString();
    {
        const QScopedValueRollback<bool> guard(moving, true);
        model->bind(std::move(rows));
    }
    const bool isSameList = shownList == ofList && shownFilter == throughFilter;
    shownList = ofList;
    shownFilter = throughFilter;
    const int wanted = model->modelRowOf(std::min(std::max(number, 1), model->recordCount()));
    const int toRow = wanted >= 0 ? wanted : model->rowCount() - 1;
    // In another list what is typed next is most likely a name: it must not meet a tick or a price.
    const bool keeps = isSameList && model->hasColumn(column) && isStop(model->column(column));
    const int text = textColumn(endColumn(-1));
    const int toColumn = keeps ? column : text != 0 ? text : startColumn(toRow);
    stand(toRow, toRow >= 0 ? toColumn : 0);
    widths->fitTexts();
    if (model->recordset() != nullptr)
        Q_EMIT grid.rowColChange(-1, 0);
}

bool Grid::Parts::showAgain(std::shared_ptr<Recordset> rows, const QString& key) {
    if (grid.isPending() || delegate->editor() != nullptr || writing || refusing ||
        model->recordset() == nullptr)
        return false;
    const bool onRow = row >= 0 && row != model->newRowLine();
    int number = 1;
    if (onRow) {
        const int field = rows->FieldIndex(key);
        const Value current = model->recordset()->valueAt(rowNumber(), field);
        while (rows->hasRow(number) && rows->valueAt(number, field) != current)
            ++number;
        if (!rows->hasRow(number))
            return false;
    }
    QScrollBar& scroll = *grid.verticalScrollBar();
    const int rowsAbove = row - scroll.value();
    const int sideways = grid.horizontalScrollBar()->value();
    ++bindings;
    pressed = QPersistentModelIndex();
    {
        const QScopedValueRollback<bool> guard(moving, true);
        model->bind(std::move(rows));
    }
    if (row >= 0)
        stand(onRow ? model->modelRowOf(number) : model->newRowLine(), column);
    grid.horizontalScrollBar()->setValue(sideways);
    scroll.setValue(row - rowsAbove);
    return true;
}

void Grid::Parts::place(int toRow, int toColumn) {
    const int lastRow = rowNumber();
    const int lastColumn = column;
    stand(toRow, toColumn);
    Q_EMIT grid.rowColChange(lastRow, lastColumn);
}

void Grid::Parts::stand(int toRow, int toColumn) {
    const int leftRow = row;
    row = toColumn > 0 ? toRow : -1;
    column = row >= 0 ? toColumn : 0;
    delegate->setCurrent(row, column - 1);
    rowHeader->setCurrentRow(row);
    {
        const QScopedValueRollback<bool> guard(moving, true);
        grid.selectionModel()->setCurrentIndex(model->index(row, column - 1), QItemSelectionModel::NoUpdate);
    }
    repaintRow(leftRow);
    repaintRow(row);
    Recordset* rows = model->recordset();
    if (rows != nullptr && row >= 0 && row != model->newRowLine() && !rows->isEditing())
        rows->setAbsolutePosition(rowNumber());
}

void Grid::Parts::repaintRow(int modelRow) const {
    if (modelRow >= 0)
        grid.viewport()->update(0, grid.rowViewportPosition(modelRow), grid.viewport()->width(),
                                grid.rowHeight(modelRow));
}

/// Something moved the view's current index by itself: a toolkit's own way, or an assistive tool.
void Grid::Parts::followView(const QModelIndex& current) {
    if (moving || (current.row() == row && current.column() == column - 1))
        return;
    const bool stop = current.isValid() && isStop(model->column(current.column() + 1));
    if (!stop || !goTo(current.row(), current.column() + 1, Asked::ByUser)) {
        const QScopedValueRollback<bool> guard(moving, true);
        grid.selectionModel()->setCurrentIndex(model->index(row, column - 1), QItemSelectionModel::NoUpdate);
    }
}

} // namespace tarnwell
