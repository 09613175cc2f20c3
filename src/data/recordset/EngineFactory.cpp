#include "data/recordset/EngineFactory.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/odbc/OdbcCatalog.h"
#include "data/odbc/OdbcEngine.h"
#include "data/odbc/PostgresCatalog.h"
#include "data/odbc/PostgresDialect.h"
#include "data/odbc/SqlServerCatalog.h"
#include "data/odbc/SqlServerDialect.h"
#include "data/sqlite/SqliteEngine.h"

#include <algorithm>
#include <array>

namespace tarnwell::data {

namespace {

std::shared_ptr<Engine> openFile(const QString& connectionString, std::chrono::milliseconds busyTimeout) {
    return openSqliteEngine(connectionValue(connectionString, QLatin1String("Data Source")), busyTimeout);
}

std::shared_ptr<Engine> openPostgres(const QString& connectionString, std::chrono::milliseconds busyTimeout) {
    static const PostgresDialect dialect;
    return openOdbcEngine(dialect, connectionString, busyTimeout);
}

std::unique_ptr<ServerCatalog> postgresCatalog(const QString& connectionString) {
    static const PostgresDialect dialect;
    static const PostgresCatalog script;
    return odbcCatalog(dialect, script, connectionString);
}

std::shared_ptr<Engine> openSqlServer(const QString& connectionString,
                                      std::chrono::milliseconds busyTimeout) {
    static const SqlServerDialect dialect;
    return openOdbcEngine(dialect, connectionString, busyTimeout);
}

std::unique_ptr<ServerCatalog> sqlServerCatalog(const QString& connectionString) {
    static const SqlServerDialect dialect;
    static const SqlServerCatalog script;
    return odbcCatalog(dialect, script, connectionString);
}

struct EngineEntry {
    QStringView provider;
    std::shared_ptr<Engine> (*open)(const QString& connectionString, std::chrono::milliseconds busyTimeout);
    std::unique_ptr<ServerCatalog> (*catalog)(const QString& connectionString) = nullptr; ///< Of a server.
};

/// The one place that knows which engines there are.
constexpr std::array engines{
    EngineEntry{fileProvider, openFile},
    EngineEntry{postgresProvider, openPostgres, postgresCatalog},
    EngineEntry{sqlServerProvider, openSqlServer, sqlServerCatalog},
};

const EngineEntry& entryFor(const QString& connectionString) {
    const QString provider = connectionValue(connectionString, QLatin1String("Provider"));
    const auto* const entry = std::ranges::find_if(engines, [&](const EngineEntry& candidate) {
        return provider.compare(candidate.provider, Qt::CaseInsensitive) == 0;
    });
    if (entry == engines.end())
        raise(Failure::ProviderNotFound, provider);
    return *entry;
}

} // namespace

std::shared_ptr<Engine> openEngine(const QString& connectionString, std::chrono::milliseconds busyTimeout) {
    return entryFor(connectionString).open(connectionString, busyTimeout);
}

std::unique_ptr<ServerCatalog> openServerCatalog(const QString& connectionString) {
    const EngineEntry& entry = entryFor(connectionString);
    if (entry.catalog == nullptr)
        raise(Failure::ProviderNotFound, entry.provider.toString());
    return entry.catalog(connectionString);
}

} // namespace tarnwell::data
