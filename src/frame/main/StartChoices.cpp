#include "frame/main/StartChoices.h"

#include "data/DiskPath.h"
#include "data/file/DatabaseFile.h"
#include "runtime/ProgramFolders.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "sample/SampleFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <utility>
#include <vector>

namespace tarnwell {

namespace {

bool isThere(const QString& file) {
    return !file.isEmpty() && QFileInfo::exists(pathOnDisk(file));
}

/// "Tarnwell 2.mdb" where "Tarnwell.mdb" is taken.
QString freeName(const QString& file) {
    const QFileInfo info(file);
    QString name = file;
    for (int number = 2; isThere(name); ++number)
        name = QDir::toNativeSeparators(QStringLiteral("%1/%2 %3.%4")
                                            .arg(info.path(), info.completeBaseName())
                                            .arg(number)
                                            .arg(info.suffix()));
    return name;
}

/// Where the settings say, while that folder is there; else where this program keeps its own. Nobody's own
/// work takes the place of the sample.
QString placeOfDatabase() {
    const QString file = databaseInUse().file;
    if (file == programFolders().sample)
        return programFolders().database;
    const bool hasFolder = !file.isEmpty() && QFileInfo(QFileInfo(pathOnDisk(file)).path()).isDir();
    return hasFolder ? file : programFolders().database;
}

/// The program's own folder is made at its first file; any other one is the user's affair.
void makeOwnFolder(const QString& file) {
    const QString folder = QFileInfo(file).absolutePath();
    if (QDir(folder) == QDir(programFolders().data))
        QDir().mkpath(folder);
}

/// Files of one database under another name while the object lives, unless they are to stay there.
class SetAside {
public:
    explicit SetAside(const QString& file)
        : m_file(file), m_kept(freeName(file + QStringLiteral(".damaged"))) {
        move(m_file, m_kept);
    }
    ~SetAside() {
        if (!m_stays)
            move(m_kept, m_file);
    }
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;
    void keep() { m_stays = true; }

private:
    static void move(const QString& from, const QString& to) {
        for (const char* suffix : {"", "-wal", "-shm"})
            QFile::rename(from + QLatin1String(suffix), to + QLatin1String(suffix));
    }

    QString m_file;
    QString m_kept;
    bool m_stays = false;
};

/// What the settings name is to be replaced; another file of that name is somebody's work.
QString placeToRestore() {
    const QString place = placeOfDatabase();
    return place == databaseInUse().file ? place : freeName(place);
}

void restore(const QString& backup, const QString& place) {
    const QString target = pathOnDisk(place);
    makeOwnFolder(target);
    if (!isThere(target)) {
        backupDatabase(backup, target, false);
        return;
    }
    SetAside unreadable(target);
    backupDatabase(backup, target, false);
    unreadable.keep();
}

/// `place`: where the settings will say.
void makeDatabase(const StartSelection& selection, const QString& place) {
    if (selection.choice == StartChoice::Restore)
        restore(selection.file, place);
    if (selection.choice != StartChoice::Empty && selection.choice != StartChoice::Sample)
        return;
    makeOwnFolder(selection.file);
    if (selection.choice == StartChoice::Empty)
        createDatabase(selection.file);
    else if (!isThere(selection.file))
        sample::makeSampleFile(selection.file);
}

DatabaseEngine engineFor(StartChoice choice) {
    if (choice == StartChoice::Postgres)
        return DatabaseEngine::Postgres;
    return choice == StartChoice::SqlServer ? DatabaseEngine::SqlServer : DatabaseEngine::File;
}

} // namespace

bool isDatabaseFileMissing() {
    const DatabaseSettings inUse = databaseInUse();
    return inUse.isFile() && !isThere(inUse.file);
}

bool canChooseAfter(const RunTimeError& error) {
    return databaseInUse().isFile() &&
           (error.is(Failure::DatabaseNotFound) || error.is(Failure::DatabaseForeign));
}

StartChoice proposedChoice(StartReason reason) {
    if (reason == StartReason::FirstStart)
        return StartChoice::Empty;
    return proposedFile(StartChoice::File).isEmpty() ? StartChoice::Retry : StartChoice::File;
}

QString proposedFile(StartChoice choice) {
    switch (choice) {
    case StartChoice::Empty:
        return freeName(placeOfDatabase());
    case StartChoice::Sample:
        return programFolders().sample;
    case StartChoice::File: {
        const QString own = programFolders().database;
        return isThere(own) && pathOnDisk(own) != pathOnDisk(databaseInUse().file) ? own : QString();
    }
    case StartChoice::Restore: {
        const QString backups = QFileInfo(placeOfDatabase()).path() + QStringLiteral("/backups/");
        return QFileInfo(backups).isDir() ? QDir::toNativeSeparators(backups) : QString();
    }
    case StartChoice::Retry:
    case StartChoice::Postgres:
    case StartChoice::SqlServer:
        break;
    }
    return {};
}

QString fullPath(const QString& typed) {
    if (typed.trimmed().isEmpty())
        return {};
    if (QDir::isAbsolutePath(pathOnDisk(typed)))
        return typed;
    return QDir::toNativeSeparators(QDir(programFolders().data).absoluteFilePath(pathOnDisk(typed)));
}

DatabaseSettings settingsFor(const StartSelection& selection) {
    DatabaseSettings settings{.engine = engineFor(selection.choice), .reportFile = gReportDataPath};
    if (!settings.isFile()) {
        settings.server = selection.server;
        settings.catalog = selection.catalog;
    } else {
        settings.file = selection.choice == StartChoice::Restore ? placeToRestore() : selection.file;
    }
    return settings;
}

void carryOut(const StartSelection& selection) {
    if (selection.choice == StartChoice::Retry)
        return;
    const DatabaseSettings settings = settingsFor(selection);
    makeDatabase(selection, settings.file);
    try {
        writeDatabaseSettings(settings);
    } catch (const RunTimeError&) {
        if (selection.choice == StartChoice::Empty)
            QFile::remove(pathOnDisk(selection.file)); // So that the same choice can be made again.
        throw;
    }
    writeRegistryValues(RegistryRoot::LocalMachine, gRegistryKey, lostPlaces());
    ReadSettings(gProgramFolder);
}

} // namespace tarnwell
