#include "controls/PressedKeys.h"

#include <QKeyEvent>
#include <QWidget>

namespace tarnwell {

PressedKeys::PressedKeys(QWidget& control) {
    control.installEventFilter(this);
}

void PressedKeys::press(const QKeyEvent& event) {
    m_scanCodes.insert(event.nativeScanCode());
}

void PressedKeys::forget(const QKeyEvent& event) {
    m_scanCodes.erase(event.nativeScanCode());
}

bool PressedKeys::release(const QKeyEvent& event) {
    return !event.isAutoRepeat() && m_scanCodes.erase(event.nativeScanCode()) > 0;
}

bool PressedKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut)
        m_scanCodes.clear();
    return QObject::eventFilter(watched, event);
}

} // namespace tarnwell
