#pragma once

#include <QString>
#include <QStringList>

namespace tarnwell {

/// Makes a new database with every table, index, relation and initial row. Raises FileAccess when the file
/// exists or its folder cannot be written.
void createDatabase(const QString& path);

/// Copies a database while others may use it: the copy is consistent, checked, and renamed into place.
/// An existing `target` is replaced only if `overwrite`; raises FileAccess otherwise.
void backupDatabase(const QString& source, const QString& target, bool overwrite);

/// Has the engine count the rows of every index, by which it plans joins. Due after a database was filled at
/// one go; what grows in daily use is counted again when a connection closes. Raises as opening does.
void updateStatistics(const QString& path);

/// What the engine and the relations find wrong with the file, one line each; empty when it is sound.
/// Raises DatabaseForeign when the file is no database of ours at all.
[[nodiscard]] QStringList integrityProblems(const QString& path);

} // namespace tarnwell
