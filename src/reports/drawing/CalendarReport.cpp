#include "reports/drawing/CalendarReport.h"

#include "data/RunTimeError.h"
#include "reports/drawing/PortraitPage.h"
#include "reports/drawing/ReportText.h"
#include "reports/drawing/TaskQuery.h"
#include "runtime/RunTime.h"
#include "runtime/modFormatFunctions.h"

#include <QLocale>

#include <array>
#include <optional>
#include <unordered_map>
#include <utility>

namespace tarnwell {

namespace {

constexpr int pageADate = 0; // calendar modes; any other has no days
constexpr int pageAWeek = 1;

// Twips.
constexpr qint16 headerTop = 300;
constexpr int titleX = 4000;
constexpr int pageNumberX = 9700;
constexpr int headingEnd = 2500;
constexpr int rowStep = 250;
constexpr int dayRuleWidth = 3;
/// A line of the default size, and what the upper half of a thick rule takes of the space below the letters.
constexpr int dayStep = TextLook::defaultStep + 30;

struct Grouping {
    TaskSelect select;
    const char* order;
    const char* keyColumn;  ///< A change of it opens a page; null: none does.
    const char* textColumn; ///< Names the group on the page; null: no name.
};

/// In the order of `GroupBy`.
constexpr std::array groupings{
    Grouping{TaskSelect::Foreman, "Description, JobLotTask.StartDate, JobNumber, LotBlock", "Description",
             "Description"},
    Grouping{TaskSelect::Plain, "JobLotTask.StartDate, JobNumber, LotBlock", nullptr, nullptr},
    Grouping{TaskSelect::Employee,
             "Lastname, JobLotTask.EmployeeKey, JobLotTask.StartDate, JobNumber, LotBlock", "EmployeeKey",
             "LastName"},
    Grouping{TaskSelect::Foreman, "Foreman, JobLotTask.StartDate, JobNumber, LotBlock", "Foreman", "Foreman"},
    Grouping{TaskSelect::Foreman, "JobNumber, JobLotTask.StartDate, LotBlock", "JobNumber", "JobNumber"},
};

const Grouping& groupingOf(GroupBy groupBy) {
    return groupings.at(static_cast<std::size_t>(groupBy));
}

/// A task's start or stop; raises InvalidUseOfNull for Null, which has no place in a calendar.
Value moment(Value value) {
    if (value.isNull())
        raise(Failure::InvalidUseOfNull);
    return value;
}

QString dayText(const Value& value) {
    return dateText(moment(value));
}

QString timeText(const Value& value) {
    return Format(moment(value), QStringLiteral("hh:mm"));
}

/// The day is counted from Sunday, but the list of names begins with the locale's first day of the week:
/// where that is Monday, each day gets the name of the next one. The C locale's week begins on Sunday.
QString weekdayName(const QDate& date) {
    const QLocale locale;
    const int firstDay = locale.language() == QLocale::C ? Qt::Sunday : locale.firstDayOfWeek();
    const int fromSunday = date.dayOfWeek() % 7;
    return locale.dayName((firstDay - 1 + fromSunday) % 7 + 1);
}

class CalendarPages {
public:
    explicit CalendarPages(ReportRun& run)
        : m_connection(run.connection), m_rows(run.rsReport), m_mode(run.parameters.calendarMode),
          m_grouping(groupingOf(run.parameters.groupBy)), m_pen(portraitPen(run)) {}

    void drawRecord();

private:
    [[nodiscard]] bool staysInGroup();
    [[nodiscard]] bool staysOnDate(bool inGroup);
    [[nodiscard]] bool staysInWeek(bool inGroup);
    void startPage();
    void drawColumnHeads();
    void drawDay(int gapBelow);
    void drawDayOfWeek();
    void drawTime();
    void drawTask();
    [[nodiscard]] std::optional<QString> employee();
    [[nodiscard]] QString text(const QString& column) const { return FieldText(m_rows[column]); }
    [[nodiscard]] Value start() const { return m_rows["StartDate"]; }

