#include "frame/main/frmSwitchboard.h"

#include "data/recordset/Workstations.h"
#include "frame/help/HelpKey.h"
#include "frame/help/HelpWindow.h"
#include "frame/main/DatabaseStart.h"
#include "frame/main/ErrorLogMenu.h"
#include "frame/main/HomeLink.h"
#include "frame/main/HomePage.h"
#include "frame/main/IconBar.h"
#include "runtime/BackupSettings.h"
#include "runtime/DataEnvironment.h"
#include "runtime/DatabaseSettings.h"
#include "runtime/EventGuard.h"
#include "runtime/ExitBackup.h"
#include "runtime/ProgramFolders.h"
#include "runtime/RecentJobs.h"
#include "runtime/RunTime.h"
#include "runtime/StartUp.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDir>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace tarnwell {

namespace {

constexpr QSize designSize(860, 540);
const QString exitKey = QStringLiteral("mnuExit");
const QString backupsKey = QStringLiteral("frmBackups");
const QString jobsKey = QStringLiteral("frmJobs");

/// `label` is the caption with its underlined letter; the letters of the menus are taken.
struct BarItem {
    const char* key;
    const char* caption;
    const char* label;
    const char* toolTip;
    const char* imageKey;
};

constexpr std::array<BarItem, 8> barItems{{
    {"mnuExit", "Exit", "E&xit", "Exit Application", "icoExit"},
    {"frmBuilder", "Builder", "&Builder", "Builder Entry", "icoBuilder"},
    {"frmEmployee", "Employee", "&Employee", "Employee Entry", "icoEmployee"},
    {"frmJobs", "Jobs", "&Jobs", "Jobs Entry", "icoJob"},
    {"mnuReport", "Reports", "&Reports", "Launch Report Module", "icoReport"},
    {"frmPayroll", "Time Card", "Time &Card", "Timecard Entry", "icoTimecard"},
    {"frmMasterCodes", "Master Codes", "Master C&odes", "Master Code Entry", "icoCode"},
    {"frmMasterTasks", "Master Tasks", "&Master Tasks", "Master Task Entry", "icoCode"},
}};

/// Entries of one menu stand together; its first entry makes the menu.
struct MenuEntry {
    const char* menu;
    const char* menuCaption;
    const char* name;
    const char* caption;
};

constexpr std::array<MenuEntry, 6> menuEntries{{
    {"mnuFile", "&File", "mnuExit", "E&xit"},
    {"mnuTools", "&Tools", "mnuDeleteErrorLog", "&Delete Error Log"},
    {"mnuTools", "&Tools", "mnuOptions", "&Options"},
    {"mnuView", "&View", "mnuErrorLog", "&Error Log"},
    {"mnuHelp", "&Help", "mnuContents", "&Contents"},
    {"mnuHelp", "&Help", "mnuAbout", "&About"},
}};

std::vector<ScreenEntry>& screens() {
    static std::vector<ScreenEntry> registered;
    return registered;
}

const ScreenEntry* screenFor(const QString& key) {
    const auto found = std::ranges::find(screens(), key, &ScreenEntry::key);
    return found == screens().end() ? nullptr : &*found;
}

/// What the entries do that show no screen.
const std::map<QString, void (*)()>& ownActions() {
    static const std::map<QString, void (*)()> actions = {
        {QStringLiteral("mnuDeleteErrorLog"), deleteErrorLog},
        {QStringLiteral("mnuErrorLog"), showErrorLog},
        {QStringLiteral("mnuContents"), sendHelpKey},
    };
    return actions;
}

bool isAvailable(const QString& key) {
    return key == exitKey || ownActions().contains(key) || screenFor(key) != nullptr;
}

/// A file's path, or a catalog and its server.
QString placeOf(const DatabaseSettings& database) {
    if (database.isFile())
        return database.file;
    return database.server.isEmpty() ? database.catalog
                                     : QStringLiteral("%1 on %2").arg(database.catalog, database.server);
}

/// Empty where the engine doesn't know.
QString workstationsText(std::optional<int> workstations) {
    if (!workstations || *workstations < 1)
        return {};
    return *workstations == 1
               ? QStringLiteral("Open at this workstation only.")
               : QStringLiteral("Open at %1 workstations, this one among them.").arg(*workstations);
}

/// "Last backup: 11/25/26 17:43"; empty where there is none. Every backup was checked when it was made.
QString lastBackupText() {
    const std::optional<QDateTime> made = lastBackupTime();
    return made ? QStringLiteral("Last backup: %1 %2")
                      .arg(Format(DateTime{made->date()}, QStringLiteral("mm/dd/yy")),
                           made->time().toString(QStringLiteral("HH:mm")))
                : QString();
}

HomeState readHome() {
    HomeState state{.steps = readFirstSteps(connection()),
                    .figures = {},
                    .workstations = workstationsText(workstations(connection())),
                    .backup = lastBackupText()};
    if (state.steps.empty())
        state.figures = readHomeFigures(connection(), Today(), rememberedJobs());
    return state;
}

} // namespace

frmSwitchboard::frmSwitchboard() : Screen(QStringLiteral("frmSwitchboard"), QStringLiteral("Tarnwell"), {}) {}

