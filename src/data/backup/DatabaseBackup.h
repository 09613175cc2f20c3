#pragma once

#include "data/backup/DatabaseTarget.h"
#include "data/file/DatabaseFile.h"
#include "data/transfer/DatabaseAddress.h"
#include "data/transfer/DatabaseCopy.h"

#include <QString>

#include <functional>

namespace tarnwell {

/// What a copy says and asks while it works, on the thread that does it.
struct CopyWatch {
    /// Of a copy from or to a server: how far it is.
    std::function<void(const CopyProgress&)> progress = [](const CopyProgress&) {};
    GoesOn goesOn = {};
};

/// Raises DatabaseForeign, with what is wrong, for a file that is damaged or not ours, and NotAllowed, in
/// words for the user, for a catalog that is missing or not ours.
void requireSound(const DatabaseAddress& database, const GoesOn& goesOn = {});

/// Fills an empty target with all rows of `source`, compares each and finishes it; the number of rows. Raises
/// NotAllowed, in words for the user, when `shownTarget` is not empty, and what `copyDatabase` raises.
[[nodiscard]] qint64 fillDatabase(const DatabaseAddress& source, DatabaseTarget& target,
                                  const QString& shownTarget, const CopyWatch& watch = {});

/// Copies a database, a file or a catalog, to a file as of one moment, while others may use it. The file gets
/// its name only when it was found sound; until then an existing one stays. Raises what `requireSound`,
/// `backupDatabase` and `fillDatabase` raise.
void saveDatabase(const DatabaseAddress& source, const QString& file, ExistingFile existing,
                  const CopyWatch& watch = {});

/// Fills an empty or missing catalog from a file that was found sound. Raises as `saveDatabase`.
void restoreCatalog(const QString& file, const DatabaseAddress& catalog, const CopyWatch& watch = {});

} // namespace tarnwell
