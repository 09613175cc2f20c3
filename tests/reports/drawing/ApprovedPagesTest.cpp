#include "reports/drawing/ApprovedPages.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

void expectMissing() {
    expectApproved(RecordedPages(), QStringLiteral("no-such-pages"));
}

} // namespace

// A harness that wrote what it misses would approve anything.
TEST(ApprovedPages, AMissingFileFails) {
    const QByteArray approving = qgetenv("TARNWELL_APPROVE");
    qunsetenv("TARNWELL_APPROVE");
    EXPECT_FATAL_FAILURE(expectMissing(), "no approved pages");
    if (!approving.isNull())
        qputenv("TARNWELL_APPROVE", approving);
}

TEST(ApprovedPages, TheDifferenceShowsWhatChangedAndWhere) {
    const QStringList approved{"a", "b", "c", "d"};
    EXPECT_EQ(lineDifference(approved, approved), QString());
    EXPECT_EQ(lineDifference(approved, {"a", "x", "c", "d"}), "line 2:\n  a\n- b\n+ x\n  c");
    EXPECT_EQ(lineDifference(approved, {"a", "b", "b", "c", "d"}), "line 3:\n  b\n+ b\n  c");
    EXPECT_EQ(lineDifference(approved, {"a", "b"}), "line 3:\n  b\n- c\n- d");
}
