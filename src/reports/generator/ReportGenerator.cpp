#include "reports/generator/ReportGenerator.h"

#include "data/engine/ConnectionString.h"
#include "data/recordset/Recordset.h"
#include "reports/drawing/ReportText.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"
#include "runtime/modGlobalVariables.h"

#include <algorithm>

namespace tarnwell {

namespace {

constexpr auto calendarForm = "frmRptCalendar";
constexpr qint64 firstCalendarKey = 5;

/// A column of a line in which each column has its fixed place.
struct LineColumn {
    int position; ///< 1 is the first.
    QString text;
    int width;
};

QString lineOf(int length, std::initializer_list<LineColumn> columns) {
    QString line(length, u' ');
    for (const auto& [position, text, width] : columns)
        overlay(line, position, text, width);
    return line;
}

QString employeeLine(const Recordset& employees) {
    constexpr int length = 30;
    return lineOf(length,
                  {{1, FieldText(employees["SSN"]), 11}, {12, "|" + FieldText(employees["Name"]), 20}});
}

QString jobLine(const Recordset& jobs) {
    constexpr int length = 45;
    const Value completed = jobs["CompletedDate"];
    return lineOf(length, {{1, FieldText(jobs["JobNumber"]), 10},
                           {11, "|" + FieldText(jobs["Name"]), 24},
                           {35, completed.isNull() ? QString() : "|" + dateText(completed), 9}});
}

/// One line for each row, as `lineFor` makes it; none where it returns nothing.
template <class LineFor>
void appendLines(std::vector<ListItem>& lines, Connection& connection, const QString& sql, LineFor lineFor) {
    Recordset rows;
    rows.Open(sql, connection);
    for (; !rows.atEnd(); rows.MoveNext())
        if (std::optional<ListItem> line = lineFor(rows))
            lines.push_back(*std::move(line));
}

MessageRequest reportError(const char* text) {
    return {.text = text, .title = "Report Error", .icon = MessageIcon::Exclamation};
}

} // namespace

ReportDefinitions readReportDefinitions(Connection& connection) {
    Recordset rows;
    rows.Open("SELECT * FROM ReportDefinition ORDER BY Name", connection, CursorType::ForwardOnly,
              LockType::Optimistic);
    ReportDefinitions read;
    for (; !rows.atEnd(); rows.MoveNext()) {
        read.definitions.push_back({.reportDefinitionKey = rows["reportDefinitionKey"].toLong(),
                                    .objectName = rows["objectName"].toText(),
                                    .multiSelect = rows["multiSelect"].toBool(),
                                    .reportType = rows["reportType"].toLong(),
                                    .pEntryDate = rows["pEntryDate"].toBool(),
                                    .pForeman = rows["pForeman"].toBool(),
                                    .pSSN = rows["pSSN"].toBool(),
                                    .pDetailLevel = rows["pDetailLevel"].toBool(),
                                    .summaryOnly = rows["summaryOnly"].toBool(),
                                    .groupBy = rows["groupBy"].toBool(),
                                    .category = rows["category"].toBool()});
        read.names.push_back(rows["Name"].toText());
    }
    return read;
}

std::vector<ListItem> readForemanLines(Connection& connection) {
    std::vector<ListItem> lines{{}};
    appendLines(lines, connection,
                "SELECT LastName + '/' + FirstName AS EmployeeName FROM Employee WHERE Type='Foreman' ORDER "
                "BY LastName",
                [](const Recordset& row) -> std::optional<ListItem> {
                    const Value name = row.field(0);
                    if (name.isNull())
                        return std::nullopt;
                    return ListItem(name.toText(), 0);
                });
    return lines;
}

std::vector<ListItem> readEmployeeLines(Connection& connection) {
    std::vector<ListItem> lines;
    appendLines(lines, connection,
                "SELECT EmployeeKey, SSN, LastName + ', ' + FirstName AS Name FROM Employee ORDER BY SSN",
                [](const Recordset& row) -> std::optional<ListItem> {
                    const Value key = row["EmployeeKey"];
                    if (key.isNull())
                        return std::nullopt;
                    return ListItem(employeeLine(row), key.toLong());
                });
    return lines;
}

std::vector<ListItem> readCategoryLines(Connection& connection) {
    std::vector<ListItem> lines{{}};
    appendLines(lines, connection, "SELECT * FROM Code WHERE Deleted=0 AND Code1=2 ORDER BY Description",
                [](const Recordset& row) -> std::optional<ListItem> {
                    return ListItem(FieldText(row["Description"]), row["CodeKey"].toLong());
                });
    return lines;
}

std::vector<ListItem> readJobLines(Connection& connection, bool incomplete) {
    const QString filter = incomplete ? QStringLiteral("WHERE isnull(CompletedDate)=-1 ") : QString();
    std::vector<ListItem> lines;
    appendLines(lines, connection,
                "SELECT Job.JobKey, Job.JobNumber, Job.Name, Job.CompletedDate From Job " + filter +
                    "ORDER BY Job.JobNumber",
                [](const Recordset& row) -> std::optional<ListItem> {
                    return ListItem(jobLine(row), row["JobKey"].toLong());
                });
    return lines;
}

std::optional<MessageRequest> objectionTo(const ReportDefinitionRecord* chosen,
                                          const std::vector<bool>& marks) {
    if (chosen == nullptr)
        return MessageRequest{.text = "You must select report / file name to print.",
                              .title = "Selection Error",
                              .icon = MessageIcon::Critical};
    const auto marked = std::ranges::count(marks, true);
    const auto counted = marked - (!marks.empty() && marks.front() ? 1 : 0);
    if (!chosen->multiSelect && counted > 1)
        return reportError("You cannot select more than one job per report");
    if (marked == 0)
        return reportError("You must select at least one job for the report");
    return std::nullopt;
}

QString reportConnectionString() {
    return fileConnectionString(gReportDataPath) + ";Persist Security Info=False";
}

int calendarModeOf(const ReportDefinitionRecord& definition) {
    return definition.objectName == QLatin1String(calendarForm)
               ? static_cast<int>(definition.reportDefinitionKey - firstCalendarKey)
               : 0;
}

} // namespace tarnwell
