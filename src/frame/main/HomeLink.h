#pragma once

#include <QPushButton>

namespace tarnwell {

/// A text that opens something: in the colour of links, underlined while the mouse is on it, with a frame
/// while it has the keyboard. Space and Enter press it as they press a button.
class HomeLink : public QPushButton {
    Q_OBJECT

public:
    explicit HomeLink(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};

} // namespace tarnwell
