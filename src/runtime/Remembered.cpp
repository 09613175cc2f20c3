#include "runtime/Remembered.h"

#include "data/RunTimeError.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

#include <map>
#include <vector>

namespace tarnwell {

namespace {

/// What is not written yet, for one settings file.
struct Unwritten {
    QString file;
    std::map<QString, QString> texts;
};

std::map<QString, QString>& unwritten() {
    static Unwritten kept;
    if (kept.file != settingsFile())
        kept = {.file = settingsFile(), .texts = {}};
    return kept.texts;
}

QString rememberedKey() {
    return gRegistryKey + QStringLiteral("\\Remembered");
}

bool haveSettings() {
    const Value provider =
        ReadRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, QStringLiteral("Provider"));
    return !provider.isEmpty();
}

} // namespace

QString remembered(const QString& name) {
    if (gRegistryKey.isEmpty())
        return {};
    if (const auto found = unwritten().find(name); found != unwritten().end())
        return found->second;
    return ReadRegistryValue(RegistryRoot::CurrentUser, rememberedKey(), name).toText();
}

void remember(const QString& name, const QString& text) {
    if (!gRegistryKey.isEmpty() && remembered(name) != text)
        unwritten()[name] = text;
}

void writeRemembered() {
    std::map<QString, QString>& texts = unwritten();
    if (texts.empty() || !haveSettings())
        return;
    std::vector<RegistryValue> values;
    values.reserve(texts.size());
    for (const auto& [name, text] : texts)
        values.push_back({.name = name, .data = text});
    try {
        writeRegistryValues(RegistryRoot::CurrentUser, rememberedKey(), values);
    } catch (const RunTimeError&) {
        return; // It is a convenience: no message is due, and the texts stay for the next call.
    }
    texts.clear();
}

} // namespace tarnwell
