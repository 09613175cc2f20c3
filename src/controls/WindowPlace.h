#pragma once

#include <QObject>
#include <QRect>

#include <optional>

class QWidget;

namespace tarnwell {

/// Remembers where a user has put a window, and how large, from one start to the next under the window's
/// name. A window that nobody moved or resized keeps nothing, and goes on standing where the program puts it.
/// It is the window's child and ends with it.
class WindowPlace : public QObject {
    Q_OBJECT

public:
    /// Before the first show of a window that has its name and stands where the program wants it: puts it
    /// where the user left it. What was kept is passed over when the window was designed for another size
    /// then: its text was smaller, or the program another version. The place always lies inside a display
    /// that there is now.
    WindowPlace(QWidget& window, QSize design);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Stand {
        QRect place;
        bool isMaximized = false;
        friend bool operator==(const Stand&, const Stand&) = default;
    };
    void restore();
    void keep();
    [[nodiscard]] Stand stand() const;

    QWidget& m_window;
    QString m_name;
    QString m_design;
    /// Once the window is up: the desktop has done its part, and what changes from then on is the user's
    /// doing.
    std::optional<Stand> m_given;
};

} // namespace tarnwell
