#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <map>

namespace tarnwell {

/// Follows which named control of one window is active, and runs the routines of the focus.
///
/// An inner editor, a viewport or a drop-down list counts as the control that holds it. Focus that goes to
/// another window, to a message box or to nothing leaves the control active and runs nothing, nor does its
/// return. A move runs the lost routine of the old control, then the got routine of the new one, unless the
/// lost routine moved the focus elsewhere. A routine's own `setFocus` completes its move before it returns,
/// so a control may pass the focus on, any number of times.
class ActiveControl : public QObject {
    Q_OBJECT

public:
    /// `defaultGot` runs for a control without a got routine of its own.
    ActiveControl(QWidget& window, std::function<void(QWidget&)> defaultGot);

    /// Makes `control` one of those that are followed, until it is destroyed.
    void add(QWidget* control);
    /// Both also add the control. A second routine replaces the first.
    void setGotRoutine(QWidget* control, std::function<void()> routine);
    void setLostRoutine(QWidget* control, std::function<void()> routine);

    /// Null before the first focus and after `forget`.
    [[nodiscard]] QWidget* current() const { return m_active; }
    /// Moves the focus by code, also while the window is not the active one. The active control's got routine
    /// runs again. Does nothing for a control that is disabled. The routines' errors come back here.
    void setFocus(QWidget* control);
    /// Leaves no control active and runs no routine. For a window that is hidden or about to be closed.
    void forget();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Routines {
        std::function<void()> got;
        std::function<void()> lost;
    };

    void followFocus();
    void moveTo(QWidget* control);
    void enter(QWidget* control);
    [[nodiscard]] QWidget* controlOf(QWidget* widget) const;
    [[nodiscard]] bool isRefused(QWidget* pressed) const;
    [[nodiscard]] bool swallowsMouse(QWidget* widget, QEvent* event);
    [[nodiscard]] bool pressesByMnemonic(QObject* watched, const QEvent& event);
    [[nodiscard]] bool leadsIntoFrame(QObject* watched) const;

    QWidget& m_window;
    std::function<void(QWidget&)> m_defaultGot;
    std::map<const QWidget*, Routines> m_controls;
    QPointer<QWidget> m_active;
    bool m_entered = false;     ///< The active control's got routine has run.
    int m_moves = 0;            ///< Counts moves, so that a routine's own move is noticed behind it.
    int m_depth = 0;            ///< Routines that are running inside each other.
    bool m_mouseMove = false;   ///< The outermost move began with a mouse press.
    bool m_interrupted = false; ///< A window opened over ours during the move that a press began.
    bool m_swallowing = false;  ///< A press was swallowed: so is what follows it, up to its release.
    Qt::FocusReason m_lastReason = Qt::OtherFocusReason;
};

} // namespace tarnwell
