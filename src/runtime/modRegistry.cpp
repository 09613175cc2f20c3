#include "runtime/modRegistry.h"

#include "data/RunTimeError.h"
#include "runtime/SettingsStore.h"

#include <QStandardPaths>

#include <cstdint>

namespace tarnwell {

namespace {

QString defaultSettingsFile() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/Brenmoor/Tarnwell.json");
}

SettingsStore& store() {
    static SettingsStore settings(defaultSettingsFile());
    return settings;
}

QString rootName(RegistryRoot root) {
    return root == RegistryRoot::LocalMachine ? QStringLiteral("HKEY_LOCAL_MACHINE")
                                              : QStringLiteral("HKEY_CURRENT_USER");
}

QJsonObject child(const QJsonObject& object, const QString& name) {
    return object.value(memberName(object, name)).toObject();
}

Value valueOf(const QJsonObject& entry) {
    const QJsonValue data = entry.value(settingData);
    switch (entry.value(settingType).toInt()) {
    case RegistryType::Text:
        return data.toString();
    case RegistryType::Number:
        return data.toInteger();
    default:
        return {};
    }
}

/// Four bytes of a wider number, as the registry keeps them.
qint64 fourBytes(const Value& data) {
    return static_cast<std::int32_t>(data.toLong());
}

void insert(QJsonObject& values, const RegistryValue& value) {
    const QJsonValue stored = value.type == RegistryType::Text ? QJsonValue(value.data.toText())
                                                               : QJsonValue(fourBytes(value.data));
    values.insert(memberName(values, value.name),
                  QJsonObject{{settingType, value.type}, {settingData, stored}});
}

} // namespace

QString CreateRegistryKey(const QString& keyPath, RegistryRoot root) {
    return store().update([&](QJsonObject& hives) {
        QJsonObject keys = child(hives, rootName(root));
        if (keys.contains(memberName(keys, keyPath)))
            return false;
        keys.insert(keyPath, QJsonObject());
        hives.insert(memberName(hives, rootName(root)), keys);
        return true;
    });
}

Value ReadRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName) {
    return RegistryKey(root, keyPath).value(valueName);
}

void WriteRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName, int type,
                        const Value& data) {
    if (type != RegistryType::Text && type != RegistryType::Number)
        return;
    try {
        writeRegistryValues(root, keyPath, {{.name = valueName, .data = data, .type = type}});
    } catch (const RunTimeError&) {
        // As with the registry, a write that fails leaves the old value, and the next read shows it.
        return;
    }
}

RegistryKey::RegistryKey(RegistryRoot root, const QString& keyPath)
    : m_values(child(child(store().read().hives, rootName(root)), keyPath)) {}

Value RegistryKey::value(const QString& name) const {
    return valueOf(child(m_values, name));
}

void writeRegistryValues(RegistryRoot root, const QString& keyPath, const std::vector<RegistryValue>& values,
                         const QString& unless) {
    store().update([&](QJsonObject& hives) {
        QJsonObject keys = child(hives, rootName(root));
        QJsonObject stored = child(keys, keyPath);
        if (!unless.isEmpty() && stored.contains(memberName(stored, unless)))
            return false;
        for (const RegistryValue& value : values)
            insert(stored, value);
        keys.insert(memberName(keys, keyPath), stored);
        hives.insert(memberName(hives, rootName(root)), keys);
        return true;
    });
}

QString settingsFile() {
    return store().path();
}

void setSettingsFile(const QString& path) {
    store() = SettingsStore(path.isEmpty() ? defaultSettingsFile() : path);
}

} // namespace tarnwell
