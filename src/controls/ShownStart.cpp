#include "controls/ShownStart.h"

#include <QApplication>
#include <QLineEdit>

namespace tarnwell {

void showStartWhenLeft(QLineEdit& line) {
    QObject::connect(&line, &QLineEdit::textChanged, &line, [&line] {
        if (!line.hasFocus())
            line.setCursorPosition(0);
    });
    // A message or another window in between leaves the caret and what is selected where they are.
    QObject::connect(&line, &QLineEdit::editingFinished, &line, [&line] {
        const QWidget* focused = QApplication::focusWidget();
        if (focused != nullptr && focused->window() == line.window() && !line.hasFocus())
            line.setCursorPosition(0);
    });
}

} // namespace tarnwell
