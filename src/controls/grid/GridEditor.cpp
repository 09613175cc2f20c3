#include "controls/grid/GridEditor.h"

#include "controls/OneLine.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>

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
    keepOnOneLine(*lineOf(editor));
    editor->setAutoFillBackground(true);
    editor->setAccessibleName(column.caption);
    return editor;
}

QLineEdit* lineOf(QWidget* editor) {
    auto* combo = qobject_cast<QComboBox*>(editor);
    return combo != nullptr ? combo->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

void setEditorText(QWidget* editor, const QString& text) {
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        combo->setCurrentIndex(combo->findText(text, Qt::MatchFixedString));
        combo->setEditText(text);
    } else {
        lineOf(editor)->setText(text);
    }
    lineOf(editor)->selectAll();
}

void findTypedEntry(QWidget* editor) {
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        const int entry = combo->findText(combo->currentText(), Qt::MatchFixedString);
        if (entry >= 0 && entry != combo->currentIndex())
            combo->setCurrentIndex(entry);
    }
}

void openEditorList(QWidget* editor) {
    findTypedEntry(editor);
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        combo->showPopup();
}

} // namespace tarnwell