void frmSwitchboard::registerScreen(ScreenEntry entry) {
    screens().push_back(std::move(entry));
}

void frmSwitchboard::Form_Load() {
    setWindowTitle(mainWindowCaption());
    ReadSettings(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    HelpWindow::setFolder(programFolders().help);
    buildMenus();
    buildIconBar();
    layOut();
    setDesignSize(designSize);
    m_iconBar->focusFirst(1); // Enter on a fresh window must not end the program.
}

void frmSwitchboard::buildMenus() {
    QMenu* menu = nullptr;
    for (const MenuEntry& entry : menuEntries) {
        const QString menuName = QLatin1String(entry.menu);
        if (menu == nullptr || menu->objectName() != menuName) {
            menu = menuBar()->addMenu(QLatin1String(entry.menuCaption));
            menu->setObjectName(menuName);
            menu->menuAction()->setObjectName(menuName);
        }
        const QString name = QLatin1String(entry.name);
        QAction* action = menu->addAction(QLatin1String(entry.caption));
        action->setObjectName(name);
        action->setEnabled(isAvailable(name));
        // The window may be closed while an own action waits, so that runs on no slot of the window.
        if (const auto own = ownActions().find(name); own != ownActions().end())
            connect(action, &QAction::triggered, QCoreApplication::instance(), guarded(own->second),
                    Qt::QueuedConnection);
        else
            connect(action, &QAction::triggered, this, guarded([this, name] { choose(name); }));
    }
}

void frmSwitchboard::buildIconBar() {
    m_iconBar = new IconBar;
    nameControl(m_iconBar, QStringLiteral("nagMenu"));
    m_iconBar->setGroup(QStringLiteral("Entry"), QStringLiteral("Entry Modules"));
    for (const BarItem& item : barItems) {
        const QString key = QLatin1String(item.key);
        m_iconBar->addItem({key, QLatin1String(item.caption), QLatin1String(item.label),
                            QLatin1String(item.toolTip), QLatin1String(item.imageKey)});
        m_iconBar->setItemEnabled(key, isAvailable(key));
    }
    connect(m_iconBar, &IconBar::itemClicked, this, guarded([this](const QString& key) { choose(key); }));
}

void frmSwitchboard::layOut() {
    m_home = new HomePage;
    m_database = m_home->database();
    m_home->offerBackups(screenFor(backupsKey) != nullptr);
    for (HomeLink* link : m_home->links())
        nameControl(link, link->objectName(), link->toolTip());
    connect(m_home, &HomePage::due, this, guarded([this] { showHome(); }));
    connect(m_home, &HomePage::screenChosen, this, guarded([this](const QString& key) { choose(key); }));
    connect(m_home, &HomePage::jobChosen, this, guarded([this](qint64 jobKey) { chooseJob(jobKey); }));
    auto* row = new QHBoxLayout(canvas());
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_iconBar);
    row->addWidget(m_home, 1);
}

/// Figures that can't be read are no reason to stop: the next time the window is active they may be.
void frmSwitchboard::showHome() {
    if (!isLoaded() || !m_isDatabaseOpen)
        return;
    try {
        m_home->showState(readHome());
    } catch (const RunTimeError& error) {
        m_home->showFailure(error.description());
    }
}

bool frmSwitchboard::event(QEvent* event) {
    const bool handled = Screen::event(event);
    if (event->type() == QEvent::WindowActivate && m_isDatabaseOpen)
        m_home->askAfterPaint();
    return handled;
}

void frmSwitchboard::Form_Activate() {
    // The date may have changed while another form was in front.
    m_home->showDay(QLocale().toString(Today().date, QLocale::LongFormat));
    // The window becomes active again while a choice or a message at the start comes and goes.
    if (std::exchange(m_activatedBefore, true)) {
        if (m_isDatabaseOpen)
            m_database->setText(placeOf(databaseInUse())); // Another one may have been made and chosen.
        return;
    }
    openDatabase();
}

void frmSwitchboard::openDatabase() {
    if (!openDatabaseAtStart(this)) {
        Unload();
        return;
    }
    // The settings may name another one by now, for the next start.
    m_database->setText(placeOf(databaseInUse()));
    m_isDatabaseOpen = true;
    reportFailedBackup();
}

void frmSwitchboard::Form_Unload() {
    HelpWindow::closeOpen();
    CloseAllForms();
    unloadRemainingForms();
}

/// A form that can't write what was entered shows why and stays open, and so does the window.
void frmSwitchboard::closeRequested() {
    const std::vector<QPointer<Screen>> open(loadedForms().rbegin(), loadedForms().rend());
    for (const QPointer<Screen>& form : open)
        if (form != nullptr && form != this && form->isVisible() && !form->close()) {
            form->Show(Modality::Modeless, this);
            return;
        }
    Unload();
}

void frmSwitchboard::choose(const QString& key) {
    if (key == exitKey)
        closeRequested();
    else if (const ScreenEntry* screen = screenFor(key); screen != nullptr)
        screen->form().Show(screen->modality, this);
}

void frmSwitchboard::chooseJob(qint64 jobKey) {
    choose(jobsKey);
    if (const ScreenEntry* jobs = screenFor(jobsKey); jobs != nullptr && jobs->showRecord)
        jobs->showRecord(jobKey);
}

} // namespace tarnwell
