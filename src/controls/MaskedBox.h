#pragma once

#include "controls/KeyCodes.h"
#include "controls/PressedKeys.h"
#include "runtime/modGeneral.h"

#include <QLineEdit>

namespace tarnwell {

/// A one-line text field with a length limit that reports its keys by code: `MskField`, `txtField`. `text()`
/// is the plain text.
class MaskedBox : public QLineEdit, public TypedField {
    Q_OBJECT

public:
    /// `limit` in characters, 0 for none.
    explicit MaskedBox(int limit = 0, QWidget* parent = nullptr);

    /// "##/##/##", "(000) 000-0000": each '#' and '0' takes a digit, anything else stands as it is. An open
    /// place shows as '_' and is left out of `text()`. Empty for no mask.
    void setMask(const QString& mask);

    [[nodiscard]] QString Text() const override { return text(); }
    /// Start of the selection, else the caret.
    [[nodiscard]] int SelStart() const override;
    /// Takes a selection away.
    void setSelStart(int caret) override;

Q_SIGNALS:
    /// Codes as in `KeyCode`; setting `keyCode` to 0 swallows the key.
    void keyDown(int& keyCode, int shift);
    /// Once for a key that was held.
    void keyUp(int keyCode, int shift);
    /// The same, but only for a key that went down here: not for the one that brought the focus.
    void ownKeyUp(int keyCode, int shift);
    /// With the left button.
    void doubleClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    PressedKeys m_pressed{*this};
};

} // namespace tarnwell
