#include "runtime/ExitBackup.h"

#include "data/RunTimeError.h"
#include "data/backup/BackupFiles.h"
#include "data/backup/DatabaseBackup.h"
#include "runtime/BackupAttempt.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/MsgBox.h"
#include "runtime/RunTime.h"
#include "runtime/modErrorRoutines.h"

#include <QDir>
#include <QFileInfo>
#include <QLockFile>

#include <cstdio>
#include <exception>

namespace tarnwell {

namespace {

/// A lock that does not grow old: it counts as long as its program runs.
class BackupLock {
public:
    BackupLock() : m_lock(backupLockFile()) { m_lock.setStaleLockTime(0); }
    /// False when another program has it. Where no lock can be made, nobody has it.
    [[nodiscard]] bool isFree(int milliseconds) {
        return m_lock.tryLock(milliseconds) || m_lock.error() != QLockFile::LockFailedError;
    }

private:
    QLockFile m_lock;
};

void makeDailyBackup(const BackupPlace& place, const QString& path, QDate today) {
    requireBackupFolder(place);
    try {
        saveDatabase(databaseAtWork(), path, ExistingFile::Keep);
    } catch (const RunTimeError&) {
        if (!QFileInfo::exists(path)) // Another computer may have been quicker.
            throw;
    }
    removeOldBackups(place.folder, place.label, today);
}

void backUpToday() {
    constexpr int longestWait = 10 * 60 * 1000;
    BackupLock lock;
    (void)lock.isFree(longestWait);
    const QDate today = Today().date;
    const BackupPlace place = backupPlace();
    const QString path = QDir(place.folder).filePath(dailyBackupName(place.label, today));
    if (QFileInfo::exists(path))
        return;
    recordBackupAttempt({.day = today, .failure = {}});
    try {
        makeDailyBackup(place, path, today);
        forgetBackupAttempt();
    } catch (const RunTimeError& error) {
        recordBackupAttempt({.day = today, .failure = error.description()});
        WriteErrorLog(error.number(), error.description(), QStringLiteral("backUpAtExit"));
    }
}

} // namespace

void backUpAtExit() noexcept {
    try {
        if (DataEnvironment::wasOpened() && backsUpAtExit())
            backUpToday();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The daily backup could not be made: %s\n", error.what());
    }
}

void reportFailedBackup() {
    const std::optional<BackupAttempt> attempt = readBackupAttempt();
    if (attempt && attempt->failure.isEmpty() && !BackupLock().isFree(0))
        return;
    forgetBackupAttempt();
    if (!attempt)
        return;
    const QString day = Format(DateTime{attempt->day}, QStringLiteral("mm/dd/yy"));
    const QString what =
        attempt->failure.isEmpty()
            ? QStringLiteral("The daily backup of %1 was cut short: the computer or the program was ended "
                             "while it was made.")
                  .arg(day)
            : QStringLiteral("The daily backup of %1 could not be made:\n%2").arg(day, attempt->failure);
    MsgBox({.text = what + QStringLiteral("\n\nYour data is as you left it. The program tries again when it "
                                          "is ended. Open Backups in the main window to make a backup now "
                                          "or to choose another folder."),
            .title = QStringLiteral("Daily Backup"),
            .icon = MessageIcon::Exclamation});
}

} // namespace tarnwell
