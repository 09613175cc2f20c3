#include "reports/preview/PreviewWindow.h"
#include "support/MessageScript.h"
#include "support/ScreenDriver.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>
#include <set>

namespace tarnwell {

namespace {

using test::ScreenDriver;
using test::waitFor;

constexpr int linesOnPage = 5;

/// Pages of a few lines each: "Line 2 of page 3". It remembers which ones were painted.
class LinedPages : public PreviewDocument {
public:
    explicit LinedPages(int count) : m_count(count) {}

    mutable std::multiset<int> painted;
    QSizeF paper{12240, 15840};

    [[nodiscard]] int count() const override { return m_count; }
    [[nodiscard]] QSizeF paperSize() const override { return paper; }
    [[nodiscard]] QString paperName() const override { return QStringLiteral("Letter, portrait"); }
    void paint(QPainter& painter, int page) const override {
        painted.insert(page);
        painter.fillRect(QRectF(0, 0, 1440, 1440), Qt::black);
    }
    [[nodiscard]] int hitsOn(int page, const PageSearch& search) const override {
        return static_cast<int>(marks(page, search).size());
    }
    [[nodiscard]] std::vector<PageMark> marks(int page, const PageSearch& search) const override {
        std::vector<PageMark> marks;
        for (int line = 1; line <= linesOnPage; ++line)
            if (!search.text.isEmpty() && QStringLiteral("Line %1 of page %2")
                                              .arg(line)
                                              .arg(page)
                                              .contains(search.text, search.letters))
                marks.push_back({static_cast<int>(marks.size()), QRectF(2000, line * 2500, 3000, 240)});
        return marks;
    }

private:
    int m_count;
};

/// The window as it opens on twelve pages, at the size of a page on paper.
class PreviewTest : public ::testing::Test {
protected:
    PreviewTest() : window(pages, QStringLiteral("Lot Budget"), {}, look), driver(window) {
        window.resize(1000, 700);
        driver.press(Qt::Key_3, Qt::ControlModifier);
        driver.press(Qt::Key_0, Qt::ControlModifier);
        driver.press(Qt::Key_Home);
    }

    [[nodiscard]] PreviewView& view() const { return driver.find<PreviewView>("pages"); }
    [[nodiscard]] QString textOf(const char* label) const { return driver.find<QLabel>(label).text(); }

