#include "frame/AltLetterFilter.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextEdit>

namespace tarnwell {

namespace {

bool takesTyping(const QObject* watched) {
    return qobject_cast<const QLineEdit*>(watched) != nullptr ||
           qobject_cast<const QComboBox*>(watched) != nullptr ||
           qobject_cast<const QTextEdit*>(watched) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(watched) != nullptr;
}

/// Ctrl and Alt together are AltGr on some keyboards, which does type.
bool isAltLetter(const QKeyEvent& key) {
    const bool held = (key.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier;
    return held && !key.text().isEmpty() && key.text().front().isPrint();
}

} // namespace

AltLetterFilter::AltLetterFilter(QObject* parent) : QObject(parent) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool AltLetterFilter::eventFilter(QObject* watched, QEvent* event) {
    // Shortcuts of menus, buttons and labels are handled before the key comes here.
    return event->type() == QEvent::KeyPress && takesTyping(watched) &&
           isAltLetter(*static_cast<QKeyEvent*>(event));
}

} // namespace tarnwell
