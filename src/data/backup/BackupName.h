#pragma once

#include <QDateTime>
#include <QString>

#include <vector>

namespace tarnwell {

/// Why there is a backup; its file's name says so.
enum class BackupKind {
    Daily,  ///< Made by itself at the first end of the program on a day; the only kind that is ever removed.
    ByHand, ///< "Back up now".
    Before, ///< The data as they were before something replaced or changed them.
    Other   ///< A file of any other name.
};

/// What the name of a backup's file says: "daily-Tarnwell-2026-11-25.mdb",
/// "manual-Tarnwell-2026-11-25-174301.mdb", "before-restore-Tarnwell-2026-11-25-174301.mdb".
struct BackupName {
    BackupKind kind = BackupKind::Other;
    QString label; ///< Of the database; as `backupLabel` makes it.
    QDate day;
    QTime time; ///< Invalid where the name has none.
};

/// Nothing but its kind is known of a name that is not made here.
[[nodiscard]] BackupName readBackupName(const QString& fileName);

[[nodiscard]] QString dailyBackupName(const QString& label, QDate day);
/// Requires ByHand or Before.
[[nodiscard]] QString timedBackupName(BackupKind kind, const QString& label, const QDateTime& when);

/// A database's name as a part of file names: letters, digits, dots and dashes; "database" where none is
/// left.
[[nodiscard]] QString backupLabel(const QString& name);

/// The days whose daily backups are no longer kept. Kept are those of the seven latest days that have one,
/// and of the four latest weeks (Monday to Sunday) before the week in which these begin the latest one each.
/// A day that is still to come, by a clock that was wrong, is kept and does not count.
[[nodiscard]] std::vector<QDate> daysToRemove(std::vector<QDate> days, QDate today);

} // namespace tarnwell
