#include "controls/grid/GridEditor.h"

#include "controls/SingleLine.h"
#include "controls/grid/GridCellAccessible.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>

#include <algorithm>

namespace tarnwell {

namespace {

QWidget* makeLine(const GridColumn& column, QWidget* parent) {
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    line->setTextMargins(1, 0, 1, 0); // the text stands where the cell shows it
    if (column.maxLength > 0)
        line->setMaxLength(column.maxLength);
    if (column.format == ColumnFormat::Fixed)
        line->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return line;
}

QWidget* makeList(const GridColumn& column, QWidget* parent) {
    QStringList texts;
    texts.reserve(static_cast<int>(column.valueList.size()));
    for (const ListEntry& entry : column.valueList)
        texts.append(entry.text);
    auto* combo = new QComboBox(parent);
    combo->setEditable(true);
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setFrame(false);
    combo->setModel(new QStringListModel(texts, combo));
    combo->completer()->setCompletionMode(QCompleter::InlineCompletion);
    combo->completer()->setCaseSensitivity(Qt::CaseInsensitive);
    return combo;
}

} // namespace

QWidget* makeCellEditor(const GridColumn& column, QWidget* parent) {
    QWidget* editor =
        column.edit == ColumnEdit::ValueList ? makeList(column, parent) : makeLine(column, parent);
    editor->setAutoFillBackground(true);
    // The focus is in the one, what is typed in the other.
    for (QWidget* part : {editor, static_cast<QWidget*>(lineOf(editor))})
        part->setAccessibleName(columnName(column));
    return editor;
}

QLineEdit* lineOf(QWidget* editor) {
    auto* combo = qobject_cast<QComboBox*>(editor);
    return combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

void setEditorText(QWidget* editor, const QString& text, int entry) {
    QLineEdit& line = *lineOf(editor);
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        combo->setCurrentIndex(entry);
        combo->setEditText(text);
    } else {
        line.setMaxLength(std::max(line.maxLength(), static_cast<int>(text.size())));
        line.setText(text);
    }
    keepOnOneLine(line); // from here on: breaks that are stored already stay as they are
    line.selectAll();
}

int chosenEntry(QWidget* editor) {
    const auto* combo = qobject_cast<QComboBox*>(editor);
    if (combo == nullptr)
        return -1;
    // Two entries may share a text: the one that was chosen counts.
    const QString text = combo->currentText();
    const int current = combo->currentIndex();
    if (current >= 0 && combo->itemText(current).compare(text, Qt::CaseInsensitive) == 0)
        return current;
    return combo->findText(text, Qt::MatchFixedString);
}

void findTypedEntry(QWidget* editor) {
    auto* combo = qobject_cast<QComboBox*>(editor);
    const int entry = chosenEntry(editor);
    if (combo != nullptr && entry >= 0 && entry != combo->currentIndex())
        combo->setCurrentIndex(entry);
}

bool isInEditor(const QObject* widget, const QWidget* editor) {
    while (widget != nullptr && widget != editor)
        widget = widget->parent();
    return widget != nullptr;
}

void openEditorList(QWidget* editor) {
    findTypedEntry(editor);
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        combo->showPopup();
}

} // namespace tarnwell
