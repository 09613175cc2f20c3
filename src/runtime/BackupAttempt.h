#pragma once

#include <QDate>
#include <QString>

#include <optional>

namespace tarnwell {

/// A daily backup that was begun and has not succeeded. It is kept in a file beside the settings from one run
/// of the program to the next. The file always has the same size and is overwritten where it stands, so that
/// a disk that filled up can still take the news.
struct BackupAttempt {
    QDate day;
    QString failure; ///< Why it could not be made; empty while it is made, and where that was cut short.
};

/// The last attempt at a backup of the database at work; none when it succeeded.
[[nodiscard]] std::optional<BackupAttempt> readBackupAttempt();
/// What can't be recorded is said on standard error.
void recordBackupAttempt(const BackupAttempt& attempt);
/// Also makes the file, while there is space for it.
void forgetBackupAttempt();

/// Another program that makes a backup now holds a lock on this file.
[[nodiscard]] QString backupLockFile();

} // namespace tarnwell
