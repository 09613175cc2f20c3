#pragma once

#include <QPoint>

#include <optional>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace tarnwell {

class PreviewView;

/// What keys, wheel and mouse do in a preview: they walk through the pages, zoom, drag, and open a page of
/// the overview.
class PreviewNavigation {
public:
    /// `view` outlives this.
    explicit PreviewNavigation(PreviewView& view) : m_view(view) {}

    /// False for a key or a turn of the wheel that it leaves to the scroll area.
    [[nodiscard]] bool key(const QKeyEvent& event);
    [[nodiscard]] bool wheel(const QWheelEvent& event);
    /// Mouse events of the viewport.
    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);

private:
    [[nodiscard]] bool isOverview() const;
    [[nodiscard]] bool pageKey(const QKeyEvent& event);
    [[nodiscard]] bool overviewKey(const QKeyEvent& event);
    void screenDown();
    void screenUp();
    [[nodiscard]] int pageAt(QPoint mouse) const;
    void updateCursor(QPoint mouse);

    PreviewView& m_view;
    std::optional<QPoint> m_grabbed; ///< Where the mouse held the pages last.
    int m_pressedPage = 0;           ///< Of the overview; 0: none.
};

} // namespace tarnwell
