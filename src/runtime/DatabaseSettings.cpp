#include "runtime/DatabaseSettings.h"

#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

namespace tarnwell {

namespace {

QString read(const QString& name) {
    return ReadRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, name).toText();
}

void write(const QString& name, const QString& value) {
    WriteRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, name, RegistryType::Text, value);
}

} // namespace

DatabaseSettings readDatabaseSettings() {
    DatabaseSettings settings;
    settings.isFile = read(QStringLiteral("Provider")) == QLatin1String(jetProvider);
    if (settings.isFile) {
        settings.file = read(QStringLiteral("DataSource"));
    } else {
        settings.server = read(QStringLiteral("DataServer"));
        settings.catalog = read(QStringLiteral("DataSource"));
    }
    settings.reportFile = gReportDataPath;
    return settings;
}

void saveDatabaseSettings(const DatabaseSettings& settings) {
    write(QStringLiteral("Provider"),
          settings.isFile ? QString::fromLatin1(jetProvider) : QStringLiteral("SQLOLEDB.1"));
    write(QStringLiteral("DataSource"), settings.isFile ? settings.file : settings.catalog);
    write(QStringLiteral("DataServer"), settings.isFile ? QString() : settings.server);
    write(QStringLiteral("ConnectionMisc"),
          settings.isFile ? QStringLiteral(";Persist Security Info=False")
                          : QStringLiteral(";Integrated Security=SSPI;Persist Security Info=False;"));
    write(QStringLiteral("ReportDataPath"), settings.reportFile);
}

} // namespace tarnwell
