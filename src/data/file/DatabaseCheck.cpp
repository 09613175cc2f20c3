#include "data/file/DatabaseCheck.h"

#include "data/RunTimeError.h"
#include "data/check/CheckRules.h"
#include "data/file/EngineCheck.h"
#include "data/file/StorageRules.h"
#include "data/recordset/Connection.h"
#include "data/schema/MissingColumns.h"
#include "data/sql/Dialect.h"
#include "data/sqlite/OpenDatabase.h"
#include "data/sqlite/SqliteDatabase.h"

#include <algorithm>
#include <sqlite3.h>

namespace tarnwell {

namespace {

using data::SqliteDatabase;

QStringList missingParts(const SqliteDatabase& handle) {
    return schema::missingColumns([&](const schema::Table& table, const schema::Column& column) {
        return data::hasColumn(handle, table, column);
    });
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

/// `rows`: the key and the value of each row that breaks the rule.
FindingGroup examine(const QString& table, const QString& column, const QString& fault, int shown,
                     data::SqliteStatement rows) {
    FindingGroup group{
        .table = table, .rule = QStringLiteral("%1.%2 %3").arg(table, column, fault), .first = {}};
    for (; rows.step(); ++group.count) {
        if (group.count >= shown)
            continue;
        const bool isNull = sqlite3_column_type(rows.get(), 1) == SQLITE_NULL;
        group.first.push_back(
            {table, rows.integerAt(0), column, shownValue(isNull ? QString() : rows.textAt(1))});
    }
    return group;
}

std::vector<FindingGroup> examineRows(const SqliteDatabase& handle, int shown) {
    std::vector<FindingGroup> groups;
    for (const data::StorageRule& rule : data::storageRules())
        groups.push_back(examine(rule.table, rule.column, rule.fault, shown, handle.prepare(rule.statement)));
    data::Dialect dialect;
    for (const data::CheckRule& rule : data::rowRules()) {
        const data::Translation translation = dialect.translate(rule.statement());
        data::SqliteStatement rows = handle.prepare(translation.shape->sql);
        rows.bindAll(translation.parameters);
        groups.push_back(examine(rule.table, rule.column, rule.fault, shown, std::move(rows)));
    }
    std::erase_if(groups, [](const FindingGroup& group) { return group.count == 0; });
    return groups;
}

CheckResult checkRows(const SqliteDatabase& handle, const QString& path, int shownPerRule) {
    handle.run("PRAGMA query_only=1");
    handle.run("BEGIN");
    const data::EngineReport report = data::askEngine(handle, shownPerRule);
    CheckResult result{.engineProblems = report.damage, .groups = {}};
    if (!result.isClean())
        return result;
    const schema::Stamp stamp = data::stampOf(handle, path);
    schema::requireKnown(stamp, QStringLiteral("SQLite"), path);
    result.schemaVersion = stamp.version;
    result.engineProblems = missingParts(handle);
    if (!result.isClean())
        return result;
    result.groups = examineRows(handle, shownPerRule);
    result.engineProblems = unexplained(report.constraints, result.groups);
    return result;
}

} // namespace

CheckResult checkDatabase(const QString& path, int shownPerRule, const GoesOn& goesOn) {
    const SqliteDatabase handle = data::openDatabaseFile(path, usualBusyTimeout);
    const data::SqliteWatch watch(handle, goesOn);
    try {
        return checkRows(handle, path, shownPerRule);
    } catch (const RunTimeError&) {
        if (!handle.foundDamage())
            throw;
        raise(Failure::DatabaseForeign, path);
    }
}

} // namespace tarnwell
