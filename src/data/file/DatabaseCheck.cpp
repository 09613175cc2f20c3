#include "data/file/DatabaseCheck.h"

#include "data/RunTimeError.h"
#include "data/file/CheckRules.h"
#include "data/file/EngineCheck.h"
#include "data/recordset/Connection.h"
#include "data/schema/Schema.h"
#include "data/sqlite/OpenDatabase.h"
#include "data/sqlite/SqliteDatabase.h"

#include <algorithm>

namespace tarnwell {

namespace {

using data::CheckRule;
using data::SqliteDatabase;

constexpr int longestShownValue = 60;

QStringList missingParts(const SqliteDatabase& handle) {
    QStringList missing;
    for (const schema::Table& table : schema::tables()) {
        QStringList columns;
        for (const schema::Column& column : table.columns)
            if (!data::hasColumn(handle, table, column))
                columns << QStringLiteral("%1.%2 is missing").arg(table.name, column.name);
        if (columns.size() == static_cast<qsizetype>(table.columns.size()))
            columns = {QStringLiteral("%1 is missing").arg(table.name)};
        missing << columns;
    }
    return missing;
}

/// The engine names at most the table of a refused value; where our rules name its row, its line adds
/// nothing.
QStringList unexplained(const QStringList& constraints, const std::vector<FindingGroup>& groups) {
    QStringList rest;
    for (const QString& line : constraints) {
        const bool named = std::ranges::any_of(groups, [&](const FindingGroup& group) {
            return line.section(QLatin1String(" in "), 1).section(QLatin1Char('.'), 0, 0) == group.table;
        });
        if (!named)
            rest << line;
    }
    return rest;
}

FindingGroup examine(const SqliteDatabase& handle, const CheckRule& rule, int shown) {
    FindingGroup group{.table = rule.table,
                       .rule = QStringLiteral("%1.%2 %3").arg(rule.table, rule.column, rule.fault),
                       .first = {}};
    const QByteArray key = schema::findTable(rule.table)->keyColumn.toUtf8();
    auto rows = handle.prepare("SELECT t.[" + key + "], coalesce(CAST(t.[" + rule.column.toUtf8() +
                               "] AS TEXT),'Null') FROM [" + rule.table.toUtf8() + "] AS t WHERE " +
                               rule.condition + " ORDER BY 1");
    for (; rows.step(); ++group.count)
        if (group.count < shown)
            group.first.push_back(
                {rule.table, rows.integerAt(0), rule.column, rows.textAt(1).left(longestShownValue)});
    return group;
}

CheckResult checkRows(const SqliteDatabase& handle, int shownPerRule) {
    handle.run("PRAGMA query_only=1");
    handle.run("BEGIN");
    const data::EngineReport report = data::askEngine(handle, shownPerRule);
    CheckResult result{.engineProblems = report.damage, .groups = {}};
    if (result.isClean())
        result.engineProblems = missingParts(handle);
    if (!result.isClean())
        return result;
    for (const CheckRule& rule : data::checkRules())
        if (FindingGroup group = examine(handle, rule, shownPerRule); group.count > 0)
            result.groups.push_back(std::move(group));
    result.engineProblems = unexplained(report.constraints, result.groups);
    return result;
}

} // namespace

QString Finding::text() const {
    return QStringLiteral("%1 %2: %3 is %4").arg(table, QString::number(key), column, value);
}

qint64 CheckResult::count() const {
    qint64 sum = engineProblems.size();
    for (const FindingGroup& group : groups)
        sum += group.count;
    return sum;
}

CheckResult checkDatabase(const QString& path, int shownPerRule) {
    const SqliteDatabase handle = data::openDatabaseFile(path, usualBusyTimeout);
    try {
        return checkRows(handle, shownPerRule);
    } catch (const RunTimeError&) {
        if (!handle.foundDamage())
            throw;
        raise(Failure::DatabaseForeign, path);
    }
}

} // namespace tarnwell
