#include "data/file/DatabaseFile.h"
#include "frame/FileDialog.h"
#include "frame/main/BackupTable.h"
#include "frame/main/frmBackups.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/RunTime.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace tarnwell::test {
namespace {

/// A screen that is open beside the backups, and may refuse to close.
class frmBeside : public Screen {
public:
    frmBeside() : Screen("frmBeside", "Beside", {}) {}
    bool refuses = false;

protected:
    void Form_Load() override { setDesignSize({200, 100}); }
    void closeRequested() override {
        if (!refuses)
            Unload();
    }
};

class BackupsTest : public ScreenTest {
protected:
    BackupsTest() {
        setSettingsFile(database.folder() + "/settings.json");
        gRegistryKey = QString::fromUtf16(registryKey);
        workOn(database);
        setClock([this] { return DateTime{QDate(2026, 11, 25), QTime(18, 0, ++second)}; });
        addPayment(QDate(2026, 11, 24));
        database.connection().Close();
    }
    ~BackupsTest() override {
        setClock({});
        setFileChooser({});
        setSettingsFile({});
    }

    void addPayment(QDate day) {
        if (database.connection().State() == ObjectState::Closed)
            database.connection().Open();
        const qint64 builder = database.add("Contractor", {{"Name", "Builder"}});
        const qint64 job = database.add("Job", {{"JobNumber", "1"}, {"ContractorKey", builder}});
        const qint64 lot = database.add("JobLot", {{"JobKey", job}});
        const qint64 code = database.add("Code", {{"Code1", 2}, {"Description", "Framing"}});
        const qint64 task =
            database.add("JobLotTask", {{"JobLotKey", lot}, {"CodeKey", code}, {"MasterTaskKey", 0}});
        const qint64 worker = database.add("Employee", {{"Inactive", 0}});
        database.add("JobTaskEmployee", {{"JobLotTaskKey", task},
                                         {"EmployeeKey", worker},
                                         {"Price", 40},
                                         {"Completed", DateTime{day}},
                                         {"Note", ""}});
    }
    /// How many payments the program sees.
    static qint64 payments() {
        return firstValue(connection(), "SELECT COUNT(*) FROM JobTaskEmployee").value_or(Value()).toLong();
    }
    /// A line of the list but its file and size, once all is read.
    static QString line(const ScreenDriver& screen, int row) {
        const auto& table = screen.find<BackupTable>("tblBackups");
        EXPECT_TRUE(waitFor([&] { return row < table.rowCount() && table.item(row, 3)->text() != "..."; }));
        QStringList cells;
        for (const int column : {0, 1, 3, 4})
            cells << table.item(row, column)->text();
        return cells.join('|');
    }
    [[nodiscard]] QStringList backups() const {
        return QDir(database.folder() + "/backups").entryList({"*.mdb"}, QDir::Files, QDir::Name);
    }

