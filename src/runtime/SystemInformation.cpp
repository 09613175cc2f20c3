#include "runtime/SystemInformation.h"

#include "data/DiskPath.h"
#include "data/RunTimeError.h"
#include "runtime/MsgBox.h"
#include "runtime/ProgramStarter.h"

#include <QFileInfo>

#include <cstdint>

namespace tarnwell {

namespace {

constexpr qsizetype bufferSize = 1024; ///< Characters, with the NUL at the end.
constexpr int digitsOfNumber = 8;

/// True when a tool was started.
bool startTool() {
    QString found;
    if (GetKeyValue(RegistryRoot::LocalMachine, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO"),
                    QStringLiteral("PATH"), found)) {
        Shell(found);
        return true;
    }
    if (!GetKeyValue(RegistryRoot::LocalMachine, QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location"),
                     QStringLiteral("MSINFO"), found))
        return false;
    const QString tool = pathOnDisk(found + QStringLiteral("\\MSINFO32.EXE"));
    if (!QFileInfo(tool).isFile())
        return false;
    Shell(u'"' + tool + u'"');
    return true;
}

} // namespace

bool GetKeyValue(RegistryRoot root, const QString& keyPath, const QString& valueName, QString& result) {
    result.clear();
    const Value stored = ReadRegistryValue(root, keyPath, valueName);
    if (stored.isEmpty())
        return false;
    if (stored.kind() == Value::Kind::Long) {
        const auto bytes = static_cast<std::uint32_t>(stored.toLong());
        result = QStringLiteral("&h") +
                 QStringLiteral("%1").arg(bytes, digitsOfNumber, 16, QLatin1Char('0')).toUpper();
        return true;
    }
    if (stored.toText().size() >= bufferSize)
        return false;
    result = stored.toText();
    return true;
}

void StartSysInfo() {
    bool started = false;
    try {
        started = startTool();
    } catch (const RunTimeError&) {
        started = false; // The tool that the settings name does not exist.
    }
    if (!started)
        MsgBox({.text = QStringLiteral("System Information Is Unavailable At This Time"),
                .title = QStringLiteral("Tarnwell")});
}

} // namespace tarnwell
