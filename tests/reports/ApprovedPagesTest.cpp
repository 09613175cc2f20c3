#include "reports/ApprovedPages.h"

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

TEST(ApprovedPages, EachItemIsALine) {
    RecordedPages pages;
    qint16 y = 300;
    const qint64 report = pages.NewReport();
    pages.AddText(report, y, 500, "Job: 1001", 1, Orientation::Landscape, {.Bold = true, .FontSize = 8});
    pages.AddText(report, y, 13600, "Page:2 of", 2, Orientation::Portrait,
                  {.FontName = "Arial", .PageTotal = true, .Flag2 = true});
    pages.AddLine(report, {500, 600, 14800, 600, 2, Orientation::Portrait, 3});
    EXPECT_EQ(pages.lines(), (QStringList{"1 landscape 500,300       bold 8    \"Job: 1001\"",
                                          "2 portrait 13600,540     10 Arial  \"Page:2 of\" + total flag 2",
                                          "2 portrait 500,600     - 14800,600 width 3"}));
    EXPECT_EQ(pages.texts(2), QStringList{"Page:2 of"});
    EXPECT_EQ(pages.pageCount(), 2);
}
