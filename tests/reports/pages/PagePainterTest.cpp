#include "reports/pages/PagePainter.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>

#include <gtest/gtest.h>
#include <set>

namespace {

using namespace tarnwell;

constexpr double dotsPerTwip = 192.0 / 1440;
constexpr double dot = 1 / dotsPerTwip;

class PagePainterTest : public testing::Test {
protected:
    QImage paint(const PageItems& page, qint64 pageCount = 1) {
        QImage image((pageSizeTwips(page.orientation) * dotsPerTwip).toSize(), QImage::Format_RGB32);
        image.fill(Qt::red);
        QPainter painter(&image);
        painter.scale(dotsPerTwip, dotsPerTwip);
        PagePainter::drawPaper(painter, page.orientation);
        m_painter.drawPage(painter, page, pageCount);
        return image;
    }

    /// What is not white, in dots.
    static QRect inkDots(const QImage& image) {
        QRect ink;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != qRgb(255, 255, 255))
                    ink |= QRect(x, y, 1, 1);
        return ink;
    }
    static QRectF inkTwips(const QImage& image) {
        const QRect ink = inkDots(image);
        return {QPointF(ink.topLeft()) * dot, QSizeF(ink.size()) * dot};
    }

    static PageItems pageOf(const PageText& text) { return {text.orientation, {text}, {}}; }
    static PageItems pageOf(const PageLine& line) { return {line.orientation, {}, {line}}; }
    static PageText textAt(qint16 x, qint16 y, const QString& words, const TextLook& look = {}) {
        return {x, y, words, 1, Orientation::Portrait, look};
    }
    static PageLine rule(int width) { return {500, 900, 11100, 900, 1, Orientation::Portrait, width}; }

    PagePainter m_painter;
};

TEST_F(PagePainterTest, ATextStandsWhereItWasPut) {
    // The second one is set by the toolkit, whose letters must stand on the same line.
    for (const QString& words : {QStringLiteral("HMMH"), QString::fromUtf8("НММН")}) {
        const PageText text = textAt(5000, 6000, words, {.FontSize = 14});
        const QRectF ink = inkTwips(paint(pageOf(text)));
        const QRectF box = m_painter.textBox(text, 1);
        EXPECT_TRUE(box.adjusted(-dot, -dot, dot, dot).contains(ink)) << words.toStdString();
        EXPECT_EQ(box.topLeft(), QPointF(5000, 6000));
        // The baseline lies 0.905 of the size below the top; capitals are 0.7 of it high.
        EXPECT_NEAR(ink.bottom(), 6000 + 0.905 * 280, 1.5 * dot) << words.toStdString();
        EXPECT_NEAR(ink.height(), 0.7 * 280, 2 * dot) << words.toStdString();
        EXPECT_NEAR(ink.right(), box.right(), 4 * dot) << words.toStdString();
    }
}

TEST_F(PagePainterTest, FontsHaveTheWidthsOfTheNamedOnesWhateverIsInstalled) {
    const struct {
        const char* family;
        int points;
        bool bold;
        const char* text;
        double twips;
    } cases[] = {{"Arial", 10, false, "0000000000", 1112},
                 {"", 10, false, "0000000000", 1112},
                 {"Arial", 8, true, "MMMMMMMMMM", 1333},
                 {"Courier New", 10, false, "iiiiiMMMMM", 1200}};
    for (const auto& entry : cases) {
        const PageText text =
            textAt(0, 0, QLatin1String(entry.text),
                   {.Bold = entry.bold, .FontSize = entry.points, .FontName = QLatin1String(entry.family)});
        EXPECT_NEAR(m_painter.textBox(text, 1).width(), entry.twips, 3) << entry.family;
    }
}

