#include "builders/frmBuilder.h"
#include "frame/DataEnvironment.h"
#include "frame/EventGuard.h"
#include "frame/HelpKey.h"
#include "frame/Icons.h"
#include "frame/MessagePresenter.h"
#include "frame/Theme.h"
#include "frame/Version.h"
#include "frame/frmAbout.h"
#include "frame/frmOptions.h"
#include "frame/frmSwitchboard.h"
#include "master/frmMasterCodes.h"
#include "master/frmMasterTasks.h"
#include "timecard/frmEmployee.h"
#include "timecard/frmPayroll.h"
#include "timecard/frmTaskNotes.h"

#include <QApplication>

#include <exception>

namespace {

using namespace tarnwell;

/// The last net: an error that no slot caught still reaches the outer handler and not the toolkit.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (const std::exception&) {
            runEvent([error = std::current_exception()] { std::rethrow_exception(error); });
            return true;
        }
    }
};

template <class Form>
void registerScreen(const char* key, Screen::Modality modality) {
    frmSwitchboard::registerScreen(
        {QLatin1String(key), modality, []() -> Screen& { return theForm<Form>(); }});
}

/// Every screen that the main window can show.
void registerScreens() {
    registerScreen<frmBuilder>("frmBuilder", Screen::Modality::Modeless);
    registerScreen<frmMasterCodes>("frmMasterCodes", Screen::Modality::Modal);
    registerScreen<frmMasterTasks>("frmMasterTasks", Screen::Modality::Modal);
    registerScreen<frmEmployee>("frmEmployee", Screen::Modality::Modeless);
    registerScreen<frmPayroll>("frmPayroll", Screen::Modality::Modeless);
    registerScreen<frmOptions>("mnuOptions", Screen::Modality::Modal);
    registerScreen<frmAbout>("mnuAbout", Screen::Modality::Modal);
    frmPayroll::setTaskNotes(
        [](frmPayroll& caller) { theForm<frmTaskNotes>().Show(Screen::Modality::Modal, &caller); });
}

void dress(QApplication& application) {
    QApplication::setApplicationName(QStringLiteral("Tarnwell"));
    QApplication::setApplicationVersion(
        QStringLiteral("%1.%2.%3").arg(versionMajor).arg(versionMinor).arg(versionRevision));
    QGuiApplication::setDesktopFileName(QStringLiteral("tarnwell"));
    QApplication::setWindowIcon(programIcon());
    QApplication::setPalette(refinements(QApplication::palette()));
    installPresenters();
    new HelpKey(&application);
}

} // namespace

int main(int argc, char** argv) {
    Application application(argc, argv);
    dress(application);
    registerScreens();
    runEvent([&] {
        auto& mainWindow = theForm<frmSwitchboard>();
        QObject::connect(&mainWindow, &QObject::destroyed, &application, &QCoreApplication::quit);
        mainWindow.Show(Screen::Modality::Modeless, nullptr);
    });
    const int exitCode = QApplication::exec();
    DataEnvironment::close();
    return exitCode;
}
