#include "reports/drawing/ReportDatabase.h"
#include "reports/generator/frmReport.h"
#include "reports/preview/ctlAHPrintPreview.h"
#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

constexpr int tooLong = 60'000; ///< Milliseconds after which a report that nobody could cancel gives up.
constexpr int longerThanAnInstant = 50; ///< Milliseconds after which a form looks for clicks again.

QString anyRow(const ReportParameters& /*parameters*/) {
    return "SELECT * FROM ReportDefinition";
}

void addLine(ReportRun& run, qint64 page) {
    qint16 y = 0;
    run.surface.AddText(run.reportKey, y, 0, "A line", page, Orientation::Portrait);
}

/// A report of endless records, which the user has to stop.
void drawUntilCancelled(ReportRun& run) {
    QElapsedTimer clock;
    clock.start();
    run.watcher.setMax(4);
    run.watcher.stepOne();
    for (; !run.watcher.CancelRequested() && clock.elapsed() < tooLong; run.watcher.DoEvents())
        continue;
    addLine(run, 1);
}

void drawThreePages(ReportRun& run) {
    run.watcher.setMax(3);
    for (qint64 page = 1; page <= 3; ++page) {
        addLine(run, run.parameters.calendarMode + page);
        run.watcher.stepOne();
        run.watcher.DoEvents();
    }
}

/// A user who clicks when the last page is drawn.
void drawThenCancel(ReportRun& run) {
    drawThreePages(run);
    QTimer::singleShot(0, QApplication::activeModalWidget()->findChild<QPushButton*>("cmdCancel"),
                       &QPushButton::click);
    QElapsedTimer clock;
    for (clock.start(); clock.elapsed() < longerThanAnInstant;)
        continue;
}

const Report endless{"frmRptEndless", "Endless", anyRow, drawUntilCancelled};
const Report threePages{"frmRptThree", "Three", anyRow, drawThreePages};
const Report cancelledAtTheEnd{"frmRptThree", "Three", anyRow, drawThenCancel};

class ReportForm : public ScreenTest {
protected:
    void SetUp() override {
        owner.show();
        workOn(data.database());
        gReportDataPath = data.database().folder() + "/Report.mdb";
        m_before = ctlAHPrintPreview::setPreview(
            [this](const ReportPages& report, const QString& title, QWidget* form) {
                shown << QString("%1 of %2 pages").arg(title).arg(report.pageCount());
                if (whilePreviewed)
                    whilePreviewed(*form);
            });
    }
    void TearDown() override {
        ctlAHPrintPreview::setPreview(m_before);
        ScreenTest::TearDown();
    }

    /// Runs a report to its end; `use` once its form is up.
    void run(const Report& report, const std::function<void(const ScreenDriver&)>& use = {}) {
        if (use)
            whenModal([use](QWidget& form) { use(ScreenDriver(form)); });
        const QPointer<frmReport> form = new frmReport(report, {});
        form->Preview = true;
        form->CalendarMode = 1;
        form->Show(Screen::Modality::Modal, &owner);
        EXPECT_TRUE(form == nullptr || form->isUnloaded());
    }

    QWidget owner;
    ReportDatabase data;
    MessageScript script;
    QStringList shown;
    std::function<void(QWidget&)> whilePreviewed;

private:
    ctlAHPrintPreview::Preview m_before;
};

} // namespace

TEST_F(ReportForm, DrawsOnceAndShowsThePages) {
    whilePreviewed = [](QWidget& form) {
        EXPECT_EQ(form.objectName(), "frmRptThree");
        EXPECT_FALSE(form.isVisible()) << "its progress is over";
        QWidget preview;
        const ScreenDriver inFront(preview);
        preview.close();
        EXPECT_FALSE(dynamic_cast<Screen&>(form).isUnloaded()) << "still modal for the generator";
    };
    run(threePages);
    EXPECT_EQ(shown, QStringList{"Three of 4 pages"}) << "the calendar's mode moves the first page";
}

TEST_F(ReportForm, CancelStopsTheReportAndNoGoesOn) {
    script.expect(Answer::No, Answer::Yes);
    // A server may still be at work on the statement when the window is up.
    std::function<void(const ScreenDriver&)> cancelOnce;
    cancelOnce = [&](const ScreenDriver& form) {
        EXPECT_EQ(form.window().windowTitle(), "Endless");
        if (form.find<QProgressBar>("proBarStatus").maximum() != 4)
            return whenShown(cancelOnce);
        form.click("cmdCancel");
        EXPECT_FALSE(script.shown().empty());
        whenShown([](const ScreenDriver& later) {
            EXPECT_EQ(later.find<QProgressBar>("proBarStatus").value(), 1) << "it went on";
            later.click("cmdCancel");
        });
    };
    run(endless, cancelOnce);
    ASSERT_EQ(script.shown().size(), 2U);
    EXPECT_EQ(script.shown().front().text, "Stop printing report?");
    EXPECT_EQ(script.shown().front().title, "Stop Report");
    EXPECT_EQ(script.shown().front().buttons, MessageButtons::YesNo);
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(ReportForm, CancelIsHeardWhileThePagesAreStoredAndTheFileIsFreeMeanwhile) {
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        int asked = 0;
        const Ask before = setMessagePresenter([&](const MessageRequest& request) {
            ++asked;
            EXPECT_EQ(request.text, "Stop printing report?");
            PageStore otherProgram(gReportDataPath);
            EXPECT_GT(otherProgram.newReport(), 0);
            return answer;
        });
        run(cancelledAtTheEnd);
        setMessagePresenter(before);
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(shown, QStringList{"Three of 4 pages"}) << "after No only";
    }
}

TEST_F(ReportForm, EscapeAndTheTitleBarCancelToo) {
    script.expect(Answer::Yes);
    run(endless, [](const ScreenDriver& form) { form.press(Qt::Key_Escape); });
    script.expect(Answer::Yes);
    run(endless, [](const ScreenDriver& form) {
        EXPECT_FALSE(form.window().close());
        EXPECT_TRUE(form.window().isVisible()) << "until its records end";
    });
    EXPECT_EQ(script.shown().size(), 2U);
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(ReportForm, EndsWithTheProgram) {
    run(endless, [](const ScreenDriver& form) { dynamic_cast<Screen&>(form.window()).Unload(); });
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(ReportForm, AMissingFolderForTheReportDatabaseIsReported) {
    gReportDataPath = data.database().folder() + "/none/Report.mdb";
    script.expect(Answer::Ok);
    run(threePages);
    ASSERT_EQ(script.shown().size(), 1U);
    EXPECT_EQ(script.shown().front().title, "Error");
}
