#pragma once

#include <QImage>

namespace tarnwell::tour {

/// The picture with its 256 commonest colours, the others replaced by the nearest of them: a window's file
/// shrinks to a third.
[[nodiscard]] QImage smallPicture(const QImage& picture);

} // namespace tarnwell::tour
