#pragma once

#include <QString>

namespace tarnwell::data {

/// A file that is written beside its place and moved there when it is whole; removed when it is not.
class FileReplacement {
public:
    /// Raises PathNotFound for a folder that is not there, FileAccess for one that cannot be written.
    explicit FileReplacement(const QString& target);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    enum class Existing { Keep, Replace };

    [[nodiscard]] const QString& temporaryPath() const { return m_temporaryPath; }
    /// Brings the file to the disk, then into its place. Raises FileAccess when it cannot, or when a file
    /// stands there that is to be kept.
    void moveIntoPlace(Existing existing);

    /// Makes a database ready to be replaced: nobody may have it open, and no log may stay beside it that
    /// would be taken for the new file's. Raises DatabaseLocked while it is in use.
    static void retireDatabase(const QString& path);

private:
    QString m_target;
    QString m_temporaryPath;
};

} // namespace tarnwell::data
