#include "timecard/EmployeeLog.h"

#include "data/recordset/Recordset.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

namespace tarnwell {

namespace {

constexpr int lineLength = 50, problemColumn = 10;
constexpr auto dateFormat = "mm/dd/yy";

QString logStatement(qint64 logKey) {
    return "SELECT * FROM EmployeeLog WHERE LogKey=" + QString::number(logKey);
}

/// The dialog takes several lines; a line of the list is one.
QString onOneLine(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar& character : text)
        if (character == u'\n' || character == u'\r')
            character = u' ';
    return text;
}

} // namespace

QString wholeLogLine(const Value& occured, const Value& problem) {
    return Format(occured, "mm/dd/yy | ") + onOneLine(FieldText(problem));
}

QString logLine(const Value& occured, const Value& problem) {
    QString line(lineLength, u' ');
    overlay(line, 1, Format(occured, dateFormat));
    overlay(line, problemColumn, "| " + onOneLine(FieldText(problem)));
    return line;
}

void readEmployeeLog(Connection& connection, qint64 employeeKey, LogLineText lineText,
                     const AddHistoryLine& addLine) {
    if (employeeKey == 0)
        return;
    Recordset log;
    log.Open("SELECT * FROM EmployeeLog WHERE EmployeeKey=" + QString::number(employeeKey) +
                 " ORDER BY Occured DESC",
             connection);
    for (; !log.atEnd(); log.MoveNext())
        addLine(lineText(log["Occured"], log["Problem"]), log["LogKey"].toLong());
}

ShownLogRow readLogRow(Connection& connection, qint64 logKey) {
    Recordset log;
    log.Open(logStatement(logKey), connection);
    const Value occured = log["Occured"];
    return {.row = RowSnapshot(log),
            .occured = occured,
            .dateText = Format(occured, dateFormat),
            .problem = log["Problem"]};
}

void acceptLogRow(Connection& connection, qint64 logKey, const ShownLogRow& shown, const QString& dateText,
                  const QString& problem) {
    Recordset log;
    log.Open(logStatement(logKey), connection, CursorType::Static, LockType::Optimistic);
    shown.row.requireUnchanged(log);
    const bool staysNull = shown.occured.isNull() && dateText.isEmpty();
    log.set("Occured", staysNull ? Value::null() : Value(dateText));
    log.set("Problem", problem);
    log.Update();
}

} // namespace tarnwell
