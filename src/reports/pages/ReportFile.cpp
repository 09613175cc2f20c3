#include "reports/pages/ReportFile.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace tarnwell {

namespace {

using data::SqliteHandle;
using data::SqliteStatement;

constexpr qint64 applicationId = 0x54775270; // "TwRp": tells the file from every other database
constexpr int busyMilliseconds = 5000;
constexpr int creationMilliseconds = 30'000;

/// A power cut may take the last runs and leaves the file whole; waiting for the disk would cost more.
constexpr auto relaxed = "PRAGMA synchronous=NORMAL";

qint64 answerOf(const SqliteHandle& handle, const QByteArray& sql) {
    SqliteStatement statement = handle.prepare(sql);
    return statement.step() ? statement.integerAt(0) : 0;
}

bool isOurs(const SqliteHandle& handle) {
    return answerOf(handle, "PRAGMA application_id") == applicationId;
}

void requireOurs(const SqliteHandle& handle, const QString& path) {
    if (!isOurs(handle))
        raise(Failure::DatabaseForeign, path);
}

void createTables(const SqliteHandle& handle) {
    handle.run("CREATE TABLE Report (ReportKey INTEGER PRIMARY KEY AUTOINCREMENT)");
    handle.run("CREATE TABLE Page (ReportKey INTEGER NOT NULL, Page INTEGER NOT NULL, Part INTEGER NOT NULL, "
               "Items BLOB NOT NULL, PRIMARY KEY (ReportKey, Page, Part))");
    handle.run("PRAGMA application_id=" + QByteArray::number(applicationId));
}

/// Programs that start together wait for each other here, and find the file made.
void makeWhereMissing(const QString& path) {
    if (QFileInfo(path).size() > 0)
        return;
    const SqliteHandle handle(path, SqliteHandle::Access::Create);
    sqlite3_busy_timeout(handle.get(), creationMilliseconds);
    // A report's page fits into one of the file's; deleted ones are given back to the disk.
    handle.run("PRAGMA page_size=16384");
    handle.run("PRAGMA auto_vacuum=FULL");
    handle.run("BEGIN EXCLUSIVE");
    if (answerOf(handle, "SELECT COUNT(*) FROM sqlite_master") == 0)
        createTables(handle);
    handle.run("COMMIT");
    handle.run("PRAGMA journal_mode=WAL");
}

/// Clears what ended programs left, as long as nobody else has the file open: an open one is locked against
/// this, also while its owner does nothing.
void clearAlone(const QString& path) {
    const SqliteHandle handle(path, SqliteHandle::Access::ReadWrite);
    try {
        handle.run("PRAGMA locking_mode=EXCLUSIVE");
        requireOurs(handle, path);
        handle.run("PRAGMA journal_mode=WAL");
        handle.run(relaxed);
        if (answerOf(handle, "SELECT EXISTS (SELECT 1 FROM Report)") != 0) {
            handle.run("DELETE FROM Page");
            handle.run("DELETE FROM Report");
        }
    } catch (const RunTimeError&) {
        if (!handle.foundBusy())
            throw;
    }
}

SqliteHandle openShared(const QString& path) {
    SqliteHandle handle(path, SqliteHandle::Access::ReadWrite);
    sqlite3_busy_timeout(handle.get(), busyMilliseconds);
    requireOurs(handle, path);
    handle.run(relaxed);
    // Copying a run from the log into the file would be a long commit, and most runs are cleared first.
    handle.run("PRAGMA wal_autocheckpoint=0");
    return handle;
}

/// A report database's setting may name the wages' own file by mistake.
bool holdsWages(const QString& path) {
    try {
        const SqliteHandle handle(path, SqliteHandle::Access::ReadOnly);
        return answerOf(handle, "SELECT EXISTS (SELECT 1 FROM sqlite_master WHERE name='JobLotTask')") != 0;
    } catch (const RunTimeError&) {
        return false; // not even a database
    }
}

QString freeNameBeside(const QString& path) {
    const QFileInfo file(path);
    const QString name =
        file.path() + u'/' + file.completeBaseName() + QStringLiteral("-damaged%1.") + file.suffix();
    QString free = name.arg(QString());
    for (int number = 2; QFileInfo::exists(free); ++number)
        free = name.arg(u'-' + QString::number(number));
    return free;
}

} // namespace

UnusableReportFile::UnusableReportFile(const QString& path)
    : RunTimeError(makeError(Failure::DatabaseForeign, path)), m_path(path),
      m_nameAside(freeNameBeside(path)) {}

void UnusableReportFile::setAside() const {
    for (const auto& suffix :
         {QLatin1String(), QLatin1String("-wal"), QLatin1String("-shm"), QLatin1String("-journal")})
        if (QFileInfo::exists(m_path + suffix) && !QFile::rename(m_path + suffix, m_nameAside + suffix))
            raise(Failure::FileAccess, m_path + suffix);
}

bool tellsOfDamage(const RunTimeError& error) {
    return error.is(Failure::DatabaseForeign);
}

data::SqliteHandle openReportFile(const QString& path) {
    const QFileInfo file(path);
    if (!QFileInfo(file.path()).isDir())
        raise(Failure::PathNotFound, file.path());
    try {
        makeWhereMissing(path);
        clearAlone(path);
        return openShared(path);
    } catch (const RunTimeError& error) {
        // The engine's words say neither which file nor that a right is missing.
        const bool isReadOnly = error.is(Failure::PermissionDenied);
        if (isReadOnly || !file.isFile() || !file.isWritable() || !QFileInfo(file.path()).isWritable())
            raise(Failure::FileAccess, path);
        if (tellsOfDamage(error) && !holdsWages(path))
            throw UnusableReportFile(path);
        throw;
    }
}

} // namespace tarnwell
