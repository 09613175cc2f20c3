#pragma once

#include "frame/modGeneral.h"

#include <QLineEdit>

namespace tarnwell {

/// A one-line text field with a length limit, told keys and a caret: `MskField`, `txtField`. `text()` is the
/// plain text.
class MaskedBox : public QLineEdit, public TypedField {
    Q_OBJECT

public:
    /// `limit` in characters, 0 for none.
    explicit MaskedBox(int limit = 0, QWidget* parent = nullptr);

    [[nodiscard]] QString Text() const override { return text(); }
    [[nodiscard]] int SelStart() const override;
    void setSelStart(int caret) override;

Q_SIGNALS:
    /// Codes as in `KeyCode`; setting `keyCode` to 0 swallows the key.
    void keyDown(int& keyCode, int shift);
    void keyUp(int keyCode, int shift);
    void doubleClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

/// The code of a key event as the screens know it.
[[nodiscard]] int keyCodeOf(const QKeyEvent& event);
/// 1 Shift, 2 Ctrl, 4 Alt.
[[nodiscard]] int shiftStateOf(const QKeyEvent& event);

} // namespace tarnwell
