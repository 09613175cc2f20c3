#include "support/ModalWindows.h"
#include "support/TestProgram.h"

#include <QApplication>

int main(int argc, char** argv) {
    tarnwell::test::beginTests(argc, argv);
    // Also where a test program only lists its tests, no display is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // No printing system, whatever the machine has: no test may print, and the library asks only once.
    qputenv("CUPS_SERVER", "/nowhere");
    const QApplication application(argc, argv);
    // Letters that are typed one behind the other belong together, however loaded the machine is.
    QApplication::setKeyboardInputInterval(60'000);
    tarnwell::test::watchModalWindows();
    return RUN_ALL_TESTS();
}
