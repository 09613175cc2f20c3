#pragma once

#include "data/RunTimeError.h"
#include "runtime/DatabaseSettings.h"

#include <QString>

namespace tarnwell {

/// What a start without a usable database can go on with.
enum class StartChoice { Retry, Restore, Empty, Sample, File, Postgres, SqlServer };

/// Why the user is asked: nothing has been chosen yet, or the chosen file can't be opened.
enum class StartReason { FirstStart, FileUnusable };

/// What the user chose. Fields that a choice does not need are ignored.
struct StartSelection {
    StartChoice choice = StartChoice::Empty;
    QString file = {}; ///< To be made or opened; to restore: the backup.
    QString server = {};
    QString catalog = {};
};

/// Whether the settings' database is a file that is not there.
[[nodiscard]] bool isDatabaseFileMissing();
/// Whether another choice helps against the error of opening the settings' database: a file that is missing
/// or can't be read. A server's errors are for who looks after it.
[[nodiscard]] bool canChooseAfter(const RunTimeError& error);

/// The choice that is marked at first. A database that lies where this program keeps its own, and not where
/// the settings say, has probably moved with the program's folder.
[[nodiscard]] StartChoice proposedChoice(StartReason reason);
/// The file that a choice begins with: for Empty and Sample one that can be made, for Restore the folder with
/// the backups; may be empty.
[[nodiscard]] QString proposedFile(StartChoice choice);

/// A typed path as the settings are to hold it: what starts in no folder starts in the program's data folder,
/// since the next start may begin in another one. Empty for blanks.
[[nodiscard]] QString fullPath(const QString& typed);

/// The settings that the selection leads to; `reportFile` is the one in use.
[[nodiscard]] DatabaseSettings settingsFor(const StartSelection& selection);

/// Makes the database where the choice says so, stores the settings, and reads them as a start does. Places
/// in the settings whose folder no longer exists become the program's own. A sample that is there already is
/// opened as it is. Restoring puts a checked copy of the backup where the settings' database lies; what can't
/// be read there is kept beside it. Raises FileAccess for an empty database whose name is taken, DiskFull,
/// PathNotFound, DatabaseForeign for a backup that is not sound; nothing has changed then.
void carryOut(const StartSelection& selection);

} // namespace tarnwell
