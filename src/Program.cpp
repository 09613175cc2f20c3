#include "Program.h"

#include "builders/frmBuilder.h"
#include "frame/Accessibility.h"
#include "frame/ChangeWatch.h"
#include "frame/MessagePresenter.h"
#include "frame/WaitNotice.h"
#include "frame/main/frmAbout.h"
#include "frame/main/frmBackups.h"
#include "frame/main/frmOptions.h"
#include "frame/main/frmSwitchboard.h"
#include "jobs/frmJobs.h"
#include "look/Icons.h"
#include "look/ProgramStyle.h"
#include "look/Theme.h"
#include "master/frmMasterCodes.h"
#include "master/frmMasterTasks.h"
#include "reports/generator/frmReportParameters.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/ExitBackup.h"
#include "runtime/Remembered.h"
#include "runtime/Version.h"
#include "timecard/frmEmployee.h"
#include "timecard/frmPayroll.h"

#include <exception>
#include <functional>
#include <utility>

namespace tarnwell {

namespace {

template <class Form>
void registerScreen(const char* key, Screen::Modality modality, std::function<void(qint64)> showRecord = {}) {
    frmSwitchboard::registerScreen(
        {QLatin1String(key), modality, []() -> Screen& { return theForm<Form>(); }, std::move(showRecord)});
}

/// Every screen that the main window can show.
void registerScreens() {
    registerScreen<frmBuilder>("frmBuilder", Screen::Modality::Modeless);
    registerScreen<frmJobs>("frmJobs", Screen::Modality::Modeless,
                            [](qint64 jobKey) { theForm<frmJobs>().ShowJob(jobKey); });
    registerScreen<frmMasterCodes>("frmMasterCodes", Screen::Modality::Modal);
    registerScreen<frmMasterTasks>("frmMasterTasks", Screen::Modality::Modal);
    registerScreen<frmEmployee>("frmEmployee", Screen::Modality::Modeless);
    registerScreen<frmReportParameters>("mnuReport", Screen::Modality::Modal);
    registerScreen<frmPayroll>("frmPayroll", Screen::Modality::Modeless);
    registerScreen<frmOptions>("mnuOptions", Screen::Modality::Modal);
    registerScreen<frmAbout>("mnuAbout", Screen::Modality::Modal);
    registerScreen<frmBackups>("frmBackups", Screen::Modality::Modal);
}

} // namespace

Program::Program(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("Tarnwell"));
    setApplicationVersion(
        QStringLiteral("%1.%2.%3").arg(versionMajor).arg(versionMinor).arg(versionRevision));
    setDesktopFileName(QStringLiteral("tarnwell"));
    setWindowIcon(programIcon());
    setStyle(new ProgramStyle);
    // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDeleteLeaks): the application has taken the style.
    setPalette(refinements(palette()));
    installPresenters();
    installAccessibility();
    registerScreens();
    // Nobody waits for the disk while the user is busy elsewhere.
    connect(this, &QGuiApplication::applicationStateChanged, this, guarded([](Qt::ApplicationState state) {
                if (state != Qt::ApplicationActive)
                    writeRemembered();
            }));
}

int Program::run() {
    runEvent([this] {
        auto& mainWindow = theForm<frmSwitchboard>();
        connect(&mainWindow, &QObject::destroyed, this, &QCoreApplication::quit);
        mainWindow.Show(Screen::Modality::Modeless, nullptr);
    });
    const ChangeWatch changes;
    WaitNotice waitNotice;
    DataEnvironment::setWaitWatcher(&waitNotice);
    const int exitCode = exec();
    writeRemembered();
    DataEnvironment::setWaitWatcher(nullptr);
    DataEnvironment::close();
    return exitCode;
}

bool Program::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception&) {
        runEvent([error = std::current_exception()] { std::rethrow_exception(error); });
        return true;
    }
}

int runProgram(int argc, char** argv) {
    int exitCode = 0;
    {
        Program program(argc, argv);
        exitCode = program.run();
    }
    // By now the desktop counts the program as ended.
    backUpAtExit();
    return exitCode;
}

} // namespace tarnwell
