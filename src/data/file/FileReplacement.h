#pragma once

#include <QString>

namespace tarnwell::data {

/// A database that is made beside its place and moved there when it is whole; removed when it is not.
class FileReplacement {
public:
    /// Raises PathNotFound for a folder that is not there, FileAccess for one that cannot be written.
    explicit FileReplacement(const QString& target);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    enum class Existing { Keep, Replace };

    [[nodiscard]] const QString& temporaryPath() const { return m_temporaryPath; }
    /// Brings the closed database to the disk, then into its place, with the permissions of the one that it
    /// replaces. Logs beside that place go: they would be taken for the new file's. Raises DatabaseLocked
    /// while somebody has the old one open, and FileAccess when it cannot or when a file stands there that is
    /// to be kept; nothing has changed then.
    void moveIntoPlace(Existing existing);

private:
    QString m_target;
    QString m_temporaryPath;
};

} // namespace tarnwell::data
