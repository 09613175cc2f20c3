#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace tarnwell {

/// Where a layout puts one column: columns stand in the order of their lines.
struct LayoutColumn {
    QString key;
    int width; ///< Pixels; 0 shares what is left.
};

/// Reads a layout's text, one column a line: "column Name width 220" or "column Name width rest". Lines that
/// begin with "#", and all that are not understood, are passed over; of two lines for one column the first
/// counts.
[[nodiscard]] std::vector<LayoutColumn> parseLayout(const QByteArray& text);

/// The layout in a file; nothing unless it is a plain file that can be read and is no larger than a layout.
[[nodiscard]] std::optional<std::vector<LayoutColumn>> readLayout(const QString& path);

} // namespace tarnwell
