#pragma once

#include "input/WidgetInput.h"
#include "support/ModalWindows.h"

#include <QPoint>
#include <QString>
#include <QWidget>

#include <functional>

namespace tarnwell::test {

/// Drives a shown window as a person does: real key and mouse events, widgets found by objectName.
class ScreenDriver {
public:
    /// Shows the window (a screen by its own `Show`, modeless) and waits until it is the active one.
    explicit ScreenDriver(QWidget& window);

    /// The control of that name; fails the test and throws when there is none.
    template <class T = QWidget>
    [[nodiscard]] T& find(const QString& name) const {
        return input::find<T>(window(), name);
    }

    /// Keys to whatever has the focus.
    void type(const QString& text) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, int times = 1) const;
    /// At a place in the control (in a grid's or list's rows), else in its middle or on its tick box.
    void click(const QString& name, QPoint at = {}) const;
    void doubleClick(const QString& name, QPoint at = {}) const;
    /// Opens a combo's list and clicks the entry.
    void choose(const QString& name, const QString& text) const;
    /// A line of a list, or of a grid in its first column, from 0.
    void clickLine(const QString& name, int row) const;
    /// A toolbar button by its caption.
    void clickToolbar(const QString& caption) const;
    /// Captions of the toolbar's enabled buttons: "Exit Add Find".
    [[nodiscard]] QString enabledButtons() const;
    void focus(const QString& name) const;
    /// Types in place of what stands in the control.
    void retype(const QString& name, const QString& text) const;
    [[nodiscard]] QString focusedName() const;

    [[nodiscard]] QWidget& window() const { return m_window; }

private:
    QWidget& m_window;
};

/// Runs the event loop until the condition holds. False when it doesn't after half a minute, whatever the
/// machine's speed: no condition needs so long.
[[nodiscard]] bool waitFor(const std::function<bool()>& condition);

} // namespace tarnwell::test
