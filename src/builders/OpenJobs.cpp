#include "builders/OpenJobs.h"

#include "data/recordset/Recordset.h"
#include "runtime/modFormatFunctions.h"
#include "runtime/modGeneral.h"

namespace tarnwell {

namespace {

constexpr int jobLineLength = 25, numberPosition = 1, namePosition = 11, nameLength = 20;

QString jobLine(const QString& number, const Value& name) {
    QString line(jobLineLength, u' ');
    overlay(line, numberPosition, number);
    if (!name.isNull())
        overlay(line, namePosition, u'|' + FieldText(name, nameLength));
    return line;
}

} // namespace

std::vector<ListItem> readOpenJobs(Connection& connection, qint64 builderKey) {
    std::vector<ListItem> lines{{jobLine("JOB #", "NAME"), 0}};
    if (builderKey == 0)
        return lines;
    Recordset jobs;
    jobs.Open("SELECT * FROM Job WHERE ContractorKey=" + QString::number(builderKey) +
                  " AND ISNULL(CompletedDate)=True ORDER BY JobNumber DESC",
              connection);
    for (; !jobs.atEnd(); jobs.MoveNext())
        lines.emplace_back(jobLine(FieldText(jobs["JobNumber"]), jobs["Name"]), jobs["JobKey"].toLong());
    return lines;
}

} // namespace tarnwell
