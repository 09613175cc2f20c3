#include "frame/main/frmSwitchboard.h"
#include "runtime/DataEnvironment.h"
#include "runtime/RunTime.h"
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
#include <QPushButton>
#include <QToolButton>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

QStringList unloaded;
qint64 shownJob = 0;

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

/// Time Card, Builder, Jobs and Reports stand; the other screens do not.
struct SwitchboardTest : ::testing::Test {
    static void SetUpTestSuite() {
        using enum Screen::Modality;
        frmSwitchboard::registerScreen(
            {"frmPayroll", Modeless, []() -> Screen& { return theForm<frmEntry<1>>(); }});
        frmSwitchboard::registerScreen(
            {"frmBuilder", Modeless, []() -> Screen& { return theForm<frmEntry<2>>(); }});
        frmSwitchboard::registerScreen({"frmJobs", Modeless,
                                        []() -> Screen& { return theForm<frmEntry<4>>(); },
                                        [](qint64 job) { shownJob = job; }});
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
    /// A window that has read how the data stand; something of it is on show then.
    static frmSwitchboard& startAndRead(const char* shown) {
        auto& window = start();
        EXPECT_TRUE(waitFor([&] { return window.findChild<QWidget*>(shown)->isVisible(); })) << shown;
        return window;
    }
    static bool isShown(const QWidget& window, const char* name) {
        return window.findChild<QWidget*>(name)->isVisible();
    }
    static QString shownText(const QWidget& window, const char* name) {
        return window.findChild<QLabel*>(name)->text();
    }
    /// An open job with a payment of today.
    qint64 addPaidJob(const char* number) {
        const qint64 builder = database.add("Contractor", {{"Name", "Smith"}});
        const qint64 job =
            database.add("Job", {{"JobNumber", number}, {"Name", "Elm"}, {"ContractorKey", builder}});
        const qint64 lot = database.add("JobLot", {{"JobKey", job}, {"LotBlock", "A"}});
        const qint64 task = database.add("JobLotTask", {{"JobLotKey", lot}, {"Name", "Walls"}});
        const qint64 employee = database.add("Employee", {{"SSN", "1"}});
        database.add(
            "JobTaskEmployee",
            {{"JobLotTaskKey", task}, {"EmployeeKey", employee}, {"Price", 1234.5}, {"Completed", Today()}});
        return job;
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
    EXPECT_EQ(items, (QStringList{"mnuExit", "frmBuilder", "frmJobs", "mnuReport", "frmPayroll"}));
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
    EXPECT_EQ(driver.focusedName(), "frmJobs");
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

TEST_F(SwitchboardTest, AnEmptyDatabaseBeginsWithTheStepsToItsFirstPayment) {
    auto& window = startAndRead("homeSteps");
    const ScreenDriver driver(window);
    EXPECT_FALSE(isShown(window, "homeFigures") || isShown(window, "homeJobs"));
    EXPECT_FALSE(isShown(window, "lnkBackups")) << "no such screen is registered";
    driver.focus("frmPayroll");
    driver.press(Qt::Key_Tab, {}, 3);
    EXPECT_EQ(driver.focusedName(), "lnkStep(2)");
    database.add("ContractorPlan",
                 {{"ContractorKey", database.add("Contractor", {{"Name", "Smith"}})}, {"PlanName", "Aspen"}});
    driver.press(Qt::Key_Return);
    EXPECT_EQ(loadedForms().back()->objectName(), "frmEntry2");
    theForm<frmEntry<2>>().Unload();
    window.activateWindow();
    const auto& step = driver.find<QPushButton>("lnkStep(2)");
    EXPECT_TRUE(waitFor([&] { return step.accessibleName() == "A builder and a plan, done"; }));
    EXPECT_EQ(driver.find<QPushButton>("lnkStep(3)").accessibleName(), "A job and a lot");
    driver.click("lnkStep(3)");
    EXPECT_EQ(loadedForms().back()->objectName(), "frmEntry4");
}

TEST_F(SwitchboardTest, SaysHowTheDataStandAndOpensTheLastJobs) {
    const qint64 first = addPaidJob("J-1");
    auto& window = startAndRead("homeFigures");
    const ScreenDriver driver(window);
    EXPECT_FALSE(isShown(window, "homeSteps") || isShown(window, "lnkJob(1)") ||
                 isShown(window, "lblWorkstations"));
    EXPECT_EQ(shownText(window, "lblOpenJobs"), "1");
    EXPECT_EQ(shownText(window, "lblPayments"), "1");
    EXPECT_EQ(shownText(window, "lblPaid"), "1,234.50");
    EXPECT_EQ(driver.find<QPushButton>("lnkJob(0)").text(), "J-1  Elm");
    const qint64 second = addPaidJob("J-2");
    driver.focus("lnkJob(0)");
    driver.press(Qt::Key_Space);
    EXPECT_EQ(loadedForms().back()->objectName(), "frmEntry4");
    EXPECT_EQ(shownJob, first);
    window.activateWindow();
    EXPECT_TRUE(waitFor([&] { return isShown(window, "lnkJob(1)"); }));
    EXPECT_EQ(shownText(window, "lblPaid"), "2,469.00");
    driver.click("lnkJob(0)");
    EXPECT_EQ(shownJob, second);
}

TEST_F(SwitchboardTest, FiguresThatCantBeReadEndNothing) {
    addPaidJob("J-1");
    auto& window = startAndRead("homeFigures");
    DataEnvironment::cnnConnection().Close();
    frmEntry<2>& front = theForm<frmEntry<2>>();
    front.Show(Screen::Modality::Modeless, &window);
    ASSERT_TRUE(waitFor([&] { return front.isActiveWindow(); }));
    window.activateWindow();
    EXPECT_TRUE(waitFor([&] { return isShown(window, "lblFailure"); }));
    EXPECT_FALSE(isShown(window, "homeFigures"));
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
            whenShown([](const ScreenDriver& form) { form.click("cmdLeave"); });
            start();
        },
        ::testing::ExitedWithCode(1), "Error # -2147467259 was generated by");
    EXPECT_FALSE(QFile::exists(missing));
}

} // namespace tarnwell::test
