#include "look/WindowOwner.h"

#include <QWidget>
#include <QWindow>

namespace tarnwell {

namespace {

/// The toolkit announces the owner of dialogs only, and a dialog has fewer buttons in its title bar.
constexpr auto ownedWindow = Qt::Dialog | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                             Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;

/// Some desktops leave dialogs out of their list of windows and don't minimise them. This has X11 take a
/// window that is not modal for a normal one; other platforms ignore it.
constexpr auto x11WindowType = "_q_xcb_wm_window_type";
constexpr int x11NormalWindow = 1;

/// The owner's window or, while that is hidden, the one that owns it.
QWindow* visibleWindow(const QWidget* owner) {
    QWindow* window = owner != nullptr ? owner->window()->windowHandle() : nullptr;
    while (window != nullptr && !window->isVisible())
        window = window->transientParent();
    return window;
}

} // namespace

void setWindowOwner(QWidget& window, const QWidget* owner) {
    QWindow* ownersWindow = visibleWindow(owner);
    if (ownersWindow == nullptr)
        return;
    window.winId(); // Makes the handle. What follows is for the desktop: the widget stays as it is.
    QWindow& handle = *window.windowHandle();
    handle.setFlags(window.windowFlags());
    handle.setProperty(x11WindowType, window.isModal() ? QVariant() : x11NormalWindow);
    handle.setFlags(ownedWindow);
    handle.setTransientParent(ownersWindow);
}

} // namespace tarnwell
