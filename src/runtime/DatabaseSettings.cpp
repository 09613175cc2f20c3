#include "runtime/DatabaseSettings.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/engine/Providers.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

#include <algorithm>
#include <array>

namespace tarnwell {

namespace {

struct EngineEntry {
    QStringView provider;
    QStringView misc; ///< "ConnectionMisc" as Options writes it.
};

constexpr QStringView platformSignIn = u";Integrated Security=SSPI;Persist Security Info=False;";

/// In the order of the enumeration.
constexpr std::array engines{
    EngineEntry{fileProvider, u";Persist Security Info=False"},
    EngineEntry{sqlServerProvider, platformSignIn},
    EngineEntry{postgresProvider, platformSignIn},
};

const EngineEntry& entryOf(DatabaseEngine engine) {
    return engines.at(static_cast<std::size_t>(engine));
}

/// What is no provider of ours counts as the server that was there first.
DatabaseEngine engineOf(QStringView provider) {
    const auto* const found = std::ranges::find(engines, provider, &EngineEntry::provider);
    return found != engines.end() ? static_cast<DatabaseEngine>(found - engines.begin())
                                  : DatabaseEngine::SqlServer;
}

/// How one signs in to a server of one's own, and whether without encryption, is entered by hand.
QString miscOf(DatabaseEngine engine) {
    const RegistryKey stored(RegistryRoot::LocalMachine, gRegistryKey);
    const bool stays =
        engine == DatabaseEngine::Postgres && stored.text(QStringLiteral("Provider")) == postgresProvider;
    return stays ? stored.text(QStringLiteral("ConnectionMisc")) : entryOf(engine).misc.toString();
}

QString dataSourceOf(const DatabaseSettings& settings) {
    return settings.isFile() ? settings.file : settings.catalog;
}

/// Every start leaves a provider there: without one the settings were damaged or removed since.
bool isLost(const RegistryKey& stored) {
    return stored.value(QStringLiteral("Provider")).isEmpty();
}

/// Settings that were lost while the program runs take no folder with them.
std::vector<RegistryValue> lostFolders() {
    if (!isLost(RegistryKey(RegistryRoot::LocalMachine, gRegistryKey)))
        return {};
    return {{.name = QStringLiteral("ImportPath"), .data = gImportPath},
            {.name = QStringLiteral("LogPath"), .data = gLogPath},
            {.name = QStringLiteral("LayoutPath"), .data = gLayoutPath},
            {.name = QStringLiteral("DataPath"), .data = gDataPath}};
}

} // namespace

DatabaseSettings databaseInUse() {
    const auto valueOf = [](const char* key) {
        return connectionValue(gConnectionString, QLatin1String(key));
    };
    DatabaseSettings settings;
    settings.engine = engineOf(valueOf("Provider"));
    (settings.isFile() ? settings.file : settings.server) = valueOf("Data Source");
    settings.catalog = valueOf("Initial Catalog");
    settings.reportFile = gReportDataPath;
    return settings;
}

DatabaseSettings readDatabaseSettings() {
    const RegistryKey stored(RegistryRoot::LocalMachine, gRegistryKey);
    if (isLost(stored))
        return databaseInUse();
    DatabaseSettings settings;
    settings.engine = engineOf(stored.text(QStringLiteral("Provider")));
    if (settings.isFile()) {
        settings.file = stored.text(QStringLiteral("DataSource"));
    } else {
        settings.server = stored.text(QStringLiteral("DataServer"));
        settings.catalog = stored.text(QStringLiteral("DataSource"));
    }
    settings.reportFile = gReportDataPath;
    return settings;
}

QString composeConnectionString(const DatabaseSettings& settings) {
    return composeConnectionString(entryOf(settings.engine).provider.toString(), dataSourceOf(settings),
                                   settings.server, miscOf(settings.engine));
}

void writeDatabaseSettings(const DatabaseSettings& settings) {
    std::vector<RegistryValue> values = lostFolders();
    values.insert(
        values.end(),
        {{.name = QStringLiteral("Provider"), .data = entryOf(settings.engine).provider.toString()},
         {.name = QStringLiteral("DataSource"), .data = dataSourceOf(settings)},
         {.name = QStringLiteral("DataServer"), .data = settings.isFile() ? QString() : settings.server},
         {.name = QStringLiteral("ConnectionMisc"), .data = miscOf(settings.engine)},
         {.name = QStringLiteral("ReportDataPath"), .data = settings.reportFile}});
    writeRegistryValues(RegistryRoot::LocalMachine, gRegistryKey, values);
}

void saveDatabaseSettings(const DatabaseSettings& settings) {
    try {
        writeDatabaseSettings(settings);
    } catch (const RunTimeError&) {
        // The old values stay in force together, and the dialog shows them when it is opened again.
        return;
    }
}

} // namespace tarnwell
