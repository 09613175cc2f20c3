#include "frame/help/HelpWindow.h"

#include "frame/help/HelpKey.h"
#include "frame/help/HelpPages.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QDirIterator>
#include <QImage>
#include <QListWidget>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

const QString manual = QStringLiteral(TARNWELL_SOURCE_DIR "/docs/manual");

QString fileText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The forms by their headers, the reports by the names that their progress windows bear, and the windows
/// that are no form. The main window's page is the contents.
QStringList windowNames() {
    static const QRegularExpression report(R"re("(frmRpt\w+)")re");
    const QString source = TARNWELL_SOURCE_DIR "/src";
    QStringList names{"msgBox", "preview"};
    for (QDirIterator form(source, {"frm*.h"}, QDir::Files, QDirIterator::Subdirectories); form.hasNext();)
        names << QFileInfo(form.next()).completeBaseName();
    for (const QFileInfo& file : QDir(source + "/reports").entryInfoList({"*.cpp"}))
        for (auto found = report.globalMatch(fileText(file.filePath())); found.hasNext();)
            names << found.next().captured(1);
    names.removeAll("frmReport");
    names.removeAll("frmSwitchboard");
    return names;
}

HelpWindow* openHelp() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* help = qobject_cast<HelpWindow*>(window); help != nullptr && help->isVisible())
            return help;
    return nullptr;
}

QString shownPage() {
    const HelpWindow* help = openHelp();
    return help != nullptr ? help->findChild<QTextBrowser*>()->source().fileName() : QStringLiteral("none");
}

struct HelpWindowTest : ::testing::Test {
    HelpWindowTest() { HelpWindow::setFolder(manual); }
    ~HelpWindowTest() override { HelpWindow::closeOpen(); }

    HelpKey key;
};

} // namespace

TEST_F(HelpWindowTest, F1OpensThePageOfTheWindowElseTheContents) {
    for (const auto& [name, page] :
         {std::pair{"frmPayroll", "frmPayroll.md"}, std::pair{"msgBox", "msgBox.md"},
          std::pair{"frmSwitchboard", "contents.md"}, std::pair{"", "contents.md"}}) {
        QMainWindow window;
        window.setObjectName(name);
        const ScreenDriver driver(window);
        driver.press(Qt::Key_F1);
        EXPECT_EQ(shownPage(), page) << "from " << name;
    }
}

TEST_F(HelpWindowTest, ADialogWithoutAPageCountsAsTheFormThatOpenedIt) {
    QMainWindow form;
    form.setObjectName("frmReportParameters");
    form.show();
    QDialog dialog(&form);
    dialog.setObjectName("QPrintDialog");
    ScreenDriver(dialog).press(Qt::Key_F1);
    EXPECT_EQ(shownPage(), "frmReportParameters.md");
}

TEST_F(HelpWindowTest, SentKeyReachesTheWindowInFront) {
    QMainWindow window;
    window.setObjectName("frmFastSearch");
    const ScreenDriver driver(window);
    sendHelpKey();
    EXPECT_TRUE(waitFor([] { return shownPage() == "frmFastSearch.md"; }));
}

TEST_F(HelpWindowTest, CanBeUsedInFrontOfAModalWindow) {
    QDialog dialog;
    dialog.setModal(true);
    const ScreenDriver driver(dialog);
    driver.press(Qt::Key_F1);
    ASSERT_NE(openHelp(), nullptr);
    EXPECT_EQ(openHelp()->parentWidget(), &dialog);
    dialog.hide();
    ScreenDriver(*openHelp()).press(Qt::Key_F1);
    ASSERT_NE(openHelp(), nullptr);
    EXPECT_EQ(openHelp()->parentWidget(), nullptr);
}

TEST_F(HelpWindowTest, ListAndPageFollowEachOther) {
    HelpWindow::open("contents");
    auto* list = openHelp()->findChild<QListWidget*>("lstContents");
    list->setCurrentRow(4);
    ScreenDriver(*openHelp()).focus("lstContents");
    ScreenDriver(*openHelp()).press(Qt::Key_Down); // Past the heading of the first group.
    const QString chosen = shownPage();
    EXPECT_EQ(chosen, "frmPayroll.md");
    EXPECT_EQ(list->item(5)->text(), "Paying");
    openHelp()->findChild<QTextBrowser*>()->setSource(QUrl("keyboard.md"));
    EXPECT_EQ(list->currentItem()->text(), "Keyboard");
    ScreenDriver(*openHelp()).press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shownPage(), chosen);
    EXPECT_EQ(list->currentRow(), 6);
}

