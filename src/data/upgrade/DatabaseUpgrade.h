#pragma once

#include "data/recordset/Connection.h"

#include <QString>

#include <functional>

namespace tarnwell {

/// The version of the tables that an open database had when it was opened. A later one than this program's
/// cannot be opened. Raises ObjectClosed while closed.
[[nodiscard]] int schemaVersion(const Connection& connection);
/// Whether they are as this program knows them, so that its screens and rules may work with them.
[[nodiscard]] bool isUpToDate(const Connection& connection);

/// Brings a database of an earlier version to this program's, in one transaction; the version that it had.
/// One that is up to date stays as it is. Of several programs that do this at once one does it, and the
/// others wait for it.
///
/// First the database is copied to the file `backup`, which must not exist in a folder that does, and
/// checked: nothing is changed without that copy. Raises PermissionDenied, before anything else, for one who
/// may not change the tables, what opening raises, and, in words that say that the database is as it was,
/// what saving and changing it raise and what `afterChange` does. That is called behind each statement that
/// changed it.
int upgradeDatabase(
    const QString& connectionString, const QString& backup,
    const std::function<void(int done, int all)>& afterChange = [](int, int) {});

} // namespace tarnwell
