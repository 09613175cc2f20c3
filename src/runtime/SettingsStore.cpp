#include "runtime/SettingsStore.h"

#include "runtime/DiskFile.h"
#include "runtime/modRegistry.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <filesystem>

namespace tarnwell {

namespace {

constexpr qint64 longestFile = qint64{1024} * 1024;
constexpr int lockMilliseconds = 5000;

bool isSoundValue(const QJsonValue& value) {
    const QJsonValue type = value[settingType];
    const QJsonValue data = value[settingData];
    if (!type.isDouble())
        return false;
    switch (type.toInt()) {
    case RegistryType::Text:
        return data.isString();
    case RegistryType::Number:
        return data.isDouble() && data.toDouble() == std::trunc(data.toDouble()) &&
               data.toDouble() >= INT32_MIN && data.toDouble() <= INT32_MAX;
    default:
        return true;
    }
}

bool isSoundKey(const QJsonValue& key) {
    const QJsonObject values = key.toObject();
    return key.isObject() && std::all_of(values.begin(), values.end(), isSoundValue);
}

bool isSoundHive(const QJsonValue& hive) {
    const QJsonObject keys = hive.toObject();
    return hive.isObject() && std::all_of(keys.begin(), keys.end(), isSoundKey);
}

/// Moves whatever stands at `from`, also a pipe or a folder, over what may stand at `to`.
void move(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    if (error)
        throw fileError(from, error.value());
}

/// Waits for other programs that write the same settings. It is released with the lock's end.
void take(QLockFile& lock, const QString& path) {
    errno = 0;
    if (!QDir().mkpath(QFileInfo(path).path()))
        throw fileError(path, errno);
    if (!lock.tryLock(lockMilliseconds))
        throw fileError(path, lock.error() == QLockFile::LockFailedError ? EBUSY : errno);
}

} // namespace

SettingsStore::Content SettingsStore::read() const {
    // A link that leads nowhere counts as missing: the new file is written where it leads.
    if (!QFileInfo::exists(m_path))
        return {};
    const std::optional<QByteArray> bytes = readPlainFile(m_path, longestFile);
    const QJsonDocument document = QJsonDocument::fromJson(bytes.value_or(QByteArray()));
    const QJsonObject hives = document.object();
    if (!document.isObject() || !std::all_of(hives.begin(), hives.end(), isSoundHive))
        return {.hives = {}, .isDamaged = true};
    return {.hives = hives};
}

QString SettingsStore::update(const std::function<bool(QJsonObject& hives)>& change) const {
    QLockFile lock(m_path + QStringLiteral(".lock"));
    take(lock, m_path);
    Content content = read();
    if (!change(content.hives))
        return {};
    if (!content.isDamaged) {
        replace(content.hives);
        return {};
    }
    if (const QFileInfo info(m_path); info.isFile() && !info.isReadable())
        throw fileError(m_path, EACCES); // It may be sound.
    const QString kept = m_path + QStringLiteral(".damaged");
    move(m_path, kept);
    try {
        replace(content.hives);
    } catch (const RunTimeError&) {
        move(kept, m_path);
        throw;
    }
    return kept;
}

void SettingsStore::replace(const QJsonObject& hives) const {
    const QByteArray bytes = QJsonDocument(hives).toJson();
    errno = 0;
    QSaveFile file(m_path);
    // Without a flush of its own the toolkit puts a file in place whose buffer never reached the disk.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        throw fileError(m_path, errno);
}

QString memberName(const QJsonObject& object, const QString& name) {
    for (auto member = object.begin(); member != object.end(); ++member)
        if (member.key().compare(name, Qt::CaseInsensitive) == 0)
            return member.key();
    return name;
}

} // namespace tarnwell
