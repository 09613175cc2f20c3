#include "reports/pages/ReportFile.h"

#include "data/DiskPath.h"
#include "data/schema/Schema.h"
#include "runtime/DatabaseSettings.h"

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <sqlite3.h>

namespace tarnwell {

namespace {

using data::Journal;
using data::SqliteDatabase;
using data::SqliteStatement;
using Access = data::SqliteDatabase::Access;

constexpr qint64 applicationId = 0x54775270; // "TwRp": tells the file from every other database
constexpr int busyMilliseconds = 5000;
constexpr int creationMilliseconds = 30'000;

/// A power cut may take the last runs and leaves the file whole; waiting for the disk would cost more.
constexpr auto relaxed = "PRAGMA synchronous=NORMAL";

qint64 answerOf(const SqliteDatabase& handle, const QByteArray& sql) {
    SqliteStatement statement = handle.prepare(sql);
    return statement.step() ? statement.integerAt(0) : 0;
}

bool isOurs(const SqliteDatabase& handle) {
    return answerOf(handle, "PRAGMA application_id") == applicationId;
}

void requireOurs(const SqliteDatabase& handle, const QString& path) {
    if (!isOurs(handle))
        raise(Failure::DatabaseForeign, path);
}

void createTables(const SqliteDatabase& handle) {
    handle.run("CREATE TABLE Report (ReportKey INTEGER PRIMARY KEY AUTOINCREMENT)");
    handle.run("CREATE TABLE Page (ReportKey INTEGER NOT NULL, Page INTEGER NOT NULL, Part INTEGER NOT NULL, "
               "Items BLOB NOT NULL, PRIMARY KEY (ReportKey, Page, Part))");
    handle.run("PRAGMA application_id=" + QByteArray::number(applicationId));
}

void setJournal(const SqliteDatabase& handle, Journal journal) {
    handle.run(journal == Journal::WriteAhead ? "PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=DELETE");
}

/// Also a file without a table: a program may be about to make them, or the disk was full.
bool isToBeMade(const QString& path) {
    if (QFileInfo(path).size() == 0)
        return true;
    try {
        const SqliteDatabase handle(path, Access::ReadOnly);
        return answerOf(handle, "SELECT COUNT(*) FROM sqlite_master") == 0;
    } catch (const RunTimeError&) {
        return false; // what is wrong with it shows when it is opened
    }
}

/// Programs that start together wait for each other here, and find the file made.
void makeWhereMissing(const QString& path, Journal journal) {
    if (!isToBeMade(path))
        return;
    const SqliteDatabase handle(path, Access::Create);
    sqlite3_busy_timeout(handle.get(), creationMilliseconds);
    // A report's page fits into one of the file's; deleted ones are given back to the disk.
    handle.run("PRAGMA page_size=16384");
    handle.run("PRAGMA auto_vacuum=FULL");
    handle.run("BEGIN EXCLUSIVE");
    const bool isEmpty = answerOf(handle, "SELECT COUNT(*) FROM sqlite_master") == 0;
    if (isEmpty) {
        createTables(handle);
        // Keeps the lock beyond the commit: changing the journal fails at once while somebody else reads.
        handle.run("PRAGMA locking_mode=EXCLUSIVE");
    }
    handle.run("COMMIT");
    if (isEmpty)
        setJournal(handle, journal);
}

/// An empty file beside the report database, for locks alone.
SqliteDatabase usersFile(const QString& path) {
    return {path + QStringLiteral("-users"), Access::Create};
}

/// With a write-ahead log the engine keeps an open file locked against `clearAlone`, also while its owner
/// does nothing. Without one it does not, and a lock on the file would stop every write.
std::optional<SqliteDatabase> markInUse(const QString& path, Journal journal) {
    if (journal == Journal::WriteAhead)
        return std::nullopt;
    SqliteDatabase users = usersFile(path);
    sqlite3_busy_timeout(users.get(), busyMilliseconds);
    users.run("PRAGMA locking_mode=EXCLUSIVE"); // a reader's lock stays until the end
    (void)answerOf(users, "SELECT COUNT(*) FROM sqlite_master");
    return users;
}

bool isMarkedInUse(const SqliteDatabase& users) {
    try {
        users.run("BEGIN EXCLUSIVE");
    } catch (const RunTimeError&) {
        if (users.foundBusy())
            return true;
        throw;
    }
    return false;
}

/// Clears what ended programs left, as long as nobody else has the file open.
void clearAlone(const QString& path, Journal journal) {
    const SqliteDatabase handle(path, Access::ReadWrite);
    std::optional<SqliteDatabase> users; // locked until the file is cleared
    if (journal == Journal::Rollback && isMarkedInUse(users.emplace(usersFile(path))))
        return;
    try {
        handle.run("PRAGMA locking_mode=EXCLUSIVE");
        requireOurs(handle, path);
        setJournal(handle, journal);
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

SqliteDatabase openShared(const QString& path) {
    SqliteDatabase handle(path, Access::ReadWrite);
    sqlite3_busy_timeout(handle.get(), busyMilliseconds);
    requireOurs(handle, path);
    handle.run(relaxed);
    // Copying a run from the log into the file would be a long commit, and most runs are cleared first.
    handle.run("PRAGMA wal_autocheckpoint=0");
    return handle;
}

bool isSameFile(const QString& first, const QString& second) {
    std::error_code error; // a path that leads nowhere is no other's file
    return std::filesystem::equivalent(QFileInfo(first).filesystemFilePath(),
                                       QFileInfo(second).filesystemFilePath(), error);
}

/// Whether it is the file that is open, or that the next start opens.
bool isDatabaseInUse(const QString& path) {
    return isSameFile(path, pathOnDisk(databaseInUse().file)) ||
           isSameFile(path, pathOnDisk(readDatabaseSettings().file));
}

bool hasTableOfOurs(const QString& path) {
    try {
        const SqliteDatabase handle(path, Access::ReadOnly);
        SqliteStatement names = handle.prepare("SELECT name FROM sqlite_master");
        while (names.step())
            if (schema::findTable(names.textAt(0)) != nullptr)
                return true;
    } catch (const RunTimeError&) {
        return false; // not even a database
    }
    return false;
}

/// The setting may name the wages' own file by mistake, and that may be too damaged to be read.
bool mayHoldWages(const QString& path) {
    return isDatabaseInUse(path) || hasTableOfOurs(path);
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

void raiseForDamage(const RunTimeError& error, const QString& path) {
    if (!error.is(Failure::DatabaseForeign))
        return;
    if (!mayHoldWages(path))
        throw UnusableReportFile(path);
    raise(Failure::DatabaseForeign, path);
}

ReportFile openReportFile(const QString& path) {
    return openReportFile(path, data::journalFor(path));
}

ReportFile openReportFile(const QString& path, Journal journal) {
    const QFileInfo file(path);
    if (!QFileInfo(file.path()).isDir())
        raise(Failure::PathNotFound, file.path());
    try {
        makeWhereMissing(path, journal);
        clearAlone(path, journal);
        std::optional<SqliteDatabase> mark = markInUse(path, journal);
        return {.pages = openShared(path), .mark = std::move(mark)};
    } catch (const RunTimeError& error) {
        // The engine's words say neither which file nor that a right is missing.
        const bool isReadOnly = error.is(Failure::PermissionDenied);
        if (isReadOnly || !file.isFile() || !file.isWritable() || !QFileInfo(file.path()).isWritable())
            raise(Failure::FileAccess, path);
        raiseForDamage(error, path);
        throw;
    }
}

} // namespace tarnwell
