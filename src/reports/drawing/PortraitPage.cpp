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

void drawRow(ReportPen& pen, std::initializer_list<RowText> texts, int step, int fontSize,
             const RowColumn& column) {
    for (const RowText* place = texts.begin(); place != texts.end(); ++place) {
        const std::optional<QString>& text = place->text;
        if (!text)
            continue;
        const RowText* const next = place + 1;
        const bool isLast = next == texts.end();
        pen.text(column.x + place->x, *text,
                 {.Bold = place->bold, .FontSize = fontSize, .YStep = isLast ? step : 0},
                 isLast ? column.right : column.x + next->x);
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
