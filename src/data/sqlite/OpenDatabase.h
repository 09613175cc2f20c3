#pragma once

#include "data/schema/SchemaVersion.h"
#include "data/sqlite/SqliteDatabase.h"

#include <QByteArray>
#include <QString>

#include <chrono>

namespace tarnwell::data {

/// How a change that a power cut interrupts is undone.
enum class Journal {
    WriteAhead, ///< Readers and a writer do not wait for each other. They share memory: one computer only.
    Rollback    ///< By locks on the file alone, which also hold on a network drive.
};

/// What suits the drive on which the file lies or is to lie.
[[nodiscard]] Journal journalFor(const QString& path);
/// Whether a file system, named as the system's table of mounts does ("ext4", "nfs4"), lies on another
/// computer.
[[nodiscard]] bool isNetworkFileSystem(const QByteArray& type);

/// Whether the database has the column, whatever its type there.
[[nodiscard]] bool hasColumn(const SqliteDatabase& handle, const schema::Table& table,
                             const schema::Column& column);

/// What the database says of its tables: the first version where it says nothing. Raises DatabaseForeign,
/// with `path`, where it has a table for that and no row.
[[nodiscard]] schema::Stamp stampOf(const SqliteDatabase& handle, const QString& path);
/// Has the database say that it is of the current version.
void writeStamp(const SqliteDatabase& handle);

/// Opens any database file for reading, and for writing where that is allowed, and reads its catalogue.
/// Raises DatabaseNotFound; DatabaseForeign, with the path, when it is damaged or not a database;
/// PermissionDenied when it can't be read safely without write permission; DatabaseLocked.
[[nodiscard]] SqliteDatabase openDatabaseFile(const QString& path, std::chrono::milliseconds busyTimeout);

/// Opens a database of ours, of this or an earlier version, and never makes one: for writing, or for reading
/// where the file cannot be written. Raises what `openDatabaseFile` raises, and DatabaseForeign when one of
/// our columns is missing or a later version made it. The file is looked at before anything is written to it.
/// Its journal is changed where it does not suit the drive; that raises DatabaseLocked while somebody else
/// has the file open.
[[nodiscard]] SqliteDatabase openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout);
[[nodiscard]] SqliteDatabase openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout,
                                             Journal journal);

} // namespace tarnwell::data
