#include "controls/WindowPlace.h"

#include "runtime/Remembered.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <QWidget>

#include <algorithm>

namespace tarnwell {

namespace {

/// Nobody works in a smaller window.
constexpr QSize leastSize(60, 40);

/// A place of sense that a display shows. What was damaged may be anything.
bool isShown(const QRect& place) {
    const QList<QScreen*> displays = QGuiApplication::screens();
    return place.size().expandedTo(leastSize) == place.size() &&
           std::ranges::any_of(displays, [&](const QScreen* display) {
               return display->availableGeometry().contains(place);
           });
}

} // namespace

WindowPlace::WindowPlace(QWidget& window, QSize design)
    : QObject(&window), m_window(window), m_name(QStringLiteral("Window ") + window.objectName()),
      m_design(QStringLiteral("%1x%2").arg(design.width()).arg(design.height())) {
    restore();
    window.installEventFilter(this);
}

void WindowPlace::restore() {
    const QStringList kept = remembered(m_name).split(u' ');
    if (kept.size() != 2 || kept.front() != m_design)
        return;
    const QRect before = m_window.geometry();
    const QByteArray bytes = QByteArray::fromBase64(kept.back().toLatin1());
    // The toolkit reads what is cut off as zeros.
    const bool isRestored = bytes.size() == m_window.saveGeometry().size() && m_window.restoreGeometry(bytes);
    // Maximised, its size is the display's, and the one of before comes back with the button.
    if (!isRestored || !isShown(m_window.isMaximized() ? m_window.normalGeometry() : m_window.geometry())) {
        m_window.setWindowState(Qt::WindowNoState);
        m_window.setGeometry(before);
    }
}

bool WindowPlace::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate && !m_given)
        m_given = stand();
    else if (event->type() == QEvent::Hide && !event->spontaneous())
        keep();
    return QObject::eventFilter(watched, event);
}

void WindowPlace::keep() {
    if (!m_given || m_window.isMinimized() || stand() == *m_given)
        return;
    m_given = stand();
    remember(m_name, m_design + u' ' + QString::fromLatin1(m_window.saveGeometry().toBase64()));
}

WindowPlace::Stand WindowPlace::stand() const {
    return {.place = m_window.geometry(), .isMaximized = m_window.isMaximized()};
}

} // namespace tarnwell
