#pragma once

#include "data/transfer/DatabaseAddress.h"

#include <QDateTime>
#include <QString>

#include <optional>

namespace tarnwell {

/// The database that the program works on; of a catalog, a name to be shown and what opens it.
[[nodiscard]] DatabaseAddress databaseAtWork();

/// Where the backups of the database at work are, and what their names begin with behind their kind.
struct BackupPlace {
    QString folder;
    QString label;
    bool isChosen = false; ///< By the setting "BackupPath".
};

/// "BackupPath" where it is set; else the folder "backups" beside the database file, for a catalog the one in
/// the user's data folder. In a folder that was chosen, databases of one name from several places may come
/// together: the label then tells them apart.
[[nodiscard]] BackupPlace backupPlace();

/// The folder that is used where none is chosen.
[[nodiscard]] QString usualBackupFolder();

/// Makes the folder where it is missing, but never one that was chosen: it may lie on a drive that is not
/// connected. Raises PathNotFound or FileAccess.
void requireBackupFolder(const BackupPlace& place);

/// An empty text: the usual folder. Raises FileAccess or DiskFull when the settings can't be written.
void saveBackupFolder(const QString& folder);

/// Whether a day's first end of the program makes a backup: unless the setting "BackupAtExit" says "No".
[[nodiscard]] bool backsUpAtExit();
/// Raises as `saveBackupFolder`.
void saveBacksUpAtExit(bool backsUp);

/// When the latest daily or hand-made backup of the database at work was made; none where there is none or
/// its folder can't be found. Opens no file.
[[nodiscard]] std::optional<QDateTime> lastBackupTime();

} // namespace tarnwell
