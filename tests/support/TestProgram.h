#pragma once

#include <QStandardPaths>

#include <gtest/gtest.h>

namespace tarnwell::test {

/// What every test program does before anything else.
inline void beginTests(int& argc, char** argv) {
    // The child of a death test starts the program anew: one that was forked beside Qt's threads may hang.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    ::testing::InitGoogleTest(&argc, argv);
    QStandardPaths::setTestModeEnabled(true);
}

} // namespace tarnwell::test
