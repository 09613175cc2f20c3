#include "reports/output/PageOutput.h"

#include "RecordingPrinter.h"
#include "reports/output/PrintSystem.h"
#include "reports/pages/PagePainter.h"
#include "reports/pages/ReportPagesData.h"
#include "support/RaisedNumber.h"

#include <QFile>
#include <QPageRanges>
#include <QPrintEngine>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace {

using namespace tarnwell;
using test::NumberedReport;
using test::RecordingPrinter;

QString outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        ADD_FAILURE() << program.toStdString() << ": " << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString save(const NumberedReport& data, const QPageSize& paper = QPageSize(QPageSize::Letter)) {
    const QString path = data.pathOf("out.pdf");
    EXPECT_TRUE(savePdf(data.report(), path, "Lot Budget", paper));
    return path;
}

/// The left edges of the words of a page, in points.
std::vector<std::pair<QString, double>> wordsOf(const QString& pdf, int page) {
    const QString number = QString::number(page);
    const QString boxes = outputOf("pdftotext", {"-bbox", "-f", number, "-l", number, pdf, "-"});
    static const QRegularExpression word(QStringLiteral(R"rx(<word xMin="([\d.]+)".*>(.*)</word>)rx"));
    std::vector<std::pair<QString, double>> words;
    for (auto matches = word.globalMatch(boxes); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        words.emplace_back(match.captured(2), match.captured(1).toDouble());
    }
    return words;
}

void writeFile(const QString& path, const QByteArray& content) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(PdfTest, TellsItsTitlePagesAndPaper) {
    const struct {
        Orientation orientation;
        QPageSize::PageSizeId paper;
        const char* size;
    } cases[] = {{Orientation::Portrait, QPageSize::Letter, "612 x 792 pts (letter)"},
                 {Orientation::Landscape, QPageSize::Letter, "792 x 612 pts (letter)"},
                 {Orientation::Portrait, QPageSize::A4, "595 x 842 pts (A4)"}};
    for (const auto& [orientation, paper, size] : cases) {
        const NumberedReport data(3, orientation);
        const QString info = outputOf("pdfinfo", {save(data, QPageSize(paper))});
        const auto lines = info.simplified();
        EXPECT_TRUE(lines.contains("Title: Lot Budget")) << info.toStdString();
        EXPECT_TRUE(lines.contains("Pages: 3")) << info.toStdString();
        EXPECT_TRUE(lines.contains(QString("Page size: ") + size)) << info.toStdString();
    }
}

TEST(PdfTest, HoldsTheTextsInTheirOrderWithEmbeddedFonts) {
    const NumberedReport data(2);
    const QString path = save(data);
    const QString text = outputOf("pdftotext", {"-layout", path, "-"});
    EXPECT_EQ(text.simplified(), "Budget1 Page:1 of 2 Row1-1 Budget2 Page:2 of 2 Row2-1 Row2-2");
    const QString fonts = outputOf("pdffonts", {path});
    static const QRegularExpression embedded(QStringLiteral(R"(\n\S*(Arial|Sans)\S* .* yes \w+ +yes )"));
    EXPECT_TRUE(fonts.contains(embedded)) << fonts.toStdString();
}

TEST(PdfTest, WordsStandWhereThePreviewHasThem) {
    constexpr double twipsPerPoint = 20;
    const NumberedReport data(3, Orientation::Landscape);
    const QString path = save(data);
    PagePainter painter;
    const PageItems page = data.report().page(3);
    const auto words = wordsOf(path, 3);
    for (const PageText& text : page.texts) {
        // A word behind a blank is where the preview's text before it ends.
        const QString whole = textOnPage(text, 3);
        PageText before = text;
        before.look.PageTotal = false;
        before.text = whole.left(whole.lastIndexOf(' ') + 1);
        const double left = (text.x + painter.textBox(before, 3).width()) / twipsPerPoint;
        const QString last = whole.mid(before.text.size());
        const auto found = std::ranges::find_if(
            words, [&](const auto& word) { return word.first == last && qAbs(word.second - left) < 0.1; });
        EXPECT_NE(found, words.end()) << last.toStdString() << " is not at " << left;
    }
}

