#include "CopyCommands.h"

#include "data/backup/DatabaseBackup.h"

namespace tarnwell::tool {

namespace {

/// Shows how far it is in a line that is written over; only where somebody looks.
CopyWatch copyProgress(Output& output) {
    if (!output.showsProgress)
        return {};
    return {.progress = [&output, shown = qint64(-1)](const CopyProgress& progress) mutable {
        const qint64 percent = progress.all > 0 ? progress.done * 100 / progress.all : 100;
        if (std::exchange(shown, percent) == percent)
            return;
        output.err << "\r" << percent << " % " << (progress.done < progress.all ? "" : "\n");
        output.err.flush();
    }};
}

} // namespace

int copy(const Request& request, Output& output) {
    const DatabaseAddress& source = request.databases.front();
    const DatabaseAddress& target = request.databases.back();
    requireSound(source);
    const qint64 rows = fillDatabase(source, *targetToFill(target), target.shown, copyProgress(output));
    output.out << "Copied " << rows << " rows from " << source.shown << " to " << target.shown
               << " and compared each.\n";
    return 0;
}

int backup(const Request& request, Output& output) {
    const DatabaseAddress& source = request.databases.front();
    const DatabaseAddress& target = request.databases.back();
    saveDatabase(source, target.path, request.overwrite ? ExistingFile::Replace : ExistingFile::Keep,
                 copyProgress(output));
    output.out << "Saved " << source.shown << " as " << target.shown << ".\n";
    return 0;
}

int restore(const Request& request, Output& output) {
    const DatabaseAddress& saved = request.databases.front();
    const DatabaseAddress& target = request.databases.back();
    if (target.isFile()) {
        requireSound(saved);
        backupDatabase(saved.path, target.path, request.overwrite);
    } else {
        restoreCatalog(saved.path, target, copyProgress(output));
    }
    output.out << "Restored " << target.shown << " from " << saved.shown << ".\n";
    return 0;
}

} // namespace tarnwell::tool
