#pragma once

#include <QStringList>
#include <QWidget>

namespace tarnwell::tour {

/// The keys that call more than one control or command of the window as it stands, each with what it calls;
/// controls that are hidden or disabled don't count, nor do the keys that a window has to give twice.
[[nodiscard]] QStringList keyClashes(const QWidget& window);

} // namespace tarnwell::tour
