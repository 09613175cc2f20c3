#pragma once

#include <QString>

namespace tarnwell {

// What the program keeps of its user's habits from one start to the next: texts by name, in the settings, in
// a key of their own. Nothing is kept before the settings were read at start. Whoever reads a text back
// passes over one that is not what it once wrote.

/// The text under the name; empty when there is none.
[[nodiscard]] QString remembered(const QString& name);

/// Keeps a text under the name, an empty one forgets it. It holds at once for this program; the disk waits
/// for `writeRemembered`, so that no window closes later for it.
void remember(const QString& name, const QString& text);

/// Writes what has changed since, and nothing else: what another program has kept meanwhile stays. Settings
/// that are missing or damaged are left as they are, since the next start is to find them so. What can't be
/// written is tried again at the next call; nothing is raised.
void writeRemembered();

} // namespace tarnwell
