#include "DatabaseTool.h"
#include "Program.h"
#include "SampleScale.h"
#include "frame/RunTime.h"
#include "frame/StartUp.h"
#include "frame/modGlobalVariables.h"
#include "frame/modRegistry.h"
#include "tour/Chapters.h"
#include "tour/WindowKeeper.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <memory>
#include <span>
#include <string_view>

namespace {

using namespace tarnwell;

void say(const QString& text) {
    QTextStream(stdout) << "== " << text << Qt::endl;
}

void store(const char* name, const QString& value) {
    WriteRegistryValue(RegistryRoot::LocalMachine, gRegistryKey, QString::fromLatin1(name),
                       RegistryType::Text, value);
}

bool needsDesktop() {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        if (!qEnvironmentVariableIsEmpty(name))
            return false;
    return true;
}

/// The toolkit's screen in memory, at the size of a small desktop.
void standInForDesktop(const QDir& folder) {
    const QString path = folder.filePath(QStringLiteral("screen.json"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": 1280, "height": 800,
                      "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(path));
}

/// A fresh sample and settings of the tour's own: the user's stay as they are.
bool prepare(const QDir& folder) {
    const QString database = folder.filePath(QStringLiteral("Tarnwell.mdb"));
    QTextStream out(stdout);
    QTextStream err(stderr);
    const QStringList arguments{
        QStringLiteral("tarnwell-db"), QStringLiteral("sample"), database,
        QStringLiteral("--scale"),     QStringLiteral("small"),  QStringLiteral("--overwrite")};
    if (tool::runTool(arguments, {out, err}) != 0)
        return false;
    QFile::remove(folder.filePath(QStringLiteral("settings.json")));
    setSettingsFile(folder.filePath(QStringLiteral("settings.json")));
    ReadSettings(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
    store("DataSource", QDir::toNativeSeparators(database));
    store("ReportDataPath", QDir::toNativeSeparators(folder.filePath(QStringLiteral("Report.mdb"))));
    store("LogPath", QDir::toNativeSeparators(folder.path() + u'/'));
    return true;
}

/// What the program is led through, and where it leaves what it saw.
struct Course {
    QDir folder;    ///< For pictures and PDFs.
    QDir workplace; ///< For the sample and its settings.
    std::span<const tour::Chapter> chapters;
};

/// The script, beside the program. True when every step showed what it should.
bool walk(const Course& course, const tour::WindowKeeper& windows) {
    tour::Driver driver(windows, course.folder.path(),
                        course.workplace.filePath(QStringLiteral("Tarnwell.mdb")));
    try {
        for (const tour::Chapter& chapter : course.chapters) {
            say(QString::fromLatin1(chapter.title));
            driver.seeWindow(QStringLiteral("frmSwitchboard"));
            chapter.run(driver);
        }
        driver.seeWindow(QStringLiteral("frmSwitchboard"));
        driver.press(QKeySequence(QStringLiteral("Alt+X")));
        return true;
    } catch (const std::exception& error) {
        say(QStringLiteral("FAILED: ") + QString::fromUtf8(error.what()));
        try {
            driver.picture(QStringLiteral("failed"));
        } catch (const std::exception& second) {
            say(QString::fromUtf8(second.what()));
        }
        return false;
    }
}

/// The same pictures on every machine and day: no path of it, no time of its, no blinking.
void standStill() {
    setClock([] { return DateTime{.date = sample::baseDate.addDays(1), .time = QTime(9, 0)}; });
    QLocale::setDefault(QLocale::c());
    QApplication::setCursorFlashTime(0);
}

/// The exit code.
int follow(const Course& course, Program& program) {
    if (!prepare(course.workplace))
        return 1;
    const tour::WindowKeeper windows(QGuiApplication::platformName() == QStringLiteral("offscreen"), nullptr);
    bool passed = false;
    const std::unique_ptr<QThread> script(QThread::create([&] {
        passed = walk(course, windows);
        if (!passed)
            QMetaObject::invokeMethod(
                &program, [] { std::_Exit(1); }, Qt::QueuedConnection);
    }));
    QTimer::singleShot(0, &program, [&script] { script->start(); });
    program.run();
    script->wait();
    say(QStringLiteral("Everything showed what it should. It is in: ") +
        QDir::toNativeSeparators(course.folder.path()));
    return passed ? 0 : 1;
}

int takePictures(const QDir& folder, int& argc, char** argv) {
    const QTemporaryDir place;
    const QString data = QStringLiteral("data");
    if (!place.isValid() || !QDir(place.path()).mkpath(data) || !QDir::setCurrent(place.path())) {
        say(QStringLiteral("No folder can be made for the sample: ") + place.errorString());
        return 1;
    }
    standInForDesktop(place.path());
    Program program(argc, argv);
    standStill();
    return follow({.folder = folder, .workplace = QDir(data), .chapters = tour::pictureChapters()}, program);
}

int takeTour(const QDir& folder, int& argc, char** argv) {
    if (needsDesktop())
        standInForDesktop(folder);
    Program program(argc, argv);
    return follow({.folder = folder, .workplace = folder, .chapters = tour::chapters()}, program);
}

} // namespace

/// tarnwell-tour FOLDER: walks through the whole program on a fresh sample by keys and clicks and leaves
/// pictures and PDFs in the folder. With --pictures before it: the pictures of the manual. Exit code 0 when
/// everything showed what it should.
int main(int argc, char** argv) {
    const bool pictures = argc == 3 && std::string_view(argv[1]) == "--pictures";
    if (argc != 2 && !pictures) {
        say(QStringLiteral("usage: tarnwell-tour [--pictures] FOLDER"));
        return 2;
    }
    const QDir folder(QDir(QString::fromLocal8Bit(argv[argc - 1])).absolutePath());
    if (!folder.mkpath(QStringLiteral("."))) {
        say(QStringLiteral("The folder can't be made: ") + folder.path());
        return 1;
    }
    return pictures ? takePictures(folder, argc, argv) : takeTour(folder, argc, argv);
}
