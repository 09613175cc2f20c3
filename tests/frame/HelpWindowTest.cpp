#include "frame/HelpWindow.h"

#include "frame/HelpKey.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QListWidget>
#include <QRegularExpression>
#include <QTest>
#include <QTextBrowser>

#include <gtest/gtest.h>

namespace tarnwell::test {

namespace {

const QString manual = QStringLiteral(TARNWELL_SOURCE_DIR "/docs/manual");

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
    list->setCurrentRow(3);
    const QString chosen = shownPage();
    EXPECT_EQ(chosen, list->item(3)->data(Qt::UserRole).toString() + ".md");
    openHelp()->findChild<QTextBrowser*>()->setSource(QUrl("keyboard.md"));
    EXPECT_EQ(list->currentItem()->text(), "Keyboard");
    ScreenDriver(*openHelp()).press(Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(shownPage(), chosen);
    EXPECT_EQ(list->currentRow(), 3);
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
        QFile file(manual + "/" + page);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        for (auto links = link.globalMatch(QString::fromUtf8(file.readAll())); links.hasNext();) {
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

} // namespace tarnwell::test