TEST(PdfTest, AnotherPaperGetsTheWholePageScaledIntoItsMiddle) {
    const struct {
        QPageSize::PageSizeId paper;
        QMarginsF unreachable; ///< Points.
        double scale;
        QPointF corner; ///< Points.
    } cases[] = {{QPageSize::Letter, {15, 15, 15, 15}, 1, {0, 0}},
                 {QPageSize::Letter, {18, 18, 18, 18}, 576.0 / 612, {18, 396 - 576.0 / 612 * 396}},
                 {QPageSize::A4, {0, 0, 0, 0}, 595.0 / 612, {0, 421 - 595.0 / 612 * 396}},
                 {QPageSize::A3, {10, 10, 10, 42}, 822.0 / 612, {10, 10 + (1139 - 822.0 / 612 * 792) / 2}}};
    for (const auto& [paper, unreachable, scale, corner] : cases) {
        QPageLayout layout(QPageSize(paper), QPageLayout::Portrait, unreachable, QPageLayout::Point,
                           unreachable);
        layout.setUnits(QPageLayout::Millimeter);
        const QTransform onto = pageOntoPaper(Orientation::Portrait, layout);
        EXPECT_NEAR(onto.m11(), scale, 0.001);
        EXPECT_NEAR(onto.m22(), scale, 0.001);
        EXPECT_NEAR(onto.dx() / 20, corner.x(), 0.1);
        EXPECT_NEAR(onto.dy() / 20, corner.y(), 0.1);
    }
    const NumberedReport data(1);
    const QString path = save(data, QPageSize(QPageSize::A4));
    EXPECT_NEAR(wordsOf(path, 1).front().second, 4200 / 20.0 * 595 / 612, 0.5);
}

TEST(PdfTest, AFileIsReplacedOnlyByAWholeOne) {
    const NumberedReport data(3);
    const QString path = data.pathOf("out.pdf");
    writeFile(path, "the good one");
    qint64 followed = -1;
    EXPECT_FALSE(
        savePdf(data.report(), path, {}, QPageSize(QPageSize::Letter), [&](qint64 done, qint64 pages) {
            EXPECT_EQ(pages, 3);
            followed = done;
            return done < 2;
        }));
    EXPECT_EQ(followed, 2);
    EXPECT_EQ(contentOf(path), "the good one");

    // A file that may not grow fails as a full disk does.
    const rlimit little{1000, RLIM_INFINITY};
    rlimit before{};
    getrlimit(RLIMIT_FSIZE, &before);
    const auto signalBefore = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &little);
    const QString raised = test::raisedText([&] { (void)savePdf(data.report(), path, {}); });
    setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, signalBefore);
    EXPECT_TRUE(raised.startsWith(makeError(Failure::FileAccess).description())) << raised.toStdString();
    EXPECT_TRUE(raised.contains("File too large")) << raised.toStdString();
    EXPECT_EQ(contentOf(path), "the good one");
    EXPECT_EQ(data.files(), QStringList{"out.pdf"}) << "an unfinished file was left";

    EXPECT_TRUE(savePdf(data.report(), path, {}));
    EXPECT_TRUE(contentOf(path).startsWith("%PDF"));
}

TEST(PdfTest, AnUnwritablePlaceIsNamed) {
    const NumberedReport data(1);
    ASSERT_TRUE(QDir().mkdir(data.pathOf("folder.pdf")));
    const struct {
        const char* name;
        Failure failure;
    } cases[] = {{"nowhere/out.pdf", Failure::PathNotFound}, {"folder.pdf", Failure::FileAccess}};
    for (const auto& [name, failure] : cases) {
        const QString raised =
            test::raisedText([&, place = data.pathOf(name)] { (void)savePdf(data.report(), place, {}); });
        EXPECT_TRUE(raised.startsWith(makeError(failure).description())) << raised.toStdString();
        EXPECT_TRUE(raised.contains(data.pathOf("").chopped(1))) << raised.toStdString();
    }
}

/// The printing system's commands, as scripts of the test. They leave what they were asked for in a file.
class QueueTest : public testing::Test {
protected:
    QueueTest() { qputenv("PATH", m_folder.path().toUtf8()); }
    ~QueueTest() override { qputenv("PATH", m_path); }

