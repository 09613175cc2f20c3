#include "runtime/modRegistry.h"

#include "data/RunTimeError.h"
#include "runtime/SettingsStore.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QStandardPaths>

#include <cmath>
#include <cstdint>

namespace tarnwell {

namespace {

// The file: {"HKEY_LOCAL_MACHINE": {"Software\\Brenmoor\\Tarnwell": {"Provider": {"type": 1, "data":
// "..."}}}}

constexpr QLatin1String typeMember("type");
constexpr QLatin1String dataMember("data");

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

QJsonObject keyObject(RegistryRoot root, const QString& keyPath) {
    return child(child(store().content(), rootName(root)), keyPath);
}

/// The store with `key` in the place of that key.
bool replaceKey(RegistryRoot root, const QString& keyPath, const QJsonObject& key) {
    QJsonObject content = store().content();
    QJsonObject keys = child(content, rootName(root));
    keys.insert(memberName(keys, keyPath), key);
    content.insert(memberName(content, rootName(root)), keys);
    return store().replace(content);
}

Value valueOf(const QJsonObject& entry) {
    const QJsonValue data = entry.value(dataMember);
    switch (entry.value(typeMember).toInt()) {
    case RegistryType::Text:
        return data.isString() ? Value(data.toString()) : Value();
    case RegistryType::Number: {
        const double number = data.toDouble(NAN);
        const bool fits = number >= INT32_MIN && number <= INT32_MAX && number == std::trunc(number);
        return fits ? Value(static_cast<qint64>(number)) : Value();
    }
    default:
        return {};
    }
}

/// Four bytes of a wider number, as the registry keeps them.
qint64 fourBytes(const Value& data) {
    return static_cast<std::int32_t>(data.toLong());
}

} // namespace

void CreateRegistryKey(const QString& keyPath, RegistryRoot root) {
    const QJsonObject keys = child(store().content(), rootName(root));
    if (keys.contains(memberName(keys, keyPath)))
        return;
    if (!replaceKey(root, keyPath, {}))
        raise(Failure::FileAccess, store().path());
}

Value ReadRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName) {
    return valueOf(child(keyObject(root, keyPath), valueName));
}

void WriteRegistryValue(RegistryRoot root, const QString& keyPath, const QString& valueName, int type,
                        const Value& data) {
    if (type != RegistryType::Text && type != RegistryType::Number)
        return;
    QJsonObject key = keyObject(root, keyPath);
    const QJsonValue stored =
        type == RegistryType::Text ? QJsonValue(data.toText()) : QJsonValue(fourBytes(data));
    key.insert(memberName(key, valueName), QJsonObject{{typeMember, type}, {dataMember, stored}});
    // As with the registry, who can't write keeps the old value: the next read tells.
    static_cast<void>(replaceKey(root, keyPath, key));
}

QString damagedSettingsFile() {
    return store().isDamaged() ? store().damagedPath() : QString();
}

QString settingsFile() {
    return store().path();
}

void setSettingsFile(const QString& path) {
    store() = SettingsStore(path.isEmpty() ? defaultSettingsFile() : path);
}

} // namespace tarnwell
