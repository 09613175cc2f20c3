#pragma once

class QWidget;

namespace tarnwell {

/// Gives a window that is not shown its owner: the desktop keeps it in front of the owner's window, and
/// minimises and brings back both together. A modal window is shown as a dialog. An owner that is hidden
/// stands for its own owner; without a visible one nothing changes. The window is not deleted with
/// its owner.
void setWindowOwner(QWidget& window, const QWidget* owner);

} // namespace tarnwell
