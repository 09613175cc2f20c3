#include "runtime/DatabaseChoice.h"

#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"

namespace tarnwell {

bool isDatabaseChoiceOpen() {
    return ReadRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, QString::fromUtf16(databaseChoice)) ==
           Value(QString::fromUtf16(choiceOpen));
}

void closeDatabaseChoice() {
    if (isDatabaseChoiceOpen())
        WriteRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, QString::fromUtf16(databaseChoice),
                           RegistryType::Text, QStringLiteral("made"));
}

} // namespace tarnwell
