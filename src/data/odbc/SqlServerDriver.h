#pragma once

#include <QString>

namespace tarnwell::data {

/// The drivers that reach SQL Server: what Debian has, and what the server's own maker has for Windows.
enum class SqlServerDriver { FreeTds, Microsoft };

/// The one of this platform.
#ifdef Q_OS_WIN
inline constexpr SqlServerDriver platformDriver = SqlServerDriver::Microsoft;
#else
inline constexpr SqlServerDriver platformDriver = SqlServerDriver::FreeTds;
#endif

/// The connection string of the driver manager for one of ours, see `SqlServerDialect::driverString`.
[[nodiscard]] QString sqlServerDriverString(const QString& connectionString, SqlServerDriver driver);

} // namespace tarnwell::data
