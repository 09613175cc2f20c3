#pragma once

#include <QColor>
#include <QPalette>

namespace tarnwell {

/// `share` of `other` in `base`, from 0 (all `base`) to 1 (all `other`).
[[nodiscard]] QColor mixed(const QColor& base, const QColor& other, double share);

/// A palette with what a desktop's palette may lack: links and help text that can be read on its background,
/// and a selection that stays visible while another window is active. Nothing else changes.
[[nodiscard]] QPalette refined(QPalette palette);

} // namespace tarnwell
