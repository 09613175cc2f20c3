#include "controls/KeyCodes.h"
#include "controls/grid/GridEditor.h"
#include "controls/grid/GridParts.h"
#include "data/RunTimeError.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modGeneral.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

constexpr int space = 32, pageUp = 33, pageDown = 34, insertKey = 45, letterC = 'C', f2 = 113, f4 = 115;
constexpr int none = 0, shiftHeld = 1, ctrlHeld = 2, altHeld = 4;

bool isRowKey(int code) {
    return code == KeyCode::Up || code == KeyCode::Down || code == pageUp || code == pageDown;
}

/// Keys that leave an open editor and then act on the grid. A list keeps the arrows for its entries.
bool leavesEditor(int code, int shift, bool list) {
    if (code == KeyCode::Tab || code == KeyCode::Enter || (code == insertKey && shift == none))
        return true;
    return isRowKey(code) && !list && shift == none;
}

bool isTyped(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held =
        event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool third = held == (Qt::ControlModifier | Qt::AltModifier); // AltGr on Windows
    return !event.text().isEmpty() && event.text().front().isPrint() && (!held || third);
}

} // namespace

bool Grid::Parts::pressKey(const QKeyEvent& event, bool inEditor) {
    const int pressedCode = keyCodeOf(event);
    int code = pressedCode;
    // The toolkit passes Shift+Tab on as a key of its own.
    const int shift = event.key() == Qt::Key_Backtab ? shiftHeld : shiftStateOf(event);
    const QPointer<Grid> alive(&grid);
    Q_EMIT grid.keyDown(code, shift);
    if (alive.isNull() || code == 0 || runKey(code, shift, inEditor))
        return true;
    if (code != pressedCode || !isTyped(event) || !beginTyping())
        return false;
    QKeyEvent typed(event.type(), event.key(), event.modifiers(), event.text());
    QCoreApplication::sendEvent(delegate->editor(), &typed);
    return true;
}

bool Grid::Parts::runKey(int code, int shift, bool inEditor) {
    struct Action {
        int code, shift;
        bool (*run)(Parts&);
    };
    static constexpr auto toEnd = [](Parts& p, int direction) {
        if (const int end = p.endColumn(direction); p.row >= 0 && end != 0)
            p.goTo(p.row, end, Asked::ByUser);
        return true;
    };
    static constexpr auto toRow = [](Parts& p, int number, int direction) {
        if (const int target = p.model->modelRowOf(number); target >= 0)
            p.goTo(target, direction < 0 ? p.startColumn(target) : p.endColumn(1), Asked::ByUser);
        return true;
    };
    static constexpr std::array actions{
        Action{KeyCode::Left, none, [](Parts& p) { return p.stepColumn(-1); }},
        Action{KeyCode::Right, none, [](Parts& p) { return p.stepColumn(1); }},
        Action{KeyCode::Up, none, [](Parts& p) { return p.step(-1); }},
        Action{KeyCode::Down, none, [](Parts& p) { return p.step(1); }},
        Action{KeyCode::Home, none, [](Parts& p) { return toEnd(p, -1); }},
        Action{KeyCode::End, none, [](Parts& p) { return toEnd(p, 1); }},
        Action{KeyCode::Home, ctrlHeld, [](Parts& p) { return toRow(p, 1, -1); }},
        Action{KeyCode::End, ctrlHeld, [](Parts& p) { return toRow(p, p.model->recordCount(), 1); }},
        Action{pageUp, none, [](Parts& p) { return p.step(-p.rowsOnPage()); }},
        Action{pageDown, none, [](Parts& p) { return p.step(p.rowsOnPage()); }},
        Action{KeyCode::Tab, none, [](Parts& p) { return p.tab(1); }},
        Action{KeyCode::Tab, shiftHeld, [](Parts& p) { return p.tab(-1); }},
        Action{KeyCode::Escape, none, [](Parts& p) { return p.escape(); }},
        Action{KeyCode::Delete, none, [](Parts& p) { return p.clearCell(); }},
        Action{KeyCode::Down, altHeld, [](Parts& p) { return p.openList(); }},
        Action{f4, none, [](Parts& p) { return p.openList(); }},
        Action{f2, none, [](Parts& p) { return p.beginEdit(); }},
        Action{insertKey, none,
               [](Parts& p) {
                   p.goToNewRow();
                   return true;
               }},
        Action{letterC, ctrlHeld, [](Parts& p) { return p.copy(); }},
    };
    if (code == KeyCode::Enter && shift == none)
        return enter(inEditor);
    if (code == space && (shift == none || shift == shiftHeld))
        return toggle() || (model->hasColumn(column) &&
                            model->column(column).edit == ColumnEdit::ButtonOnly && pressButton());
    const auto* const action = std::ranges::find_if(
        actions, [&](const Action& each) { return each.code == code && each.shift == shift; });
    return action != actions.end() && action->run(*this);
}

bool Grid::Parts::editorKey(const QKeyEvent& event) {
    const int code = keyCodeOf(event);
    const int shift = shiftStateOf(event);
    const bool list = qobject_cast<QComboBox*>(delegate->editor()) != nullptr;
    if (code == KeyCode::Escape) {
        abandonEdit();
        Q_EMIT grid.givenUp();
        return true;
    }
    if (!list && (code == f4 || (code == KeyCode::Down && shift == altHeld)))
        return pressButton();
    if (!leavesEditor(code, shift, list)) {
        if (list && (isRowKey(code) || code == f4))
            findTypedEntry(delegate->editor());
        return false;
    }
    if (!finishEdit(Asked::ByUser))
        return true;
    if (!pressKey(event, true) && code == KeyCode::Tab)
        grid.QAbstractScrollArea::focusNextPrevChild(event.key() == Qt::Key_Tab && shift == none);
    return true;
}

/// False lets the focus go to the next control.
bool Grid::Parts::tab(int direction) {
    if (row < 0 || !model->takesEdits())
        return false;
    if (const int next = nextColumn(column, direction); next != 0) {
        goTo(row, next, Asked::ByUser);
        return true;
    }
    return !commit(Asked::ByUser, Then::Stay);
}

bool Grid::Parts::enter(bool inEditor) {
    if (row < 0 || !model->takesEdits())
        return false;
    if (inEditor || !(toggle() || beginEdit()))
        moveOn();
    return true;
}

bool Grid::Parts::openList() {
    if (pressButton())
        return true;
    if (!model->hasColumn(column) || model->column(column).edit != ColumnEdit::ValueList || !beginEdit())
        return false;
    openEditorList(delegate->editor());
    return true;
}

bool Grid::Parts::escape() {
    if (!model->pending().isActive())
        return false;
    try {
        cancel();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {}); // the rows of before stay on show
    }
    Q_EMIT grid.givenUp();
    return true;
}

bool Grid::Parts::copy() const {
    if (row < 0)
        return false;
    QApplication::clipboard()->setText(model->index(row, column - 1).data().toString());
    return true;
}

void walkByEnter(const Grid& grid, int& keyCode) {
    if (keyCode == KeyCode::Enter)
        keyCode = grid.Col() == grid.lastColumn() ? KeyCode::Home : KeyCode::Right;
}

} // namespace tarnwell
