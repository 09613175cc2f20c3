#pragma once

#include <QLatin1String>
#include <QString>
#include <QStringView>

namespace tarnwell {

/// The provider under which connection strings and settings name a database file.
inline constexpr QStringView fileProvider = u"Microsoft.Jet.OLEDB.4.0";

/// The connection string of a database file: its provider, its path and nothing else.
[[nodiscard]] QString fileConnectionString(const QString& path);

/// The value of one key of a connection string, without its quotes; empty when it is not there. Of two the
/// last one counts.
[[nodiscard]] QString connectionValue(const QString& connectionString, QLatin1String key);

} // namespace tarnwell