TEST_F(HelpWindowTest, SearchLeavesThePagesWithAllWordsAndMarksThem) {
    HelpWindow::open("frmFastSearch");
    const ScreenDriver help(*openHelp());
    auto& list = help.find<QListWidget>("lstContents");
    const auto left = [&list] {
        int lines = 0;
        for (int row = 0; row < list.count(); ++row)
            lines += list.item(row)->isHidden() ? 0 : 1;
        return lines;
    };
    help.press(Qt::Key_F, Qt::ControlModifier);
    help.type("DEPENDENT");
    EXPECT_TRUE(list.item(0)->isHidden()) << "the contents only list what others explain";
    help.type(" price");
    EXPECT_GT(left(), 0);
    EXPECT_LT(left(), list.count());
    const auto& page = help.find<QTextBrowser>("txtPage");
    EXPECT_TRUE(page.toPlainText().contains("dependent", Qt::CaseInsensitive))
        << "a page that holds them is shown";
    EXPECT_FALSE(page.extraSelections().isEmpty());
    help.type(" qqq");
    EXPECT_EQ(left(), 0);
    EXPECT_TRUE(help.find("lblNothing").isVisible());
    help.press(Qt::Key_Escape);
    EXPECT_EQ(left(), list.count());
    help.press(Qt::Key_Escape);
    EXPECT_EQ(openHelp(), nullptr);
}

TEST_F(HelpWindowTest, F1InAMessageLeadsToThatMessage) {
    QMessageBox box;
    box.setObjectName("msgBox");
    box.setText("Price entered is greater than task difference.\nContinue paying task?");
    ScreenDriver(box).press(Qt::Key_F1);
    EXPECT_EQ(shownPage(), "msgBox.md");
    const auto marks = openHelp()->findChild<QTextBrowser*>()->extraSelections();
    ASSERT_FALSE(marks.isEmpty());
    EXPECT_EQ(marks.front().cursor.selectedText(),
              "Price entered is greater than task difference. Continue paying task?");
}

TEST_F(HelpWindowTest, NoPageScrollsSideways) {
    HelpWindow::open("contents");
    auto* page = openHelp()->findChild<QTextBrowser*>();
    for (const int width : {620, 1100}) {
        openHelp()->resize(width, 500);
        for (const HelpPage& each : readHelpPages(manual)) {
            page->setSource(QUrl(each.name + ".md"));
            EXPECT_TRUE(waitFor([&] { return page->horizontalScrollBar()->maximum() == 0; }))
                << each.name.toStdString() << ' ' << width;
        }
    }
}

TEST_F(HelpWindowTest, APictureIsNoWiderThanThePage) {
    const QTemporaryDir folder;
    HelpWindow::setFolder(folder.path());
    QImage(3000, 30, QImage::Format_RGB32).save(folder.filePath("wide.png"));
    QFile file(folder.filePath("contents.md"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("# A picture\n\n![wide](wide.png)\n");
    file.close();
    HelpWindow::open("contents");
    const auto* page = openHelp()->findChild<QTextBrowser*>();
    for (const int width : {900, 500, 1200}) {
        openHelp()->resize(width, 400);
        EXPECT_TRUE(waitFor([&] { return page->document()->idealWidth() <= page->viewport()->width(); }))
            << width;
        EXPECT_GT(page->document()->idealWidth(), page->viewport()->width() / 2);
    }
}

TEST_F(HelpWindowTest, NoLinkLeadsOutOfTheHelp) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir("help"));
    HelpWindow::setFolder(folder.filePath("help"));
    for (const auto& [name, text] :
         {std::pair{"secret.md", "# Secret"}, std::pair{"help/inside.md", "# Inside"},
          std::pair{"help/contents.md", "[Out](../secret.md) [In](inside.md) [Linked](linked.md)"}}) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    ASSERT_TRUE(QFile::link(folder.filePath("secret.md"), folder.filePath("help/linked.md")));
    for (const HelpPage& page : readHelpPages(folder.filePath("help")))
        EXPECT_FALSE(page.text.contains("Secret")) << page.title.toStdString();
    HelpWindow::open("contents");
    auto* page = openHelp()->findChild<QTextBrowser*>();
    for (const char* target :
         {"../secret.md", "linked.md", "/etc/hostname", "file:///etc/hostname", "http://example.com/"}) {
        page->setSource(QUrl(target));
        EXPECT_EQ(shownPage(), "contents.md") << target;
    }
    page->setSource(QUrl("inside.md#part"));
    EXPECT_EQ(shownPage(), "inside.md");
}

