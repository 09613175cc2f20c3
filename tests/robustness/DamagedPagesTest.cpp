#include "builders/frmBuilder.h"
#include "jobs/LotData.h"
#include "jobs/frmJobs.h"
#include "runtime/EventGuard.h"
#include "runtime/modGlobalVariables.h"
#include "support/DrivenScreen.h"
#include "support/ModalWindows.h"
#include "support/TestProgram.h"
#include "timecard/frmPayroll.h"

#include <QApplication>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

// Every page of a small database is damaged, one after the other. Whatever a screen reads from it, the
// program goes on or ends with its message.

namespace tarnwell::test {

namespace {

constexpr int goesOn = 0, endsWithItsMessage = 40, failsInTheWalk = 41;
constexpr unsigned longestWalkSeconds = 20;

/// A job and a plan whose tasks fill several pages.
QByteArray sampleFile() {
    LotData data;
    const qint64 lotB = data.addLot("B");
    for (int i = 0; i < 120; ++i) {
        const QString name = QStringLiteral("A task with a long name, number %1").arg(i);
        data.addTask(name, i % 2 == 0 ? data.lot : lotB);
        data.addPlanTask(name.toLatin1(), data.plan, data.walls, data.framing, i);
    }
    data.db.connection().Close();
    QFile file(data.db.path());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

/// A leaf of a table or an index without a cell.
bool isEmpty(const QByteArray& page) {
    constexpr char indexLeaf = 10, tableLeaf = 13;
    return (page[0] == indexLeaf || page[0] == tableLeaf) && page[3] == 0 && page[4] == 0;
}

/// A message handles events, and they draw what stands behind it.
Answer showOverTheScreens(const MessageRequest& request) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible())
            window->grab();
    QApplication::processEvents();
    if (request.text.contains("Internal error"))
        std::_Exit(failsInTheWalk);
    if (request.text.startsWith("Run-time error"))
        std::_Exit(endsWithItsMessage);
    return defaultAnswer(request);
}

/// A step of the user. Its error is shown as a handler shows it, and the walk goes on.
void step(const std::function<void()>& routine) {
    try {
        routine();
    } catch (const RunTimeError& error) {
        MsgBox({.text = error.description(), .title = {}});
    }
}

void walkLists(const ScreenDriver& screen, const QString& master, const QString& detail) {
    auto& category = screen.find<Combo>("cmbType");
    for (int i = 0; i < category.ListCount(); ++i)
        step([&] { category.setListIndex(i); });
    for (const QString& name : {master, detail}) {
        auto& grid = screen.find<Grid>(name);
        for (int row = 1; row <= grid.RowCount(); row += 20)
            step([&] { grid.setRow(row); });
    }
}

void findByTyping(const ScreenDriver& screen, const QString& text) {
    whenShown([text](const ScreenDriver& search) {
        if (text.startsWith("J"))
            search.click("optSearch(0)");
        search.focus("MskField(0)");
        search.type(text);
        search.press(Qt::Key_Return);
    });
    screen.clickToolbar("Find");
}

void walkAllScreens() {
    {
        const ScreenDriver screen(theForm<frmJobs>());
        findByTyping(screen, "J-1");
        walkLists(screen, "jgJobLots", "jgTasks");
        step([] { theForm<frmJobs>().Unload(); });
    }
    {
        const ScreenDriver screen(theForm<frmBuilder>());
        findByTyping(screen, "Abel");
        walkLists(screen, "jgPlans", "jgTasks");
        step([] { theForm<frmBuilder>().Unload(); });
    }
    const ScreenDriver screen(theForm<frmPayroll>());
    screen.retype("MskField(2)", "J-1");
    walkLists(screen, "jgJobLots", "jgTasks");
}

[[noreturn]] void walkInThisProcess(const QString& path) {
    ::alarm(longestWalkSeconds);
    int count = 1;
    char name[] = "walk";
    char* arguments[] = {name, nullptr};
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QApplication application(count, arguments);
    watchModalWindows();
    gAppPath = QFileInfo(path).path();
    gProgramFolder = gAppPath + u'/';
    gConnectionString = connectionStringFor(path);
    setMessagePresenter(showOverTheScreens);
    runEvent(walkAllScreens);
    std::_Exit(goesOn);
}

/// How the process ended that took the walk: what it returned, or the signal below 0.
int endOfWalkOver(const QString& path) {
    const pid_t child = ::fork();
    if (child == 0)
        walkInThisProcess(path);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

} // namespace

TEST(DamagedPages, NoScreenCrashesOverThem) {
    const QByteArray file = sampleFile();
    const int pageSize = static_cast<unsigned char>(file[16]) * 256 + static_cast<unsigned char>(file[17]);
    ASSERT_GT(pageSize, 0);
    const qsizetype pages = file.size() / pageSize;
    int ended = 0;
    for (qsizetype page = -1; page < pages; ++page) { // the sound file first
        QByteArray damaged = file;
        if (page >= 0 && isEmpty(file.mid(page * pageSize, pageSize)))
            continue;
        if (page >= 0)
            damaged.replace(page * pageSize, pageSize, QByteArray(pageSize, '\x5A'));
        const QTemporaryDir folder;
        const QString path = folder.filePath("Tarnwell.mdb");
        QFile copy(path);
        ASSERT_TRUE(copy.open(QIODevice::WriteOnly) && copy.write(damaged) == damaged.size());
        copy.close();
        const int end = endOfWalkOver(path);
        EXPECT_TRUE(end == goesOn || (page >= 0 && end == endsWithItsMessage))
            << "page " << page << ": " << end;
        ended += end == endsWithItsMessage ? 1 : 0;
    }
    EXPECT_GT(ended, 0) << "no page was read";
}

} // namespace tarnwell::test

int main(int argc, char** argv) {
    tarnwell::test::beginTests(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return RUN_ALL_TESTS();
}
