#pragma once

#include <QApplication>
#include <QKeyEvent>

namespace tarnwell::bench {

/// A key that goes down and up in a field and types nothing: the field's text was set before.
inline void strokeKey(QWidget& field) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_A, Qt::NoModifier);
        QApplication::sendEvent(&field, &event);
    }
}

} // namespace tarnwell::bench
