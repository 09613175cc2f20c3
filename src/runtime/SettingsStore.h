#pragma once

#include <QJsonObject>
#include <QString>

#include <functional>

namespace tarnwell {

/// The JSON file of the settings: hives of keys of values, each value an object of a `type` and its `data`,
/// all found by name without regard to case.
///
///     {"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": 1, "data": "..."}}}}
class SettingsStore {
public:
    explicit SettingsStore(QString path) : m_path(std::move(path)) {}

    [[nodiscard]] const QString& path() const { return m_path; }

    struct Content {
        QJsonObject hives; ///< Empty when the file is missing, damaged or can't be read.
        /// Something stands there that is not what this class writes: no plain file, no JSON, an empty file,
        /// or a part of the wrong type.
        bool isDamaged = false;
    };
    /// What the file holds at this moment.
    [[nodiscard]] Content read() const;

    /// Reads the file, lets `change` work on its hives and replaces the file as a whole, under a lock that
    /// other programs keep too. A `change` that returns false leaves the file as it is. A damaged file is
    /// kept beside the new one: its place is returned, else an empty text. Raises DiskFull or FileAccess,
    /// with the old file in its place, when the new one can't be written.
    QString update(const std::function<bool(QJsonObject& hives)>& change) const;

private:
    void replace(const QJsonObject& hives) const;

    QString m_path;
};

/// The members of one value.
inline constexpr QLatin1String settingType("type");
inline constexpr QLatin1String settingData("data");

/// The member's name as `object` spells it, else `name` itself.
[[nodiscard]] QString memberName(const QJsonObject& object, const QString& name);

} // namespace tarnwell
