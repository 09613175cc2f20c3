#include "runtime/SettingsStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

namespace tarnwell {

const QJsonObject& SettingsStore::content() {
    const QFileInfo info(m_path);
    if (m_size >= 0 && info.exists() && info.size() == m_size && info.lastModified() == m_modified)
        return m_content;
    m_content = {};
    m_damaged = false;
    m_size = -1;
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly)) {
        m_damaged = info.exists();
        return m_content;
    }
    const QByteArray bytes = file.readAll();
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    m_content = document.object();
    m_damaged = !document.isObject() && !bytes.isEmpty();
    remember();
    return m_content;
}

bool SettingsStore::isDamaged() {
    static_cast<void>(content());
    return m_damaged;
}

bool SettingsStore::replace(const QJsonObject& content) {
    if (isDamaged() && !keepDamaged())
        return false;
    const QByteArray bytes = QJsonDocument(content).toJson();
    QSaveFile file(m_path);
    if (!QDir().mkpath(QFileInfo(m_path).path()) || !file.open(QIODevice::WriteOnly) ||
        file.write(bytes) != bytes.size() || !file.commit())
        return false;
    m_content = content;
    m_damaged = false;
    remember();
    return true;
}

bool SettingsStore::keepDamaged() const {
    const QString kept = damagedPath();
    return (!QFile::exists(kept) || QFile::remove(kept)) && QFile::copy(m_path, kept);
}

void SettingsStore::remember() {
    const QFileInfo info(m_path);
    m_modified = info.lastModified();
    m_size = info.size();
}

QString memberName(const QJsonObject& object, const QString& name) {
    for (auto member = object.begin(); member != object.end(); ++member)
        if (member.key().compare(name, Qt::CaseInsensitive) == 0)
            return member.key();
    return name;
}

} // namespace tarnwell
