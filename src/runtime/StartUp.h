#pragma once

#include "runtime/modRegistry.h"

#include <QString>

#include <vector>

namespace tarnwell {

/// What `gRegistryKey` is set to, under the local machine's root.
inline constexpr auto registryKey = u"Software\\Brenmoor\\Tarnwell";

/// The value that says whether a database has been chosen, and what it holds until then.
inline constexpr auto databaseChoice = u"DatabaseChoice";
inline constexpr auto choiceOpen = u"open";

/// Fills the globals from the machine and the settings; writes the defaults on a first start (no "Provider"
/// value). `programFolder` is the running program's folder; from it `programFolders` are found. Raises
/// FileAccess or DiskFull when a first start can't write.
void ReadSettings(const QString& programFolder);

/// The stored places, but for the database's, whose folder no longer exists, each with the program's own
/// place instead: what a program folder that was moved or removed has left.
[[nodiscard]] std::vector<RegistryValue> lostPlaces();

/// The connection string for a provider: the catalog and server for any but the Jet one, else the file.
[[nodiscard]] QString composeConnectionString(const QString& provider, const QString& dataSource,
                                              const QString& dataServer, const QString& misc);

/// The login name; empty when it does not fit 24 characters or is not known.
[[nodiscard]] QString GetLoginName();

/// The name if a buffer of 25 characters, the closing NUL among them, holds it; else empty.
[[nodiscard]] QString fitLoginName(const QString& name);

/// Where the system keeps its own programs; empty elsewhere than on Windows.
[[nodiscard]] QString GetWindowsFolder();

/// "Tarnwell: Version 1.0.0".
[[nodiscard]] QString mainWindowCaption();

} // namespace tarnwell
