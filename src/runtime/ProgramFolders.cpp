#include "runtime/ProgramFolders.h"

#include "data/DiskPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace tarnwell {

namespace {

const QString databaseName = QStringLiteral("Tarnwell.mdb");
const QString sampleName = QStringLiteral("Sample.mdb");
const QString reportName = QStringLiteral("Report.mdb");
const QString errorLogName = QStringLiteral("ErrorLog.txt");

QString native(const QString& path) {
    return QDir::toNativeSeparators(path);
}

bool isFolder(const QString& path) {
    return QFileInfo(path).isDir();
}

bool isWritable(const QString& path) {
    return QFileInfo(path).isWritable();
}

/// A folder that is not there says nothing against its program.
bool isLocked(const QString& folder) {
    return isFolder(folder) && !isWritable(folder);
}

/// Whether a file can be written, or made where there is none.
bool canHold(const QString& file) {
    return QFileInfo::exists(file) ? isWritable(file) : !isLocked(QFileInfo(file).path());
}

/// The place of what an installed program reads, whether or not it is there.
QString sharedFolder(const QString& programFolder) {
    return QDir::cleanPath(programFolder + QStringLiteral("/../share/tarnwell"));
}

/// A copy brings its own layouts and help. Without either it is installed where others find programs, in a
/// folder `bin`, even if somebody removed what belongs to it.
bool isBelowPrefix(const QString& programFolder) {
    const QDir folder(programFolder);
    for (const char* own : {"layouts", "help"})
        if (isFolder(folder.filePath(QLatin1String(own))))
            return false;
    return isFolder(sharedFolder(programFolder)) ||
           (folder.exists() && folder.dirName() == QLatin1String("bin"));
}

QString dataFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

/// The toolkit knows no place for what a program keeps beside its data.
QString stateFolder() {
    if (QStandardPaths::isTestModeEnabled())
        return dataFolder() + QStringLiteral("/../state");
    const QString named = qEnvironmentVariable("XDG_STATE_HOME");
    return QDir::isAbsolutePath(named) ? named : QDir::homePath() + QStringLiteral("/.local/state");
}

QString usersLogs() {
    return native(QDir::cleanPath(stateFolder() + QStringLiteral("/tarnwell")) + u'/');
}

/// As everything lies in a program's own folder. The names are those that the settings have always had.
ProgramFolders inFolder(const QString& applicationPath) {
    const auto below = [&](const char* path) { return applicationPath + native(QLatin1String(path)); };
    ProgramFolders folders;
    folders.help = below("/help/");
    folders.layouts = below("/layouts/");
    folders.imports = below("/import/");
    folders.data = below("/data/");
    folders.database = folders.data + databaseName;
    folders.sample = folders.data + sampleName;
    folders.reportFile = below("/Data/") + reportName;
    folders.logs = below("/logs/");
    return folders;
}

void keepDataOfUser(ProgramFolders& folders) {
    folders.data = native(dataFolder() + QStringLiteral("/tarnwell/"));
    folders.imports = folders.data + native(QStringLiteral("import/"));
    folders.database = folders.data + databaseName;
    folders.sample = folders.data + sampleName;
    folders.reportFile = folders.data + reportName;
    folders.areUsers = true;
}

void keepLogsOfUser(ProgramFolders& folders) {
    folders.logs = usersLogs();
    folders.errorLog = folders.logs + errorLogName;
}

bool hasUsableDatabase(const ProgramFolders& folders) {
    const QString file = pathOnDisk(folders.database);
    return QFileInfo(file).isFile() && isWritable(file) && !isLocked(QFileInfo(file).path());
}

/// Names and wages are for nobody else to read.
void makeFolder(const QString& path) {
    if (!isFolder(path) && QDir().mkpath(path))
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

ProgramFolders& current() {
    static ProgramFolders folders;
    return folders;
}

} // namespace

ProgramFolders foldersOf(const QString& programFolder, const QString& applicationPath) {
    ProgramFolders folders = inFolder(applicationPath);
    folders.isInstalled = isBelowPrefix(programFolder);
    if (folders.isInstalled) {
        const QString shared = sharedFolder(programFolder);
        folders.help = native(shared + QStringLiteral("/help/"));
        folders.layouts = native(shared + QStringLiteral("/layouts/"));
    }
    if (folders.isInstalled || (isLocked(programFolder) && !hasUsableDatabase(folders)))
        keepDataOfUser(folders);
    if (folders.isInstalled || isLocked(programFolder))
        keepLogsOfUser(folders);
    else if (!canHold(programFolder + errorLogName))
        folders.errorLog = usersLogs() + errorLogName;
    return folders;
}

const ProgramFolders& programFolders() {
    return current();
}

void setProgramFolders(const ProgramFolders& folders) {
    current() = folders;
    if (folders.areUsers)
        makeFolder(folders.data);
    if (!folders.errorLog.isEmpty())
        makeFolder(usersLogs());
}

QString missingResource(const ProgramFolders& folders) {
    if (!folders.isInstalled)
        return {};
    for (const QString& folder : {folders.help, folders.layouts})
        if (!isFolder(folder))
            return folder;
    return {};
}

} // namespace tarnwell
