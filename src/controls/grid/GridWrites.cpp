#include "controls/grid/GridParts.h"
#include "data/RunTimeError.h"
#include "data/recordset/Recordset.h"
#include "runtime/modErrorRoutines.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace tarnwell {

bool Grid::Parts::commit(Asked asked, Then then) {
    if (writing)
        return true; // a handler of the write that is under way
    if (!finishEdit(asked))
        return false;
    if (!model->pending().isActive())
        return true;
    if (model->recordset() == nullptr) {
        model->dropPending(); // closed behind the grid: there is nowhere to write to
        return true;
    }
    const unsigned before = bindings;
    const QScopedValueRollback<bool> guard(writing, true);
    bool refused = false;
    Q_EMIT grid.beforeUpdate(refused);
    if (refused || bindings != before || !model->pending().isActive())
        return !refused;
    if (!write(asked))
        return false;
    try {
        Q_EMIT grid.afterUpdate();
    } catch (...) {
        settle(then); // the row is written, whatever its handler does
        throw;
    }
    if (bindings == before)
        settle(then);
    return true;
}

bool Grid::Parts::write(Asked asked) {
    try {
        model->writePending();
        return true;
    } catch (const RunTimeError& error) {
        if (asked == Asked::ByProgram)
            throw;
        ErrorHandler(error, {});
        return false;
    }
}

void Grid::Parts::settle(Then then) {
    const int written = model->settlePending();
    if (written < 0) {
        // The new row is not among the rows on show: a filter keeps it out.
        showRows(model->boundTo(), rowNumber(), shownList);
        return;
    }
    if (then == Then::Stay) {
        stand(written, column);
        return;
    }
    row = written;
}

void Grid::Parts::cancel() {
    const bool stale = model->pending().isStale();
    giveUpEdits();
    Recordset* rows = model->recordset();
    if (!stale || rows == nullptr)
        return;
    const int number = rowNumber();
    rows->Requery();
    showRows(model->boundTo(), number, shownList);
}

void Grid::Parts::giveUpEdits() {
    abandonEdit();
    model->dropPending();
}

void Grid::Parts::deleteRow() {
    if (row < 0)
        return;
    if (row == model->newRowLine()) {
        cancel();
        return;
    }
    if (!allowDelete)
        tarnwell::raise(Failure::NotAllowed);
    const int deleted = rowNumber();
    const int lastColumn = column;
    try {
        model->deleteStored(deleted);
    } catch (const RunTimeError& error) {
        if (error.is(Failure::RowDeleted))
            giveUpEdits(); // there is no row left that could take them
        throw;
    }
    giveUpEdits();
    ++bindings;
    {
        const QScopedValueRollback<bool> guard(moving, true);
        model->removeRow(deleted);
    }
    const int toRow = std::min(row, model->rowCount() - 1);
    stand(toRow, toRow >= 0 ? lastColumn : 0);
    Q_EMIT grid.rowColChange(deleted, lastColumn);
}

} // namespace tarnwell
