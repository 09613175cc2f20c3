#pragma once

#include <QLabel>

namespace tarnwell {

/// A label named `name`. Its mnemonic moves the focus to `buddy`, which takes the text as its accessible
/// name; a click on the label of a check box ticks it, and its words end beside the box. `buddy` lives at
/// least as long as the label.
[[nodiscard]] QLabel* label(const QString& text, const QString& name, QWidget* buddy = nullptr);

/// The same, named as one of the array: "lblFieldLabel(3)".
[[nodiscard]] QLabel* fieldLabel(int index, const QString& text, QWidget* buddy = nullptr);

} // namespace tarnwell
