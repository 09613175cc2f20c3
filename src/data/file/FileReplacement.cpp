#include "data/file/FileReplacement.h"

#include "data/RunTimeError.h"
#include "data/sqlite/SqliteHandle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarnwell::data {

namespace {

constexpr std::array logSuffixes{"-wal", "-shm", "-journal"};

#ifdef _WIN32
constexpr bool canReplaceOpenFile = false;
#else
constexpr bool canReplaceOpenFile = true;
#endif

/// False when one is left.
[[nodiscard]] bool removeLogs(const QString& path) {
    return std::ranges::none_of(logSuffixes, [&](const char* suffix) {
        const QString log = path + QLatin1String(suffix);
        return QFileInfo::exists(log) && !QFile::remove(log);
    });
}

/// Waits until the disk holds the file or folder, so that a power cut finds the old file or the new one.
bool isSynchronized(const QString& path) {
#ifdef _WIN32
    return QFileInfo::exists(path);
#else
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool done = ::fsync(descriptor) == 0;
    ::close(descriptor);
    return done;
#endif
}

std::filesystem::path nativePath(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

/// Folds the log into the database and keeps everybody out of it while the result lives. What cannot be read
/// as a database is replaced all the same.
SqliteHandle lockAgainstUse(const QString& path) {
    SqliteHandle handle(path, SqliteHandle::Access::ReadWrite);
    try {
        handle.run("PRAGMA locking_mode=EXCLUSIVE");
        handle.run("PRAGMA journal_mode=DELETE");
        handle.run("BEGIN EXCLUSIVE");
    } catch (const RunTimeError&) {
        if (handle.foundBusy())
            throw;
    }
    return handle;
}

} // namespace

FileReplacement::FileReplacement(const QString& target) : m_target(target) {
    const QString folder = QFileInfo(target).absolutePath();
    if (!QFileInfo(folder).isDir())
        raise(Failure::PathNotFound, folder);
    QTemporaryFile file(QDir(folder).filePath(QStringLiteral("new-XXXXXX.tmp")));
    if (!file.open())
        raise(Failure::FileAccess, target);
    // Only its name is kept: the engine makes the file anew, readable for whoever may read new files.
    m_temporaryPath = file.fileName();
}

FileReplacement::~FileReplacement() {
    QFile::remove(m_temporaryPath);
    (void)removeLogs(m_temporaryPath);
}

void FileReplacement::moveIntoPlace(Existing existing) {
    const QFileInfo old(m_target);
    if ((old.exists() && existing == Existing::Keep) || !isSynchronized(m_temporaryPath))
        raise(Failure::FileAccess, m_target);
    std::optional<SqliteHandle> lock;
    if (old.exists()) {
        lock = lockAgainstUse(m_target);
        QFile::setPermissions(m_temporaryPath, old.permissions());
    }
    if (!removeLogs(m_target))
        raise(Failure::FileAccess, m_target);
    if (!canReplaceOpenFile)
        lock.reset();
    std::error_code error;
    std::filesystem::rename(nativePath(m_temporaryPath), nativePath(m_target), error);
    if (error || !isSynchronized(old.absolutePath()))
        raise(Failure::FileAccess, m_target);
}

} // namespace tarnwell::data
