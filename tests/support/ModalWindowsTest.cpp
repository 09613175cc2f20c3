#include "frame/Screen.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"

#include <QDialog>
#include <QMessageBox>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

void showDialog() {
    QDialog dialog;
    dialog.setWindowTitle("Left alone");
    dialog.exec();
}

void leaveOpen(QWidget& /*window*/) {}

void missTheControl(QWidget& window) {
    (void)ScreenDriver(window).find("nowhere");
}

void openAnother(QWidget& /*window*/) {
    showDialog();
}

} // namespace

// Each of these waited for its time limit, and said nothing of what was wrong.
TEST(ModalWindows, ABrokenExpectationFailsAtOnce) {
    EXPECT_NONFATAL_FAILURE(showDialog(), "Left alone");
    whenModal(leaveOpen);
    EXPECT_NONFATAL_FAILURE(showDialog(), "Left alone");
    whenModal(missTheControl);
    EXPECT_NONFATAL_FAILURE(showDialog(), "no control named nowhere");
}

TEST(ModalWindows, AWindowBehindTheOneThatIsDrivenFailsToo) {
    testing::TestPartResultArray failures;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(&failures);
        whenModal(openAnother);
        showDialog();
    }
    ASSERT_GE(failures.size(), 1);
    EXPECT_NE(std::string(failures.GetTestPartResult(0).message()).find("Left alone"), std::string::npos);
}

TEST(MessageScript, AQuestionThatIsAskedForEverEndsTheTest) {
    testing::TestPartResultArray failures;
    bool isEnded = false;
    {
        const testing::ScopedFakeTestPartResultReporter reporter(&failures);
        const MessageScript script;
        try {
            while (MsgBox({.text = "Again?", .title = "Endless", .buttons = MessageButtons::YesNo}) ==
                   Answer::Yes)
                continue;
        } catch (const std::runtime_error&) {
            isEnded = true;
        }
    }
    EXPECT_TRUE(isEnded);
}
