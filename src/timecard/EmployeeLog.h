#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "timecard/RowSnapshot.h"
#include "timecard/TaskHistory.h"

#include <QString>

namespace tarnwell {

/// One row of the log of corrections, as its dialog shows it.
struct ShownLogRow {
    RowSnapshot row;
    Value occured;
    QString dateText; ///< "03/05/24"; empty for Null.
    Value problem;
};

/// How a row of the log is written on one line: the date (empty for Null) and, behind a bar, the problem with
/// blanks for its line breaks.
using LogLineText = QString (*)(const Value& occured, const Value& problem);
/// With the whole problem.
[[nodiscard]] QString wholeLogLine(const Value& occured, const Value& problem);
/// Of exactly 50 characters, with as much of the problem as fits.
[[nodiscard]] QString logLine(const Value& occured, const Value& problem);

/// The log of an employee, newest first, a line each; the key is the log row's. None for employee 0. Raises
/// what the connection raises; the lines then stand as far as they were read.
void readEmployeeLog(Connection& connection, qint64 employeeKey, LogLineText lineText,
                     const AddHistoryLine& addLine);

/// Raises NoCurrentRecord when there is no such row.
[[nodiscard]] ShownLogRow readLogRow(Connection& connection, qint64 logKey);

/// Writes date and problem; employee and task stay. The date is that of the text, without a time of day; only
/// a date of Null whose text is still empty stays as it is. Raises WrongType for a text that is not a date,
/// RowChanged when the row is no longer what was shown, NoCurrentRecord when none was; nothing is written
/// then.
void acceptLogRow(Connection& connection, qint64 logKey, const ShownLogRow& shown, const QString& dateText,
                  const QString& problem);

} // namespace tarnwell
