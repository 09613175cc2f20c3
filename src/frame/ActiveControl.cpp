#include "frame/ActiveControl.h"

#include "runtime/EventGuard.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFocusEvent>
#include <QGroupBox>
#include <QShortcutEvent>

namespace tarnwell {

namespace {

/// Stops two controls that send the focus to each other; no screen passes it on this often.
constexpr int mostHops = 16;

/// Counts the routines that run inside each other.
class Depth {
public:
    explicit Depth(int& depth) : m_depth(depth) { ++m_depth; }
    ~Depth() { --m_depth; }
    Depth(const Depth&) = delete;
    Depth& operator=(const Depth&) = delete;

private:
    int& m_depth;
};

} // namespace

ActiveControl::ActiveControl(QWidget& window, std::function<void(QWidget&)> defaultGot)
    : QObject(&window), m_window(window), m_defaultGot(std::move(defaultGot)) {
    connect(qApp, &QApplication::focusChanged, this, guarded([this] { followFocus(); }));
    qApp->installEventFilter(this);
}

void ActiveControl::add(QWidget* control) {
    if (m_controls.try_emplace(control).second)
        connect(control, &QObject::destroyed, this, guarded([this, control] { m_controls.erase(control); }));
}

void ActiveControl::setGotRoutine(QWidget* control, std::function<void()> routine) {
    add(control);
    m_controls[control].got = std::move(routine);
}

void ActiveControl::setLostRoutine(QWidget* control, std::function<void()> routine) {
    add(control);
    m_controls[control].lost = std::move(routine);
}

void ActiveControl::setFocus(QWidget* control) {
    if (!control->isEnabled())
        return;
    const bool again = control == m_active;
    m_lastReason = Qt::OtherFocusReason;
    fireEvent([&] {
        control->setFocus(Qt::OtherFocusReason);
        // A window that is not active, or not yet again behind a message box, gets no focus event.
        runEvent([&] {
            if (again)
                enter(control);
            else if (!m_window.isActiveWindow() && control->isVisible())
                moveTo(control);
        });
    });
}

void ActiveControl::forget() {
    m_active = nullptr;
    m_entered = false;
}

/// The event may be out of date when another listener has moved the focus on: where it is now counts.
void ActiveControl::followFocus() {
    if (QWidget* control = controlOf(QApplication::focusWidget()))
        moveTo(control);
}

void ActiveControl::moveTo(QWidget* control) {
    if (control == m_active)
        return;
    if (m_depth == 0) {
        m_interrupted = false;
        m_mouseMove = m_lastReason == Qt::MouseFocusReason;
    }
    const QWidget* const old = m_active;
    const bool leaves = m_entered && old != nullptr;
    m_active = control;
    m_entered = false;
    const int move = ++m_moves;
    if (const auto found = m_controls.find(old); leaves && found != m_controls.end() && found->second.lost) {
        const Depth depth(m_depth);
        const auto routine = found->second.lost;
        routine();
    }
    if (move == m_moves)
        enter(control);
}

void ActiveControl::enter(QWidget* control) {
    ++m_moves;
    m_entered = true;
    const auto found = m_controls.find(control);
    if (m_depth >= mostHops || found == m_controls.end())
        return;
    const Depth depth(m_depth);
    if (const auto routine = found->second.got)
        routine();
    else
        m_defaultGot(*control);
}

QWidget* ActiveControl::controlOf(QWidget* widget) const {
    for (; widget != nullptr && widget != &m_window; widget = widget->parentWidget()) {
        if (m_controls.contains(widget))
            return widget;
        // A drop-down list is a window, yet part of its control; a dialog is not.
        if (widget->isWindow() && widget->windowType() != Qt::Popup)
            return nullptr;
    }
    return nullptr;
}

/// A press on a control that can take the focus and did not get it, or was interrupted on the way by a
/// message box: the control refused, and its button must not go down.
bool ActiveControl::isRefused(QWidget* pressed) const {
    if (m_interrupted && m_mouseMove)
        return true;
    QWidget* control = controlOf(pressed);
    if (control == nullptr || control == m_active || !m_window.isActiveWindow())
        return false;
    for (QWidget* widget = pressed; widget != nullptr; widget = widget->parentWidget()) {
        if (widget->isEnabled() && (widget->focusPolicy() & Qt::ClickFocus) != 0)
            return true;
        if (widget == control)
            break;
    }
    return false;
}

/// By the time that a press arrives here, the toolkit has moved the focus for it and all routines have run.
bool ActiveControl::swallowsMouse(QWidget* widget, QEvent* event) {
    if (widget->window() != &m_window)
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_swallowing = isRefused(widget);
        m_interrupted = false;
        return m_swallowing;
    case QEvent::MouseButtonRelease:
        return std::exchange(m_swallowing, false);
    default:
        return m_swallowing;
    }
}

/// The toolkit presses a button by its mnemonic without giving it the focus, and a tenth of a second late.
bool ActiveControl::pressesByMnemonic(QObject* watched, const QEvent& event) {
    auto* button = qobject_cast<QAbstractButton*>(watched);
    if (button == nullptr || !m_controls.contains(button) || !button->isEnabled() ||
        static_cast<const QShortcutEvent&>(event).isAmbiguous())
        return false;
    m_interrupted = false;
    button->setFocus(Qt::ShortcutFocusReason);
    if (button == m_active && !m_interrupted)
        button->click();
    return true;
}

/// The toolkit leads a frame's mnemonic to the control of the frame that had the focus last; it leads to the
/// first one.
bool ActiveControl::leadsIntoFrame(QObject* watched) const {
    const auto* frame = qobject_cast<QGroupBox*>(watched);
    if (frame == nullptr || frame->window() != &m_window)
        return false;
    for (QWidget* widget = m_window.nextInFocusChain(); widget != &m_window;
         widget = widget->nextInFocusChain())
        if (frame->isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
            (widget->focusPolicy() & Qt::TabFocus) != 0) {
            widget->setFocus(Qt::ShortcutFocusReason);
            return true;
        }
    return false;
}

bool ActiveControl::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::FocusIn:
        m_lastReason = static_cast<QFocusEvent*>(event)->reason();
        break;
    case QEvent::WindowBlocked:
        if (watched == &m_window && m_depth > 0)
            m_interrupted = true;
        break;
    case QEvent::Shortcut:
        return pressesByMnemonic(watched, *event) || leadsIntoFrame(watched);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
        return watched->isWidgetType() && swallowsMouse(static_cast<QWidget*>(watched), event);
    default:
        break;
    }
    return false;
}

} // namespace tarnwell
