#pragma once

namespace tarnwell {

/// Opens the shared connection, ahead of everything that uses it. A database of an earlier version is saved
/// in the folder of its backups and brought up to date first, and a message says so. Raises what opening and
/// `upgradeDatabase` raise; the database is then as it was.
void openDatabaseUpToDate();

} // namespace tarnwell
