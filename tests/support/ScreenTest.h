#pragma once

#include "support/TemporaryDatabase.h"

#include <gtest/gtest.h>

namespace tarnwell::test {

/// A test of screens on a database of its own. After it no form is loaded and the database is closed.
class ScreenTest : public ::testing::Test {
protected:
    /// The screens work on this database from here on; the error log lies beside it.
    static void workOn(const TemporaryDatabase& database);
    void TearDown() override;
};

} // namespace tarnwell::test
