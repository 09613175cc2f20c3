#include "reports/preview/ReportPreview.h"

#include "reports/output/PrinterDialogs.h"
#include "reports/output/RecordingPrinter.h"
#include "reports/pages/ReportPagesData.h"
#include "reports/preview/PreviewView.h"
#include "runtime/RunTime.h"
#include "support/MessageScript.h"
#include "support/RememberedSettings.h"
#include "support/ScreenDriver.h"

#include <QAction>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QStatusBar>

#include <gtest/gtest.h>

namespace {

using namespace tarnwell;
using test::MessageScript;
using test::NumberedReport;
using test::RecordingPrinter;
using test::ScreenDriver;

/// A preview of a stored report; the dialogs answer what the test says.
class ReportPreviewTest : public testing::Test {
protected:
    ReportPreviewTest() {
        const auto accept = [](QPrinter& /*printer*/, QWidget* /*owner*/) { return true; };
        m_dialogs = setPrinterDialogs({.setUp = accept,
                                       .print =
                                           [this](QPrinter& printer, QWidget* /*owner*/) {
                                               if (m_onePrint)
                                                   m_onePrint(printer);
                                               return true;
                                           },
                                       .pageSetUp =
                                           [this](QPrinter& printer, QWidget* /*owner*/) {
                                               printer.setPageSize(QPageSize(m_paper));
                                               return true;
                                           },
                                       .savePdfAs =
                                           [this](const QString& proposed, QWidget* /*owner*/) {
                                               m_proposed = proposed;
                                               return m_path;
                                           }});
        m_clock = setClock([] { return DateTime{QDate(2024, 3, 5), QTime(8, 15)}; });
    }
    ~ReportPreviewTest() override {
        setPrinterDialogs(m_dialogs);
        setCurrentPrinter(nullptr);
        setClock(m_clock);
    }

    /// Shows the preview and uses it; it must be open still at the end, and close by Escape.
    void use(const NumberedReport& data, const std::function<void(const ScreenDriver&)>& routine) {
        test::whenShown([&](const ScreenDriver& driver) {
            routine(driver);
            EXPECT_TRUE(driver.window().isVisible());
            driver.press(Qt::Key_Escape);
            if (driver.window().isVisible())
                driver.press(Qt::Key_Escape);
            EXPECT_FALSE(driver.window().isVisible());
        });
        m_preview.show(data.report(), "Lot Budget", nullptr);
    }

    static QString statusOf(const ScreenDriver& driver) {
        return driver.window().findChild<QStatusBar*>()->currentMessage();
    }

    ReportPreview m_preview;
    QPageSize::PageSizeId m_paper = QPageSize::A4;
    QString m_path;
    QString m_proposed;
    std::function<void(QPrinter&)> m_onePrint;

private:
    PrinterDialogs m_dialogs;
    Clock m_clock;
};

TEST_F(ReportPreviewTest, ALongReportIsFoundThroughToItsLastPage) {
    const test::ReportPagesData data(1000, [](PageStore& store, qint64 key, qint64 page) {
        test::drawNumberedPage(store, key, std::min<qint64>(page, 3), Orientation::Portrait);
        store.add(key, PageText{700, 4000, QString("Sheet%1;").arg(page), page, Orientation::Portrait, {}});
    });
    test::whenShown([](const ScreenDriver& driver) {
        auto& view = driver.find<PreviewView>("pages");
        EXPECT_EQ(driver.find<QLabel>("lblPageCount").text(), "of 1000");
        driver.press(Qt::Key_F, Qt::ControlModifier);
        const auto finds = [&driver](const char* result) {
            return test::waitFor([&] { return driver.find<QLabel>("lblFindResult").text() == result; });
        };
        driver.type("sheet9");
        EXPECT_TRUE(finds("1 of 111"));
        driver.type("99;");
        EXPECT_TRUE(finds("1 of 1"));
        EXPECT_EQ(view.currentPage(), 999);
        driver.press(Qt::Key_G, Qt::ControlModifier);
        driver.type("500");
        driver.press(Qt::Key_Return);
        EXPECT_EQ(view.currentPage(), 500);
        driver.press(Qt::Key_W, Qt::ControlModifier);
    });
    m_preview.show(data.report(), "Lot Budget", nullptr);
}

TEST_F(ReportPreviewTest, WithoutPagesNothingIsOfferedThatNeedsOne) {
    use(NumberedReport(0), [](const ScreenDriver& driver) {
        QStringList enabled;
        for (const QAction* tool : driver.window().actions())
            if (tool->isEnabled())
                enabled << tool->objectName();
        EXPECT_EQ(enabled, QStringList("Close"));
        EXPECT_EQ(driver.find<QLabel>("lblPageCount").text(), "of 0");
        auto& view = driver.find<PreviewView>("pages");
        view.setZoom(PreviewZoom::greatest);
        EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0) << "there is nothing to scroll to";
        driver.press(Qt::Key_End);
        EXPECT_FALSE(driver.find<QLineEdit>("txtPage").isEnabled());
    });
}

