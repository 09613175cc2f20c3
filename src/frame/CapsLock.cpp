#include "frame/CapsLock.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace tarnwell {

CapsLock& CapsLock::instance() {
    static QPointer<CapsLock> only;
    if (only.isNull())
        only = new CapsLock(QCoreApplication::instance());
    return *only;
}

CapsLock::CapsLock(QObject* application) : QObject(application) {
    application->installEventFilter(this);
}

bool CapsLock::eventFilter(QObject* watched, QEvent* event) {
    // A key arrives here once for its window, and then once for each widget that passes it on.
    if (event->type() != QEvent::KeyPress || !watched->isWindowType())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool before = m_on;
    if (key->key() == Qt::Key_CapsLock && !key->isAutoRepeat())
        m_on = !m_on;
    else if (key->text().size() == 1 && key->text().front().isLetter())
        m_on = key->text().front().isUpper() != key->modifiers().testFlag(Qt::ShiftModifier);
    if (m_on != before)
        Q_EMIT changed();
    return false;
}

} // namespace tarnwell
