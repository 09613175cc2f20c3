#pragma once

#include "data/schema/Schema.h"
#include "data/sqlite/SqliteHandle.h"

#include <QFileInfo>
#include <QString>

#include <chrono>

namespace tarnwell::data {

/// How a file can be opened: a read-only one in a folder without its log beside it can only be read as one
/// that nobody changes.
[[nodiscard]] SqliteHandle::Access accessFor(const QFileInfo& file);

/// Whether the database has the column, whatever its type there.
[[nodiscard]] bool hasColumn(const SqliteHandle& handle, const schema::Table& table,
                             const schema::Column& column);

/// Opens a database of ours and never makes one: for writing, or for reading where the file cannot be
/// written. Raises DatabaseNotFound, DatabaseForeign when it is no database, is damaged or lacks one of our
/// columns, DatabaseLocked. The file is looked at before anything is written to it.
[[nodiscard]] SqliteHandle openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout);

} // namespace tarnwell::data
