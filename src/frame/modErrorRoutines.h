#pragma once

#include "data/RunTimeError.h"

#include <QString>

namespace tarnwell {

/// Records the error in the error log and shows it. Number 53 gets a message of its own and no record.
/// `routine` is the text of the log's third line. A log that can't be written raises FileAccess.
void ErrorHandler(const RunTimeError& error, const QString& routine);

/// Appends the three lines of one error to the program folder's text followed by "ErrorLog.txt" (no
/// separator between them).
void WriteErrorLog(int number, const QString& description, const QString& routine);

/// Appends the line and an empty one to ProcessLog.txt in `gLogPath`.
void WriteProcessLog(const QString& line);

} // namespace tarnwell