    Connection& m_connection;
    const Recordset& m_rows;
    int m_mode;
    const Grouping& m_grouping;
    ReportPen m_pen;
    QString m_groupValue;
    QString m_pageDay;                 ///< Of mode 0.
    QDate m_monday{1899, 12, 30};      ///< Of the page's week, in mode 1.
    QString m_lastDay;                 ///< With a heading, in mode 1; empty on a new page.
    std::optional<QString> m_lastTime; ///< Nothing on a new page and under a day's heading.
    std::optional<std::unordered_map<qint64, QString>> m_employees;
};

void CalendarPages::drawRecord() {
    bool staysOnPage = staysInGroup();
    if (m_mode == pageADate)
        staysOnPage = staysOnDate(staysOnPage);
    if (m_mode == pageAWeek)
        staysOnPage = staysInWeek(staysOnPage);
    if (!staysOnPage || isPageFull(m_pen))
        startPage();
    if (m_mode == pageAWeek && dayText(start()) != m_lastDay)
        drawDayOfWeek();
    drawTime();
    drawTask();
}

bool CalendarPages::staysInGroup() {
    if (m_grouping.keyColumn == nullptr)
        return true;
    const QString before = std::exchange(m_groupValue, text(m_grouping.keyColumn));
    return before == m_groupValue;
}

bool CalendarPages::staysOnDate(bool inGroup) {
    const QString before = std::exchange(m_pageDay, dayText(start()));
    return inGroup && before == m_pageDay;
}

bool CalendarPages::staysInWeek(bool inGroup) {
    if (inGroup && m_monday.daysTo(start().toDate().date) < 7)
        return true;
    // The text has two digits of the year: a week of 2030 comes back as one of 1930, so each of its tasks
    // opens a page.
    const QDate day = CDate(dayText(start())).date;
    m_monday = day.addDays(1 - day.dayOfWeek());
    return false;
}

void CalendarPages::startPage() {
    m_pen.newPage(headerTop);
    drawRow(m_pen, {{titleX, titleText("Daily Task Calendar: ")}}, 0, largeSize);
    const QString group = m_grouping.textColumn == nullptr ? QString() : text(m_grouping.textColumn);
    if (!group.isEmpty())
        m_pen.text(pageLeft, "Group: " + group,
                   {.FontSize = largeSize, .YStep = 0, .FontName = "Arial", .Flag2 = true}, titleX);
    m_pen.pageNumber(pageNumberX);
    m_pen.rule(pageLeft, pageRight);
    m_pen.down(300);
    if (m_mode == pageADate)
        drawDay(250);
    drawColumnHeads();
    m_lastTime.reset();
    m_lastDay.clear();
}

void CalendarPages::drawColumnHeads() {
    drawRow(m_pen,
            {{600, "Start"},
             {1300, "End"},
             {2000, "Job"},
             {3200, "Employee"},
             {4500, "Lot/Block"},
             {5700, "Category"},
             {7100, "Plan"},
             {8500, "Task"}},
            200);
    m_pen.rule(600, 11000);
    m_pen.down(100);
}

void CalendarPages::drawDay(int gapBelow) {
    m_pen.text(pageLeft, weekdayName(start().toDate().date) + ": " + dayText(start()), {.YStep = dayStep});
    m_pen.rule(pageLeft, headingEnd, dayRuleWidth);
    m_pen.down(gapBelow);
}

void CalendarPages::drawDayOfWeek() {
    m_pen.down(150);
    drawDay(150);
    m_lastTime.reset();
    m_lastDay = dayText(start());
}

void CalendarPages::drawTime() {
    const QString time = timeText(start());
    if (m_lastTime == time)
        return;
    if (m_lastTime)
        m_pen.down(200);
    m_lastTime = time;
    drawRow(m_pen, {{600, time}}, 0);
}

void CalendarPages::drawTask() {
    drawRow(m_pen,
            {{1300, timeText(m_rows["StopDate"])},
             {2000, text("JobNumber").left(10)},
             {3200, employee()},
             {4500, text("LotBlock").left(15)},
             {5700, text("Description").left(20)},
             {7100, text("PlanName").left(15)},
             {8500, text("Name").left(30)}},
            rowStep);
}

/// Nothing when the employee no longer exists.
std::optional<QString> CalendarPages::employee() {
    const Value key = m_rows["EmployeeKey"];
    if (key.isNoKey())
        return "Not Defined";
    if (!m_employees) {
        Recordset names;
        names.Open("SELECT EmployeeKey, LastName + '/' + FirstName as Name FROM Employee", m_connection,
                   CursorType::ForwardOnly);
        m_employees.emplace();
        for (; !names.atEnd(); names.MoveNext())
            m_employees->emplace(names.field(0).toLong(), FieldText(names.field(1)).left(15));
    }
    const auto found = m_employees->find(key.toLong());
    return found == m_employees->end() ? std::nullopt : std::optional(found->second);
}

} // namespace

QString calendarQuery(const ReportParameters& parameters) {
    if (parameters.groupBy == GroupBy::None)
        return {};
    const Grouping& grouping = groupingOf(parameters.groupBy);
    return taskQuery(parameters, grouping.select) + " ORDER BY " + QLatin1String(grouping.order);
}

void drawCalendar(ReportRun& run) {
    CalendarPages pages(run);
    drawRecords(run, [&] { pages.drawRecord(); });
}

} // namespace tarnwell
