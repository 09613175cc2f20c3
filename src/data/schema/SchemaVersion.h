#pragma once

#include "data/schema/Schema.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <chrono>
#include <functional>
#include <vector>

namespace tarnwell::schema {

/// The version of the tables as this program knows them. Each change of them is one more.
inline constexpr int currentVersion = 2;
/// Of the databases that do not say their version yet.
inline constexpr int firstVersion = 1;

/// What a database says of its tables.
struct Stamp {
    int version = firstVersion;
    QString program; ///< The version of the program that brought them there; empty for the first version.
};

/// Of what this program makes.
[[nodiscard]] Stamp currentStamp();

/// Where a database keeps its stamps, one row for each version that it was brought to. It belongs to the
/// database and not to its data: it is none of `tables()`, and no copy takes its rows along.
[[nodiscard]] const Table& versionTable();

/// Selects version and program of every stamp, the latest one first; the same words for every engine.
[[nodiscard]] QByteArray readStamps();
/// Adds the current stamp. Parameters: version and program.
[[nodiscard]] QByteArray insertStamp();

/// The tables that came after a version, in an order in which they can be created: all of them after 0.
[[nodiscard]] std::vector<const Table*> tablesSince(int version);

/// `createStatements` for an SQLite file that has the tables of an older version: what came after it.
[[nodiscard]] QStringList upgradeStatements(int from);

/// Raises DatabaseForeign, `source` being its source, for a version that is later than this program's: it
/// says which it is, who made it, and what to do. `place`: the file or the catalog.
void requireKnown(const Stamp& stamp, const QString& source, const QString& place);
/// Raises PermissionDenied in the same way: the tables are of an earlier version and may not be changed.
[[noreturn]] void refuseUpgrade(const QString& source, const QString& place);

/// How long an upgrade waits for another one of the same database: that one saves it first.
inline constexpr std::chrono::minutes longestUpgradeWait{2};

/// What is called while a database is brought to the current version and nobody else may do the same.
/// Whatever these raise takes back what was done.
struct UpgradeCalls {
    std::function<void()> save;                         ///< Before anything is changed.
    std::function<void(int done, int all)> afterChange; ///< Behind each statement that changed it.
};

} // namespace tarnwell::schema
