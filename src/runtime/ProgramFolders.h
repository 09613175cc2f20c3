#pragma once

#include <QString>

namespace tarnwell {

/// Where a program's files lie, in full paths with the platform's separators; a folder ends in a separator.
struct ProgramFolders {
    QString help;       ///< Pages of the manual; only read, like the layouts.
    QString layouts;    ///< Grid layouts.
    QString imports;    ///< Nothing uses it.
    QString data;       ///< Holds the two files below, unless the settings say otherwise.
    QString database;   ///< A file.
    QString sample;     ///< A file: the database to look around in.
    QString reportFile; ///< Holds the pages of the last reports.
    QString logs;
    QString errorLog; ///< A file of the user's; empty where it lies beside the program's folder.

    bool isInstalled =
        false;             ///< Below a prefix: `bin` holds the program, `share/tarnwell` what is only read.
    bool areUsers = false; ///< What is written lies in the user's own folders.
};

/// The folders of a program that lies in `programFolder`; looks at the disk, changes nothing.
///
/// A copy that may write its folder has everything in it (only the error log stands beside it, under the
/// folder's name). An installed program, and a copy that may not write its folder, keep what is written in
/// the user's own folders: `tarnwell` below $XDG_DATA_HOME and $XDG_STATE_HOME. A database that stands beside
/// such a copy and can be written is used where it is. The error log lies in the user's folder also where a
/// copy can write all but the place for that. `applicationPath` is the folder that paths of a copy start in;
/// it differs from the program's in a developer's copy.
[[nodiscard]] ProgramFolders foldersOf(const QString& programFolder, const QString& applicationPath);

/// The folders of the running program: what `setProgramFolders` was given last.
[[nodiscard]] const ProgramFolders& programFolders();
/// Makes those among the user's own folders that are missing; who writes there finds out what can't be made.
void setProgramFolders(const ProgramFolders& folders);

/// What an installed program lacks of what it reads: a folder's path, or empty when it is whole.
[[nodiscard]] QString missingResource(const ProgramFolders& folders);

} // namespace tarnwell
