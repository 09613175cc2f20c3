#pragma once

#include "controls/grid/GridColumn.h"

class QLineEdit;
class QWidget;

namespace tarnwell {

/// The widget that edits a cell: a line, or for a value list a list that is searched by typing. The line of
/// either holds the text.
[[nodiscard]] QWidget* makeCellEditor(const GridColumn& column, QWidget* parent);
[[nodiscard]] QLineEdit* lineOf(QWidget* editor);
void setEditorText(QWidget* editor, const QString& text);
/// Puts the list on the entry that was typed, for the arrow keys to go on from there.
void findTypedEntry(QWidget* editor);
/// Opens the list; does nothing on a line.
void openEditorList(QWidget* editor);

} // namespace tarnwell
