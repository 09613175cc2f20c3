#include "reports/output/PdfFile.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "runtime/DiskFile.h"

#include <QFileInfo>

namespace tarnwell {

PdfFile::PdfFile(const QString& path) : QSaveFile(pathOnDisk(path)), m_path(path) {
    const QString folder = QFileInfo(fileName()).absolutePath();
    if (!QFileInfo(folder).isDir())
        raise(Failure::PathNotFound, folder);
    check(open(WriteOnly));
}

void PdfFile::check(bool isGoing) const {
    const FileError failure = m_failure != NoError ? m_failure : error();
    if (isGoing && failure == NoError)
        return;
    const QString reason = m_reason.isEmpty() ? errorString() : m_reason;
    raise(failure == ResourceError ? Failure::DiskFull : fileFailure(reason),
          QStringLiteral("%1: %2").arg(m_path, reason));
}

void PdfFile::finish() {
    if (!flush())
        keepFailure();
    check();
    check(commit());
}

qint64 PdfFile::writeData(const char* data, qint64 size) {
    const qint64 written = QSaveFile::writeData(data, size);
    if (written != size)
        keepFailure();
    return written;
}

void PdfFile::keepFailure() {
    if (m_failure != NoError)
        return;
    // The system gives no reason for a partial write, only for the attempt to write the rest.
    flush();
    m_failure = error() == NoError ? WriteError : error();
    m_reason = errorString();
}

} // namespace tarnwell
