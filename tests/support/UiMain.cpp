#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    // Also where a test program only tells its tests, no display is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
