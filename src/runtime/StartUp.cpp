#include "runtime/StartUp.h"

#include "data/DiskPath.h"
#include "data/engine/ConnectionString.h"
#include "runtime/MsgBox.h"
#include "runtime/ProgramFolders.h"
#include "runtime/Version.h"
#include "runtime/modGlobalVariables.h"

#include <QFileInfo>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <pwd.h>
#include <unistd.h>
#endif

#include <array>
#include <vector>

namespace tarnwell {

namespace {

constexpr auto computerNameKey = u"SYSTEM\\CurrentControlSet\\Control\\ComputerName\\ComputerName";
constexpr auto developerMark = u"Development";
constexpr auto installedFolder = u"C:\\Program Files\\Tarnwell";

/// A setting and its value on a machine that has none: a place of the program's, or else a text.
struct DefaultSetting {
    const char16_t* name;
    QString ProgramFolders::*place;
    const char16_t* text = u"";
};

/// The value whose absence marks a first start.
const QString firstStartMark = QStringLiteral("Provider");

constexpr std::array<DefaultSetting, 10> defaultSettings{{
    {u"DataSource", &ProgramFolders::database},
    {u"DataServer", nullptr},
    {u"ConnectionMisc", nullptr, u";Persist Security Info=False"},
    {u"ImportPath", &ProgramFolders::imports},
    {u"LogPath", &ProgramFolders::logs},
    {u"LayoutPath", &ProgramFolders::layouts},
    {u"DataPath", &ProgramFolders::data},
    {u"ReportDataPath", &ProgramFolders::reportFile},
    {databaseChoice, nullptr, choiceOpen},
    {u"Provider", nullptr, fileProvider.utf16()},
}};

/// Another database than the one that the user thinks of may be open from here on.
void reportDamage(const QString& keptAs) {
    MsgBox({.text = QStringLiteral(
                        "The settings can't be read: %1\nTarnwell starts with new ones. The old file is "
                        "kept as %2")
                        .arg(settingsFile(), keptAs),
            .title = QStringLiteral("Tarnwell"),
            .icon = MessageIcon::Exclamation});
}

/// A program that starts at the same moment may be first: its values stay.
void writeDefaults() {
    const QString damaged = CreateRegistryKey(gRegistryKey, RegistryRoot::LocalMachine);
    std::vector<RegistryValue> values;
    for (const DefaultSetting& setting : defaultSettings) {
        const QString value =
            setting.place != nullptr ? programFolders().*setting.place : QString::fromUtf16(setting.text);
        values.push_back({.name = QString::fromUtf16(setting.name), .data = value});
    }
    writeRegistryValues(RegistryRoot::LocalMachine, gRegistryKey, values, firstStartMark);
    if (!damaged.isEmpty())
        reportDamage(damaged);
}

QString computerName() {
    const Value stored = ReadRegistryValue(RegistryRoot::LocalMachine, QString::fromUtf16(computerNameKey),
                                           QStringLiteral("ComputerName"));
    return stored.isEmpty() ? QSysInfo::machineHostName() : stored.toText();
}

QString systemLoginName() {
#ifdef Q_OS_UNIX
    std::array<char, 4096> buffer{};
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found != nullptr)
        return QString::fromLocal8Bit(found->pw_name);
    return {};
#else
    return qEnvironmentVariable("USERNAME");
#endif
}

} // namespace

void ReadSettings(const QString& programFolder) {
    gProgramFolder = programFolder;
    gRegistryKey = QString::fromUtf16(registryKey);
    gUserName = GetLoginName();
    gComputerName = computerName();
    gWindowsFolder = GetWindowsFolder();
    gAppPath = programFolder.contains(QStringView(developerMark), Qt::CaseInsensitive)
                   ? QString::fromUtf16(installedFolder)
                   : programFolder;
    setProgramFolders(foldersOf(programFolder, gAppPath));
    RegistryKey settings(RegistryRoot::LocalMachine, gRegistryKey);
    if (settings.value(firstStartMark).isEmpty()) {
        writeDefaults();
        settings = RegistryKey(RegistryRoot::LocalMachine, gRegistryKey);
    }
    gConnectionString = composeConnectionString(
        settings.text(QStringLiteral("Provider")), settings.text(QStringLiteral("DataSource")),
        settings.text(QStringLiteral("DataServer")), settings.text(QStringLiteral("ConnectionMisc")));
    gImportPath = settings.text(QStringLiteral("ImportPath"));
    gLogPath = settings.text(QStringLiteral("LogPath"));
    gLayoutPath = settings.text(QStringLiteral("LayoutPath"));
    gDataPath = settings.text(QStringLiteral("DataPath"));
    gReportDataPath = settings.text(QStringLiteral("ReportDataPath"));
}

std::vector<RegistryValue> lostPlaces() {
    const RegistryKey stored(RegistryRoot::LocalMachine, gRegistryKey);
    std::vector<RegistryValue> lost;
    for (const DefaultSetting& setting : defaultSettings) {
        if (setting.place == nullptr || setting.place == &ProgramFolders::database)
            continue;
        const QString name = QString::fromUtf16(setting.name);
        const QString place = stored.text(name);
        if (!place.isEmpty() && !QFileInfo(QFileInfo(pathOnDisk(place)).path()).isDir())
            lost.push_back({.name = name, .data = programFolders().*setting.place});
    }
    return lost;
}

QString composeConnectionString(const QString& provider, const QString& dataSource, const QString& dataServer,
                                const QString& misc) {
    QString text = QStringLiteral("Provider=") + provider;
    if (provider != fileProvider)
        text +=
            QStringLiteral(";Initial Catalog=") + dataSource + QStringLiteral(";Data Source=") + dataServer;
    else
        text += QStringLiteral(";Data Source=") + dataSource;
    return text + misc;
}

QString fitLoginName(const QString& name) {
    constexpr qsizetype buffer = 25; // with the NUL at its end
    return name.size() < buffer ? name : QString();
}

QString GetLoginName() {
    return fitLoginName(systemLoginName());
}

QString GetWindowsFolder() {
    return qEnvironmentVariable("windir");
}

QString mainWindowCaption() {
    return QStringLiteral("Tarnwell: Version %1.%2.%3")
        .arg(versionMajor)
        .arg(versionMinor)
        .arg(versionRevision);
}

} // namespace tarnwell
