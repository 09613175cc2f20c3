#pragma once

#include <QString>
#include <QStringList>

#include <functional>

namespace tarnwell {

/// Asked again and again by long work on the thread that does it; once it says false, the work raises
/// Cancelled and leaves everything as it was. Must not throw. Empty: nobody is asked.
using GoesOn = std::function<bool()>;

/// Makes a new database with every table, index, relation and initial row, and closes it. Raises FileAccess
/// when the file exists or its folder cannot be written, PathNotFound when the folder does not exist.
void createDatabase(const QString& path);

/// Copies a database as of one moment while others may use it; the copy gets its name only when it was found
/// sound, and a new one has the source's permissions. An existing `target` is replaced only if `overwrite`,
/// and keeps its own. Raises FileAccess when `target` exists and may not be replaced, is the source itself or
/// can't be written; DatabaseForeign when the source or the copy is not sound; DatabaseLocked while somebody
/// has `target` open.
void backupDatabase(const QString& source, const QString& target, bool overwrite, const GoesOn& goesOn = {});

/// Puts a copy of `saved` in the place of `target`, as `backupDatabase` does; an older `target`, sound or
/// damaged, becomes the file `keptAs`, exactly as it stood at that moment. Raises also FileAccess and
/// DiskFull when it can't be kept. Whatever is raised, `target` is as it was.
void restoreDatabase(const QString& saved, const QString& target, const QString& keptAs,
                     const GoesOn& goesOn = {});

/// Has the engine count the rows of every index, by which it plans joins. Needed after a database was filled
/// all at once; what grows in daily use is counted again when a connection closes. Raises what opening
/// raises.
void updateStatistics(const QString& path);

/// What the engine and the relations find wrong with the file, one line each; empty when it is sound. With
/// damage, relations are not looked at. Raises DatabaseForeign when the file is not a database of ours,
/// DatabaseNotFound, DatabaseLocked.
[[nodiscard]] QStringList integrityProblems(const QString& path, const GoesOn& goesOn = {});

} // namespace tarnwell
