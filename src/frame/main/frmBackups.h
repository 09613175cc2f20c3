#pragma once

#include "data/RunTimeError.h"
#include "data/backup/DatabaseBackup.h"
#include "frame/Screen.h"
#include "frame/main/BackupEntry.h"

#include <functional>
#include <optional>
#include <vector>

class QCheckBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace tarnwell {

class BackupTable;

/// The backups of the database at work: what each holds, a new one, checking, restoring, and a new database.
/// Long work is done beside the window, which shows how far it is and can end it.
class frmBackups : public Screen {
    Q_OBJECT

public:
    frmBackups();

protected:
    void Form_Load() override;
    void Form_Unload() override { m_reader.stop(); }
    void closeRequested() override { cmdClose_Click(); }

private:
    // frmBackupsLayout.cpp
    void makeControls();
    void layOut();

    void connectControls();
    /// Lists what is there now, and selects the entry of that file or else the first one.
    void fill(const QString& selected = {});
    void showFigures(int list, const EntryFigures& figures);
    void tblBackups_RowChange();
    void cmdFolder_Click();
    void chkAtExit_Click();
    void cmdBackUp_Click();
    void cmdCheck_Click();
    void cmdRestore_Click();
    void cmdRestoreFile_Click();
    void cmdNew_Click();
    /// While work is done it ends that alone.
    void cmdClose_Click();

    enum class Ending { AtAnyTime, NotAtAll };
    using Work = std::function<void(const CopyWatch&)>;
    /// Does the work on a thread of its own while the window says `what` it is. What it raised; Cancelled
    /// when the user ended it.
    [[nodiscard]] std::optional<RunTimeError> carryOut(const QString& what, const Work& work,
                                                       Ending ending = Ending::AtAnyTime);
    void setWorking(const QString& what);
    void showProgress(int percent);

    /// The selected entry, or null.
    [[nodiscard]] const BackupEntry* selectedEntry() const;
    void restore(const QString& path, const QString& shown);
    /// Puts the checked backup in the place of the data at work; no connection is open.
    void replaceData(const QString& path, const QString& shown);
    void workWithNewDatabase(const QString& path);
    /// Closes the other screens and the connection. False when a screen can't write what was entered.
    [[nodiscard]] bool letGoOfData();

    QLabel* lblDatabase = nullptr;
    QLineEdit* txtFolder = nullptr;
    QPushButton* cmdFolder = nullptr;
    QCheckBox* chkAtExit = nullptr;
    BackupTable* tblBackups = nullptr;
    QLabel* lblWork = nullptr;
    QProgressBar* proWork = nullptr;
    QPushButton* cmdBackUp = nullptr;
    QPushButton* cmdRestore = nullptr;
    QPushButton* cmdRestoreFile = nullptr;
    QPushButton* cmdCheck = nullptr;
    QPushButton* cmdNew = nullptr;
    QPushButton* cmdClose = nullptr;

    std::vector<BackupEntry> m_entries; ///< The lines of the table.
    int m_list = 0;                     ///< Counts the fillings: what was read for an earlier one is dropped.
    FigureReader m_reader;
    bool m_isWorking = false;
    bool m_goesOn = true; ///< False once the user has ended the work.
};

} // namespace tarnwell
