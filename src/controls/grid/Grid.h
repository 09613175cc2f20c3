#pragma once

#include "controls/EmptyHint.h"
#include "controls/grid/GridColumn.h"
#include "data/RunTimeError.h"
#include "data/Value.h"

#include <QTableView>

#include <memory>
#include <vector>

namespace tarnwell {

class Recordset;
class GridModel;

/// A table bound to a recordset: rows are read from it when they are shown, never copied. Columns are known
/// by their number from 1, also hidden ones; the model's column n-1 is column n. One row at a time may be
/// pending (edited and not yet written); leaving the row, `Update` and `bind` write it, Escape gives it up.
/// Write it before the recordset is filtered, requeried or closed: row numbers mean other rows afterwards.
///
/// A write that a user's move started and that the database refuses is shown through `ErrorHandler`; the row
/// stays pending and current. The same write started by code (`Update`, `setRow`, `bind`) raises to the
/// caller. When the refusal came from another user's change, Escape and `CancelUpdate` read the rows anew.
///
/// The recordset stands on the grid's row, except on the new-row line, where it stays as it was.
class Grid : public QTableView {
    Q_OBJECT

public:
    explicit Grid(QWidget* parent = nullptr);
    ~Grid() override;

    void setColumns(std::vector<GridColumn> columns);
    [[nodiscard]] const std::vector<GridColumn>& columns() const;
    void setAllowAdd(bool allow, NewRowPosition position = NewRowPosition::Last);
    /// Whether the rows of the next binding belong to something: those of no job or plan have no new-row
    /// line, also where adding is allowed. True at first.
    void setHasOwner(bool has);
    /// Shown while there is no row and no new-row line.
    void setEmptyHint(EmptyHint hint);
    void setAllowEdit(bool allow);
    void setAllowDelete(bool allow);

    /// Shows the recordset's rows and stands on the first; null unbinds. Writes the pending row first. The
    /// rows are read to the end before anything changes: when that raises, the rows of before stay on show.
    /// Rows of another `list` (the statement, or what else names them) or under another filter than before
    /// begin in the first column that takes text; else the column stays.
    void bind(std::shared_ptr<Recordset> recordset, const QString& list = {});
    /// The same with a recordset that stays the caller's and must outlive the binding.
    void bind(Recordset* recordset);
    /// Reads the bound recordset anew (after Requery or a filter). Drops a pending row. Raises as `bind`.
    void Rebind();
    /// Whether rows hold what the rows on show hold.
    [[nodiscard]] bool shows(const Recordset& rows) const;
    /// Shows the same list as it was read again, in place of what is on show, and moves nothing: the current
    /// row, which the field `key` tells from others, its column and its place in the window stay, and no
    /// event is fired. False, and nothing is shown, while something is being edited or written, and when the
    /// current row is not among them any more: the user then learns of it at the next step.
    [[nodiscard]] bool showAgain(std::shared_ptr<Recordset> recordset, const QString& key);
    /// Column order and widths from a layout file; a missing file leaves the columns as they are.
    void LoadLayout(const QString& path);

    /// Rows of the recordset, without the new-row line.
    [[nodiscard]] int RowCount() const;
    /// Current row from 1; RowCount()+1 on the new-row line; -1 when there is none.
    [[nodiscard]] int Row() const;
    /// Moves to a row and fires `rowColChange`; does nothing for a row that is not there. Raises as `Update`.
    void setRow(int row);
    /// Current column from 1, counting hidden ones; 0 when there is none.
    [[nodiscard]] int Col() const;
    /// Hidden columns and unknown ones are passed over: nothing happens.
    void setCol(int column);
    /// The rightmost column on screen; 0 when there is none.
    [[nodiscard]] int lastColumn() const;

    /// The current row's value, pending ones included; Empty without a row and for what was never set.
    [[nodiscard]] Value value(int column) const;
    [[nodiscard]] Value value(const QString& key) const;
    /// A written value of row n; Empty when there is no such row.
    [[nodiscard]] Value valueAt(int row, int column) const;
    /// Sets a cell of the current row, making it pending. Raises NoCurrentRecord without a row.
    void setValue(int column, const Value& value);
    [[nodiscard]] bool isPending() const;

    /// Writes the pending row: closes an open cell editor, beforeUpdate, write, afterUpdate. Nothing pending:
    /// does nothing. Raises what the recordset raises and what an editor's value is refused with.
    void Update();
    /// The same as when the user leaves the row: what is refused is shown, and the row stays pending. False
    /// then. For lost focus and other events behind which nobody catches.
    bool UpdateOrTell();
    /// Gives the pending row up.
    void CancelUpdate();
    /// Deletes the current row; gives a pending new row up instead. Raises what the recordset raises, and
    /// NotAllowed where deleting is not allowed: what was typed in the row is then still pending, unless the
    /// row no longer exists.
    void Delete();

    void setValueList(int column, std::vector<ListEntry> entries);
    /// Draws the rows' tree in a column: a parent's text is bold, a child's is indented behind a branch. The
    /// order of the rows stays as it is.
    void setTree(int column, TreeRule rule);
    /// The column's status bar text; empty for none.
    [[nodiscard]] QString columnTag(int column) const;

Q_SIGNALS:
    /// The current cell changed, or the rows were bound anew. -1 and 0 for none before.
    void rowColChange(int lastRow, int lastCol);
    /// Escape gave up what was typed: a cell's text, or all of the pending row.
    void givenUp();
    /// Before the pending row is written: hidden columns may be set here; setting `cancel` keeps it pending.
    void beforeUpdate(bool& cancel);
    /// The row is written and still current, with its own values, its key still Empty when it was new.
    void afterUpdate();
    /// A cell's edit was taken into the row.
    void afterColUpdate(int column);
    /// A column's button was pressed, by mouse or by F4 / Alt+Down / Space on a button column.
    void buttonClick(int column);
    /// A key went down in the grid outside an editor; set `keyCode` to 0 to swallow or to another code
    /// to replace it. Codes as in `KeyCode`.
    void keyDown(int& keyCode, int shift);
    void doubleClick();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m;
};

/// A grid whose rows can be changed, added and deleted.
[[nodiscard]] Grid* editableGrid(QWidget* parent, std::vector<GridColumn> columns);

/// For `keyDown`: Enter walks along the row and begins it again at its end.
void walkByEnter(const Grid& grid, int& keyCode);

} // namespace tarnwell