    void make(const char* command, const QByteArray& script) {
        const QString path = m_folder.filePath(command);
        writeFile(path, "#!/bin/sh\n" + script + '\n');
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    void send() { sendToQueue(m_printer, "/a folder/report.pdf", "Lot Budget", Orientation::Landscape); }

    RecordingPrinter m_printer;
    QTemporaryDir m_folder;

private:
    QByteArray m_path = qgetenv("PATH");
};

TEST_F(QueueTest, GetsThePdfAndWhatTheDialogAskedFor) {
    make("lp", "printf '%s|' \"$@\" > '" + m_folder.filePath("asked").toUtf8() + "'");
    m_printer.setCopyCount(3);
    m_printer.setColorMode(QPrinter::Color);
    m_printer.setDuplex(QPrinter::DuplexAuto);
    m_printer.printEngine()->setProperty(QPrintEngine::PrintEnginePropertyKey(0xfe00),
                                         QStringList{"number-up", "2"});
    send();
    EXPECT_EQ(QString::fromUtf8(contentOf(m_folder.filePath("asked"))),
              "-d|Office printer|-t|Lot Budget|-n|3|-o|media=Letter|-o|sides=two-sided-short-edge|"
              "-o|collate=true|-o|number-up=2|--|/a folder/report.pdf|");
}

TEST_F(QueueTest, SaysWhyItDidNotTakeTheReport) {
    EXPECT_TRUE(test::raisedText([&] { send(); }).contains("command lp is not installed"));
    make("lp", "echo \"$0: Error - The printer or class does not exist.\" >&2; exit 1");
    const struct {
        const char* state;
        const char* message;
    } cases[] = {{"scheduler is running",
                  "Office printer did not take the report. The printer or class does not exist."},
                 {"scheduler is not running",
                  "Office printer did not take the report. The printing system does not answer."}};
    for (const auto& [state, message] : cases) {
        make("lpstat", QByteArray("echo '") + state + "'");
        const QString raised = test::raisedText([&] { send(); });
        EXPECT_TRUE(raised.contains(message)) << raised.toStdString();
    }
}

TEST(PrintTest, PrintsThePagesAndCopiesThatWereAskedFor) {
    const NumberedReport data(3);
    using Sheets = std::vector<int>; // two texts of the header and one for each row
    const struct {
        const char* pages;
        int copies;
        bool collated;
        bool copiesItself;
        QPrinter::PageOrder order;
        Sheets sheets;
    } cases[] = {{"", 1, true, false, QPrinter::FirstPageFirst, {3, 4, 5}},
                 {"2-3", 1, true, false, QPrinter::FirstPageFirst, {4, 5}},
                 {"1,3", 1, true, false, QPrinter::LastPageFirst, {5, 3}},
                 {"2-9", 2, true, false, QPrinter::FirstPageFirst, {4, 5, 4, 5}},
                 {"2-9", 2, false, false, QPrinter::FirstPageFirst, {4, 4, 5, 5}},
                 {"", 2, true, true, QPrinter::FirstPageFirst, {3, 4, 5}}};
    for (const auto& entry : cases) {
        RecordingPrinter printer;
        printer.setCopiesItself(entry.copiesItself);
        printer.setCopyCount(entry.copies);
        printer.setCollateCopies(entry.collated);
        printer.setPageOrder(entry.order);
        if (*entry.pages != 0) {
            printer.setPrintRange(QPrinter::PageRange);
            printer.setPageRanges(QPageRanges::fromString(entry.pages));
        }
        EXPECT_TRUE(printPages(data.report(), printer, "Lot Budget"));
        EXPECT_EQ(printer.sheets(), entry.sheets) << entry.pages;
        EXPECT_EQ(printer.docName(), "Lot Budget");
        EXPECT_FALSE(printer.wasAborted());
    }
}

TEST(PrintTest, APrinterThatFailsIsNamedAndItsPaperLiesAsBefore) {
    const NumberedReport data(3, Orientation::Landscape);
    for (const int sheet : {1, 3}) {
        RecordingPrinter printer;
        printer.failAt(sheet);
        const QString raised = test::raisedText([&] { (void)printPages(data.report(), printer, {}); });
        EXPECT_TRUE(raised.startsWith(makeError(Failure::PrinterError).description()))
            << raised.toStdString();
        EXPECT_TRUE(raised.contains("Office printer")) << raised.toStdString();
        EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Portrait);
    }
}

TEST(PrintTest, ACancelledPrintIsNotSentOn) {
    const NumberedReport data(3);
    RecordingPrinter printer;
    EXPECT_FALSE(printPages(data.report(), printer, {}, [](qint64 done, qint64) { return done < 1; }));
    EXPECT_EQ(printer.sheets().size(), 1U);
    EXPECT_TRUE(printer.wasAborted());
}

TEST(PrintTest, AFileInPlaceOfAPrinterGetsTheChosenPages) {
    const NumberedReport data(3);
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(data.pathOf("printed.pdf"));
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 2);
    EXPECT_TRUE(printPages(data.report(), printer, "Lot Budget"));
    const QString text = outputOf("pdftotext", {data.pathOf("printed.pdf"), "-"});
    EXPECT_TRUE(text.contains("Page:2 of 3") && !text.contains("Page:3"));
}

} // namespace