TEST_F(PagePainterTest, ATextThatWouldReachItsNeighbourIsDrawnNarrower) {
    PageText text = textAt(5000, 6000, QStringLiteral("WWWWWWWWWW"));
    const QImage free = paint(pageOf(text));
    const double whole = m_painter.textBox(text, 1).width();
    const struct {
        double width;
        double drawn;
        const char* why;
    } cases[] = {
        {1.1, 1, "there is enough space"}, {0.7, 0.7, "it fills its space"}, {0.3, 0.5, "it stays readable"}};
    for (const auto& entry : cases) {
        text.width = static_cast<qint16>(entry.width * whole);
        const QImage image = paint(pageOf(text));
        const QRectF ink = inkTwips(image);
        EXPECT_NEAR(ink.width(), inkTwips(free).width() * entry.drawn, 3 * dot) << entry.why;
        EXPECT_NEAR(ink.height(), inkTwips(free).height(), dot) << entry.why;
        EXPECT_NEAR(m_painter.textBox(text, 1).width(), whole * entry.drawn, 1) << entry.why;
        EXPECT_EQ(image == free, entry.drawn == 1) << entry.why;
    }
}

TEST_F(PagePainterTest, ThePageIsBlackOnWhiteUnderADarkDesktop) {
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::white, Qt::black));
    PageItems page = pageOf(textAt(1000, 1000, QStringLiteral("Black")));
    page.lines.push_back(rule(3));
    const QImage image = paint(page);
    QApplication::setPalette(before);
    int black = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const QRgb color = image.pixel(x, y);
            ASSERT_TRUE(qRed(color) == qGreen(color) && qGreen(color) == qBlue(color)) << x << ',' << y;
            black += color == qRgb(0, 0, 0) ? 1 : 0;
        }
    EXPECT_GT(black, 5000);
    EXPECT_LT(black, 20000);
}

TEST_F(PagePainterTest, LinesAreAsWideAsAskedAndNeverVanish) {
    const QRectF thin = inkTwips(paint(pageOf(rule(1))));
    EXPECT_NEAR(thin.left(), 500, dot);
    EXPECT_NEAR(thin.right(), 11100, dot);
    EXPECT_NEAR(thin.center().y(), 900, 1.5 * dot);
    EXPECT_NEAR(thin.height(), 15, dot);
    EXPECT_NEAR(inkTwips(paint(pageOf(rule(3)))).height(), 45, dot);

    QImage small(100, 130, QImage::Format_RGB32);
    small.fill(Qt::white);
    QPainter painter(&small);
    painter.scale(100 / 12240.0, 100 / 12240.0);
    m_painter.drawPage(painter, pageOf(rule(1)), 1);
    painter.end();
    EXPECT_GT(inkDots(small).width(), 80) << "a rule is lost in the overview";
}

TEST_F(PagePainterTest, LinesOfOneWidthLookAlikeWhereverTheyStand) {
    for (const int width : {1, 3}) {
        std::set<int> thicknesses;
        for (qint16 y = 900; y < 930; ++y) {
            PageLine line = rule(width);
            line.y1 = line.y2 = y;
            const QRect ink = inkDots(paint(pageOf(line)));
            thicknesses.insert(ink.height());
            EXPECT_NEAR(ink.center().y() + 0.5, y * dotsPerTwip, 1);
        }
        EXPECT_EQ(thicknesses.size(), 1U) << width;
    }
}

TEST_F(PagePainterTest, ThePageTextEndsInTheNumberOfPages) {
    const PageText text = textAt(9800, 800, QStringLiteral("Page:1 of"), {.PageTotal = true});
    const PageText whole = textAt(9800, 800, QStringLiteral("Page:1 of 250"));
    EXPECT_EQ(paint(pageOf(text), 250), paint(pageOf(whole), 250));
}

TEST_F(PagePainterTest, WhatLiesBeyondThePageIsCutOff) {
    EXPECT_EQ(pageSizeTwips(Orientation::Portrait), QSizeF(12240, 15840));
    EXPECT_EQ(pageSizeTwips(Orientation::Landscape), QSizeF(15840, 12240));
    QImage image(1000, 1000, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(0.05, 0.05);
    m_painter.drawPage(painter, pageOf(textAt(11900, 800, QStringLiteral("beyond the edge"))), 1);
    painter.end();
    const QRect ink = inkDots(image);
    EXPECT_GE(ink.left(), 11900 / 20);
    EXPECT_LE(ink.right(), 12240 / 20);
}

} // namespace
