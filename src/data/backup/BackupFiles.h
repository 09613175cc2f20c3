#pragma once

#include "data/backup/BackupName.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace tarnwell {

/// A file in a folder of backups.
struct BackupFile {
    QString path;
    BackupName name;
    QDateTime made; ///< By its name; where that has no time, by the file's own one if it is of that day.
    qint64 bytes = 0;
};

/// Every "*.mdb" in the folder, the latest first; none where there is no such folder. No file is opened.
[[nodiscard]] std::vector<BackupFile> backupsIn(const QString& folder);

/// A path for a backup of that moment that no file has. Requires ByHand or Before.
[[nodiscard]] QString newBackupPath(const QString& folder, BackupKind kind, const QString& label,
                                    QDateTime when);

/// Removes the daily backups of that label that `daysToRemove` names. Raises FileAccess for the first that
/// can't be removed, behind all others.
void removeOldBackups(const QString& folder, const QString& label, QDate today);

} // namespace tarnwell
