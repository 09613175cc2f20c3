#pragma once

#include "data/RunTimeError.h"

#include <QString>

namespace tarnwell {

/// Records the error in the error log and shows it. Number 53 gets a message of its own and no record.
/// `routine` is the text of the log's third line. A log that can't be written raises FileAccess.
void ErrorHandler(const RunTimeError& error, const QString& routine);

/// The program folder's text followed by "ErrorLog.txt", with no separator between them: the file lies beside
/// the folder, not inside it, and is not the one that the menu shows.
[[nodiscard]] QString errorLogFile();

/// Appends the three lines of one error to `errorLogFile()`; in batch mode also a record to the process log.
/// Raises FileAccess when a log can't be written.
void WriteErrorLog(int number, const QString& description, const QString& routine);

/// Appends the line and an empty one to ProcessLog.txt in `gLogPath`.
void WriteProcessLog(const QString& line);

} // namespace tarnwell