    LinedPages pages{12};
    PreviewLook look;
    PreviewWindow window;
    ScreenDriver driver;
};

} // namespace

TEST_F(PreviewTest, EveryWayToTurnPagesReachesItsPage) {
    struct Step {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int page;
    };
    const Step steps[] = {
        {Qt::Key_Right, Qt::NoModifier, 2},          {Qt::Key_PageDown, Qt::ControlModifier, 3},
        {Qt::Key_Left, Qt::NoModifier, 2},           {Qt::Key_PageUp, Qt::ControlModifier, 1},
        {Qt::Key_PageUp, Qt::ControlModifier, 1},    {Qt::Key_End, Qt::NoModifier, 12},
        {Qt::Key_PageDown, Qt::ControlModifier, 12}, {Qt::Key_Home, Qt::NoModifier, 1},
        {Qt::Key_End, Qt::ControlModifier, 12},      {Qt::Key_Home, Qt::ControlModifier, 1},
    };
    for (const Step& step : steps) {
        driver.press(step.key, step.modifiers);
        EXPECT_EQ(view().currentPage(), step.page) << QKeySequence(step.key).toString().toStdString();
    }
    driver.click("btnNextPage");
    EXPECT_EQ(view().currentPage(), 2);
    driver.click("btnLastPage");
    EXPECT_EQ(driver.find<QLineEdit>("txtPage").text(), "12");
    EXPECT_FALSE(driver.find("btnNextPage").isEnabled());
    driver.click("btnPreviousPage");
    EXPECT_EQ(view().currentPage(), 11);
}

// At a size where the window shows half a page, nothing of the page may be jumped over.
TEST_F(PreviewTest, PageDownShowsTheRestOfAPageBeforeTheNextAndPageUpWalksBack) {
    driver.press(Qt::Key_PageDown);
    EXPECT_EQ(view().currentPage(), 1);
    const int bottom = view().pageOnScreen(1).bottom();
    EXPECT_LT(bottom, view().viewport()->height());
    driver.press(Qt::Key_PageDown);
    EXPECT_EQ(view().currentPage(), 2);
    EXPECT_EQ(view().pageOnScreen(2).top(), PreviewLayout::margin);
    driver.press(Qt::Key_PageUp);
    EXPECT_EQ(view().pageOnScreen(1).bottom(), bottom);
    driver.press(Qt::Key_PageUp);
    EXPECT_EQ(view().pageOnScreen(1).top(), PreviewLayout::margin);
}

TEST_F(PreviewTest, ATypedPageIsGoneToAndAnImpossibleOneMeansTheNearest) {
    const auto typePage = [this](const QString& text) {
        driver.press(Qt::Key_G, Qt::ControlModifier);
        driver.type(text);
        driver.press(Qt::Key_Return);
        return view().currentPage();
    };
    EXPECT_EQ(textOf("lblPageCount"), "of 12");
    EXPECT_EQ(typePage("7"), 7);
    EXPECT_EQ(driver.focusedName(), "pages");
    EXPECT_EQ(typePage("x9y"), 9);
    EXPECT_EQ(typePage("99999"), 12);
    EXPECT_EQ(typePage("0"), 1);
    driver.press(Qt::Key_G, Qt::ControlModifier);
    driver.type("5");
    driver.press(Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(driver.find<QLineEdit>("txtPage").text(), "1");
}

TEST_F(PreviewTest, APageIsAsLargeAsOnPaperAtAHundredPercent) {
    const int inch = view().logicalDpiX();
    EXPECT_EQ(view().pageOnScreen(1).size(), QSize(inch * 17 / 2, inch * 11));
    EXPECT_EQ(driver.find<QComboBox>("cmbZoom").currentText(), "100 %");
    driver.press(Qt::Key_Plus, Qt::ControlModifier, 4);
    EXPECT_EQ(view().pageOnScreen(1).width(), inch * 17);
    driver.press(Qt::Key_Minus, Qt::ControlModifier, 30);
    EXPECT_DOUBLE_EQ(view().zoom(), PreviewZoom::least);
}

TEST_F(PreviewTest, TheZoomTakesTypedPercentsAndNothingElse) {
    const auto typeZoom = [this](const QString& text) {
        driver.focus("cmbZoom");
        driver.find<QComboBox>("cmbZoom").lineEdit()->selectAll();
        driver.type(text);
        driver.press(Qt::Key_Return);
        return driver.find<QComboBox>("cmbZoom").currentText();
    };
    EXPECT_EQ(typeZoom("150"), "150 %");
    EXPECT_EQ(typeZoom("62.4%"), "62 %");
    EXPECT_EQ(typeZoom("large"), "62 %");
    EXPECT_EQ(typeZoom("-3"), "62 %");
    EXPECT_EQ(typeZoom("9000"), "800 %");
    driver.choose("cmbZoom", "Fit page");
    EXPECT_EQ(view().fit(), ZoomFit::Page);
}

TEST_F(PreviewTest, FittingFollowsTheWindow) {
    driver.click("btnFitWidth");
    for (const int width : {900, 1240}) {
        window.resize(width, 700);
        ASSERT_TRUE(waitFor([&] { return window.width() == width; }));
        EXPECT_NEAR(view().pageOnScreen(1).width(), view().viewport()->width() - 2 * PreviewLayout::margin,
                    1);
    }
    driver.click("btnFitPage");
    window.resize(1000, 620);
    EXPECT_TRUE(waitFor([this] { return view().viewport()->rect().contains(view().pageOnScreen(1)); }));
    EXPECT_NEAR(view().pageOnScreen(1).height(), view().viewport()->height() - 2 * PreviewLayout::margin, 1);
}

TEST_F(PreviewTest, InANarrowWindowEveryToolIsInSightOrStillHasItsKeys) {
    for (const int width : {1000, 700, 100}) {
        window.resize(width, 700);
        QCoreApplication::processEvents();
        for (const char* button : {"btnPrint", "btnOverview", "btnFind", "btnClose"}) {
            const QWidget& tool = driver.find(button);
            EXPECT_TRUE(tool.isVisible()) << button << width;
            EXPECT_LE(tool.mapTo(&window, tool.rect().bottomRight()).x(), window.width()) << button << width;
        }
        driver.press(Qt::Key_End, Qt::ControlModifier);
        EXPECT_EQ(view().currentPage(), 12);
        driver.press(Qt::Key_Home, Qt::ControlModifier);
        EXPECT_EQ(view().currentPage(), 1);
    }
}

TEST_F(PreviewTest, WhatIsUnderTheMouseStaysThereWhenTheWheelZooms) {
    driver.press(Qt::Key_PageDown, Qt::ControlModifier, 3);
    const QPoint mouse(400, 300);
    const auto underMouse = [&] {
        const QRect page = view().pageOnScreen(4);
        return QPointF(mouse - page.topLeft()) / page.width();
    };
    const QPointF before = underMouse();
    for (const int turn : {120, 120, 120, -120}) {
        QWheelEvent event(mouse, view().viewport()->mapToGlobal(mouse), {}, {0, turn}, Qt::NoButton,
                          Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view().viewport(), &event);
    }
    EXPECT_NEAR(view().zoom(), 1.44, 0.01);
    EXPECT_NEAR(underMouse().x(), before.x(), 0.005);
    EXPECT_NEAR(underMouse().y(), before.y(), 0.005);
}

TEST_F(PreviewTest, AClickInTheOverviewOpensThePageInTheArrangementBefore) {
    driver.click("btnFacing");
    driver.click("btnOverview");
    EXPECT_FALSE(driver.find("cmbZoom").isEnabled());
    driver.click("pages", view().pageOnScreen(5).center());
    EXPECT_EQ(view().arrangement(), Arrangement::Facing);
    EXPECT_EQ(view().currentPage(), 5);
    EXPECT_EQ(view().pageOnScreen(5).top(), view().pageOnScreen(6).top());
    driver.press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(view().currentPage(), 7);
}

TEST_F(PreviewTest, TheOverviewIsWalkedByKeys) {
    driver.press(Qt::Key_5, Qt::ControlModifier);
    ASSERT_EQ(view().pageOnScreen(5).top(), view().pageOnScreen(1).top());
    ASSERT_GT(view().pageOnScreen(6).top(), view().pageOnScreen(1).top());
    driver.press(Qt::Key_Right);
    driver.press(Qt::Key_Down);
    EXPECT_EQ(view().currentPage(), 7);
    driver.press(Qt::Key_Up);
    driver.press(Qt::Key_Up);
    EXPECT_EQ(view().currentPage(), 2);
    driver.press(Qt::Key_Return);
    EXPECT_EQ(view().arrangement(), Arrangement::Single);
    EXPECT_EQ(view().currentPage(), 2);
}

TEST_F(PreviewTest, TypingFindsFromThePageOnAndF3GoesRound) {
    const test::MessageScript silent;
    driver.press(Qt::Key_PageDown, Qt::ControlModifier, 10);
    driver.press(Qt::Key_F, Qt::ControlModifier);
    driver.type("line 4");
    EXPECT_EQ(textOf("lblFindResult"), "11 of 12");
    driver.press(Qt::Key_Return);
    EXPECT_EQ(view().currentPage(), 12);
    driver.press(Qt::Key_F3);
    EXPECT_EQ(textOf("lblFindResult"), "1 of 12 (from the beginning)");
    EXPECT_EQ(view().currentPage(), 1);
    driver.press(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(textOf("lblFindResult"), "12 of 12 (from the end)");
    driver.press(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(textOf("lblFindResult"), "11 of 12");
}

TEST_F(PreviewTest, ALongReportIsSearchedFromThePageOnWhileTheKeysGoOn) {
    const LinedPages many(3000); // more than are searched before keys are looked at again
    PreviewWindow longer(many, QStringLiteral("Gantt Chart"), {}, look);
    const ScreenDriver keys(longer);
    auto& seen = keys.find<PreviewView>("pages");
    auto& result = keys.find<QLabel>("lblFindResult");
    seen.goToPage(2000);
    keys.press(Qt::Key_F, Qt::ControlModifier);
    keys.type("line 4 of page 2001");
    EXPECT_EQ(seen.currentPage(), 2001);
    EXPECT_EQ(result.text(), "1 of 1...");
    keys.press(Qt::Key_F3);
    EXPECT_EQ(seen.currentPage(), 2001) << "where the next one is isn't known yet";
    keys.press(Qt::Key_A, Qt::ControlModifier);
    keys.type("of page 123");
    EXPECT_TRUE(result.text().endsWith("...")) << result.text().toStdString();
    EXPECT_TRUE(waitFor([&] { return result.text() == "1 of 55"; })) << result.text().toStdString();
    EXPECT_EQ(seen.currentPage(), 123);
}

TEST_F(PreviewTest, AHitIsScrolledIntoViewAndMarked) {
    driver.press(Qt::Key_F, Qt::ControlModifier);
    driver.type("Line 5 of page 9");
    const QRect page = view().pageOnScreen(9);
    const double scale = page.width() / pages.paper.width();
    const QPoint hit = page.topLeft() + (QPointF(3000, 5 * 2500 + 120) * scale).toPoint();
    ASSERT_TRUE(view().viewport()->rect().contains(hit));
    // A slow machine paints the page in one of the next pictures only.
    const auto isMarked = [&] {
        const QColor mark = view().viewport()->grab().toImage().pixelColor(hit);
        return mark.red() > 200 && mark.blue() < 150;
    };
    EXPECT_TRUE(waitFor(isMarked));
}

TEST_F(PreviewTest, NotFoundIsSaidInTheLineAndMatchCaseCounts) {
    const test::MessageScript silent;
    driver.press(Qt::Key_F3);
    EXPECT_EQ(driver.focusedName(), "txtFind");
    driver.type("LINE 2");
    EXPECT_EQ(textOf("lblFindResult"), "1 of 12");
    driver.click("chkMatchCase");
    EXPECT_EQ(textOf("lblFindResult"), "Not found");
    driver.press(Qt::Key_F3);
    EXPECT_EQ(textOf("lblFindResult"), "Not found");
}

TEST_F(PreviewTest, EscapeClosesTheFindLineFirst) {
    driver.press(Qt::Key_F, Qt::ControlModifier);
    driver.type("page");
    driver.press(Qt::Key_Escape);
    EXPECT_FALSE(driver.find("findBar").isVisible());
    EXPECT_EQ(view().finder().hitCount(), 0);
    EXPECT_TRUE(window.isVisible());
    driver.press(Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

TEST_F(PreviewTest, PaperIsWhiteOnADarkDesktopToo) {
    QPalette dark(QColor(50, 50, 54), QColor(40, 40, 44));
    window.setPalette(dark);
    const QImage seen = view().viewport()->grab().toImage();
    const QRect page = view().pageOnScreen(1);
    EXPECT_EQ(seen.pixelColor(page.topLeft() + QPoint(300, 30)), QColor(Qt::white));
    EXPECT_EQ(seen.pixelColor(page.topLeft() + QPoint(30, 30)), QColor(Qt::black));
    EXPECT_LT(seen.pixelColor(2, page.center().y()).lightness(), 50);
}

TEST(LongPreviewTest, OnlyWhatIsSeenIsPainted) {
    LinedPages pages(1000);
    PreviewLook look;
    PreviewWindow window(pages, QStringLiteral("Gantt Chart"), {}, look);
    const ScreenDriver driver(window);
    auto& view = driver.find<PreviewView>("pages");
    ASSERT_TRUE(waitFor([&] { return pages.painted.contains(1); }));
    driver.press(Qt::Key_End);
    ASSERT_TRUE(waitFor([&] { return pages.painted.contains(1000); }));
    EXPECT_EQ(view.currentPage(), 1000);
    driver.press(Qt::Key_5, Qt::ControlModifier);
    ASSERT_TRUE(waitFor([&] { return pages.painted.count(1000) == 2; })) << "the overview's small page";
    EXPECT_LT(pages.painted.size(), 100U);
}

} // namespace tarnwell