TEST_F(ReportPreviewTest, TheNumberOfPagesIsFoundInTheHeader) {
    use(NumberedReport(3), [](const ScreenDriver& driver) {
        driver.press(Qt::Key_F, Qt::ControlModifier);
        driver.type("of 3");
        EXPECT_EQ(driver.find<QLabel>("lblFindResult").text(), "1 of 3");
    });
}

TEST_F(ReportPreviewTest, WithoutAPrinterNothingIsPrintedAndThePaperOfPdfsIsChosen) {
    MessageScript messages{Answer::Ok};
    const NumberedReport data(2, Orientation::Landscape);
    m_path = data.pathOf("June.pdf");
    use(data, [](const ScreenDriver& driver) {
        driver.press(Qt::Key_P, Qt::ControlModifier);
        driver.press(Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
        driver.press(Qt::Key_S, Qt::ControlModifier);
    });
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_EQ(messages.shown().front().title, "Report");
    EXPECT_TRUE(messages.shown().front().text.contains("There is no printer."));
    QFile pdf(m_path);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.readAll().contains("/MediaBox [0 0 842")) << "a landscape A4";
    use(data, [](const ScreenDriver& driver) {
        EXPECT_EQ(driver.find<QLabel>("lblPaper").text(), "A4, landscape");
    });
}

TEST_F(ReportPreviewTest, APrinterThatFailsOnTheWayIsReported) {
    RecordingPrinter& printed = RecordingPrinter::makeCurrent();
    printed.failAt(2);
    MessageScript messages{Answer::Ok};
    use(NumberedReport(3), [](const ScreenDriver& driver) { driver.click("btnPrint"); });
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_TRUE(messages.shown().front().text.startsWith("The report was not printed."));
    EXPECT_TRUE(printed.wasAborted());
}

TEST_F(ReportPreviewTest, APrintGoesToTheCurrentPrinter) {
    const RecordingPrinter& printed = RecordingPrinter::makeCurrent();
    use(NumberedReport(3), [](const ScreenDriver& driver) {
        driver.click("btnPrint");
        EXPECT_EQ(statusOf(driver), "Sent to Office printer.");
    });
    EXPECT_EQ(printed.sheets().size(), 3U);
}

TEST_F(ReportPreviewTest, ThePagesAndCopiesOfAPrintAreNotThoseOfTheNext) {
    const RecordingPrinter& printed = RecordingPrinter::makeCurrent();
    m_onePrint = [](QPrinter& chosen) {
        chosen.setPrintRange(QPrinter::PageRange);
        chosen.setFromTo(2, 2);
        chosen.setCopyCount(2);
    };
    const NumberedReport data(3);
    use(data, [](const ScreenDriver& driver) { driver.click("btnPrint"); });
    EXPECT_EQ(printed.sheets(), std::vector<int>({4, 4}));
    printReport(data.report(), "Lot Budget", {});
    EXPECT_EQ(printed.sheets(), std::vector<int>({4, 4, 3, 4, 5}));
}

