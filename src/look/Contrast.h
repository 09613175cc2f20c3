#pragma once

#include <QPalette>

namespace tarnwell {

/// How well two colours stand off from each other, from 1 (alike) to 21 (black and white). Text can be read
/// from 4.5 on, a line be seen from 3 on.
[[nodiscard]] double contrastOf(const QColor& one, const QColor& other);

/// A desktop whose windows and fields are one colour, with text that stands off from it as black does from
/// white: shades between the two are too faint for its user.
[[nodiscard]] bool isHighContrast(const QPalette& palette);

} // namespace tarnwell
