#include "controls/ListBox.h"
#include "frame/FileDialog.h"
#include "frame/main/frmAbout.h"
#include "frame/main/frmOptions.h"
#include "runtime/DatabaseSettings.h"
#include "runtime/ProgramStarter.h"
#include "runtime/StartUp.h"
#include "runtime/SystemInformation.h"
#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/TemporaryDatabase.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

constexpr auto machine = RegistryRoot::LocalMachine;
const QString toolsKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString placeKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");

void put(const QString& key, const QString& name, const Value& value, int type = RegistryType::Text) {
    WriteRegistryValue(machine, key, name, type, value);
}

/// A machine with settings of a database file.
class OptionsTest : public ::testing::Test {
protected:
    OptionsTest() {
        setSettingsFile(folder.filePath("settings.json"));
        gRegistryKey = QString::fromUtf16(registryKey);
        gReportDataPath = "reports in use.mdb";
        saveDatabaseSettings({.file = "jobs.mdb", .reportFile = "reports of the next start.mdb"});
    }
    ~OptionsTest() override {
        setFileChooser({});
        setProgramStarter({});
        setSettingsFile({});
    }

    static void clickEngine(const ScreenDriver& screen, int engine) {
        screen.click(QStringLiteral("optEngine(%1)").arg(engine));
    }
    static QString stored(const QString& name) {
        return ReadRegistryValue(machine, gRegistryKey, name).toText();
    }
    static QString storedConnection() {
        return composeConnectionString(stored("Provider"), stored("DataSource"), stored("DataServer"),
                                       stored("ConnectionMisc"));
    }
    static QString enabledFields(const ScreenDriver& screen) {
        QStringList names;
        for (const char* name : {"txtFilePath", "cmdDataPath", "txtServer", "txtCatalog"})
            if (screen.find(name).isEnabled())
                names << name;
        return names.join(' ');
    }

    QTemporaryDir folder;
    MessageScript script;
};

} // namespace

TEST_F(OptionsTest, SavesAServerForTheNextStartAndShowsItAgain) {
    const struct {
        int engine;
        QString server, statusTexts;
        const char* connection;
    } cases[] = {
        {1, "\\\\OFFICE", "Select to use SQL Server|Enter the SQL Server i.e. (\\\\MyServer)",
         "Provider=SQLOLEDB.1;Initial Catalog=Jobs;Data Source=\\\\OFFICE;Integrated Security=SSPI;Persist "
         "Security Info=False;"},
        {2, "office:5433", "Select to use PostgreSQL|Enter the PostgreSQL server i.e. (MyServer)",
         "Provider=PostgreSQL;Initial Catalog=Jobs;Data Source=office:5433;Integrated Security=SSPI;Persist "
         "Security Info=False;"},
    };
    const QString before = gConnectionString;
    for (const auto& row : cases) {
        saveDatabaseSettings({.file = "jobs.mdb", .reportFile = "reports of the next start.mdb"});
        auto* form = &theForm<frmOptions>();
        {
            const ScreenDriver screen(*form);
            EXPECT_EQ(screen.find<QLineEdit>("txtReportPath").text(), "reports in use.mdb");
            EXPECT_EQ(screen.find<QLineEdit>("txtFilePath").text(), "jobs.mdb");
            EXPECT_EQ(enabledFields(screen), "txtFilePath cmdDataPath");
            clickEngine(screen, row.engine);
            EXPECT_EQ(enabledFields(screen), "cmdDataPath txtServer txtCatalog");
            QStringList statusTexts(form->statusText());
            screen.press(Qt::Key_Tab);
            statusTexts << form->statusText();
            EXPECT_EQ(statusTexts.join('|'), row.statusTexts);
            screen.type(row.server);
            screen.press(Qt::Key_Tab);
            screen.type("Jobs");
            script.expect(Answer::Ok);
            screen.press(Qt::Key_Return);
            EXPECT_EQ(script.shown().back().text, "Values saved, restart program to use new parameters.");
            EXPECT_TRUE(loadedForms().empty());
        }
        EXPECT_EQ(storedConnection(), row.connection);
        EXPECT_EQ(stored("ReportDataPath"), "reports in use.mdb") << "what the field shows is written";
        EXPECT_EQ(gConnectionString, before);

        const ScreenDriver again(theForm<frmOptions>());
        EXPECT_TRUE(again.find<QRadioButton>(QStringLiteral("optEngine(%1)").arg(row.engine)).isChecked());
        EXPECT_EQ(again.find<QLineEdit>("txtServer").text(), row.server);
        EXPECT_EQ(again.find<QLineEdit>("txtCatalog").text(), "Jobs");
        EXPECT_EQ(again.find<QLineEdit>("txtFilePath").text(), "");
        theForm<frmOptions>().Unload();
    }
}

