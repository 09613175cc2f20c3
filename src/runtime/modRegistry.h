#pragma once

#include "data/Value.h"

#include <QString>

namespace tarnwell {

enum class RegistryRoot { LocalMachine, CurrentUser };

/// Types that the store knows; others are ignored by a write and read as Empty.
namespace RegistryType {
inline constexpr int Text = 1;   // REG_SZ
inline constexpr int Number = 4; // REG_DWORD
} // namespace RegistryType

// Settings: the registry's keys and values, kept in one JSON file under the XDG configuration folder. The
// file is replaced as a whole and only by a complete one.

/// Makes the key. A key that exists is no failure; a store that can't be written raises FileAccess (75).
void CreateRegistryKey(const QString& keyPath, RegistryRoot root);

/// Text, a 32-bit number, or Empty when there is no such value. No error ever leaves it.
[[nodiscard]] Value ReadRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName);

/// Returns silently when the store can't be written.
void WriteRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName, int type,
                        const Value& data);

/// Where the next write will keep what stands in the place of the settings and is none; empty when all is
/// well.
[[nodiscard]] QString damagedSettingsFile();

/// Where the store lies; tests give another place (empty text restores the default).
[[nodiscard]] QString settingsFile();
void setSettingsFile(const QString& path);

} // namespace tarnwell
