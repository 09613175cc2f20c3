#include "reports/drawing/RunReport.h"

#include "reports/drawing/ReportTest.h"
#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"

#include <QFile>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

/// One line for each job, a page each; an error at the job whose name is "Broken".
void drawJobs(ReportRun& run) {
    run.watcher.setMax(run.rsReport.RecordCount());
    for (qint64 page = 1; !run.rsReport.atEnd() && !run.watcher.CancelRequested(); ++page) {
        qint16 y = 0;
        run.surface.AddText(run.reportKey, y, 0, run.rsReport["JobNumber"].toText(), page,
                            Orientation::Portrait);
        if (run.rsReport["Name"] == Value("Broken"))
            raise(Failure::InvalidUseOfNull);
        run.watcher.stepOne();
        run.rsReport.MoveNext();
        run.watcher.DoEvents();
    }
}

QString jobQuery(const ReportParameters& parameters) {
    return "SELECT * FROM Job WHERE Foreman='" + parameters.foreman + "' ORDER BY JobNumber";
}

const Report jobReport{"frmRptJobs", "Jobs", jobQuery, drawJobs};

class RunReportTest : public ReportTest {
protected:
    void SetUp() override {
        gProgramFolder = data.database().folder() + u'/';
        for (const char* number : {"1", "2", "3"})
            data.add(JobRow{.number = number, .foreman = "Stone/Sid"});
    }
    void TearDown() override { gProgramFolder.clear(); }

    /// The key of the pages, 0 for none.
    qint64 run(const Report& report, const QString& foreman = "Stone/Sid") {
        return RunReport(report, data.connection(), {.foreman = foreman}, pages, watcher).value_or(0);
    }

    void addCodes() {
        for (int i = 0; i < 40; ++i)
            data.database().run(QString("INSERT INTO Code (Code1, Description) VALUES (2, '%1')").arg(i));
    }

    MessageScript script;
};

const Report slow{"frmRptSlow", "Slow",
                  [](const ReportParameters& /*parameters*/) {
                      return QString("SELECT A.CodeKey FROM Code AS A, Code AS B, Code AS C ORDER BY "
                                     "A.Description, B.Description, C.Description");
                  },
                  [](ReportRun& run) { run.watcher.setMax(run.rsReport.RecordCount()); }};

} // namespace

TEST_F(RunReportTest, DrawsAndGivesTheKeyOfThePages) {
    EXPECT_EQ(run(jobReport), 1);
    EXPECT_EQ(pages.texts(), (QStringList{"1", "2", "3"}));
    EXPECT_EQ(watcher.units, 3);
    EXPECT_EQ(watcher.steps, 3);
    EXPECT_EQ(run(jobReport), 2);
}

TEST_F(RunReportTest, AnEmptyResultStartsNoReport) {
    script.expect(Answer::Ok);
    EXPECT_EQ(run(jobReport, "Nobody"), 0);
    ASSERT_EQ(script.shown().size(), 1U);
    EXPECT_EQ(script.shown().front().text, "Nothing to print with given parameters.");
    EXPECT_EQ(script.shown().front().title, "Report");
    EXPECT_EQ(script.shown().front().icon, MessageIcon::Information);
    EXPECT_EQ(pages.NewReport(), 1) << "no report was begun";
}

TEST_F(RunReportTest, ACancelledRunHasNothingToShow) {
    watcher.cancelAfter = 2;
    EXPECT_EQ(run(jobReport), 0);
    EXPECT_EQ(pages.texts(), (QStringList{"1", "2"}));
}

TEST_F(RunReportTest, CancelIsHeardWhileTheStatementWorks) {
    addCodes();
    Recordset halfRead;
    halfRead.Open("SELECT JobNumber FROM Job", data.connection());
    watcher.cancelAfterLooks = 1;
    EXPECT_EQ(run(slow), 0);
    EXPECT_EQ(watcher.units, -1) << "the statement came to its end";
    EXPECT_TRUE(script.shown().empty()) << "the user knows";
    EXPECT_EQ(halfRead.RecordCount(), 3) << "the rows of others stay";
    watcher.cancelAfterLooks = -1;
    EXPECT_EQ(run(jobReport), 1);
}

// A question within the statement would keep its hold on the database for as long as nobody answers.
TEST_F(RunReportTest, TheQuestionIsAskedBehindTheStatementAndNoBeginsItAgain) {
    addCodes();
    watcher.cancelAfterLooks = 1;
    watcher.whenAsked = [&] {
        watcher.cancelAfterLooks = -1;
        data.database().run("DELETE FROM Code WHERE Description='7'");
        return true;
    };
    EXPECT_EQ(run(slow), 1);
    const auto codes = data.database().ask("SELECT COUNT(*) FROM Code").toLong();
    EXPECT_EQ(watcher.units, codes * codes * codes);
}

// An event that comes up while the statement works may do anything, up to ending the program.
TEST_F(RunReportTest, TheConnectionIsNotToBeUsedWhileTheStatementWorks) {
    addCodes();
    watcher.whileStatementWorks = [&] {
        watcher.whileStatementWorks = {};
        EXPECT_EQ(raisedNumber([&] { data.database().run("DELETE FROM Job"); }), 3219);
        EXPECT_EQ(raisedNumber([&] { (void)data.database().ask("SELECT COUNT(*) FROM Job"); }), 3219);
        EXPECT_EQ(raisedNumber([&] { data.connection().BeginTrans(); }), 3219);
        EXPECT_EQ(raisedNumber([&] { const StatementWatch second(data.connection(), [] { return true; }); }),
                  3219);
        data.connection().Close();
        watcher.cancelAfterLooks = 0;
    };
    EXPECT_EQ(run(slow), 0);
    EXPECT_EQ(watcher.units, -1) << "closing ends the statement";
    EXPECT_FALSE(QFile::exists(data.database().path() + "-wal")) << "the file is let go of";
    data.connection().Open();
    EXPECT_EQ(data.database().ask("SELECT COUNT(*) FROM Job"), Value(3));
}

TEST_F(RunReportTest, AnErrorInTheMiddleKeepsWhatWasDrawn) {
    data.database().run("UPDATE Job SET Name='Broken' WHERE JobNumber='2'");
    script.expect(Answer::Ok);
    EXPECT_EQ(run(jobReport), 1);
    ASSERT_EQ(script.shown().size(), 1U);
    EXPECT_TRUE(script.shown().front().text.startsWith("Error #  94"))
        << script.shown().front().text.toStdString();
    EXPECT_EQ(pages.texts(), (QStringList{"1", "2"}));
    EXPECT_TRUE(QFile::exists(data.database().folder() + "/ErrorLog.txt"));
}

TEST_F(RunReportTest, AQueryThatBreaksIsReportedAndEndsTheRun) {
    script.expect(Answer::Ok);
    EXPECT_EQ(run(jobReport, "O'Neil/Pat"), 0);
    ASSERT_EQ(script.shown().size(), 1U);
    EXPECT_EQ(script.shown().front().title, "Error");
    EXPECT_EQ(pages.NewReport(), 1) << "no report was begun";
}
