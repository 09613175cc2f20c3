#pragma once

#include <QLockFile>
#include <QString>

#include <memory>

namespace tarnwell::data {

/// A database that is made beside its place and moved there when it is whole; removed when it is not.
class FileReplacement {
public:
    /// Chooses a name and keeps it against other programs; the file is for the caller to make. Removes what
    /// killed programs left in the folder. Raises PathNotFound for a folder that does not exist, FileAccess
    /// for one that cannot be written.
    explicit FileReplacement(const QString& target);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    enum class Existing { Keep, Replace };

    [[nodiscard]] const QString& temporaryPath() const { return m_temporaryPath; }
    /// Brings the closed database to the disk, then into its place, with the permissions of the one that it
    /// replaces. Logs beside that place are removed: they would be taken for the new file's. Raises
    /// DatabaseLocked while somebody has the old one open, and FileAccess when the file can't be moved or
    /// another one that is to be kept has its name, even if that was made a moment ago; nothing has changed
    /// then.
    ///
    /// With `keptAs` the old file, sound or damaged, gets that name and is kept as it stood when it was
    /// replaced: what somebody wrote a moment before is in it. Raises FileAccess or DiskFull when it can't be
    /// kept or that name is taken; the old file is in its place then.
    void moveIntoPlace(Existing existing, const QString& keptAs = {});

private:
    QString m_target;
    QString m_temporaryPath;
    std::unique_ptr<QLockFile> m_lock; ///< "new-AbCdEf.tmp.lock": what it stands beside is in use.
};

} // namespace tarnwell::data
