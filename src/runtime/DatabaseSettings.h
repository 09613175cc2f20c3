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

/// What the settings hold now, the last change included; the report file is the one in use. What belongs to
/// the engine that is not chosen is empty.
[[nodiscard]] DatabaseSettings readDatabaseSettings();

/// Stores the settings as they are, with no test, for the next start; nothing changes for the running
/// program. Returns silently when the store can't be written.
void saveDatabaseSettings(const DatabaseSettings& settings);

} // namespace tarnwell