TEST_F(OptionsTest, WhatWasEnteredByHandStaysWithPostgreSqlAlone) {
    const QString byHand = ";SSLMode=disable;User ID=ann;Password=secret";
    const std::pair<DatabaseEngine, QString> cases[] = {
        {DatabaseEngine::Postgres, byHand},
        {DatabaseEngine::SqlServer, ";Integrated Security=SSPI;Persist Security Info=False;"},
        {DatabaseEngine::File, ";Persist Security Info=False"},
    };
    for (const auto& [engine, kept] : cases) {
        put(gRegistryKey, "Provider", "PostgreSQL");
        put(gRegistryKey, "ConnectionMisc", byHand);
        const DatabaseSettings settings{.engine = engine, .file = "a", .server = "b", .catalog = "c"};
        const QString tried = composeConnectionString(settings);
        saveDatabaseSettings(settings);
        EXPECT_EQ(stored("ConnectionMisc"), kept);
        EXPECT_EQ(storedConnection(), tried) << "what is tried is what is saved";
    }
}

TEST_F(OptionsTest, ATestOfAFileSaysWhatIsInItAndSavesNothing) {
    const TemporaryDatabase database;
    ASSERT_TRUE(QFile(folder.filePath("no database")).open(QIODevice::WriteOnly));
    const QString missing = folder.filePath("missing.mdb");
    const struct {
        QString path;
        const char* text;
        MessageIcon icon;
    } cases[] = {
        {database.path(), "Tarnwell database found.\n\n0 builders\n0 jobs\n0 payments",
         MessageIcon::Information},
        {missing, "Could not find the database file. (", MessageIcon::Exclamation},
        {folder.filePath("no database"), "The file is damaged or is not a Tarnwell database.",
         MessageIcon::Exclamation},
        {"", "Could not find the database file.", MessageIcon::Exclamation},
    };
    const ScreenDriver screen(theForm<frmOptions>());
    for (const auto& row : cases) {
        screen.retype("txtFilePath", row.path);
        script.expect(Answer::Ok);
        screen.press(Qt::Key_T, Qt::AltModifier);
        EXPECT_TRUE(script.shown().back().text.startsWith(row.text)) << row.path.toStdString();
        EXPECT_EQ(script.shown().back().icon, row.icon);
        EXPECT_EQ(screen.focusedName(), "cmdTest");
        EXPECT_EQ(stored("DataSource"), "jobs.mdb");
    }
    EXPECT_FALSE(QFile::exists(missing));
    theForm<frmOptions>().Unload();
}

TEST_F(OptionsTest, BrowsingFillsTheFieldUnlessItIsCancelled) {
    const ScreenDriver screen(theForm<frmOptions>());
    QStringList titles;
    std::optional<QString> answer = "found.mdb";
    setFileChooser([&](QWidget*, const FileRequest& request) {
        titles << request.title + ' ' + request.filter;
        return answer;
    });
    screen.click("cmdDataPath");
    screen.click("cmdReportPath");
    answer = std::nullopt;
    screen.click("cmdDataPath");
    EXPECT_EQ(titles, QStringList({"Select Program Database *.mdb", "Select Report Database *.mdb",
                                   "Select Program Database *.mdb"}));
    EXPECT_EQ(screen.find<QLineEdit>("txtFilePath").text(), "found.mdb");
    EXPECT_EQ(screen.find<QLineEdit>("txtReportPath").text(), "found.mdb");
    theForm<frmOptions>().Unload();
}

