#include "DatabaseTool.h"
#include "Program.h"
#include "look/Theme.h"
#include "runtime/RunTime.h"
#include "runtime/StartUp.h"
#include "runtime/modGlobalVariables.h"
#include "runtime/modRegistry.h"
#include "sample/SampleScale.h"
#include "tour/Chapters.h"
#include "tour/MemoryWatch.h"
#include "tour/WindowKeeper.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <memory>
#include <span>

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

/// The toolkit's screen in memory, at the size of a small desktop; `scale` dots to each of its points.
void standInForDesktop(const QDir& folder, int scale) {
    const QString path = folder.filePath(QStringLiteral("screen.json"));
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(QStringLiteral(R"({"screens": [{"name": "tour", "x": 0, "y": 0, "width": %1, "height": %2,
                                  "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                       .arg(1280 * scale)
                       .arg(800 * scale)
                       .toUtf8());
    qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
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
    int rounds = 1; ///< How often all of them; from 2 on the memory is watched.
};

constexpr int roundsBetweenNotes = 25;
/// Kilobytes a round: more shows that each round keeps something of its own. A thousand rounds grow by 0.6.
constexpr double mostGrowth = 3;

/// All chapters once; each named in the first round.
void walkRound(tour::Driver& driver, std::span<const tour::Chapter> chapters, int round) {
    for (const tour::Chapter& chapter : chapters) {
        if (round == 1)
            say(QString::fromLatin1(chapter.title));
        driver.seeWindow(QStringLiteral("frmSwitchboard"));
        chapter.run(driver);
    }
    driver.seeWindow(QStringLiteral("frmSwitchboard"));
}

void walkRounds(tour::Driver& driver, const Course& course) {
    tour::MemoryWatch memory;
    for (int round = 1; round <= course.rounds; ++round) {
        walkRound(driver, course.chapters, round);
        const QString inUse = memory.note(round);
        if (course.rounds > 1 && (round % roundsBetweenNotes == 0 || round == 1))
            say(inUse);
    }
    if (memory.growthPerRound() > mostGrowth)
        throw tour::StepFailed(QStringLiteral("the memory in use grows by %1 kB a round")
                                   .arg(memory.growthPerRound(), 0, 'f', 1));
}

/// The script, beside the program. True when every step showed what it should.
bool walk(const Course& course, const tour::WindowKeeper& windows) {
    tour::Driver driver(windows, course.folder.path(),
                        course.workplace.filePath(QStringLiteral("Tarnwell.mdb")));
    try {
        walkRounds(driver, course);
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

/// The colours of a dark desktop.
void darken() {
    QPalette dark(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    const QColor text(0xfc, 0xfc, 0xfc);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            dark.setColor(group, role, text);
    dark.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    dark.setColor(QPalette::AlternateBase, QColor(0x23, 0x26, 0x29));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    QApplication::setPalette(refinements(dark).resolve(dark));
}

struct Look {
    bool isDark = false;
    int scale = 1;
    int points = 0; ///< Size of the desktop's text; 0 for its own.
};

void enlargeText(int points) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
}

int takePictures(const QDir& folder, const Look& look, int& argc, char** argv) {
    const QTemporaryDir place;
    const QString data = QStringLiteral("data");
    if (!place.isValid() || !QDir(place.path()).mkpath(data) || !QDir::setCurrent(place.path())) {
        say(QStringLiteral("No folder can be made for the sample: ") + place.errorString());
        return 1;
    }
    standInForDesktop(place.path(), look.scale);
    Program program(argc, argv);
    if (look.isDark)
        darken();
    if (look.points > 0)
        enlargeText(look.points);
    standStill();
    return follow({.folder = folder, .workplace = QDir(data), .chapters = tour::pictureChapters()}, program);
}

/// The tour, or with more than one round the work of a long day.
int takeTour(const QDir& folder, int rounds, int& argc, char** argv) {
    if (needsDesktop())
        standInForDesktop(folder, 1);
    Program program(argc, argv);
    return follow({.folder = folder,
                   .workplace = folder,
                   .chapters = rounds > 1 ? tour::soakChapters() : tour::chapters(),
                   .rounds = rounds},
                  program);
}

/// The toolkit's screen in memory has no order of windows and no size hints, and says so each time.
void silenceScreenInMemory() {
    static QtMessageHandler usual = nullptr;
    usual = qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& where, const QString& text) {
        if (!text.startsWith(QLatin1String("This plugin does not support ")))
            usual(type, where, text);
    });
}

} // namespace

/// tarnwell-tour FOLDER: walks through the whole program on a fresh sample by keys and clicks and leaves
/// pictures and PDFs in the folder. With --pictures: the pictures of the manual; they may be made as they are
/// on a dark desktop, on one of twice the dots, or with a text of so many points. With --soak: many rounds of
/// mixed work, which fail when the memory in use goes on growing. Exit code 0 when everything showed what it
/// should.
int main(int argc, char** argv) {
    QCommandLineParser line;
    const QCommandLineOption pictures(QStringLiteral("pictures"));
    const QCommandLineOption dark(QStringLiteral("dark"));
    const QCommandLineOption doubled(QStringLiteral("double"));
    const QCommandLineOption points(QStringLiteral("points"), {}, QStringLiteral("size"),
                                    QStringLiteral("0"));
    const QCommandLineOption soak(QStringLiteral("soak"), {}, QStringLiteral("rounds"), QStringLiteral("1"));
    line.addOptions({pictures, dark, doubled, points, soak});
    QStringList arguments;
    for (const char* argument : std::span(argv, static_cast<std::size_t>(argc)))
        arguments << QString::fromLocal8Bit(argument);
    if (!line.parse(arguments) || line.positionalArguments().size() != 1 ||
        (!line.isSet(pictures) && (line.isSet(dark) || line.isSet(doubled) || line.isSet(points))) ||
        (line.isSet(soak) && (line.isSet(pictures) || line.value(soak).toInt() < 2))) {
        say(QStringLiteral("usage: tarnwell-tour [--pictures [--dark] [--double] [--points SIZE] | "
                           "--soak ROUNDS] FOLDER"));
        return 2;
    }
    const QDir folder(QDir(line.positionalArguments().constFirst()).absolutePath());
    if (!folder.mkpath(QStringLiteral("."))) {
        say(QStringLiteral("The folder can't be made: ") + folder.path());
        return 1;
    }
    silenceScreenInMemory();
    const Look look{.isDark = line.isSet(dark),
                    .scale = line.isSet(doubled) ? 2 : 1,
                    .points = line.value(points).toInt()};
    return line.isSet(pictures) ? takePictures(folder, look, argc, argv)
                                : takeTour(folder, line.value(soak).toInt(), argc, argv);
}
