#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

namespace tarnwell {

/// `base` with a share of `other`, from 0 (all `base`) to 1 (all `other`).
[[nodiscard]] QColor mixed(const QColor& base, const QColor& other, double share);

[[nodiscard]] bool isDark(const QColor& background);

/// The selection's colour for shades and frames on the base, the same in every window; a dark base takes a
/// lighter one than the desktop lays under selected text.
[[nodiscard]] QColor markColor(const QPalette& palette);

/// The colour of an outline that can be seen on the palette's window; a quiet one stands around what is
/// disabled or only read.
[[nodiscard]] QColor outlineColor(const QPalette& palette, bool isQuiet = false);

/// `pixels`, designed for the usual size of text, enlarged where the widget's font is larger. A smaller font
/// changes nothing.
[[nodiscard]] int scaledToText(int pixels, const QWidget& widget);

/// What a desktop's palette may lack, as a palette that sets nothing else: links and hints that can be read
/// on its background, and a selection that stays visible while another window is active.
[[nodiscard]] QPalette refinements(const QPalette& desktop);

} // namespace tarnwell
