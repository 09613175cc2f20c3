#pragma once

#include <QIcon>
#include <QString>

namespace tarnwell {

/// A toolbar image by its key ("Lookup"); a null icon for a key that has none. The lines take the palette's
/// text colour, also when the palette changes or the button is disabled.
[[nodiscard]] QIcon toolbarIcon(const QString& imageKey);

/// An image of the icon bar by its key ("icoJob"); a null icon for a key that has none.
[[nodiscard]] QIcon barIcon(const QString& imageKey);

/// The program's own icon.
[[nodiscard]] QIcon programIcon();

} // namespace tarnwell
