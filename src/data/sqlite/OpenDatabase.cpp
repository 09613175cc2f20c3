#include "data/sqlite/OpenDatabase.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <sqlite3.h>

namespace tarnwell::data {

namespace {

using Access = SqliteDatabase::Access;

/// Their names begin so: "nfs4", "smb3", "fuse.sshfs". Folders that a virtual machine shares count: the
/// computer that offers them is another one.
constexpr std::array networkFileSystems{"nfs",  "cifs",      "smb",    "fuse.",  "ncp",  "afs",
                                        "ceph", "9p",        "vboxsf", "lustre", "gfs2", "ocfs2",
                                        "coda", "glusterfs", "davfs",  "vmhgfs"};

/// A file that nobody can write needs no locks, and there may be no place for them.
bool canNobodyWrite(const QFileInfo& file) {
    const QStorageInfo drive(file.path());
    return drive.isReadOnly() && !isNetworkFileSystem(drive.fileSystemType());
}

Access accessFor(const QFileInfo& file) {
    if (file.isWritable())
        return Access::ReadWrite;
    return canNobodyWrite(file) ? Access::Immutable : Access::ReadOnly;
}

/// Of a file that may be anything.
bool isInWriteAheadMode(const QString& path) {
    constexpr qint64 readVersionAt = 19; // by the engine's file format
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.seek(readVersionAt) && file.read(1) == "\x02";
}

void readCatalogue(const SqliteDatabase& handle) {
    (void)handle.prepare("SELECT 1 FROM sqlite_schema").step();
}

/// The engine's words say neither which file nor what to do. Returns where they are enough.
void explainFailure(const SqliteDatabase& handle, const QFileInfo& file, const QString& path) {
    if (handle.foundDamage())
        raise(Failure::DatabaseForeign, path);
    const int code = sqlite3_errcode(handle.get()) & 0xFF;
    const bool lacksLog = code == SQLITE_READONLY || code == SQLITE_CANTOPEN;
    if (lacksLog && file.isReadable() && !file.isWritable())
        raise(Failure::PermissionDenied,
              QStringLiteral("%1 can be read only with write permission for its folder, or while another "
                             "program has it open")
                  .arg(path));
}

SqliteDatabase openFile(const QString& path, std::chrono::milliseconds busyTimeout, bool alone) {
    const QFileInfo file(pathOnDisk(path));
    if (!file.isFile())
        raise(Failure::DatabaseNotFound, path);
    SqliteDatabase handle(file.filePath(), accessFor(file));
    sqlite3_busy_timeout(handle.get(), static_cast<int>(busyTimeout.count()));
    try {
        if (alone)
            handle.run("PRAGMA locking_mode=EXCLUSIVE");
        readCatalogue(handle);
    } catch (const RunTimeError&) {
        explainFailure(handle, file, path);
        throw;
    }
    return handle;
}

/// A later version may have other columns, so it is looked at first.
void requireOurs(const SqliteDatabase& handle, const QString& path) {
    schema::requireKnown(stampOf(handle, path), QStringLiteral("SQLite"), path);
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

/// Folds the log into the file. The handle has the file to itself, and shares it again afterwards.
void leaveWriteAheadMode(const SqliteDatabase& handle) {
    handle.run("PRAGMA journal_mode=DELETE");
    handle.run("PRAGMA locking_mode=NORMAL");
    readCatalogue(handle); // The lock is let go only now.
}

} // namespace

bool isNetworkFileSystem(const QByteArray& type) {
    return std::ranges::any_of(networkFileSystems, [&](const char* name) { return type.startsWith(name); });
}

Journal journalFor(const QString& path) {
    const QStorageInfo drive(QFileInfo(path).absolutePath());
    return isNetworkFileSystem(drive.fileSystemType()) ? Journal::Rollback : Journal::WriteAhead;
}

bool hasColumn(const SqliteDatabase& handle, const schema::Table& table, const schema::Column& column) {
    return sqlite3_table_column_metadata(handle.get(), "main", table.name.toUtf8().constData(),
                                         column.name.toUtf8().constData(), nullptr, nullptr, nullptr, nullptr,
                                         nullptr) == SQLITE_OK;
}

schema::Stamp stampOf(const SqliteDatabase& handle, const QString& path) {
    const schema::Table& table = schema::versionTable();
    readCatalogue(handle); // What the handle knows of the tables may be from before somebody else's upgrade.
    if (!hasColumn(handle, table, table.columns.front()))
        return {};
    SqliteStatement stamps = handle.prepare(schema::readStamps());
    if (!stamps.step())
        raise(Failure::DatabaseForeign, QStringLiteral("%1 (%2 is empty)").arg(path, table.name));
    return {static_cast<int>(stamps.integerAt(0)), stamps.textAt(1)};
}

void writeStamp(const SqliteDatabase& handle) {
    const schema::Stamp stamp = schema::currentStamp();
    SqliteStatement insert = handle.prepare(schema::insertStamp());
    insert.bindAll(std::array<Value, 2>{stamp.version, stamp.program});
    insert.run();
}

SqliteDatabase openDatabaseFile(const QString& path, std::chrono::milliseconds busyTimeout) {
    return openFile(path, busyTimeout, false);
}

SqliteDatabase openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout) {
    return openOurDatabase(path, busyTimeout, journalFor(pathOnDisk(path)));
}

SqliteDatabase openOurDatabase(const QString& path, std::chrono::milliseconds busyTimeout, Journal journal) {
    const QString onDisk = pathOnDisk(path);
    const bool canWrite = QFileInfo(onDisk).isWritable();
    const bool leaves = journal == Journal::Rollback && canWrite && isInWriteAheadMode(onDisk);
    SqliteDatabase handle = openFile(path, busyTimeout, leaves);
    requireOurs(handle, path);
    if (leaves)
        leaveWriteAheadMode(handle);
    if (canWrite) {
        if (journal == Journal::WriteAhead)
            handle.run("PRAGMA journal_mode=WAL");
        handle.run("PRAGMA synchronous=FULL");
    }
    protect(handle.get());
    return handle;
}

} // namespace tarnwell::data
