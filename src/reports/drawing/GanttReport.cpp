#include "reports/drawing/GanttReport.h"

#include "data/RunTimeError.h"
#include "reports/drawing/ReportPen.h"
#include "reports/drawing/ReportText.h"
#include "reports/drawing/TaskQuery.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"

#include <array>
#include <limits>
#include <vector>

namespace tarnwell {

namespace {

constexpr int dayColumns = 17;
constexpr int recordsPerPage = 35;

// Twips.
constexpr int leftMargin = 500;
constexpr int underlineEnd = 3500;
constexpr int firstColumnX = 3700;
constexpr int columnWidth = 650;
constexpr int headerY = 300;
constexpr int headerRuleY = 600;
constexpr int dayLabelY = 700;
constexpr int firstRowY = 900;
constexpr int barAbove = 100; // above the next row's text
constexpr int barWidth = 3;

constexpr int categoryLength = 10; // characters
constexpr int taskLength = 25;

/// The days across one page, from 1; entry 0 is the left edge. After the report's last day the dates are day
/// 0.
struct DayPage {
    std::array<QDate, dayColumns + 1> dates;
    std::array<int, dayColumns + 1> columnX{};
};

struct GanttDays {
    QDate stopDate;
    std::vector<DayPage> pages;
};

/// The date without its time. It goes through a text with two digits of the year, so 2030 becomes 1930.
QDate dayOf(const Value& date) {
    return CDate(dateText(date)).date;
}

/// Halves are rounded to even: 35 days make 2 pages, and the last day has no column. 0 beyond 16 bits.
int dayPageCount(const QDate& first, const QDate& last) {
    const double count = Round(static_cast<double>(first.daysTo(last)) / dayColumns + 0.5, 0);
    return count > std::numeric_limits<qint16>::max() ? 0 : static_cast<int>(count);
}

void fillDays(GanttDays& days) {
    for (std::size_t page = 0; page < days.pages.size(); ++page) {
        auto& dates = days.pages[page].dates;
        if (page > 0)
            dates[1] = days.pages[page - 1].dates[dayColumns].addDays(1);
        for (std::size_t day = 2; day <= dayColumns; ++day) {
            dates[day] = dates[day - 1].addDays(1);
            if (dates[day] == days.stopDate)
                break;
        }
    }
}

GanttDays daysOf(ReportRun& run) {
    Recordset range;
    range.Open(taskRangeQuery(run.parameters), run.connection, CursorType::Dynamic, LockType::Optimistic);
    const Value first = range.field(0);
    const Value last = range.field(1);
    const int pageCount = dayPageCount(first.toDate().date, last.toDate().date);
    GanttDays days{.stopDate = dayOf(last), .pages = {}};
    // A single day makes no page, so its date has no column.
    if (pageCount < 1)
        raise(Failure::SubscriptOutOfRange);
    DayPage unused;
    unused.dates.fill(QDate(1899, 12, 30));
    days.pages.assign(static_cast<std::size_t>(pageCount), unused);
    days.pages.front().dates[1] = dayOf(first);
    fillDays(days);
    return days;
}

/// Null counts as equal to everything.
bool differs(const Value& value, const QString& from) {
    return !value.isNull() && FieldText(value) != from;
}

class GanttPages {
public:
    explicit GanttPages(ReportRun& run)
        : m_rows(run.rsReport), m_watcher(run.watcher),
          m_pen(run.surface, run.reportKey, Orientation::Landscape), m_days(daysOf(run)) {}

    void draw();

private:
    void drawPage(int recordPage, DayPage& days);
    void drawHeader();
    void drawDayLabels(DayPage& days, bool keepEdges);
    void drawRecord(const DayPage& days);
    void drawHeading(const QString& text);
    void drawBars(const DayPage& days);

