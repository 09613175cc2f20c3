#include "runtime/DatabaseSettings.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

namespace tarnwell {

DatabaseSettings readDatabaseSettings() {
    const RegistryKey stored(RegistryRoot::LocalMachine, gRegistryKey);
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

namespace {

/// Settings that were damaged or removed while the program runs take nothing else with them.
std::vector<RegistryValue> lostFolders() {
    const RegistryKey stored(RegistryRoot::LocalMachine, gRegistryKey);
    if (!stored.value(QStringLiteral("Provider")).isEmpty())
        return {};
    return {{.name = QStringLiteral("ImportPath"), .data = gImportPath},
            {.name = QStringLiteral("LogPath"), .data = gLogPath},
            {.name = QStringLiteral("LayoutPath"), .data = gLayoutPath},
            {.name = QStringLiteral("DataPath"), .data = gDataPath}};
}

} // namespace

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
