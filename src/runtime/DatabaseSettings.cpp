#include "runtime/DatabaseSettings.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

namespace tarnwell {

namespace {

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
    settings.isFile = valueOf("Provider") == fileProvider;
    (settings.isFile ? settings.file : settings.server) = valueOf("Data Source");
    settings.catalog = valueOf("Initial Catalog");
    settings.reportFile = gReportDataPath;
    return settings;
}

DatabaseSettings readDatabaseSettings() {
    const RegistryKey stored(RegistryRoot::LocalMachine, gRegistryKey);
    if (isLost(stored))
        return databaseInUse();
    DatabaseSettings settings;
    settings.isFile = stored.text(QStringLiteral("Provider")) == fileProvider;
    if (settings.isFile) {
        settings.file = stored.text(QStringLiteral("DataSource"));
    } else {
        settings.server = stored.text(QStringLiteral("DataServer"));
        settings.catalog = stored.text(QStringLiteral("DataSource"));
    }
    settings.reportFile = gReportDataPath;
    return settings;
}

void saveDatabaseSettings(const DatabaseSettings& settings) {
    const QString provider = settings.isFile ? fileProvider.toString() : QStringLiteral("SQLOLEDB.1");
    const QString misc = settings.isFile
                             ? QStringLiteral(";Persist Security Info=False")
                             : QStringLiteral(";Integrated Security=SSPI;Persist Security Info=False;");
    std::vector<RegistryValue> values = lostFolders();
    values.insert(
        values.end(),
        {{.name = QStringLiteral("Provider"), .data = provider},
         {.name = QStringLiteral("DataSource"), .data = settings.isFile ? settings.file : settings.catalog},
         {.name = QStringLiteral("DataServer"), .data = settings.isFile ? QString() : settings.server},
         {.name = QStringLiteral("ConnectionMisc"), .data = misc},
         {.name = QStringLiteral("ReportDataPath"), .data = settings.reportFile}});
    try {
        writeRegistryValues(RegistryRoot::LocalMachine, gRegistryKey, values);
    } catch (const RunTimeError&) {
        // The old values stay in force together, and the dialog shows them when it is opened again.
        return;
    }
}

} // namespace tarnwell
