#include "controls/TextStart.h"

#include "runtime/EventGuard.h"

#include <QApplication>
#include <QLineEdit>

namespace tarnwell {

namespace {

/// Also while its window waits for the window manager to give it the keyboard back, after a message say.
bool isWorkedOn(const QLineEdit& line) {
    const QWidget* taking = &line;
    while (taking->focusProxy() != nullptr)
        taking = taking->focusProxy();
    return line.window()->focusWidget() == taking;
}

} // namespace

void showStartWhenLeft(QLineEdit& line) {
    QObject::connect(&line, &QLineEdit::textChanged, &line, guarded([&line] {
        if (!isWorkedOn(line))
            line.setCursorPosition(0);
    }));
    // A message or another window in between leaves the caret and what is selected where they are.
    QObject::connect(&line, &QLineEdit::editingFinished, &line, guarded([&line] {
        const QWidget* focused = QApplication::focusWidget();
        if (focused != nullptr && focused->window() == line.window() && !line.hasFocus())
            line.setCursorPosition(0);
    }));
}

} // namespace tarnwell
