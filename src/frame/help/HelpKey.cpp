#include "frame/help/HelpKey.h"

#include "frame/help/HelpWindow.h"
#include "runtime/EventGuard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QWidget>

namespace tarnwell {

namespace {

/// The page of the window that the widget is in; a dialog of the toolkit has that of the form that opened it.
QString pageFor(const QWidget& widget) {
    const QWidget* window = widget.window();
    while (!HelpWindow::hasPage(window->objectName()) && window->parentWidget() != nullptr)
        window = window->parentWidget()->window();
    return window->objectName();
}

/// A message's page says something of each of them.
QString messageIn(const QWidget& window) {
    const auto* box = qobject_cast<const QMessageBox*>(&window);
    return box != nullptr ? box->text() : QString();
}

/// What a message must not hide is the form that it came from.
const QWidget* askingWindow(const QWidget& widget) {
    const QWidget* window = widget.window();
    return qobject_cast<const QMessageBox*>(window) != nullptr && window->parentWidget() != nullptr
               ? window->parentWidget()->window()
               : window;
}

} // namespace

HelpKey::HelpKey(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    const auto& widget = *static_cast<QWidget*>(watched);
    runEvent([&] { HelpWindow::open(pageFor(widget), askingWindow(widget), messageIn(*widget.window())); });
    return true;
}

void sendHelpKey() {
    QWidget* front = QApplication::activeWindow();
    if (front != nullptr)
        QCoreApplication::postEvent(front, new QKeyEvent(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier));
}

} // namespace tarnwell
