#include "controls/grid/GridEditor.h"
#include "controls/grid/GridParts.h"
#include "data/RunTimeError.h"
#include "runtime/MsgBox.h"

#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTimer>

namespace tarnwell {

bool Grid::Parts::beginEdit() {
    if (delegate->editor() != nullptr || !model->isEditable(row, column) || !takesText(model->column(column)))
        return false;
    grid.scrollTo(model->index(row, column - 1));
    grid.edit(model->index(row, column - 1));
    return delegate->editor() != nullptr;
}

/// What is typed on a tick or a button goes to the row's first text column instead of being lost.
bool Grid::Parts::beginTyping() {
    if (row < 0 || !model->hasColumn(column) || takesText(model->column(column)))
        return beginEdit();
    const int text = textColumn(endColumn(-1));
    return text != 0 && model->isEditable(row, text) && goTo(row, text, Asked::ByUser) && beginEdit();
}

bool Grid::Parts::editorChanged() const {
    return delegate->isEdited();
}

void Grid::Parts::abandonEdit() {
    QWidget* editor = delegate->editor();
    if (editor == nullptr)
        return;
    delegate->forgetEditor();
    // Behind a message the window is not the active one, and the toolkit would give the editor's focus to any
    // control: the next key or button would then act on that.
    if (isInEditor(grid.window()->focusWidget(), editor))
        grid.setFocus(Qt::OtherFocusReason);
    grid.closeEditor(editor, QAbstractItemDelegate::NoHint);
}

ParsedCell Grid::Parts::parseEditor() const {
    const GridColumn& edited = model->column(column);
    const auto entry = static_cast<std::size_t>(chosenEntry(delegate->editor()));
    if (entry < edited.valueList.size())
        return {.value = edited.valueList[entry].value, .refusal = {}};
    return parseCell(edited, model->valueList(column), lineOf(delegate->editor())->text());
}

bool Grid::Parts::finishEdit(Asked asked) {
    if (refusing && asked == Asked::ByUser)
        return false;
    if (!editorChanged()) {
        abandonEdit();
        return true;
    }
    const int edited = column;
    const ParsedCell parsed = parseEditor();
    if (parsed.refusal.isEmpty()) {
        abandonEdit();
        store(edited, parsed.value);
        return true;
    }
    if (asked == Asked::ByProgram)
        tarnwell::raise(Failure::WrongType, parsed.refusal);
    refusal->stop();
    const QScopedValueRollback<bool> guard(refusing, true);
    MsgBox(
        {.text = parsed.refusal, .title = model->column(edited).caption, .icon = MessageIcon::Exclamation});
    if (QWidget* editor = delegate->editor()) {
        editor->setFocus();
        lineOf(editor)->selectAll();
    }
    return false;
}

/// Runs inside the toolkit's change of focus, where no message may come up: a refusal is shown after it.
void Grid::Parts::editorLeft() {
    if (refusing)
        return;
    if (!editorChanged() || parseEditor().refusal.isEmpty()) {
        finishEdit(Asked::ByUser);
        return;
    }
    refusal->start();
}

void Grid::Parts::beginRow() {
    if (model->pending().isActive())
        return;
    model->beginPending(row);
}

void Grid::Parts::store(int toColumn, const Value& value) {
    beginRow();
    model->setPending(toColumn, value);
    Q_EMIT grid.afterColUpdate(toColumn);
}

bool Grid::Parts::toggle() {
    if (!model->isEditable(row, column) || !showsCheckBox(model->column(column)))
        return false;
    store(column, !isYes(model->cellValue(row, column)));
    return true;
}

bool Grid::Parts::clearCell() {
    if (!model->isEditable(row, column) || !takesText(model->column(column)))
        return false;
    if (model->editText(row, column).isEmpty())
        return true;
    const ParsedCell parsed = parseCell(model->column(column), model->valueList(column), {});
    store(column, parsed.value);
    return true;
}

bool Grid::Parts::pressButton() {
    if (row < 0 || !model->hasColumn(column) || !hasButton(model->column(column)))
        return false;
    if (finishEdit(Asked::ByUser))
        Q_EMIT grid.buttonClick(column);
    return true;
}

} // namespace tarnwell
