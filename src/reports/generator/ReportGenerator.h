#pragma once

#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"
#include "runtime/MsgBox.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwell {

/// A report as the database offers it: which form draws it and which controls of the generator it uses.
struct ReportDefinitionRecord {
    qint64 reportDefinitionKey;
    QString objectName; ///< The report's form; any other name is offered and does nothing.
    bool multiSelect;   ///< Several jobs may be marked.
    qint64 reportType;  ///< Kept with the row; nothing depends on it.
    bool pEntryDate;
    bool pForeman;
    bool pSSN;
    bool pDetailLevel;
    bool summaryOnly;
    bool groupBy;
    bool category;
};

/// The reports in the order of their names. `names` and `definitions` go together by their index.
struct ReportDefinitions {
    std::vector<QString> names;
    std::vector<ReportDefinitionRecord> definitions;
};

/// Raises InvalidUseOfNull for a row with a Null column.
[[nodiscard]] ReportDefinitions readReportDefinitions(Connection& connection);

/// "Last/First", behind a blank line; a foreman with a Null name part has no line.
[[nodiscard]] std::vector<ListItem> readForemanLines(Connection& connection);
/// 30 characters: the number, a bar and the name, by number.
[[nodiscard]] std::vector<ListItem> readEmployeeLines(Connection& connection);
/// The task categories that are in use, behind a blank line.
[[nodiscard]] std::vector<ListItem> readCategoryLines(Connection& connection);
/// 45 characters: number, name and, for a completed job, its date, by number. `incomplete` leaves the
/// completed ones out.
[[nodiscard]] std::vector<ListItem> readJobLines(Connection& connection, bool incomplete);

/// What stands against a run with these marks in the list of jobs; nothing when it may start. `chosen` is
/// null when no report is chosen. For a report of one job the first job of the list is not counted, so that
/// one more may be marked beside it.
[[nodiscard]] std::optional<MessageRequest> objectionTo(const ReportDefinitionRecord* chosen,
                                                        const std::vector<bool>& marks);

/// What opens the report database at `gReportDataPath`.
[[nodiscard]] QString reportConnectionString();

/// The calendar's mode, which the database gives by its row's key; 0 for the other reports.
[[nodiscard]] int calendarModeOf(const ReportDefinitionRecord& definition);

} // namespace tarnwell
