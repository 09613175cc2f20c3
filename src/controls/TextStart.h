#pragma once

class QLineEdit;

namespace tarnwell {

/// A text that is longer than its field shows how it begins, once it is set from outside or left for another
/// control of the window.
void showStartWhenLeft(QLineEdit& line);

} // namespace tarnwell
