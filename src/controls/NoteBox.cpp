#include "controls/NoteBox.h"

#include <QMimeData>

namespace tarnwell {

NoteBox::NoteBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
}

QSize NoteBox::minimumSizeHint() const {
    const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {QPlainTextEdit::minimumSizeHint().width(), 2 * fontMetrics().lineSpacing() + margins};
}

/// The toolkit looks at the first of the formats without asking whether there is one: an empty clipboard has
/// none.
void NoteBox::insertFromMimeData(const QMimeData* source) {
    if (source != nullptr && !source->formats().isEmpty())
        QPlainTextEdit::insertFromMimeData(source);
}

} // namespace tarnwell