    TemporaryDatabase database;
    MessageScript script;
    int second = 0;
};

TEST_F(BackupsTest, ABackupIsMadeAndRestoredByKeysAlone) {
    const ScreenDriver screen(theForm<frmBackups>());
    EXPECT_EQ(line(screen, 0), "Now|Present data|1|11/24/26");
    EXPECT_TRUE(screen.find("lblNoBackups").isVisible());
    EXPECT_FALSE(screen.find("cmdRestore").isEnabled()) << "the present data need no restoring";
    screen.press(Qt::Key_U, Qt::AltModifier);
    ASSERT_EQ(backups().size(), 1) << theForm<frmBackups>().statusText().toStdString();
    EXPECT_EQ(line(screen, 1), "11/25/26 18:00|By hand|1|11/24/26");
    EXPECT_FALSE(screen.find("lblNoBackups").isVisible());
    EXPECT_EQ(screen.focusedName(), "tblBackups");

    addPayment(QDate(2026, 11, 25));
    database.connection().Close();
    EXPECT_EQ(payments(), 2);
    screen.press(Qt::Key_Delete);
    EXPECT_EQ(backups().size(), 1) << "Del is no key here";
    auto* beside = new frmBeside;
    beside->Show(Screen::Modality::Modeless, nullptr);
    screen.window().activateWindow();
    screen.focus("tblBackups");
    script.expect(Answer::No);
    screen.press(Qt::Key_Return);
    EXPECT_EQ(payments(), 2);
    script.expect(Answer::Yes, Answer::Ok);
    screen.press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(script.shown().back().text.startsWith("The backup of 11/25/26 18:00 was restored."))
        << script.shown().back().text.toStdString();
    EXPECT_EQ(payments(), 1) << "the program works on with what was restored";
    EXPECT_EQ(loadedForms().size(), 1U);
    EXPECT_EQ(line(screen, 0), "Now|Present data|1|11/24/26");
    EXPECT_EQ(screen.find<BackupTable>("tblBackups").currentEntry(), 2) << "what was restored stays selected";
    ASSERT_EQ(backups().size(), 2);
    EXPECT_TRUE(backups().front().startsWith("before-restore-Tarnwell-2026-11-25-"));
    EXPECT_EQ(line(screen, 1).section('|', 1), "Before a restore|2|11/25/26");
    screen.press(Qt::Key_Escape);
    EXPECT_TRUE(loadedForms().empty());
}

TEST_F(BackupsTest, WhatCantBeRestoredLeavesThePresentDataUntouched) {
    ASSERT_TRUE(QDir().mkpath(database.folder() + "/backups"));
    const QString damaged = database.folder() + "/backups/damaged.mdb";
    backupDatabase(database.path(), damaged, false);
    QFile file(damaged);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(file.size() / 2));
    file.write(QByteArray(static_cast<int>(file.size() / 2), '#'));
    file.close();
    const ScreenDriver screen(theForm<frmBackups>());
    screen.press(Qt::Key_Down);
    script.expect(Answer::Yes, Answer::Ok);
    screen.press(Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(script.shown().back().text.startsWith("This backup can't be restored:\nThe file is damaged"))
        << script.shown().back().text.toStdString();
    script.expect(Answer::Ok);
    screen.press(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(script.shown().back().icon, MessageIcon::Exclamation);
    screen.press(Qt::Key_Up);
    script.expect(Answer::Ok);
    screen.press(Qt::Key_C, Qt::AltModifier);
    EXPECT_EQ(script.shown().back().text, "The present data are sound.");

    // A screen that can't write what was entered stays, and so do the data.
    QFile::remove(damaged);
    backupDatabase(database.path(), damaged, false);
    auto* beside = new frmBeside;
    beside->refuses = true;
    beside->Show(Screen::Modality::Modeless, nullptr);
    setFileChooser([&](QWidget*, const FileRequest&) { return std::optional(damaged); });
    screen.window().activateWindow();
    script.expect(Answer::Yes);
    screen.press(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(beside->isLoaded());
    beside->refuses = false;
    // Another workstation has them open.
    const auto other = database.secondWorkstation();
    script.expect(Answer::Yes, Answer::Ok);
    screen.press(Qt::Key_O, Qt::AltModifier);
    EXPECT_TRUE(script.shown().back().text.startsWith("Nothing was restored:\nThe database is locked"))
        << script.shown().back().text.toStdString();
    EXPECT_EQ(payments(), 1);
    EXPECT_EQ(backups(), QStringList("damaged.mdb"));
}

TEST_F(BackupsTest, TheFolderAndTheDailyBackupAreSettings) {
    const QString other = database.folder() + "/other";
    ASSERT_TRUE(QDir().mkpath(other));
    std::optional<QString> chosen = other;
    setFileChooser([&](QWidget*, const FileRequest& request) {
        EXPECT_EQ(request.wanted, FileWanted::Folder);
        return chosen;
    });
    const ScreenDriver screen(theForm<frmBackups>());
    EXPECT_TRUE(screen.find<QCheckBox>("chkAtExit").isChecked());
    screen.press(Qt::Key_E, Qt::AltModifier);
    EXPECT_FALSE(backsUpAtExit());
    screen.click("cmdFolder");
    EXPECT_EQ(screen.find<QLineEdit>("txtFolder").text(), other);
    ASSERT_TRUE(QDir(other).removeRecursively());
    script.expect(Answer::Ok);
    screen.press(Qt::Key_U, Qt::AltModifier);
    EXPECT_TRUE(script.shown().back().text.startsWith("The backup could not be made:\nPath not found ("));
    EXPECT_TRUE(
        screen.find<QLabel>("lblNoBackups").text().startsWith("The folder of the backups can't be found."));
    EXPECT_FALSE(QFile::exists(other));
    chosen = usualBackupFolder();
    screen.click("cmdFolder");
    EXPECT_FALSE(backupPlace().isChosen);
}

TEST_F(BackupsTest, ANewDatabaseOverwritesNothingAndIsWorkedWithIfWanted) {
    const QString made = database.folder() + "/new.mdb";
    setFileChooser([&](QWidget*, const FileRequest& request) {
        EXPECT_EQ(request.wanted, FileWanted::New);
        return std::optional(database.folder() + "/new");
    });
    const ScreenDriver screen(theForm<frmBackups>());
    script.expect(Answer::No);
    screen.press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(payments(), 1);
    script.expect(Answer::Ok);
    screen.press(Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(script.shown().back().text.startsWith("There is a file of that name already"));
    ASSERT_TRUE(QFile::remove(made));
    script.expect(Answer::Yes);
    screen.press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(payments(), 0);
    EXPECT_EQ(line(screen, 0), "Now|Present data|0|none");
    EXPECT_EQ(ReadRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, "DataSource").toText(), made);
}

} // namespace
} // namespace tarnwell::test
