#include "support/TestProgram.h"

#include <QCoreApplication>

int main(int argc, char** argv) {
    tarnwell::test::beginTests(argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
