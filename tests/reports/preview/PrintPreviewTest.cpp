#include "reports/output/PrinterDialogs.h"
#include "reports/output/RecordingPrinter.h"
#include "reports/preview/ctlAHPrintPreview.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"
#include "support/TemporaryDatabase.h"

#include <QFile>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

using namespace tarnwell;
using test::numberOf;
using test::raisedNumber;
using test::RecordingPrinter;

class PrintPreviewTest : public testing::Test {
protected:
    PrintPreviewTest() {
        m_form.setWindowTitle("Gantt Chart");
        m_surface.setConnectionString(test::connectionStringFor(m_folder.filePath("Report.mdb")));
        m_before = ctlAHPrintPreview::setPreview(
            [this](const ReportPages& report, const QString& title, QWidget* owner) {
                ++m_shown;
                m_pages = report.pageCount();
                m_title = title;
                EXPECT_EQ(owner, &m_form);
            });
    }
    ~PrintPreviewTest() override {
        ctlAHPrintPreview::setPreview(m_before);
        setCurrentPrinter(nullptr);
    }

    qint64 drawnReport(qint64 pages) {
        const qint64 key = m_surface.NewReport();
        for (qint64 page = 1; page <= pages; ++page) {
            qint16 y = 300;
            m_surface.AddText(key, y, 6000, "Gantt", page, Orientation::Landscape);
            m_surface.AddLine(key, {500, y, 14800, y, page, Orientation::Landscape});
        }
        return key;
    }

    QTemporaryDir m_folder;
    QWidget m_form;
    ctlAHPrintPreview m_surface{&m_form};
    ctlAHPrintPreview::Preview m_before;
    int m_shown = 0;
    qint64 m_pages = 0;
    QString m_title;
};

TEST_F(PrintPreviewTest, ShowsThePagesUnderTheFormsCaption) {
    m_surface.ShowReport(drawnReport(2), true);
    EXPECT_EQ(m_pages, 2);
    EXPECT_EQ(m_title, "Gantt Chart");
}

TEST_F(PrintPreviewTest, PrintsOnTheCurrentPrinterWithoutAPreview) {
    const RecordingPrinter& printed = RecordingPrinter::makeCurrent();
    m_surface.ShowReport(drawnReport(2), false);
    EXPECT_EQ(printed.sheets(), (std::vector<int>{1, 1}));
    EXPECT_EQ(m_shown, 0);
}

TEST_F(PrintPreviewTest, TheFormGivesWayToThePages) {
    m_form.show();
    const qint64 key = drawnReport(1);
    EXPECT_TRUE(m_form.isVisible());
    m_surface.ShowReport(key, true);
    EXPECT_FALSE(m_form.isVisible());
}

TEST_F(PrintPreviewTest, APrintIsFollowedAndCanBeEnded) {
    const RecordingPrinter& printed = RecordingPrinter::makeCurrent();
    QStringList followed;
    m_surface.setFollowPrint([&](qint64 done, qint64 pages) {
        followed << QString("%1 of %2").arg(done).arg(pages);
        return done < 2;
    });
    m_surface.ShowReport(drawnReport(4), false);
    EXPECT_EQ(followed, (QStringList{"0 of 4", "1 of 4", "2 of 4"}));
    EXPECT_TRUE(printed.wasAborted());
}

TEST_F(PrintPreviewTest, AReportWithoutPagesIsShownAsItIsAndPrintsNothing) {
    m_surface.ShowReport(drawnReport(0), false);
    EXPECT_EQ(m_shown, 0);
    m_surface.ShowReport(drawnReport(0), true);
    EXPECT_EQ(m_shown, 1);
    EXPECT_EQ(m_pages, 0);
}

TEST_F(PrintPreviewTest, WithoutAPrinterAMessageSaysSoAndThePagesStay) {
    test::MessageScript messages{Answer::Ok};
    const qint64 key = drawnReport(1);
    m_surface.ShowReport(key, false);
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_TRUE(messages.shown().front().text.startsWith("The report was not printed.\n\n"));
    EXPECT_EQ(raisedNumber([&] { (void)showPrinterSetup(&m_form); }), numberOf(Failure::PrinterError));
    m_surface.ShowReport(key, true);
    EXPECT_EQ(m_pages, 1);
}

TEST_F(PrintPreviewTest, TheSetUpDialogGetsTheCurrentPrinter) {
    setCurrentPrinter(std::make_unique<RecordingPrinter>());
    const QPrinter* seen = nullptr;
    PrinterDialogs dialogs;
    dialogs.setUp = [&](QPrinter& printer, QWidget* owner) {
        seen = &printer;
        return owner == &m_form;
    };
    const PrinterDialogs before = setPrinterDialogs(dialogs);
    EXPECT_TRUE(showPrinterSetup(&m_form));
    EXPECT_EQ(seen, &currentPrinter());
    setPrinterDialogs(before);
}

TEST_F(PrintPreviewTest, ADamagedReportDatabaseIsMadeAnewAfterAMessage) {
    const QString path = m_folder.filePath("Report.mdb");
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(QByteArray(3000, 'x')) > 0);
        file.close();
        test::MessageScript messages{answer};
        qint64 key = 0;
        const bool isRaised = raisedNumber([&] { key = drawnReport(2); }) != 0;
        EXPECT_EQ(isRaised, answer == Answer::Cancel);
        EXPECT_EQ(QFile::exists(m_folder.filePath("Report-damaged.mdb")), answer == Answer::Ok);
        ASSERT_EQ(messages.shown().size(), 1U);
        EXPECT_TRUE(messages.shown().front().text.contains("Report-damaged.mdb"));
        if (!isRaised)
            m_surface.ShowReport(key, true);
    }
    EXPECT_EQ(m_pages, 2);
}

TEST_F(PrintPreviewTest, AReportDatabaseThatCannotBeIsReportedAtTheFirstReport) {
    m_surface.setConnectionString(test::connectionStringFor(m_folder.filePath("no/R.mdb")));
    EXPECT_EQ(raisedNumber([&] { (void)m_surface.NewReport(); }), numberOf(Failure::PathNotFound));
}

} // namespace