TEST_F(ReportPreviewTest, ThePrintDialogTakesOnlyPagesThatTheReportHas) {
    const struct {
        const char* choice;
        const char* typed;
        const char* pages; ///< Nothing for all.
        bool isRefused = false;
    } cases[] = {{"pagesRadioButton", "2-3,9,12-15", "2-3,9"},
                 {"pagesRadioButton", "4,", "", true},
                 {"pagesRadioButton", "10-12", "", true},
                 {"pagesRadioButton", "1-9", ""},
                 {"printCurrentPage", "", "4"},
                 {"printAll", "", ""}};
    for (const auto& [choice, typed, pages, isRefused] : cases) {
        QPrinter printer;
        PrintDialog dialog(&printer, {.count = 9, .current = 4}, nullptr);
        dialog.show();
        dialog.findChild<QRadioButton*>(choice)->setChecked(true);
        dialog.findChild<QLineEdit*>("pagesLineEdit")->setText(typed);
        MessageScript messages;
        if (isRefused)
            messages.expect(Answer::Ok);
        dialog.accept();
        EXPECT_EQ(dialog.isVisible(), isRefused) << choice << typed;
        const bool isPart = printer.printRange() == QPrinter::PageRange;
        EXPECT_EQ(isPart ? printer.pageRanges().toString() : QString(), pages) << choice;
    }
}

TEST_F(ReportPreviewTest, AChosenPaperIsShownByThisPreviewAndTheNext) {
    setCurrentPrinter(std::make_unique<QPrinter>());
    const NumberedReport data(2, Orientation::Landscape);
    const auto paper = [](const ScreenDriver& driver) { return driver.find<QLabel>("lblPaper").text(); };
    use(data, [&](const ScreenDriver& driver) {
        driver.click("btnPageSetup");
        EXPECT_EQ(paper(driver), "A4, landscape");
        driver.press(Qt::Key_0, Qt::ControlModifier);
        auto& view = driver.find<PreviewView>("pages");
        EXPECT_NEAR(view.pageOnScreen(1).width(), 297 / 25.4 * view.logicalDpiX(), 1);
    });
    use(data, [&](const ScreenDriver& driver) { EXPECT_EQ(paper(driver), "A4, landscape"); });
}

TEST_F(ReportPreviewTest, APdfIsNamedByReportAndDayAndTheNextGoesBesideIt) {
    const test::RememberedSettings settings;
    const NumberedReport data(2);
    m_path = data.pathOf("June.pdf");
    use(data, [this](const ScreenDriver& driver) {
        driver.press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(QFileInfo(m_proposed).fileName(), "Lot Budget 2024-03-05.pdf");
        EXPECT_EQ(statusOf(driver), "Saved as " + m_path);
        driver.press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(QFileInfo(m_proposed).path(), QFileInfo(m_path).path());
    });
    EXPECT_EQ(data.files(), QStringList("June.pdf"));
    test::RememberedSettings::endProgram();
    m_preview = {};
    use(data, [this](const ScreenDriver& driver) {
        driver.press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_EQ(QFileInfo(m_proposed).path(), QFileInfo(m_path).path());
        remember("PDF folder", m_path + "/no longer there");
        driver.press(Qt::Key_S, Qt::ControlModifier);
        EXPECT_TRUE(QFileInfo(QFileInfo(m_proposed).path()).isDir());
    });
}

TEST_F(ReportPreviewTest, AFileThatCantBeWrittenIsReportedAndACancelledNameIsNothing) {
    const NumberedReport data(2);
    MessageScript messages{Answer::Ok};
    use(data, [&](const ScreenDriver& driver) {
        driver.click("btnSavePdf");
        EXPECT_TRUE(messages.shown().empty());
        m_path = data.pathOf("no folder/June.pdf");
        driver.click("btnSavePdf");
    });
    ASSERT_EQ(messages.shown().size(), 1U);
    EXPECT_EQ(messages.shown().front().title, "Report");
    EXPECT_TRUE(messages.shown().front().text.startsWith("The report was not saved."));
}

} // namespace
