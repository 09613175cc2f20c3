#pragma once

#include <QStringView>

namespace tarnwell {

// The providers under which connection strings and settings name a catalog on a server, beside
// `fileProvider`.

inline constexpr QStringView sqlServerProvider = u"SQLOLEDB.1";
inline constexpr QStringView postgresProvider = u"PostgreSQL";

} // namespace tarnwell
