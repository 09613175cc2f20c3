#include "support/TestProgram.h"

#include <QApplication>

int main(int argc, char** argv) {
    tarnwell::test::beginTests(argc, argv);
    // Also where a test program only tells its tests, no display is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
