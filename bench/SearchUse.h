#pragma once

#include <QString>

namespace tarnwell {
class Screen;
}

namespace tarnwell::bench {

/// Presses Find on a screen, searches for the text and takes a line of what was found, from 0 (around the
/// end). Seconds from that choice to the painted record.
[[nodiscard]] double showFound(Screen& form, const QString& text, int line = 0);

} // namespace tarnwell::bench
