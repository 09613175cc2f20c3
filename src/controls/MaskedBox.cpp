#include "controls/MaskedBox.h"

#include "controls/SingleLine.h"
#include "controls/TextStart.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace tarnwell {

MaskedBox::MaskedBox(int limit, QWidget* parent) : QLineEdit(parent) {
    if (limit > 0)
        setMaxLength(limit);
    keepOnOneLine(*this);
    showStartWhenLeft(*this);
}

void MaskedBox::setMask(const QString& mask) {
    QString inputMask;
    for (const QChar place : mask) {
        if (place == u'#' || place == u'0')
            inputMask += u'0';
        else
            inputMask += QStringLiteral("\\") + place;
    }
    setInputMask(mask.isEmpty() ? QString() : inputMask + QStringLiteral(";_"));
}

int MaskedBox::SelStart() const {
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void MaskedBox::setSelStart(int caret) {
    setCursorPosition(caret);
}

void MaskedBox::keyPressEvent(QKeyEvent* event) {
    m_pressed.press(*event);
    int keyCode = keyCodeOf(*event);
    Q_EMIT keyDown(keyCode, shiftStateOf(*event));
    if (keyCode == 0)
        event->accept();
    else
        QLineEdit::keyPressEvent(event);
}

void MaskedBox::keyReleaseEvent(QKeyEvent* event) {
    QLineEdit::keyReleaseEvent(event);
    // A key that is held down is released once.
    if (event->isAutoRepeat())
        return;
    const bool pressedHere = m_pressed.release(*event);
    Q_EMIT keyUp(keyCodeOf(*event), shiftStateOf(*event));
    if (pressedHere)
        Q_EMIT ownKeyUp(keyCodeOf(*event), shiftStateOf(*event));
}

void MaskedBox::mouseDoubleClickEvent(QMouseEvent* event) {
    QLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        Q_EMIT doubleClick();
}

} // namespace tarnwell
