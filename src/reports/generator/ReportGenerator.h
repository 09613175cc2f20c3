#pragma once

#include "data/recordset/Connection.h"
#include "runtime/ListItem.h"
#include "runtime/MsgBox.h"

#include <QString>

#include <optional>
#include <vector>

namespace tarnwell {

/// A report as the database offers it: the form that draws it and the controls of the generator that it uses.
struct ReportDefinitionRecord {
    qint64 reportDefinitionKey;
    QString objectName; ///< The report's form. A report with an unknown one is offered and does nothing.
    bool multiSelect;   ///< Several jobs may be marked.
    qint64 reportType;  ///< Nothing depends on it.
    bool pEntryDate;
    bool pForeman;
    bool pSSN;
    bool pDetailLevel;
    bool summaryOnly;
    bool groupBy;
    bool category;
};

/// The reports in the order of their names; a name and its definition have one index.
struct ReportDefinitions {
    std::vector<QString> names;
    std::vector<ReportDefinitionRecord> definitions;
};

/// Raises InvalidUseOfNull for a row with a Null column.
[[nodiscard]] ReportDefinitions readReportDefinitions(Connection& connection);

/// A blank line, then each foreman as "Last/First"; one with a Null name part is left out.
[[nodiscard]] std::vector<ListItem> readForemanLines(Connection& connection);
/// 30 characters: the number, a bar and the name, by number.
[[nodiscard]] std::vector<ListItem> readEmployeeLines(Connection& connection);
/// A blank line, then the task categories that are in use.
[[nodiscard]] std::vector<ListItem> readCategoryLines(Connection& connection);
/// 45 characters: number, name and, for a completed job, its date, by number. `incomplete` leaves the
/// completed ones out.
[[nodiscard]] std::vector<ListItem> readJobLines(Connection& connection, bool incomplete);

/// The message that keeps a report from starting with these marks in the list of jobs; nothing when it may
/// start. `chosen` is null when no report is chosen. For a report of one job the first job of the list isn't
/// counted: it may be marked together with another one.
[[nodiscard]] std::optional<MessageRequest> objectionTo(const ReportDefinitionRecord* chosen,
                                                        const std::vector<bool>& marks);

/// The connection string of the report database at `gReportDataPath`.
[[nodiscard]] QString reportConnectionString();

/// The calendar's mode, which follows from the key of its row; 0 for the other reports.
[[nodiscard]] int calendarModeOf(const ReportDefinitionRecord& definition);

} // namespace tarnwell