TEST_F(OptionsTest, LeavingAsksAndKeepsWhatWasTyped) {
    const ScreenDriver screen(theForm<frmOptions>());
    auto& field = screen.find<QLineEdit>("txtFilePath");
    screen.focus("txtFilePath");
    screen.type("x");
    const QString typed = field.text();
    script.expect(Answer::No);
    screen.click("cmdCancel");
    script.expect(Answer::No);
    screen.window().close();
    EXPECT_EQ(field.text(), typed);
    EXPECT_TRUE(screen.window().isVisible());
    script.expect(Answer::Yes);
    screen.press(Qt::Key_Escape);
    EXPECT_EQ(script.shown().back().text, "Quit without saving changes?");
    EXPECT_TRUE(loadedForms().empty());
    EXPECT_EQ(stored("DataSource"), "jobs.mdb");
}

TEST_F(OptionsTest, AStoreThatCantBeWrittenKeepsTheOldValues) {
    ASSERT_TRUE(QFile(folder.filePath("plain file")).open(QIODevice::WriteOnly));
    setSettingsFile(folder.filePath("plain file/settings.json"));
    const ScreenDriver screen(theForm<frmOptions>());
    script.expect(Answer::Ok);
    screen.click("cmdOK");
    EXPECT_EQ(script.shown().back().title, "Saved Changes");
    EXPECT_TRUE(stored("DataSource").isEmpty());
}

TEST_F(OptionsTest, AValueIsReadAsText) {
    struct Case {
        Value value;
        int type;
        QString text;
        bool found;
    };
    const Case cases[] = {
        {"a tool", RegistryType::Text, "a tool", true},
        {"", RegistryType::Text, "", true},
        {10, RegistryType::Number, "&h0000000A", true},
        {-2, RegistryType::Number, "&hFFFFFFFE", true},
        {QString(1023, 'x'), RegistryType::Text, QString(1023, 'x'), true},
        {QString(1024, 'x'), RegistryType::Text, "", false}, // the NUL does not fit
    };
    for (const Case& row : cases) {
        put(toolsKey, "Entry", row.value, row.type);
        QString text = "left over";
        EXPECT_EQ(GetKeyValue(machine, toolsKey, "Entry", text), row.found) << row.text.toStdString();
        EXPECT_EQ(text, row.text);
    }
    QString text = "left over";
    EXPECT_FALSE(GetKeyValue(machine, toolsKey, "No such entry", text));
    EXPECT_EQ(text, "");
}

TEST_F(OptionsTest, SystemInformationRunsWhatTheSettingsName) {
    QStringList started;
    setProgramStarter([&](const QString& program, const QStringList& arguments) {
        started << program + '|' + arguments.join('|');
    });
    script.expect(Answer::Ok);
    StartSysInfo();
    EXPECT_EQ(script.shown().back().text, "System Information Is Unavailable At This Time");
    put(placeKey, "MSINFO", folder.path());
    script.expect(Answer::Ok);
    StartSysInfo(); // the folder stands, the tool does not
    EXPECT_TRUE(started.isEmpty());
    ASSERT_TRUE(QFile(folder.filePath("MSINFO32.EXE")).open(QIODevice::WriteOnly));
    StartSysInfo();
    put(toolsKey, "PATH", "\"my tool\" -all");
    StartSysInfo();
    EXPECT_EQ(started,
              QStringList({QDir::toNativeSeparators(folder.filePath("MSINFO32.EXE")) + '|', "my tool|-all"}));
    setProgramStarter({});
    put(toolsKey, "PATH", folder.filePath("missing"));
    script.expect(Answer::Ok);
    StartSysInfo();
    EXPECT_EQ(script.shown().size(), 3U);
}

TEST_F(OptionsTest, AboutListsTheHistoryAsItStands) {
    const ScreenDriver screen(theForm<frmAbout>());
    EXPECT_TRUE(screen.find<QLabel>("lblTitle").text().startsWith("Brenmoor: Tarnwell: "));
    const auto& list = screen.find<ListBox>("lstModifications");
    ASSERT_EQ(list.ListCount(), 45);
    EXPECT_EQ(list.item(25)->text(), "08/15/01: {Fix)    Filter option group tasks by option group selected");
    script.expect(Answer::Ok);
    screen.press(Qt::Key_S, Qt::AltModifier);
    EXPECT_EQ(script.shown().size(), 1U);
    screen.press(Qt::Key_Escape);
    EXPECT_TRUE(loadedForms().empty());
}

} // namespace tarnwell::test
