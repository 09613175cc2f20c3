#include "runtime/DiskFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

namespace tarnwell {

namespace {

constexpr std::array fullDisk{
#ifdef EDQUOT
    EDQUOT,
#endif
    ENOSPC};

QString systemWords(int systemError) {
    return QString::fromLocal8Bit(std::generic_category().message(systemError).c_str());
}

} // namespace

std::optional<QByteArray> readPlainFile(const QString& path, qint64 longest) {
    // Asked before the file is opened: opening a pipe waits for somebody to write into it.
    const QFileInfo info(path);
    if (!info.isFile() || info.size() > longest)
        return std::nullopt;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.read(longest + 1);
    if (file.error() != QFileDevice::NoError || bytes.size() > longest)
        return std::nullopt;
    return bytes;
}

void appendToFile(const QString& path, const QByteArray& bytes) {
    errno = 0;
    QFile file(path);
    if (!file.open(QIODevice::Append | QIODevice::Text | QIODevice::Unbuffered))
        throw fileError(path, errno);
    const qint64 before = file.size();
    errno = 0;
    const qint64 written = file.write(bytes);
    if (written == bytes.size())
        return;
    const int reason = errno;
    if (written > 0 && file.size() == before + written)
        file.resize(before);
    throw fileError(path, reason);
}

RunTimeError fileError(const QString& path, int systemError) {
    const QString reason =
        systemError == 0 ? path : QStringLiteral("%1: %2").arg(path, systemWords(systemError));
    return makeError(std::ranges::find(fullDisk, systemError) != fullDisk.end() ? Failure::DiskFull
                                                                                : Failure::FileAccess,
                     reason);
}

Failure fileFailure(const QString& reason) {
    return std::ranges::any_of(fullDisk, [&](int code) { return reason == systemWords(code); })
               ? Failure::DiskFull
               : Failure::FileAccess;
}

} // namespace tarnwell
