#pragma once

#include "data/RunTimeError.h"

#include <QString>

namespace tarnwell {

/// Records the error in the error log and shows it. Number 53 gets a message of its own and no record.
/// `routine` is the text of the log's third line. A log that can't be written raises as `WriteErrorLog`; that
/// error's text names the log, the reason and the error that could not be recorded.
void ErrorHandler(const RunTimeError& error, const QString& routine);

/// The program folder's text followed by "ErrorLog.txt", with no separator between them: the file lies beside
/// the folder, not inside it, and is not the one that the menu shows. The log of `programFolders`, which the
/// menu shows too, where the program may not write there.
[[nodiscard]] QString errorLogFile();

/// Appends the three lines of one error to `errorLogFile()`; in batch mode also a record to the process log.
/// Raises FileAccess (75) when a log can't be written, DiskFull (61) when the disk is full.
void WriteErrorLog(int number, const QString& description, const QString& routine);

/// Appends the line and an empty one to ProcessLog.txt in `gLogPath`. Raises as `WriteErrorLog`.
void WriteProcessLog(const QString& line);

} // namespace tarnwell
