#pragma once

#include "controls/grid/GridColumn.h"

class QLineEdit;
class QObject;
class QWidget;

namespace tarnwell {

/// The widget that edits a cell: a line, or for a value list a list that is searched by typing. The line of
/// either holds the text.
[[nodiscard]] QWidget* makeCellEditor(const GridColumn& column, QWidget* parent);
[[nodiscard]] QLineEdit* lineOf(QWidget* editor);
/// Shows a cell's text, whole even where the column takes less, and selects it. `entry` is the value list's
/// entry that the text belongs to, from 0; -1 for none. Called once, before the user types.
void setEditorText(QWidget* editor, const QString& text, int entry);
/// The value list's entry that the editor stands on, from 0: the one that was chosen as long as the text is
/// its text, else the first one of that text. -1 when the text is no entry's, and for a line.
[[nodiscard]] int chosenEntry(QWidget* editor);
/// Puts the list on the entry that was typed, for the arrow keys to go on from there.
void findTypedEntry(QWidget* editor);
/// The widget is the editor or in it, also across windows: the list that an editor opens is one of its own.
[[nodiscard]] bool isInEditor(const QObject* widget, const QWidget* editor);
/// Opens the list; does nothing on a line.
void openEditorList(QWidget* editor);

} // namespace tarnwell
