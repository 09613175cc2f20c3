#include "data/file/DatabaseFile.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "data/file/EngineCheck.h"
#include "data/file/FileReplacement.h"
#include "data/recordset/Connection.h"
#include "data/schema/Schema.h"
#include "data/sqlite/OpenDatabase.h"

#include <QByteArrayList>
#include <QFileInfo>

namespace tarnwell {

namespace {

using data::quoted;
using data::SqliteDatabase;
using data::SqliteStatement;

constexpr int shownProblems = 100; ///< For each table: more add nothing.

void insertInitialRow(const SqliteDatabase& handle, const schema::InitialRow& row) {
    QByteArrayList names;
    QByteArrayList values;
    for (const auto& [column, value] : row.values) {
        names << quoted(column);
        values << "?";
    }
    SqliteStatement statement = handle.prepare("INSERT INTO " + quoted(row.table) + " (" + names.join(',') +
                                               ") VALUES (" + values.join(',') + ')');
    int parameter = 0;
    for (const auto& [column, value] : row.values)
        statement.bind(++parameter, value);
    statement.run();
}

void fillNewDatabase(const QString& path) {
    const SqliteDatabase handle(path, SqliteDatabase::Access::Create);
    handle.run("BEGIN");
    for (const QString& sql : schema::createStatements())
        handle.run(sql.toUtf8());
    for (const schema::InitialRow& row : schema::initialRows())
        insertInitialRow(handle, row);
    data::writeStamp(handle);
    handle.run("COMMIT");
    // The file keeps this setting; inside the transaction it could not be made.
    if (data::journalFor(path) == data::Journal::WriteAhead)
        handle.run("PRAGMA journal_mode=WAL");
}

/// "JobLot 5: there is no Job 77 for JobKey".
QString danglingText(const SqliteDatabase& handle, const schema::Table& table,
                     const schema::Relation& relation, qint64 key) {
    SqliteStatement value = handle.prepare("SELECT " + quoted(relation.column) + " FROM " +
                                           quoted(table.name) + " WHERE " + quoted(table.keyColumn) + "=?");
    value.bind(1, key);
    const QString missing = value.step() ? value.textAt(0) : QString();
    return QStringLiteral("%1 %2: there is no %3 %4 for %5")
        .arg(table.name, QString::number(key), relation.parentTable, missing, relation.column);
}

QStringList relationProblems(const SqliteDatabase& handle) {
    QStringList lines;
    SqliteStatement check = handle.prepare("PRAGMA foreign_key_check");
    // One row of the answer for each broken relation of a row: table, row, parent, number of the relation.
    while (check.step()) {
        const schema::Table* table = schema::findTable(check.textAt(0));
        for (const schema::Relation& relation : table->relations)
            if (relation.parentTable.compare(check.textAt(2), Qt::CaseInsensitive) == 0)
                lines << danglingText(handle, *table, relation, check.integerAt(1));
    }
    return lines;
}

void requireSound(const QString& path) {
    const QStringList problems = integrityProblems(path);
    if (!problems.isEmpty())
        raise(Failure::DatabaseForeign, QStringLiteral("%1 (%2)").arg(path, problems.front()));
}

/// A copy as of one moment, whatever others write meanwhile. The engine's own words for a damaged source say
/// neither which file nor where.
void copyInto(const QString& target, const SqliteDatabase& handle, const QString& source) {
    SqliteStatement copy = handle.prepare("VACUUM INTO ?1");
    copy.bind(1, target);
    try {
        copy.run();
    } catch (const RunTimeError&) {
        if (handle.foundDamage())
            requireSound(source);
        throw;
    }
}

} // namespace

void createDatabase(const QString& path) {
    const QString target = pathOnDisk(path);
    // Looks at the folder first, so that a missing one is reported as such.
    data::FileReplacement file(target);
    if (QFileInfo::exists(target))
        raise(Failure::FileAccess, target);
    fillNewDatabase(file.temporaryPath());
    file.moveIntoPlace(data::FileReplacement::Existing::Keep);
}

void backupDatabase(const QString& source, const QString& target, bool overwrite) {
    const QString from = pathOnDisk(source);
    const QString to = pathOnDisk(target);
    const bool exists = QFileInfo::exists(to);
    const bool same = exists && QFileInfo(from).canonicalFilePath() == QFileInfo(to).canonicalFilePath();
    if (same || (exists && !overwrite))
        raise(Failure::FileAccess, to);
    const SqliteDatabase handle = data::openOurDatabase(from, usualBusyTimeout);
    data::FileReplacement file(to);
    copyInto(file.temporaryPath(), handle, from);
    requireSound(file.temporaryPath());
    file.moveIntoPlace(overwrite ? data::FileReplacement::Existing::Replace
                                 : data::FileReplacement::Existing::Keep);
}

void updateStatistics(const QString& path) {
    data::openOurDatabase(path, usualBusyTimeout).run("ANALYZE");
}

QStringList integrityProblems(const QString& path) {
    const SqliteDatabase handle = data::openOurDatabase(path, usualBusyTimeout);
    try {
        const data::EngineReport report = data::askEngine(handle, shownProblems);
        const QStringList problems = report.damage + report.constraints;
        // In a damaged file no row's key can be relied on.
        return problems.isEmpty() ? relationProblems(handle) : problems;
    } catch (const RunTimeError& error) {
        if (!handle.foundDamage())
            throw;
        return {error.description()};
    }
}

} // namespace tarnwell