    Recordset& m_rows;
    ReportWatcher& m_watcher;
    ReportPen m_pen;
    GanttDays m_days;
    QString m_lastJob;
    QString m_lastLot;
};

void GanttPages::draw() {
    m_rows.setPageSize(recordsPerPage);
    const int pageCount = m_rows.PageCount();
    m_watcher.setMax(pageCount);
    for (int recordPage = 1; recordPage <= pageCount && !m_watcher.CancelRequested(); ++recordPage) {
        for (DayPage& days : m_days.pages) {
            drawPage(recordPage, days);
            if (m_watcher.CancelRequested())
                break;
        }
        m_watcher.stepOne();
    }
}

void GanttPages::drawPage(int recordPage, DayPage& days) {
    drawHeader();
    drawDayLabels(days, recordPage == 1);
    m_rows.setAbsolutePage(recordPage);
    m_pen.moveTo(firstRowY);
    m_lastJob.clear();
    for (int record = 1; record <= recordsPerPage; ++record) {
        drawRecord(days);
        m_rows.MoveNext();
        m_watcher.DoEvents();
        if (m_rows.atEnd() || m_watcher.CancelRequested())
            break;
    }
}

void GanttPages::drawHeader() {
    m_pen.newPage(headerY);
    m_pen.text(6000, titleText("Gantt Task Calendar: "));
    m_pen.moveTo(headerY);
    m_pen.pageNumber(13600);
    m_pen.line(leftMargin, headerRuleY, 14800, headerRuleY);
}

void GanttPages::drawDayLabels(DayPage& days, bool keepEdges) {
    int x = firstColumnX;
    days.columnX[0] = x;
    for (std::size_t day = 1; day <= dayColumns; ++day) {
        m_pen.moveTo(dayLabelY);
        m_pen.text(x, Format(DateTime{days.dates[day]}, QStringLiteral("mm/dd")), {.FontSize = 8});
        x += columnWidth;
        if (keepEdges)
            days.columnX[day] = x;
        if (days.dates[day] == m_days.stopDate)
            break;
    }
}

void GanttPages::drawRecord(const DayPage& days) {
    const Value jobNumber = m_rows["JobNumber"];
    const Value lotBlock = m_rows["LotBlock"];
    if (differs(jobNumber, m_lastJob)) {
        if (!m_lastJob.isEmpty())
            m_pen.down(100);
        m_lastJob = FieldText(jobNumber);
        m_lastLot = FieldText(lotBlock);
        drawHeading(QStringLiteral("Job: ") + m_lastJob + QStringLiteral("  Lot/Block: ") + m_lastLot);
    }
    if (differs(lotBlock, m_lastLot)) {
        if (!m_lastLot.isEmpty())
            m_pen.down(100);
        m_lastLot = FieldText(lotBlock);
        drawHeading(QStringLiteral("Lot/Block: ") + m_lastLot);
    }
    m_pen.text(leftMargin,
               FieldText(m_rows["Description"]).left(categoryLength) + QStringLiteral(": ") +
                   FieldText(m_rows["Name"]).left(taskLength),
               {.FontSize = 8, .YStep = 250}, firstColumnX);
    drawBars(days);
}

void GanttPages::drawHeading(const QString& text) {
    m_pen.text(leftMargin, text, {.Bold = true, .FontSize = 8, .YStep = 200}, firstColumnX);
    m_pen.rule(leftMargin, underlineEnd);
    m_pen.down(50);
}

void GanttPages::drawBars(const DayPage& days) {
    const QDate start = dayOf(m_rows["StartDate"]);
    std::size_t day = 1;
    while (day <= dayColumns && start > days.dates[day])
        ++day;
    const QDate stop = dayOf(m_rows["StopDate"]);
    const int y = m_pen.y() - barAbove;
    for (; day <= dayColumns && stop >= days.dates[day]; ++day) {
        m_pen.line(days.columnX[day - 1], y, days.columnX[day], y, barWidth);
        if (days.dates[day] == m_days.stopDate)
            break;
    }
}

} // namespace

QString ganttQuery(const ReportParameters& parameters) {
    return taskQuery(parameters, TaskSelect::Plain) +
           QStringLiteral(" ORDER BY JobNumber, LotBlock, JobLotTask.StartDate");
}

void drawGantt(ReportRun& run) {
    GanttPages(run).draw();
}

} // namespace tarnwell
