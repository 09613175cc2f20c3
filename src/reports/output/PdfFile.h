#pragma once

#include <QSaveFile>
#include <QString>

namespace tarnwell {

/// A PDF that is being written: it takes its name, and the place of a file of that name, when it is finished;
/// without that it leaves nothing behind.
class PdfFile : public QSaveFile {
public:
    /// `path` is the name as the user knows it, for messages. Raises PathNotFound for a missing folder,
    /// FileAccess for a place that can't be written, DiskFull.
    explicit PdfFile(const QString& path);

    /// Raises DiskFull or FileAccess when `isGoing` is false or some bytes could not be written; the
    /// toolkit's writer goes on behind such bytes and says nothing of them.
    void check(bool isGoing = true) const;
    /// The same, for what is still to be written.
    void finish();

protected:
    qint64 writeData(const char* data, qint64 size) override;

private:
    void keepFailure();

    QString m_path;
    FileError m_failure = NoError; ///< The first one: later calls forget it.
    QString m_reason;
};

} // namespace tarnwell
