#include "data/FileReplacement.h"

#include "data/RunTimeError.h"
#include "data/SqliteHandle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include <array>
#include <filesystem>

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tarnwell::data {

namespace {

constexpr std::array logSuffixes{"-wal", "-shm", "-journal"};

void removeLogs(const QString& path) {
    for (const char* suffix : logSuffixes)
        QFile::remove(path + QLatin1String(suffix));
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

} // namespace

FileReplacement::FileReplacement(const QString& target) : m_target(target) {
    const QString folder = QFileInfo(target).absolutePath();
    if (!QFileInfo(folder).isDir())
        raise(Failure::PathNotFound, folder);
    QTemporaryFile file(QDir(folder).filePath(QStringLiteral("new-XXXXXX.tmp")));
    file.setAutoRemove(false);
    if (!file.open())
        raise(Failure::FileAccess, target);
    m_temporaryPath = file.fileName();
}

FileReplacement::~FileReplacement() {
    QFile::remove(m_temporaryPath);
    removeLogs(m_temporaryPath);
}

void FileReplacement::moveIntoPlace(Existing existing) {
    std::error_code error;
    const bool blocked = existing == Existing::Keep && QFileInfo::exists(m_target);
    if (blocked || !isSynchronized(m_temporaryPath))
        raise(Failure::FileAccess, m_target);
    std::filesystem::rename(nativePath(m_temporaryPath), nativePath(m_target), error);
    if (error || !isSynchronized(QFileInfo(m_target).absolutePath()))
        raise(Failure::FileAccess, m_target);
}

void FileReplacement::retireDatabase(const QString& path) {
    SqliteHandle handle(path, SqliteHandle::Access::ReadWrite);
    try {
        handle.run("PRAGMA locking_mode=EXCLUSIVE");
        handle.run("PRAGMA journal_mode=DELETE");
        handle.run("BEGIN EXCLUSIVE");
    } catch (const RunTimeError&) {
        if (handle.foundBusy()) // what cannot be read as a database is replaced all the same
            throw;
    }
    handle.close();
    removeLogs(path);
}

} // namespace tarnwell::data
