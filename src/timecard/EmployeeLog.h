#pragma once

#include "data/Value.h"
#include "data/recordset/Connection.h"
#include "timecard/ShownRow.h"
#include "timecard/TaskHistory.h"

#include <QString>

namespace tarnwell {

/// One row of the log of corrections, as its dialog shows it.
struct ShownLogRow {
    ShownRow row;
    Value occured;
    QString dateText; ///< "03/05/24"; empty for Null.
    Value problem;
};

/// A line of exactly 50 characters: the date, and behind a bar what of the problem fits.
[[nodiscard]] QString logLine(const Value& occured, const Value& problem);

/// The log of an employee, newest first, a line each; the key is the log row's. None for employee 0. Raises
/// what the connection raises; the lines then stand as far as they were read.
void readLogLines(Connection& connection, qint64 employeeKey, const AddHistoryLine& addLine);

/// Raises NoCurrentRecord when there is no such row.
[[nodiscard]] ShownLogRow readLogRow(Connection& connection, qint64 logKey);

/// Writes date and problem; employee and task stay. A date text that is as it was shown leaves the date as it
/// is, with its century and its time. Raises WrongType for a text that is no date, RowChanged when the row is
/// no longer what was shown, NoCurrentRecord when none was; nothing is written then.
void acceptLogRow(Connection& connection, qint64 logKey, const ShownLogRow& shown, const QString& dateText,
                  const QString& problem);

} // namespace tarnwell
