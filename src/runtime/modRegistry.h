#pragma once

#include "data/Value.h"

#include <QJsonObject>
#include <QString>

#include <vector>

namespace tarnwell {

enum class RegistryRoot { LocalMachine, CurrentUser };

/// Types that the store knows; others are ignored by a write and read as Empty.
namespace RegistryType {
inline constexpr int Text = 1;   // REG_SZ
inline constexpr int Number = 4; // REG_DWORD
} // namespace RegistryType

// Settings: the registry's keys and values, kept in one JSON file under the XDG configuration folder. The
// file is replaced as a whole and only by a complete one. All names are found without regard to case.

/// Makes the key. A key that exists is no failure. Raises FileAccess (75) or DiskFull (61) when the store
/// can't be written. Returns where a damaged store was moved to make way for a new one, else an empty text.
QString CreateRegistryKey(const QString& keyPath, RegistryRoot root);

/// Text, a 32-bit number, or Empty when there is no such value. No error ever leaves it.
[[nodiscard]] Value ReadRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName);

/// Returns silently when the store can't be written.
void WriteRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName, int type,
                        const Value& data);

/// The values of one key as they stood together at one moment; none for a key that does not exist.
class RegistryKey {
public:
    RegistryKey(RegistryRoot root, const QString& keyPath);

    /// As `ReadRegistryValue`.
    [[nodiscard]] Value value(const QString& name) const;
    [[nodiscard]] QString text(const QString& name) const { return value(name).toText(); }

private:
    QJsonObject m_values;
};

struct RegistryValue {
    QString name;
    Value data;
    int type = RegistryType::Text;
};

/// Writes values of one key, and makes the key: everybody sees all of them or none. With `unless`, nothing
/// is written when the key has a value of that name by then. Raises FileAccess or DiskFull.
void writeRegistryValues(RegistryRoot root, const QString& keyPath, const std::vector<RegistryValue>& values,
                         const QString& unless = {});

/// Where the store lies; tests give another place (empty text restores the default).
[[nodiscard]] QString settingsFile();
void setSettingsFile(const QString& path);

} // namespace tarnwell
