#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>

namespace tarnwell {

/// One JSON file of nested objects, found by names without regard to case. Read once for as long as the file
/// stays the same on the disk.
class SettingsStore {
public:
    explicit SettingsStore(QString path) : m_path(std::move(path)) {}

    [[nodiscard]] const QString& path() const { return m_path; }

    /// The file's content; an empty object when it is missing, unreadable or no JSON object.
    [[nodiscard]] const QJsonObject& content();

    /// Something stands there that is no JSON object, or that can't be read.
    [[nodiscard]] bool isDamaged();
    /// Where `replace` keeps it.
    [[nodiscard]] QString damagedPath() const { return m_path + QStringLiteral(".damaged"); }

    /// Replaces the file as a whole. What stood there and was damaged is kept at `damagedPath`. False, with
    /// the file as it was, when it can't be written.
    [[nodiscard]] bool replace(const QJsonObject& content);

private:
    [[nodiscard]] bool keepDamaged() const;
    void remember();

    QString m_path;
    QJsonObject m_content;
    QDateTime m_modified; ///< Of the file that `m_content` came from; with its size.
    qint64 m_size = -1;   ///< -1: nothing read yet, or no file.
    bool m_damaged = false;
};

/// The member's name as `object` spells it, else `name` itself.
[[nodiscard]] QString memberName(const QJsonObject& object, const QString& name);

} // namespace tarnwell
