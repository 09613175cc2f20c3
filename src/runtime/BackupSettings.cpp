#include "runtime/BackupSettings.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "data/backup/BackupFiles.h"
#include "runtime/DatabaseSettings.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QSysInfo>

#include <algorithm>

namespace tarnwell {

namespace {

const QString folderSetting = QStringLiteral("BackupPath");
const QString atExitSetting = QStringLiteral("BackupAtExit");

QString textOf(const QString& setting) {
    return RegistryKey(RegistryRoot::LocalMachine, gRegistryKey).text(setting).trimmed();
}

void storeSetting(const QString& setting, const QString& text) {
    writeRegistryValues(RegistryRoot::LocalMachine, gRegistryKey, {{.name = setting, .data = text}});
}

QString labelOf(const DatabaseSettings& database) {
    if (database.isFile())
        return backupLabel(QFileInfo(pathOnDisk(database.file)).completeBaseName());
    return backupLabel(database.server.isEmpty() ? database.catalog
                                                 : database.catalog + u'-' + database.server);
}

/// Four letters that another folder or computer hardly has.
QString originOf(const QString& file) {
    const QByteArray origin =
        QSysInfo::machineHostName().toUtf8() + ':' + QFileInfo(file).absolutePath().toUtf8();
    constexpr int base = 16, letters = 4;
    return QStringLiteral("%1").arg(qChecksum(origin), letters, base, QLatin1Char('0'));
}

QString usualFolder(const DatabaseSettings& database) {
    const QString parent = database.isFile()
                               ? QFileInfo(pathOnDisk(database.file)).path()
                               : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                                     QStringLiteral("/tarnwell");
    return QDir::toNativeSeparators(parent + QStringLiteral("/backups"));
}

} // namespace

DatabaseAddress databaseAtWork() {
    const DatabaseSettings database = databaseInUse();
    if (database.isFile())
        return {
            .shown = database.file, .path = pathOnDisk(database.file), .connectionString = gConnectionString};
    return {.shown = database.server.isEmpty()
                         ? database.catalog
                         : QStringLiteral("%1 on %2").arg(database.catalog, database.server),
            .path = {},
            .connectionString = gConnectionString};
}

BackupPlace backupPlace() {
    const DatabaseSettings database = databaseInUse();
    const QString chosen = textOf(folderSetting);
    if (chosen.isEmpty())
        return {.folder = usualFolder(database), .label = labelOf(database)};
    const QString label = database.isFile() ? labelOf(database) + u'-' + originOf(pathOnDisk(database.file))
                                            : labelOf(database);
    return {.folder = QDir::toNativeSeparators(QDir::cleanPath(pathOnDisk(chosen))),
            .label = label,
            .isChosen = true};
}

QString usualBackupFolder() {
    return usualFolder(databaseInUse());
}

void requireBackupFolder(const BackupPlace& place) {
    if (QFileInfo(place.folder).isDir())
        return;
    if (place.isChosen)
        raise(Failure::PathNotFound, place.folder);
    if (!QDir().mkpath(place.folder))
        raise(Failure::FileAccess, place.folder);
}

void saveBackupFolder(const QString& folder) {
    storeSetting(folderSetting, folder);
}

bool backsUpAtExit() {
    return textOf(atExitSetting).compare(QLatin1String("No"), Qt::CaseInsensitive) != 0;
}

void saveBacksUpAtExit(bool backsUp) {
    storeSetting(atExitSetting, backsUp ? QStringLiteral("Yes") : QStringLiteral("No"));
}

std::optional<QDateTime> lastBackupTime() {
    const BackupPlace place = backupPlace();
    const std::vector<BackupFile> files = backupsIn(place.folder);
    const auto last = std::ranges::find_if(files, [&](const BackupFile& file) {
        const bool isWhole = file.name.kind == BackupKind::Daily || file.name.kind == BackupKind::ByHand;
        return isWhole && file.name.label == place.label;
    });
    return last != files.end() ? std::optional(last->made) : std::nullopt;
}

} // namespace tarnwell
