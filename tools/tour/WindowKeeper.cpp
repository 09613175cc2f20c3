#include "tour/WindowKeeper.h"

#include <QEvent>
#include <QGuiApplication>
#include <QTimer>

namespace tarnwell::tour {

WindowKeeper::WindowKeeper(bool isDesktop, QObject* parent) : QObject(parent), m_isDesktop(isDesktop) {
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, &WindowKeeper::follow);
    qGuiApp->installEventFilter(
        this); // A window that is destroyed loses the focus without an event of its own.
}

bool WindowKeeper::eventFilter(QObject* watched, QEvent* event) {
    if (m_isDesktop && event->type() == QEvent::Hide && watched->isWindowType())
        QTimer::singleShot(0, this, &WindowKeeper::bringBack);
    return QObject::eventFilter(watched, event);
}

void WindowKeeper::follow(QWindow* front) {
    if (front == nullptr)
        return;
    m_before.removeAll(front);
    m_before.append(front);
}

QList<QWindow*> WindowKeeper::fromTheBack() const {
    QList<QWindow*> windows;
    for (const QPointer<QWindow>& window : m_before)
        if (window != nullptr && window->isVisible())
            windows << window;
    return windows;
}

void WindowKeeper::bringBack() {
    const QWindow* const front = QGuiApplication::focusWindow();
    if (front != nullptr && front->isVisible())
        return;
    while (!m_before.isEmpty() && (m_before.last() == nullptr || !m_before.last()->isVisible()))
        m_before.removeLast();
    QWindow* const modal = QGuiApplication::modalWindow();
    if (modal != nullptr)
        modal->requestActivate();
    else if (!m_before.isEmpty())
        m_before.last()->requestActivate();
}

} // namespace tarnwell::tour
