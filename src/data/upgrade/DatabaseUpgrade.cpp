#include "data/upgrade/DatabaseUpgrade.h"

#include "data/engine/Engine.h"
#include "data/file/DatabaseFile.h"
#include "data/file/FileReplacement.h"
#include "data/file/FileUpgrade.h"
#include "data/recordset/EngineFactory.h"
#include "data/schema/SchemaVersion.h"
#include "data/transfer/DatabaseCopy.h"

namespace tarnwell {

namespace {

/// Empty for a catalog on a server.
QString fileOf(const QString& connectionString) {
    const bool isFile = connectionValue(connectionString, QLatin1String("Provider"))
                            .compare(fileProvider, Qt::CaseInsensitive) == 0;
    return isFile ? connectionValue(connectionString, QLatin1String("Data Source")) : QString();
}

/// The copy is a file of the current version, with the rows of the earlier one.
void saveCatalog(const QString& connectionString, const QString& backup) {
    data::FileReplacement file(backup);
    createDatabase(file.temporaryPath());
    Connection from;
    from.setConnectionString(connectionString);
    from.Open();
    Connection to;
    to.setConnectionString(fileConnectionString(file.temporaryPath()));
    to.Open();
    (void)copyDatabase(from, to);
    to.Close();
    updateStatistics(file.temporaryPath());
    file.moveIntoPlace(data::FileReplacement::Existing::Keep);
}

/// What an upgrade is at work on when it fails.
constexpr auto saving =
    "The database was made by an earlier version of Tarnwell. Before it is brought up to date it has to be "
    "saved, and that failed. Nothing was changed. %1";
constexpr auto changing =
    "The database was made by an earlier version of Tarnwell. Bringing it up to date failed, and it is as it "
    "was. %1";

[[noreturn]] void explain(const char* text, const RunTimeError& error) {
    throw RunTimeError(error.number(), error.source(), QString::fromLatin1(text).arg(error.description()),
                       error.failure());
}

} // namespace

int schemaVersion(const Connection& connection) {
    return connection.engine().schemaVersion();
}

bool isUpToDate(const Connection& connection) {
    return schemaVersion(connection) == schema::currentVersion;
}

int upgradeDatabase(const QString& connectionString, const QString& backup,
                    const std::function<void(int done, int all)>& afterChange) {
    const QString file = fileOf(connectionString);
    const char* step = nullptr;
    const schema::UpgradeCalls calls{.save =
                                         [&] {
                                             step = saving;
                                             if (file.isEmpty())
                                                 saveCatalog(connectionString, backup);
                                             else
                                                 backupDatabase(file, backup, false);
                                             step = changing;
                                         },
                                     .afterChange = afterChange};
    {
        Connection connection;
        connection.setConnectionString(connectionString);
        connection.Open(); // refuses what is not ours, or of a later version
        if (isUpToDate(connection))
            return schema::currentVersion;
    }
    try {
        return file.isEmpty() ? data::openServerCatalog(connectionString)->upgrade(calls)
                              : upgradeFile(file, calls);
    } catch (const RunTimeError& error) {
        if (step == nullptr)
            throw;
        explain(step, error);
    }
}

} // namespace tarnwell
