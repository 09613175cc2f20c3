#include "CopyCommands.h"

#include "DatabaseTarget.h"
#include "data/RunTimeError.h"
#include "data/file/DatabaseFile.h"
#include "data/recordset/Connection.h"
#include "data/recordset/EngineFactory.h"
#include "data/transfer/DatabaseCopy.h"

namespace tarnwell::tool {

namespace {

using CatalogState = data::ServerCatalog::State;

/// Nothing is copied out of a database that is damaged or not ours.
void requireSound(const DatabaseAddress& source) {
    if (source.isFile()) {
        const QStringList problems = integrityProblems(source.path);
        if (!problems.isEmpty())
            raise(Failure::DatabaseForeign, QStringLiteral("%1 (%2)").arg(source.path, problems.front()));
        return;
    }
    const CatalogState state = data::openServerCatalog(source.connectionString)->state();
    if (state == CatalogState::Missing)
        refuse(QStringLiteral("%1 does not exist").arg(source.shown));
    if (state != CatalogState::Ours)
        refuse(QStringLiteral("%1 is not a Tarnwell database").arg(source.shown));
}

/// Shows how far it is in a line that is written over; only where somebody looks.
std::function<void(const CopyProgress&)> copyProgress(Output& output) {
    if (!output.showsProgress)
        return [](const CopyProgress&) {};
    return [&output, shown = qint64(-1)](const CopyProgress& progress) mutable {
        const qint64 percent = progress.all > 0 ? progress.done * 100 / progress.all : 100;
        if (std::exchange(shown, percent) == percent)
            return;
        output.err << "\r" << percent << " % " << (progress.done < progress.all ? "" : "\n");
        output.err.flush();
    };
}

qint64 copyRows(const DatabaseAddress& source, DatabaseTarget& target, const DatabaseAddress& shownTarget,
                Output& output) {
    Connection from;
    from.setConnectionString(source.connectionString);
    from.Open();
    Connection to;
    to.setConnectionString(target.connectionString());
    to.Open();
    const CopyResult result = copyDatabase(from, to, copyProgress(output));
    if (!result.usedTable.isEmpty())
        refuse(
            QStringLiteral("%1 is not empty: there are rows in %2").arg(shownTarget.shown, result.usedTable));
    to.Close();
    target.updateStatistics();
    target.finish();
    return result.rows;
}

} // namespace

int copy(const Request& request, Output& output) {
    const DatabaseAddress& source = request.databases.front();
    const DatabaseAddress& target = request.databases.back();
    requireSound(source);
    const qint64 rows = copyRows(source, *targetToFill(target), target, output);
    output.out << "Copied " << rows << " rows from " << source.shown << " to " << target.shown
               << " and compared each.\n";
    return 0;
}

int backup(const Request& request, Output& output) {
    const DatabaseAddress& source = request.databases.front();
    const DatabaseAddress& target = request.databases.back();
    if (source.isFile()) {
        backupDatabase(source.path, target.path, request.overwrite);
    } else {
        requireSound(source);
        const auto file = newTarget(target, request.overwrite ? ExistingFile::Replace : ExistingFile::Keep);
        (void)copyRows(source, *file, target, output);
    }
    output.out << "Saved " << source.shown << " as " << target.shown << ".\n";
    return 0;
}

int restore(const Request& request, Output& output) {
    const DatabaseAddress& saved = request.databases.front();
    const DatabaseAddress& target = request.databases.back();
    requireSound(saved);
    if (target.isFile())
        backupDatabase(saved.path, target.path, request.overwrite);
    else
        (void)copyRows(saved, *targetToFill(target), target, output);
    output.out << "Restored " << target.shown << " from " << saved.shown << ".\n";
    return 0;
}

} // namespace tarnwell::tool
