#include "Program.h"
#include "data/file/DatabaseFile.h"
#include "jobs/LotData.h"
#include "runtime/modRegistry.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

// The whole program in a process of its own, from its start to what it does behind its last window.

namespace tarnwell::test {

namespace {

constexpr unsigned longestRunSeconds = 60;

/// What happens to the copy behind the last window.
enum class Copy { IsMade, IsKilled, IsRefused };

/// What the child must know in routines that take no argument.
struct Run {
    QString folder;
    Copy copy = Copy::IsMade;
};
Run& run() {
    static Run known;
    return known;
}

/// Answers a message and keeps its text; then leaves the main window by its key.
void drive() {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
        QFile shown(run().folder + "/shown");
        if (shown.open(QIODevice::Append))
            shown.write(box->text().toUtf8());
        QTest::keyClick(box, Qt::Key_Return);
    } else if (QWidget* window = QApplication::activeWindow(); window != nullptr) {
        QTest::keyClick(window, Qt::Key_X, Qt::AltModifier);
    } else { // No desktop stands behind the message and activates what is left.
        for (QWidget* left : QApplication::topLevelWidgets())
            if (left->isVisible())
                left->activateWindow();
    }
}

void beginDriving() {
    auto* timer = new QTimer(QCoreApplication::instance());
    QObject::connect(timer, &QTimer::timeout, drive);
    timer->start(1);
}

/// From half of the copy on the system ends the process, or refuses to write as a full disk does.
void limitFiles() {
    const rlimit noDump{0, 0};
    const rlimit half{65'536, 65'536};
    if (run().copy == Copy::IsMade)
        return;
    ::setrlimit(RLIMIT_CORE, &noDump);
    ::setrlimit(RLIMIT_FSIZE, &half);
    if (run().copy == Copy::IsRefused)
        ::signal(SIGXFSZ, SIG_IGN);
}

[[noreturn]] void runInThisProcess() {
    ::alarm(longestRunSeconds);
    char name[] = "tarnwell";
    char* arguments[] = {name, nullptr};
    setSettingsFile(run().folder + "/settings.json");
    qAddPreRoutine(beginDriving);
    qAddPostRoutine(limitFiles);
    std::_Exit(runProgram(1, arguments));
}

/// How the program ended: its exit code, or the signal below 0.
int endOfProgram(const QString& folder, Copy copy) {
    const pid_t child = ::fork();
    if (child == 0) {
        run() = {folder, copy};
        runInThisProcess();
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

TEST(ProgramEnd, LeavesOneSoundBackupOfADayAndReportsWhatFailedBefore) {
    LotData data;
    data.db.connection().Close();
    const QString folder = data.db.folder();
    const QString key = "Software\\Brenmoor\\Tarnwell";
    setSettingsFile(folder + "/settings.json");
    for (const auto& [name, value] : {std::pair<const char*, QString>{"Provider", fileProvider.toString()},
                                      {"DataSource", data.db.path()}})
        WriteRegistryValue(RegistryRoot::LocalMachine, key, name, RegistryType::Text, value);
    setSettingsFile({});
    const auto files = [&](const QString& pattern) {
        return QDir(folder + "/backups").entryList({pattern}, QDir::Files);
    };
    EXPECT_EQ(endOfProgram(folder, Copy::IsKilled), -SIGXFSZ);
    EXPECT_TRUE(files("*.mdb").isEmpty());
    EXPECT_FALSE(files("new-*.tmp").isEmpty()) << "it was killed before it began";
    EXPECT_EQ(endOfProgram(folder, Copy::IsRefused), 0);
    EXPECT_TRUE(files("*").isEmpty());
    EXPECT_EQ(endOfProgram(folder, Copy::IsMade), 0);
    EXPECT_EQ(endOfProgram(folder, Copy::IsMade), 0);
    ASSERT_EQ(files("*").size(), 1);
    EXPECT_TRUE(files("*").front().startsWith("daily-Tarnwell-"));
    EXPECT_TRUE(integrityProblems(folder + "/backups/" + files("*").front()).isEmpty());
    QFile shown(folder + "/shown");
    ASSERT_TRUE(shown.open(QIODevice::ReadOnly));
    const QByteArray text = shown.readAll();
    EXPECT_EQ(text.count("was cut short"), 1) << text.constData();
    EXPECT_EQ(text.count("could not be made"), 1) << text.constData();
}

} // namespace tarnwell::test
