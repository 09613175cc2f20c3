#include "data/backup/DatabaseBackup.h"

#include "data/RunTimeError.h"
#include "data/engine/ConnectionString.h"
#include "data/recordset/Connection.h"
#include "data/recordset/EngineFactory.h"

#include <QFile>
#include <QFileInfo>

namespace tarnwell {

namespace {

using CatalogState = data::ServerCatalog::State;

DatabaseAddress addressOfFile(const QString& path) {
    return {.shown = path, .path = path, .connectionString = fileConnectionString(path)};
}

} // namespace

void requireSound(const DatabaseAddress& database, const GoesOn& goesOn) {
    if (database.isFile()) {
        const QStringList problems = integrityProblems(database.path, goesOn);
        if (!problems.isEmpty())
            raise(Failure::DatabaseForeign, QStringLiteral("%1 (%2)").arg(database.path, problems.front()));
        return;
    }
    const CatalogState state = data::openServerCatalog(database.connectionString)->state();
    if (state == CatalogState::Missing)
        refuse(QStringLiteral("%1 does not exist").arg(database.shown));
    if (state != CatalogState::Ours)
        refuse(QStringLiteral("%1 is not a Tarnwell database").arg(database.shown));
}

qint64 fillDatabase(const DatabaseAddress& source, DatabaseTarget& target, const QString& shownTarget,
                    const CopyWatch& watch) {
    Connection from;
    from.setConnectionString(source.connectionString);
    from.Open();
    Connection to;
    to.setConnectionString(target.connectionString());
    to.Open();
    const CopyResult result = copyDatabase(from, to, [&](const CopyProgress& progress) {
        if (watch.goesOn && !watch.goesOn())
            raise(Failure::Cancelled);
        watch.progress(progress);
    });
    if (!result.usedTable.isEmpty())
        refuse(QStringLiteral("%1 is not empty: there are rows in %2").arg(shownTarget, result.usedTable));
    to.Close();
    target.updateStatistics();
    target.finish();
    return result.rows;
}

void saveDatabase(const DatabaseAddress& source, const QString& file, ExistingFile existing,
                  const CopyWatch& watch) {
    if (source.isFile()) {
        backupDatabase(source.path, file, existing == ExistingFile::Replace, watch.goesOn);
        return;
    }
    requireSound(source);
    const bool isNew = !QFileInfo::exists(file);
    (void)fillDatabase(source, *newTarget(addressOfFile(file), existing), file, watch);
    if (isNew) // Who else may read the catalog is known to the server alone.
        QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

void restoreCatalog(const QString& file, const DatabaseAddress& catalog, const CopyWatch& watch) {
    const DatabaseAddress saved = addressOfFile(file);
    requireSound(saved, watch.goesOn);
    (void)fillDatabase(saved, *targetToFill(catalog), catalog.shown, watch);
}

} // namespace tarnwell
