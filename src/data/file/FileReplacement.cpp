#include "data/file/FileReplacement.h"

#include "data/RunTimeError.h"
#include "data/sqlite/SqliteDatabase.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <sqlite3.h>
#include <string_view>
#include <vector>

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

void removeWithLogs(const QString& path) {
    QFile::remove(path);
    (void)removeLogs(path);
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
SqliteDatabase lockAgainstUse(const QString& path) {
    SqliteDatabase handle(path, SqliteDatabase::Access::ReadWrite);
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

/// False, with both files as they were, when it can't be moved or when what stands there is to be kept.
bool isMoved(const QString& from, const QString& to, FileReplacement::Existing existing) {
    std::error_code error;
    if (existing == FileReplacement::Existing::Keep) {
        // Unlike a rename, a second name for the file is refused where another program was quicker.
        std::filesystem::create_hard_link(nativePath(from), nativePath(to), error);
        if (!error || error == std::errc::file_exists)
            return !error; // The first name is removed with the leftovers.
    }
    error.clear();
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    return !error;
}

/// A copy of an old file that nobody else has open. While this lives the old one is not closed: on Unix
/// closing it would let go of every lock that this program has on it. A second name for the same file would
/// cost nothing, but a kill before the first name leads elsewhere would leave a database under two names,
/// each with a log of its own.
class KeptCopy {
public:
    /// Raises FileAccess or DiskFull; no file is left then.
    KeptCopy(const QString& old, const QString& path) : m_old(old) {
        FileReplacement copy(path);
        copyBytes(copy.temporaryPath(), path);
        QFile::setPermissions(copy.temporaryPath(), QFileInfo(old).permissions());
        if (!isSynchronized(copy.temporaryPath()) ||
            !isMoved(copy.temporaryPath(), path, FileReplacement::Existing::Keep))
            raise(Failure::FileAccess, path);
    }

private:
    void copyBytes(const QString& temporaryPath, const QString& path) {
        constexpr qint64 atOnce = qint64{1024} * 1024;
        QFile copy(temporaryPath);
        bool isWhole =
            m_old.open(QIODevice::ReadOnly) && copy.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
        while (isWhole && !m_old.atEnd()) {
            const QByteArray bytes = m_old.read(atOnce);
            isWhole = !bytes.isEmpty() && copy.write(bytes) == bytes.size();
        }
        if (!isWhole)
            raise(copy.error() == QFileDevice::ResourceError ? Failure::DiskFull : Failure::FileAccess, path);
    }

    QFile m_old;
};

/// Keeps an old database, and of one that is damaged what its log still holds. Into a sound one the log was
/// folded when it was locked.
std::vector<std::unique_ptr<KeptCopy>> keep(const QString& old, const QString& path,
                                            const SqliteDatabase& lock) {
    std::vector<std::unique_ptr<KeptCopy>> copies;
    const bool isFolded = sqlite3_get_autocommit(lock.get()) == 0;
    for (const char* suffix : {"-wal", "-journal"})
        if (const QLatin1String ending(suffix); !isFolded && QFileInfo::exists(old + ending))
            copies.push_back(std::make_unique<KeptCopy>(old + ending, path + ending));
    copies.push_back(std::make_unique<KeptCopy>(old, path));
    return copies;
}

const QString lockSuffix = QStringLiteral(".lock");

/// Null while another program has it.
std::unique_ptr<QLockFile> lockFor(const QString& temporaryPath) {
    auto lock = std::make_unique<QLockFile>(temporaryPath + lockSuffix);
    lock->setStaleLockTime(0); // However old it is, it counts while its program runs.
    if (!lock->tryLock(0))
        return nullptr;
    return lock;
}

/// Somebody else's file may have such a name.
bool canBeDatabase(const QString& path) {
    QFile file(path);
    if (!file.exists())
        return true; // Only a lock or a log is left.
    return file.open(QIODevice::ReadOnly) && (file.size() == 0 || file.read(15) == "SQLite format 3");
}

/// A program that was killed in its work could not remove its file.
void removeLeftovers(const QString& folder) {
    const QString ending = QStringLiteral(".tmp");
    QStringList names = QDir(folder).entryList({QStringLiteral("new-??????.tmp*")}, QDir::Files);
    for (QString& name : names)
        name.truncate(name.lastIndexOf(ending) + ending.size());
    names.removeDuplicates();
    for (const QString& name : names) {
        const QString path = QDir(folder).filePath(name);
        if (!canBeDatabase(path))
            continue;
        if (const auto lock = lockFor(path))
            removeWithLogs(path);
    }
}

QString temporaryName(const QString& folder) {
    constexpr std::string_view letters = "abcdefghijklmnopqrstuvwxyz0123456789";
    QString random;
    for (int i = 0; i < 6; ++i)
        random += QLatin1Char(letters[QRandomGenerator::system()->bounded(static_cast<int>(letters.size()))]);
    return QDir(folder).filePath(QStringLiteral("new-%1.tmp").arg(random));
}

} // namespace

FileReplacement::FileReplacement(const QString& target) : m_target(target) {
    const QString folder = QFileInfo(target).absolutePath();
    if (!QFileInfo(folder).isDir())
        raise(Failure::PathNotFound, folder);
    removeLeftovers(folder);
    do {
        m_temporaryPath = temporaryName(folder);
        m_lock = lockFor(m_temporaryPath);
        if (m_lock == nullptr)
            raise(Failure::FileAccess, target);
    } while (QFileInfo::exists(m_temporaryPath));
}

FileReplacement::~FileReplacement() {
    removeWithLogs(m_temporaryPath);
}

void FileReplacement::moveIntoPlace(Existing existing, const QString& keptAs) {
    const QFileInfo old(m_target);
    if ((old.exists() && existing == Existing::Keep) || !isSynchronized(m_temporaryPath))
        raise(Failure::FileAccess, m_target);
    std::optional<SqliteDatabase> lock;
    std::vector<std::unique_ptr<KeptCopy>> kept;
    if (old.exists()) {
        lock = lockAgainstUse(m_target);
        if (!keptAs.isEmpty())
            kept = keep(m_target, keptAs, *lock);
        QFile::setPermissions(m_temporaryPath, old.permissions());
    }
    if (!removeLogs(m_target))
        raise(Failure::FileAccess, m_target);
    if (!canReplaceOpenFile) {
        lock.reset();
        kept.clear();
    }
    if (!isMoved(m_temporaryPath, m_target, existing) || !isSynchronized(old.absolutePath()))
        raise(Failure::FileAccess, m_target);
}

} // namespace tarnwell::data
