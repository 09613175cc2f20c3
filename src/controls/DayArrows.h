#pragma once

#include <QScrollBar>

namespace tarnwell {

/// A vertical scroll bar that is nothing but its two arrows. It stands at `Rest`; an arrow gives `Upper`
/// or `Lower`, and whoever listens to `valueChanged` sets it back to `Rest`.
class DayArrows : public QScrollBar {
    Q_OBJECT

public:
    static constexpr int Upper = 0, Rest = 1, Lower = 2;

    explicit DayArrows(QWidget* parent = nullptr);

    /// As high as a line of text; any other height is halved between the arrows.
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    /// Turns only with the focus, so that scrolling a form changes no date.
    void wheelEvent(QWheelEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};

} // namespace tarnwell
