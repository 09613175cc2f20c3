#pragma once

#include "data/RunTimeError.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace tarnwell {

/// All bytes of a plain file. Nothing for a missing or unreadable file, for one longer than `longest` bytes,
/// and for anything but a plain file: reading a pipe would wait, and a device may have no end.
[[nodiscard]] std::optional<QByteArray> readPlainFile(const QString& path, qint64 longest);

/// Appends the bytes in one write, so that those of two programs never mix; makes the file if there is none.
/// Raises as `fileError`; a part that was written is taken back then.
void appendToFile(const QString& path, const QByteArray& bytes);

/// The error of a file operation that failed with the system's error number (`errno`; 0: not known): DiskFull
/// (61) for a full disk or quota, else FileAccess (75). Its text names the file and the reason.
[[nodiscard]] RunTimeError fileError(const QString& path, int systemError);

/// The same for a reason that is known in the system's words alone, as the toolkit keeps it.
[[nodiscard]] Failure fileFailure(const QString& reason);

} // namespace tarnwell
