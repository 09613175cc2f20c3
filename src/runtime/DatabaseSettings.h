#pragma once

#include <QString>

namespace tarnwell {

/// Which database the next start opens.
struct DatabaseSettings {
    bool isFile = true; ///< A database file, rather than a catalogue on a server.
    QString file = {};
    QString server = {};
    QString catalog = {};
    QString reportFile = {};
};

/// What the program was started with, and works on.
[[nodiscard]] DatabaseSettings databaseInUse();

/// What the settings hold now, the last change included; the report file is the one in use. What belongs to
/// the engine that is not chosen is empty. Settings that were lost since the start: what is in use.
[[nodiscard]] DatabaseSettings readDatabaseSettings();

/// Stores the settings as they are, with no test, for the next start; nothing changes for the running
/// program. They are stored together: when the store can't be written, it returns silently and all the old
/// ones stay. Where the stored settings were damaged or removed meanwhile, the folders in use are stored too.
void saveDatabaseSettings(const DatabaseSettings& settings);

} // namespace tarnwell
