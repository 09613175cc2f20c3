#pragma once

#include "runtime/Remembered.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

#include <QTemporaryDir>

namespace tarnwell::test {

/// The settings of a program that has started, in a temporary file: what is remembered is kept there.
class RememberedSettings {
public:
    RememberedSettings() {
        setSettingsFile(path());
        gRegistryKey = QString::fromUtf16(registryKey);
        WriteRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, QStringLiteral("Provider"),
                           RegistryType::Text, QStringLiteral("Microsoft.Jet.OLEDB.4.0"));
    }
    ~RememberedSettings() {
        gRegistryKey.clear();
        setSettingsFile({});
    }
    RememberedSettings(const RememberedSettings&) = delete;
    RememberedSettings& operator=(const RememberedSettings&) = delete;

    [[nodiscard]] QString path() const { return m_folder.filePath(QStringLiteral("settings.json")); }
    /// The end of the program: from here on only what the file holds is known, as after the next start.
    static void endProgram() { writeRemembered(); }

private:
    QTemporaryDir m_folder;
};

} // namespace tarnwell::test