TEST_F(HelpWindowTest, TellsWhereNoPagesWereFound) {
    HelpWindow::setFolder("/nowhere/help");
    const MessageScript script{Answer::Ok};
    HelpWindow::open("frmPayroll");
    ASSERT_EQ(script.shown().size(), 1U);
    EXPECT_TRUE(script.shown().front().text.contains("/nowhere/help"));
    EXPECT_EQ(openHelp(), nullptr);
}

TEST(Manual, EveryLinkLeadsToAPageAndEveryPageIsInTheContents) {
    static const QRegularExpression link(R"(\]\(([^)]+)\))");
    QStringList listed{"contents.md"};
    for (const QString& page : QDir(manual).entryList({"*.md"})) {
        for (auto links = link.globalMatch(fileText(manual + "/" + page)); links.hasNext();) {
            const QString target = links.next().captured(1);
            EXPECT_TRUE(QFile::exists(manual + "/" + target))
                << page.toStdString() << ": " << target.toStdString();
            if (page == "contents.md")
                listed << target;
        }
    }
    listed.sort();
    EXPECT_EQ(QDir(manual).entryList({"*.md"}, QDir::Files, QDir::Name), listed);
}

TEST(Manual, EveryListedMessageIsOneOfTheProgramsAndIsFoundByIt) {
    QString source;
    for (QDirIterator file(TARNWELL_SOURCE_DIR "/src", {"*.cpp"}, QDir::Files, QDirIterator::Subdirectories);
         file.hasNext();)
        source += fileText(file.next());
    static const QRegularExpression brokenLiteral(R"re("\s*")re");
    static const QRegularExpression number(R"( \(-?\d+\)$)");
    source = source.remove(brokenLiteral).replace("\\n", " ").simplified();
    const QString page = fileText(manual + "/msgBox.md");
    const QStringList messages = listedMessages(page);
    EXPECT_GT(messages.size(), 40);
    for (const QString& listed : messages) {
        const QString text = QString(listed).remove(number);
        for (const QString& part : text.split("...", Qt::SkipEmptyParts))
            EXPECT_TRUE(source.contains(part.trimmed())) << listed.toStdString();
        EXPECT_EQ(listedMessage(page, "Error # 1\n" + QString(text).replace("...", "\"x\"") + " More."),
                  listed);
    }
    EXPECT_EQ(listedMessage(page, "Nobody says this."), "");
}

TEST(Manual, EveryWindowHasItsPageWithItsPicture) {
    for (const QString& window : windowNames()) {
        const QString page = manual + "/" + window + ".md";
        ASSERT_TRUE(QFile::exists(page)) << page.toStdString();
        EXPECT_TRUE(fileText(page).contains("](pictures/" + window + ".png)")) << page.toStdString();
    }
    EXPECT_TRUE(QFile::exists(manual + "/helpWindow.md"));
}

TEST(Manual, EveryPictureIsOnAPageAndSmall) {
    constexpr qint64 mostBytes = 60'000;
    QString pages;
    for (const QString& page : QDir(manual).entryList({"*.md"}))
        pages += fileText(manual + "/" + page);
    const QFileInfoList pictures = QDir(manual + "/pictures").entryInfoList(QDir::Files);
    EXPECT_FALSE(pictures.isEmpty());
    for (const QFileInfo& picture : pictures) {
        EXPECT_TRUE(pages.contains("](pictures/" + picture.fileName() + ")"))
            << picture.fileName().toStdString();
        EXPECT_LT(picture.size(), mostBytes) << picture.fileName().toStdString();
    }
}

} // namespace tarnwell::test
