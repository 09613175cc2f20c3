#pragma once

#include <QIcon>
#include <QString>

namespace tarnwell {

/// A toolbar image by its key ("Lookup"); a null icon for an unknown key. Its lines have the palette's text
/// colour, also when the palette changes or the button is disabled.
[[nodiscard]] QIcon toolbarIcon(const QString& imageKey);

/// An image of the icon bar by its key ("icoJob"); a null icon for an unknown key.
[[nodiscard]] QIcon barIcon(const QString& imageKey);

/// The image of a message by its kind: "Information", "Question", "Warning", "Critical"; a null icon for
/// another one.
[[nodiscard]] QIcon messageIcon(const QString& kind);

/// The program's own icon.
[[nodiscard]] QIcon programIcon();

} // namespace tarnwell
