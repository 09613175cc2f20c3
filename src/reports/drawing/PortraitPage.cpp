#include "reports/drawing/PortraitPage.h"

#include "reports/drawing/ReportText.h"

namespace tarnwell {

namespace {

constexpr qint16 beyondAnyLimit = 32000;
constexpr qint16 pageLimit = 13500;
constexpr qint16 headerTop = 800;
constexpr int titleX = 4200;
constexpr int pageNumberX = 9800;

} // namespace

ReportPen portraitPen(ReportRun& run) {
    ReportPen pen(run.surface, run.reportKey, Orientation::Portrait);
    pen.moveTo(beyondAnyLimit);
    return pen;
}

bool isPageFull(const ReportPen& pen) {
    return pen.y() > pageLimit;
}

void startPortraitPage(ReportPen& pen, const QString& title, int gapBelow) {
    pen.newPage(headerTop);
    pen.text(titleX, titleText(title), {.FontSize = largeSize, .YStep = 0});
    pen.pageNumber(pageNumberX);
    pen.rule(pageLeft, pageRight);
    pen.down(gapBelow);
}

void drawRow(ReportPen& pen, std::initializer_list<RowText> texts, int step, int fontSize, int columnX) {
    for (const RowText& text : texts) {
        const bool isLast = &text == texts.end() - 1;
        pen.text(columnX + text.x, text.text,
                 {.Bold = text.bold, .FontSize = fontSize, .YStep = isLast ? step : 0});
    }
}

void drawRecords(ReportRun& run, const std::function<void()>& drawRecord) {
    run.watcher.setMax(run.rsReport.RecordCount());
    while (!run.rsReport.atEnd() && !run.watcher.CancelRequested()) {
        drawRecord();
        run.watcher.stepOne();
        run.rsReport.MoveNext();
        run.watcher.DoEvents();
    }
}

} // namespace tarnwell
