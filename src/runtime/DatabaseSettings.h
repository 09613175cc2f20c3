#pragma once

#include <QString>

namespace tarnwell {

/// What holds the data; in the order in which Options offers them.
enum class DatabaseEngine { File, SqlServer, Postgres };

/// Which database the next start opens.
struct DatabaseSettings {
    DatabaseEngine engine = DatabaseEngine::File; ///< A file, or a catalog on a server.
    QString file = {};
    QString server = {};
    QString catalog = {};
    QString reportFile = {};

    [[nodiscard]] bool isFile() const { return engine == DatabaseEngine::File; }
};

/// What the program was started with, and works on.
[[nodiscard]] DatabaseSettings databaseInUse();

/// What the settings hold now, the last change included; the report file is the one in use. What belongs to
/// the engine that is not chosen is empty. Settings that were lost since the start: what is in use.
[[nodiscard]] DatabaseSettings readDatabaseSettings();

/// The connection string that the next start composes once these are saved.
[[nodiscard]] QString composeConnectionString(const DatabaseSettings& settings);

/// Stores the settings as they are, with no test, for the next start; nothing changes for the running
/// program. They are stored together: when the store can't be written, all the old ones stay, and DiskFull or
/// FileAccess is raised. Where the stored settings were damaged or removed meanwhile, the folders in use are
/// stored too. What was entered by hand in "ConnectionMisc" stays while PostgreSQL stays; any other choice
/// writes it again.
void writeDatabaseSettings(const DatabaseSettings& settings);
/// The same, but it returns silently when the store can't be written.
void saveDatabaseSettings(const DatabaseSettings& settings);

} // namespace tarnwell
