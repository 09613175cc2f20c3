#include "data/file/DatabaseFile.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "data/file/EngineCheck.h"
#include "data/file/FileReplacement.h"
#include "data/recordset/Connection.h"
#include "data/schema/Schema.h"
#include "data/sqlite/OpenDatabase.h"

#include <QByteArrayList>
#include <QFile>
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

void requireSound(const QString& path, const GoesOn& goesOn) {
    const QStringList problems = integrityProblems(path, goesOn);
    if (!problems.isEmpty())
        raise(Failure::DatabaseForeign, QStringLiteral("%1 (%2)").arg(path, problems.front()));
}

/// A copy as of one moment, whatever others write meanwhile. The engine's own words for a damaged source say
/// neither which file nor where.
void copyInto(const QString& target, const SqliteDatabase& handle, const QString& source,
              const GoesOn& goesOn) {
    const data::SqliteWatch watch(handle, goesOn);
    SqliteStatement copy = handle.prepare("VACUUM INTO ?1");
    copy.bind(1, target);
    try {
        copy.run();
    } catch (const RunTimeError&) {
        if (handle.foundDamage())
            requireSound(source, goesOn);
        throw;
    }
}

bool isSameFile(const QString& one, const QString& other) {
    return QFileInfo::exists(other) &&
           QFileInfo(one).canonicalFilePath() == QFileInfo(other).canonicalFilePath();
}

/// Makes the file in the making a copy that was found sound.
void copySoundly(const QString& source, const data::FileReplacement& file, const GoesOn& goesOn) {
    const SqliteDatabase handle = data::openOurDatabase(source, usualBusyTimeout);
    copyInto(file.temporaryPath(), handle, source, goesOn);
    requireSound(file.temporaryPath(), goesOn);
    if (goesOn && !goesOn()) // A small file has its copy before anybody is asked.
        raise(Failure::Cancelled);
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

void backupDatabase(const QString& source, const QString& target, bool overwrite, const GoesOn& goesOn) {
    const QString from = pathOnDisk(source);
    const QString to = pathOnDisk(target);
    if (isSameFile(from, to) || (QFileInfo::exists(to) && !overwrite))
        raise(Failure::FileAccess, to);
    data::FileReplacement file(to);
    copySoundly(from, file, goesOn);
    // Who may not read the wages may not read their copy either.
    QFile::setPermissions(file.temporaryPath(), QFileInfo(from).permissions() | QFileDevice::WriteOwner);
    file.moveIntoPlace(overwrite ? data::FileReplacement::Existing::Replace
                                 : data::FileReplacement::Existing::Keep);
}

void restoreDatabase(const QString& saved, const QString& target, const QString& keptAs,
                     const GoesOn& goesOn) {
    const QString from = pathOnDisk(saved);
    const QString to = pathOnDisk(target);
    if (isSameFile(from, to))
        raise(Failure::FileAccess, to);
    data::FileReplacement file(to);
    copySoundly(from, file, goesOn);
    file.moveIntoPlace(data::FileReplacement::Existing::Replace, pathOnDisk(keptAs));
}

void updateStatistics(const QString& path) {
    data::openOurDatabase(path, usualBusyTimeout).run("ANALYZE");
}

QStringList integrityProblems(const QString& path, const GoesOn& goesOn) {
    const SqliteDatabase handle = data::openOurDatabase(path, usualBusyTimeout);
    const data::SqliteWatch watch(handle, goesOn);
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
