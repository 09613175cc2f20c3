#include "data/sqlite/OpenDatabase.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "data/schema/Schema.h"

#include <QFileInfo>

#include <sqlite3.h>

namespace tarnwell::data {

namespace {

using Access = SqliteHandle::Access;

/// Reads the catalogue, which is where a file that is no database shows.
void requireOurs(const SqliteHandle& handle, const QString& path) {
    (void)handle.prepare("SELECT 1 FROM sqlite_schema").step();
    for (const schema::Table& table : schema::tables())
        for (const schema::Column& column : table.columns)
            if (!hasColumn(handle, table, column))
                raise(Failure::DatabaseForeign,
                      QStringLiteral("%1 (%2.%3)").arg(path, table.name, column.name));
}

/// A file made by others may hold views and triggers; they may not call what has effects.
void protect(sqlite3* handle) {
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle, SQLITE_DBCONFIG_ENABLE_FKEY, 1, nullptr);
}

} // namespace

Access accessFor(const QFileInfo& file) {
    if (file.isWritable())
        return Access::ReadWrite;
    const bool hasLog = QFileInfo::exists(file.filePath() + QStringLiteral("-wal"));
    return hasLog || QFileInfo(file.path()).isWritable() ? Access::ReadOnly : Access::Immutable;
}

bool hasColumn(const SqliteHandle& handle, const schema::Table& table, const schema::Column& column) {
    return sqlite3_table_column_metadata(handle.get(), "main", table.name.toUtf8().constData(),
                                         column.name.toUtf8().constData(), nullptr, nullptr, nullptr, nullptr,
                                         nullptr) == SQLITE_OK;
}

SqliteHandle openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout) {
    const QFileInfo file(pathOnDisk(path));
    if (!file.isFile())
        raise(Failure::DatabaseNotFound, path);
    const Access access = accessFor(file);
    SqliteHandle handle(file.filePath(), access);
    sqlite3_busy_timeout(handle.get(), static_cast<int>(busyTimeout.count()));
    try {
        requireOurs(handle, path);
        if (access == Access::ReadWrite) {
            handle.run("PRAGMA journal_mode=WAL");
            handle.run("PRAGMA synchronous=FULL");
        }
    } catch (const RunTimeError&) {
        if (handle.foundDamage())
            raise(Failure::DatabaseForeign, path); // the engine's words do not say which file
        throw;
    }
    protect(handle.get());
    return handle;
}

} // namespace tarnwell::data
