#include "frame/main/frmBackups.h"

#include "data/check/CatalogCheck.h"
#include "data/file/DatabaseCheck.h"
#include "frame/FileDialog.h"
#include "frame/main/BackupTable.h"
#include "frame/main/frmSwitchboard.h"
#include "runtime/BackgroundWork.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/DatabaseSettings.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/RunTime.h"
#include "runtime/UpToDateDatabase.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modGlobalVariables.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>

#include <atomic>

namespace tarnwell {

namespace {

constexpr int percentUnknown = -1, allPercent = 100;
constexpr int shownPerRule = 1; ///< A message has space for the rules, not for their rows.
const QString title = QStringLiteral("Backups");
const QString untouched = QStringLiteral("\n\nThe present data are as they were.");

void say(const QString& text, MessageIcon icon) {
    MsgBox({.text = text, .title = title, .icon = icon});
}

bool isAgreed(const QString& question) {
    return MsgBox({.text = question,
                   .title = title,
                   .buttons = MessageButtons::YesNo,
                   .icon = MessageIcon::Question,
                   .defaultButton = 2}) == Answer::Yes;
}

/// The usual folder is no choice: it follows the database.
QString chosenFolder(const QString& folder, const QString& usual) {
    return QDir::cleanPath(folder) == QDir::cleanPath(usual) ? QString() : folder;
}

QDateTime thisMoment() {
    const DateTime now = Now();
    return {now.date, now.time};
}

QString withEnding(const QString& path) {
    return QFileInfo(path).suffix().isEmpty() ? path + QStringLiteral(".mdb") : path;
}

CheckResult checkEntry(const BackupEntry& entry, const GoesOn& goesOn) {
    return entry.file.path.isEmpty() ? checkCatalog(entry.connectionString, shownPerRule)
                                     : checkDatabase(entry.file.path, shownPerRule, goesOn);
}

/// A form that can't write what was entered says why and stays; false then.
bool closeForms(const Screen& stays) {
    const std::vector<QPointer<Screen>> open(loadedForms().rbegin(), loadedForms().rend());
    for (const QPointer<Screen>& form : open) {
        if (form == nullptr || form == &stays || qobject_cast<frmSwitchboard*>(form.data()) != nullptr)
            continue;
        if (!form->isVisible())
            form->Unload();
        else if (!form->close())
            return false;
    }
    return true;
}

/// As at the start of the program: without a database no screen can work.
void connectAgain() {
    try {
        openDatabaseUpToDate(); // The backup may be an earlier version's.
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        endProgram();
    }
}

} // namespace

frmBackups::frmBackups() : Screen(QStringLiteral("frmBackups"), title, {Part::StatusBar}) {}

void frmBackups::Form_Load() {
    makeControls();
    layOut();
    setDefaultButton(cmdBackUp);
    setCancelButton(cmdClose);
    chkAtExit->setChecked(backsUpAtExit());
    connectControls();
    setWorking({});
    fill();
    SetFocus(tblBackups);
}

void frmBackups::connectControls() {
    const auto onClick = [this](QAbstractButton* button, void (frmBackups::*routine)()) {
        connect(button, &QAbstractButton::clicked, this, guarded([this, routine] { (this->*routine)(); }));
    };
    onClick(cmdFolder, &frmBackups::cmdFolder_Click);
    onClick(chkAtExit, &frmBackups::chkAtExit_Click);
    onClick(cmdBackUp, &frmBackups::cmdBackUp_Click);
    onClick(cmdCheck, &frmBackups::cmdCheck_Click);
    onClick(cmdRestore, &frmBackups::cmdRestore_Click);
    onClick(cmdRestoreFile, &frmBackups::cmdRestoreFile_Click);
    onClick(cmdNew, &frmBackups::cmdNew_Click);
    onClick(cmdClose, &frmBackups::cmdClose_Click);
    connect(tblBackups, &QTableWidget::currentCellChanged, this, guarded([this] { tblBackups_RowChange(); }));
    connect(tblBackups, &BackupTable::chosen, this, guarded([this] { cmdRestore_Click(); }));
}

void frmBackups::fill(const QString& selected) {
    const BackupPlace place = backupPlace();
    lblDatabase->setText(databaseAtWork().shown);
    txtFolder->setText(place.folder);
    txtFolder->setCursorPosition(0);
    m_entries = listBackups();
    const bool isLost = place.isChosen && !QFileInfo(place.folder).isDir();
    tblBackups->setEntries(m_entries,
                           isLost ? QStringLiteral("The folder of the backups can't be found. If its drive "
                                                   "is connected, choose the folder again with \"...\".")
                                  : QStringLiteral("There are no backups yet. Back Up Now makes the first."));
    int current = 0;
    for (int i = 0; i < static_cast<int>(m_entries.size()); ++i)
        if (!selected.isEmpty() && m_entries[static_cast<std::size_t>(i)].file.path == selected)
            current = i;
    tblBackups->setCurrentEntry(current);
    tblBackups_RowChange();
    lblWork->setText(QStringLiteral("Reading what they hold..."));
    m_reader.read(m_entries, [this, list = ++m_list](const EntryFigures& figures) {
        QMetaObject::invokeMethod(
            this, [this, list, figures] { showFigures(list, figures); }, Qt::QueuedConnection);
    });
}

void frmBackups::showFigures(int list, const EntryFigures& figures) {
    if (list != m_list)
        return;
    tblBackups->showFigures(figures);
    if (figures.entry + 1 == static_cast<int>(m_entries.size()))
        lblWork->setText(summaryText(m_entries));
}

const BackupEntry* frmBackups::selectedEntry() const {
    const auto current = static_cast<std::size_t>(tblBackups->currentEntry());
    return current < m_entries.size() ? &m_entries[current] : nullptr;
}

void frmBackups::tblBackups_RowChange() {
    const BackupEntry* entry = selectedEntry();
    cmdCheck->setEnabled(entry != nullptr);
    cmdRestore->setEnabled(entry != nullptr && !entry->isAtWork);
}

void frmBackups::cmdFolder_Click() {
    const BackupPlace place = backupPlace();
    const auto chosen = chooseFile(this, {.title = QStringLiteral("Select Backup Folder"),
                                          .filter = {},
                                          .start = place.folder,
                                          .wanted = FileWanted::Folder});
    if (!chosen)
        return;
    try {
        saveBackupFolder(chosenFolder(*chosen, usualBackupFolder()));
    } catch (const RunTimeError& error) {
        say(QStringLiteral("The folder could not be saved in the settings:\n") + error.description(),
            MessageIcon::Exclamation);
    }
    fill();
}

void frmBackups::chkAtExit_Click() {
    try {
        saveBacksUpAtExit(chkAtExit->isChecked());
    } catch (const RunTimeError& error) {
        chkAtExit->setChecked(backsUpAtExit());
        say(QStringLiteral("This could not be saved in the settings:\n") + error.description(),
            MessageIcon::Exclamation);
    }
}

void frmBackups::cmdBackUp_Click() {
    const BackupPlace place = backupPlace();
    const QString path = newBackupPath(place.folder, BackupKind::ByHand, place.label, thisMoment());
    const auto error =
        carryOut(QStringLiteral("Making a backup and checking it"), [&](const CopyWatch& watch) {
            requireBackupFolder(place);
            saveDatabase(databaseAtWork(), path, ExistingFile::Keep, watch);
        });
    fill(error ? QString() : path);
    if (!error)
        setStatusText(QStringLiteral("The backup was made and found sound."));
    else if (error->is(Failure::Cancelled))
        setStatusText(QStringLiteral("Cancelled: no backup was made."));
    else
        say(QStringLiteral("The backup could not be made:\n") + error->description(),
            MessageIcon::Exclamation);
}

void frmBackups::cmdCheck_Click() {
    if (selectedEntry() == nullptr)
        return;
    const BackupEntry entry = *selectedEntry();
    CheckResult result;
    const bool isCatalog = entry.file.path.isEmpty();
    const auto error = carryOut(
        QStringLiteral("Checking"), [&](const CopyWatch& watch) { result = checkEntry(entry, watch.goesOn); },
        isCatalog ? Ending::NotAtAll : Ending::AtAnyTime);
    fill(entry.file.path);
    const QString what = entry.isAtWork ? QStringLiteral("The present data")
                                        : QStringLiteral("The backup of ") + madeText(entry);
    if (error && error->is(Failure::Cancelled))
        setStatusText(QStringLiteral("Cancelled: nothing was found so far."));
    else if (error)
        say(what + QStringLiteral(" can't be checked:\n") + error->description(), MessageIcon::Exclamation);
    else if (result.isClean())
        say(what + (entry.isAtWork ? QStringLiteral(" are sound.") : QStringLiteral(" is sound.")),
            MessageIcon::Information);
    else
        say(what + (entry.isAtWork ? QStringLiteral(" have faults:\n") : QStringLiteral(" has faults:\n")) +
                findingsText(result),
            MessageIcon::Exclamation);
}

void frmBackups::cmdRestore_Click() {
    if (selectedEntry() == nullptr)
        return;
    const BackupEntry entry = *selectedEntry(); // The list is filled again meanwhile.
    if (!entry.isAtWork)
        restore(entry.file.path, QStringLiteral("the backup of ") + madeText(entry));
}

void frmBackups::cmdRestoreFile_Click() {
    const auto chosen = chooseFile(this, {.title = QStringLiteral("Select Backup"),
                                          .filter = QStringLiteral("*.mdb"),
                                          .start = backupPlace().folder});
    if (chosen)
        restore(*chosen, *chosen);
}

void frmBackups::restore(const QString& path, const QString& shown) {
    const DatabaseAddress atWork = databaseAtWork();
    if (!isAgreed(QStringLiteral("Restore %1?\n\nAll other windows are closed. %2")
                      .arg(shown, atWork.isFile()
                                      ? QStringLiteral("The present data are kept as one more backup.")
                                      : QStringLiteral("The catalog must be empty."))))
        return;
    const auto error = carryOut(QStringLiteral("Checking the backup"), [&](const CopyWatch& watch) {
        requireSound({.shown = path, .path = path, .connectionString = {}}, watch.goesOn);
    });
    if (error && error->is(Failure::Cancelled))
        setStatusText(QStringLiteral("Cancelled: nothing was restored."));
    else if (error)
        say(QStringLiteral("This backup can't be restored:\n") + error->description() + untouched,
            MessageIcon::Exclamation);
    if (error) {
        fill(path);
        return;
    }
    if (letGoOfData())
        replaceData(path, shown);
    else
        fill(path);
}

void frmBackups::replaceData(const QString& path, const QString& shown) {
    const DatabaseAddress atWork = databaseAtWork();
    const BackupPlace place = backupPlace();
    const QString kept = newBackupPath(place.folder, BackupKind::Before, place.label, thisMoment());
    const auto error = carryOut(QStringLiteral("Restoring"), [&](const CopyWatch& watch) {
        if (!atWork.isFile()) {
            restoreCatalog(path, atWork, watch);
            return;
        }
        requireBackupFolder(place);
        restoreDatabase(path, atWork.path, kept, watch.goesOn);
    });
    connectAgain();
    fill(path);
    if (!error)
        say(QStringLiteral("%1 was restored.").arg(shown.left(1).toUpper() + shown.mid(1)) +
                (atWork.isFile() ? QStringLiteral("\n\nThe data as they were before are kept as\n") + kept
                                 : QString()),
            MessageIcon::Information);
    else if (error->is(Failure::Cancelled))
        setStatusText(QStringLiteral("Cancelled: nothing was restored."));
    else if (error->is(Failure::NotAllowed) && !atWork.isFile())
        say(error->description() +
                QStringLiteral(".\n\nA backup is restored into an empty catalog only. Have a new one made by "
                               "whoever looks after the server (tarnwell-db create), choose it in Options, "
                               "start the program again and restore there.") +
                untouched,
            MessageIcon::Exclamation);
    else
        say(QStringLiteral("Nothing was restored:\n") + error->description() + untouched,
            MessageIcon::Exclamation);
}

void frmBackups::cmdNew_Click() {
    const DatabaseAddress atWork = databaseAtWork();
    const auto chosen = chooseFile(this, {.title = QStringLiteral("New Database"),
                                          .filter = QStringLiteral("*.mdb"),
                                          .start = QFileInfo(atWork.path).absolutePath(),
                                          .wanted = FileWanted::New});
    if (!chosen)
        return;
    const QString path = withEnding(*chosen);
    try {
        createDatabase(path);
    } catch (const RunTimeError& error) {
        say(QFileInfo::exists(path)
                ? QStringLiteral("There is a file of that name already, and it is left as it is:\n") + path
                : QStringLiteral("The database could not be made:\n") + error.description(),
            MessageIcon::Exclamation);
        return;
    }
    if (isAgreed(QStringLiteral("A new, empty database was made:\n%1\n\nWork with it from now on? All other "
                                "windows are closed. The present database stays where it is:\n%2")
                     .arg(path, atWork.shown)))
        workWithNewDatabase(path);
}

void frmBackups::workWithNewDatabase(const QString& path) {
    if (!letGoOfData())
        return;
    const DatabaseSettings settings{.file = path, .reportFile = gReportDataPath};
    saveDatabaseSettings(settings);
    gConnectionString = composeConnectionString(settings);
    connectAgain();
    fill();
}

bool frmBackups::letGoOfData() {
    m_reader.stop();
    if (!closeForms(*this))
        return false;
    DataEnvironment::close();
    return true;
}

void frmBackups::cmdClose_Click() {
    if (m_isWorking)
        m_goesOn = false;
    else
        Unload();
}

std::optional<RunTimeError> frmBackups::carryOut(const QString& what, const Work& work, Ending ending) {
    std::atomic<bool> goesOn{true};
    std::atomic<int> percent{percentUnknown};
    const CopyWatch watch{.progress =
                              [&](const CopyProgress& progress) {
                                  if (progress.all > 0)
                                      percent = static_cast<int>(progress.done * allPercent / progress.all);
                              },
                          .goesOn = [&] { return goesOn.load(); }};
    m_reader.stop();
    setWorking(what);
    cmdClose->setEnabled(ending == Ending::AtAnyTime);
    std::optional<RunTimeError> failure;
    try {
        workBeside([&] { work(watch); },
                   [&] {
                       showProgress(percent);
                       QCoreApplication::processEvents();
                       if (ending == Ending::AtAnyTime)
                           goesOn = m_goesOn;
                   });
    } catch (const RunTimeError& error) {
        failure = error;
    }
    cmdClose->setEnabled(true);
    setWorking({});
    return failure;
}

/// An empty text: nothing is done.
void frmBackups::setWorking(const QString& what) {
    m_isWorking = !what.isEmpty();
    m_goesOn = true;
    lblWork->setText(m_isWorking ? what + QStringLiteral("...") : QString());
    proWork->setVisible(m_isWorking);
    for (QWidget* control : std::initializer_list<QWidget*>{tblBackups, cmdFolder, chkAtExit, cmdBackUp,
                                                            cmdRestore, cmdRestoreFile, cmdCheck, cmdNew})
        control->setEnabled(!m_isWorking);
    cmdClose->setText(m_isWorking ? QStringLiteral("Cancel") : QStringLiteral("Close"));
    if (m_isWorking) {
        showProgress(percentUnknown);
        setStatusText(what);
        SetFocus(cmdClose);
    } else if (isLoaded()) {
        tblBackups_RowChange();
        SetFocus(tblBackups);
    }
}

void frmBackups::showProgress(int percent) {
    proWork->setRange(0, percent == percentUnknown ? 0 : allPercent);
    if (percent != percentUnknown)
        proWork->setValue(percent);
}

} // namespace tarnwell
