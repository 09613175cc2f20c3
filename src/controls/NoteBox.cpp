#include "controls/NoteBox.h"

namespace tarnwell {

NoteBox::NoteBox(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
}

QSize NoteBox::minimumSizeHint() const {
    const int margins = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {QPlainTextEdit::minimumSizeHint().width(), 2 * fontMetrics().lineSpacing() + margins};
}

} // namespace tarnwell
