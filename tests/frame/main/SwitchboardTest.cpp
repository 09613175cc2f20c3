#include "frame/main/frmSwitchboard.h"
#include "runtime/DataEnvironment.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "support/DeathFolder.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/TemporaryDatabase.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QMenuBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

QStringList unloaded;

template <int Number>
class frmEntry : public Screen {
public:
    frmEntry() : Screen(QStringLiteral("frmEntry%1").arg(Number), "Entry", {}) {}
    bool refuses = false; ///< As a form does that can't write its row.

protected:
    void Form_Load() override { setDesignSize({200, 100}); }
    void Form_Unload() override { unloaded << objectName(); }
    void closeRequested() override {
        if (!refuses)
            Unload();
    }
};

void setting(const char* name, const QString& value) {
    WriteRegistryValue(RegistryRoot::LocalMachine, QStringLiteral("Software\\Brenmoor\\Tarnwell"),
                       QLatin1String(name), RegistryType::Text, value);
}

/// Time Card, Builder and Reports stand; the other screens do not.
struct SwitchboardTest : ::testing::Test {
    static void SetUpTestSuite() {
        using enum Screen::Modality;
        frmSwitchboard::registerScreen(
            {"frmPayroll", Modeless, []() -> Screen& { return theForm<frmEntry<1>>(); }});
        frmSwitchboard::registerScreen(
            {"frmBuilder", Modeless, []() -> Screen& { return theForm<frmEntry<2>>(); }});
        frmSwitchboard::registerScreen(
            {"mnuReport", Modal, []() -> Screen& { return theForm<frmEntry<3>>(); }});
    }

    SwitchboardTest() {
        unloaded.clear();
        setSettingsFile(database.folder() + "/settings.json");
        setting("Provider", "Microsoft.Jet.OLEDB.4.0");
        setting("DataSource", database.path());
        setting("LogPath", database.folder() + "/");
    }
    ~SwitchboardTest() override {
        unloadRemainingForms();
        DataEnvironment::close();
        setSettingsFile({});
    }

    static frmSwitchboard& start() {
        auto& window = theForm<frmSwitchboard>();
        window.Show(Screen::Modality::Modeless, nullptr);
        EXPECT_TRUE(waitFor([&] { return window.isActiveWindow(); }));
        return window;
    }
    static QString shownDatabase(const QWidget& window) {
        return window.findChild<QLabel*>("lblDatabase")->text();
    }

    TemporaryDatabase database;
};

using SwitchboardDeathTest = SwitchboardTest;

} // namespace

TEST_F(SwitchboardTest, OnlyWhatStandsCanBeChosen) {
    const auto& window = start();
    QStringList items;
    for (const auto* item : window.findChild<QWidget*>("nagMenu")->findChildren<QToolButton*>()) {
        EXPECT_FALSE(item->icon().isNull()) << item->objectName().toStdString();
        if (item->isEnabled())
            items << item->objectName();
    }
    EXPECT_EQ(items, (QStringList{"mnuExit", "frmBuilder", "mnuReport", "frmPayroll"}));
    QStringList entries;
    for (const QAction* menu : window.menuBar()->actions())
        for (const QAction* entry : window.findChild<QMenu*>(menu->objectName())->actions())
            if (entry->isEnabled())
                entries << entry->text();
    EXPECT_EQ(entries, (QStringList{"E&xit", "&Delete Error Log", "&Error Log", "&Contents"}));
}

TEST_F(SwitchboardTest, OpensTheDatabaseAtItsFirstActivationAndNotBefore) {
    auto& window = theForm<frmSwitchboard>();
    window.Load();
    EXPECT_EQ(gConnectionString, "Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + database.path());
    EXPECT_EQ(shownDatabase(window), "");
    setting("DataSource", "/for/the/next/start.mdb");
    start();
    EXPECT_EQ(shownDatabase(window), database.path());
}

TEST_F(SwitchboardTest, ShowsAScreenOnceAndBringsItUpAgain) {
    auto& window = start();
    const ScreenDriver driver(window);
    driver.click("frmPayroll");
    driver.click("frmBuilder");
    driver.click("frmPayroll");
    EXPECT_EQ(loadedForms(),
              (std::vector<Screen*>{&window, &theForm<frmEntry<1>>(), &theForm<frmEntry<2>>()}));
    EXPECT_TRUE(waitFor([] { return theForm<frmEntry<1>>().isActiveWindow(); }));
}

TEST_F(SwitchboardTest, ShowsAModalScreenModal) {
    const ScreenDriver driver(start());
    QString modal;
    whenModal([&](QWidget& front) {
        modal = front.objectName();
        front.close();
    });
    driver.click("mnuReport");
    EXPECT_EQ(modal, "frmEntry3");
}

TEST_F(SwitchboardTest, ArrowsPassOverWhatIsDisabledAndEnterOpens) {
    auto& window = start();
    const ScreenDriver driver(window);
    EXPECT_EQ(driver.focusedName(), "frmBuilder") << "Enter on a fresh window must not end the program";
    driver.press(Qt::Key_Down);
    EXPECT_EQ(driver.focusedName(), "mnuReport");
    driver.press(Qt::Key_End);
    EXPECT_EQ(driver.focusedName(), "frmPayroll");
    driver.press(Qt::Key_Down);
    EXPECT_EQ(driver.focusedName(), "frmPayroll");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(loadedForms().back()->objectName(), "frmEntry1");
}

TEST_F(SwitchboardTest, ClosingUnloadsEveryForm) {
    auto& window = start();
    const QPointer<frmSwitchboard> closed(&window);
    const ScreenDriver driver(window);
    driver.click("frmPayroll");
    driver.click("frmBuilder");
    window.activateWindow();
    theForm<frmEntry<1>>().refuses = true;
    window.close();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(waitFor([] { return theForm<frmEntry<1>>().isActiveWindow(); }));
    theForm<frmEntry<1>>().refuses = false;
    window.findChild<QAction*>("mnuExit")->trigger();
    unloaded.sort();
    EXPECT_EQ(unloaded, (QStringList{"frmEntry1", "frmEntry2"}));
    EXPECT_TRUE(loadedForms().empty());
    EXPECT_TRUE(waitFor([&] { return closed.isNull(); }));
}

TEST_F(SwitchboardTest, DeletesTheErrorLogOfTheSettingsFolder) {
    const QString log = database.folder() + "/ErrorLog.txt";
    ASSERT_TRUE(QFile(log).open(QIODevice::WriteOnly));
    const auto& window = start();
    const MessageScript script{Answer::Ok};
    window.findChild<QAction*>("mnuDeleteErrorLog")->trigger();
    EXPECT_TRUE(waitFor([&] { return !QFile::exists(log); }));
}

TEST_F(SwitchboardDeathTest, AMissingErrorLogEndsTheProgram) {
    const auto deleteMissingLog = [] {
        start().findChild<QAction*>("mnuDeleteErrorLog")->trigger();
        QCoreApplication::processEvents();
    };
    EXPECT_EXIT(
        {
            setMessagePresenter({});
            deleteMissingLog();
        },
        ::testing::ExitedWithCode(1), "Run-time error '53'");
}

TEST_F(SwitchboardDeathTest, AFailedConnectionShowsTheErrorAndEndsTheProgram) {
    const DeathFolder folder;
    const QString missing = folder.filePath("elsewhere.mdb");
    setting("DataSource", missing);
    EXPECT_EXIT(
        {
            setMessagePresenter({});
            start();
        },
        ::testing::ExitedWithCode(1), "Error # -2147467259 was generated by");
    EXPECT_FALSE(QFile::exists(missing));
}

} // namespace tarnwell::test
