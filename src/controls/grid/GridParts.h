#pragma once

#include "controls/grid/Grid.h"
#include "controls/grid/GridDelegate.h"
#include "controls/grid/GridModel.h"
#include "controls/grid/GridRowHeader.h"
#include "controls/grid/GridWidths.h"

#include <QPersistentModelIndex>

class QKeyEvent;
class QMouseEvent;
class QTimer;

namespace tarnwell {

/// What a grid does: moves, edits, writes, keys and clicks, each in a file of its own. `row` is the current
/// model row and `column` the current column from 1; the view's current index follows them, so that a row
/// that is left stays the current one until it is written.
struct Grid::Parts {
    /// Who started a move or a write: a refusal is shown to the user, or raised to the code.
    enum class Asked { ByUser, ByProgram };
    enum class Then { Stay, Leave };

    explicit Parts(Grid& grid);

    // GridMoves.cpp
    bool goTo(int toRow, int toColumn, Asked asked);
    /// By rows, up or down; stops at the ends.
    bool step(int rows);
    /// Keeps the row.
    bool stepColumn(int direction);
    /// To the row's next text, and from the last one to the next row.
    void moveOn();
    void goToNewRow();
    /// The next column that can be current, to the right or left; 0 when there is none.
    [[nodiscard]] int nextColumn(int from, int direction) const;
    [[nodiscard]] int endColumn(int direction) const;
    /// `from`, or the first column behind it, that takes text; 0 when there is none.
    [[nodiscard]] int textColumn(int from) const;
    /// Where work on a row begins.
    [[nodiscard]] int startColumn(int toRow) const;
    /// After columns, layout or the new-row line changed.
    void arrange();
    void showRows(std::shared_ptr<Recordset> rows, int number, const QString& ofList);
    bool showAgain(std::shared_ptr<Recordset> rows, const QString& key);
    /// The new current cell, and the event.
    void place(int toRow, int toColumn);
    void stand(int toRow, int toColumn);
    void repaintRow(int modelRow) const;
    void followView(const QModelIndex& current);
    [[nodiscard]] int rowNumber() const { return model->numberOf(row); }
    [[nodiscard]] int rowsOnPage() const;

    // GridEdits.cpp
    bool beginEdit();
    /// For a character that was typed outside an editor.
    bool beginTyping();
    /// Takes an open editor's text into the row. False when it was refused and is still open.
    bool finishEdit(Asked asked);
    [[nodiscard]] ParsedCell parseEditor() const;
    void abandonEdit();
    [[nodiscard]] bool editorChanged() const;
    void store(int toColumn, const Value& value);
    void beginRow();
    bool toggle();
    bool clearCell();
    bool pressButton();
    void editorLeft();

    // GridWrites.cpp
    bool commit(Asked asked, Then then);
    bool write(Asked asked);
    void settle(Then then);
    void cancel();
    void giveUpEdits();
    void deleteRow();

    // GridKeys.cpp
    bool pressKey(const QKeyEvent& event, bool inEditor);
    bool runKey(int code, int shift, bool inEditor);
    bool editorKey(const QKeyEvent& event);
    bool tab(int direction);
    bool enter(bool inEditor);
    bool openList();
    bool escape();
    bool copy() const;

    // GridMouse.cpp
    void press(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void pressRow(int toRow);
    [[nodiscard]] bool tookFocus() const;

    Grid& grid;
    GridModel* model;
    GridDelegate* delegate;
    GridRowHeader* rowHeader;
    GridWidths* widths = nullptr;
    QTimer* refusal; ///< Runs while a refusal waits for the focus to have settled.
    int row = -1;
    int column = 0;
    EmptyHint emptyHint;
    bool allowDelete = false;
    bool moving = false;   ///< The view's current index is being set by us.
    bool writing = false;  ///< Between beforeUpdate and afterUpdate.
    bool refusing = false; ///< A refusal is on show.
    QString shownList;     ///< What `bind` named the rows that are on show.
    QString shownFilter;   ///< Their filter when they were shown.
    unsigned bindings = 0; ///< Counts the times that rows were shown anew.
    QPersistentModelIndex pressed;
    bool wasCurrent = false;  ///< The pressed cell was the current one before.
    bool clickedInto = false; ///< The press at hand brought the focus.
    QString layoutPath;       ///< The layout that is in force.
};

} // namespace tarnwell
