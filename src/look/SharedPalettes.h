#pragma once

#include <QPalette>

namespace tarnwell {

/// The same object for all palettes of equal colours. The toolkit's style keeps what it has drawn under the
/// palette's identity, and each new widget may have a palette of its own: what was kept is then never found
/// again, and its names are never given up. Keeps the current colour group. GUI thread only.
[[nodiscard]] QPalette sharedPalette(const QPalette& palette);

} // namespace tarnwell
