#include "reports/drawing/CalendarReport.h"

#include "reports/drawing/ReportTest.h"
#include "support/RaisedNumber.h"

#include <QLocale>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report calendar{"frmRptCalendar", "Calendar", calendarQuery, drawCalendar};

ReportParameters allTasks(GroupBy groupBy, int mode = 0) {
    return {.incomplete = false, .allJobsMarked = true, .groupBy = groupBy, .calendarMode = mode};
}

class CalendarReport : public ReportTest {
protected:
    CalendarReport() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~CalendarReport() override { QLocale::setDefault(QLocale::system()); }

    qint64 framing = data.addCategory("Framing");
    qint64 roofing = data.addCategory("Roofing, gutters, tiles");
    qint64 ann = data.add(EmployeeRow{.lastName = "Archer-Middleton", .firstName = "Ann"});
    qint64 bob = data.add(EmployeeRow{.SSN = "222-22-2222", .lastName = "Baker", .firstName = "Bob"});
    qint64 elm = data.add(JobRow{.number = "1001-2024-B", .foreman = "Stone/Sid"});
    qint64 oak = data.add(JobRow{.number = "1002"});
    qint64 elmA = data.add(LotRow{.job = elm, .lotBlock = "A-1", .plan = "Aspen with porch"});
    qint64 oakA = data.add(LotRow{.job = oak, .lotBlock = "B-2"});

    void addTask(qint64 lot, qint64 category, const char* name, const char* start, const char* stop,
                 qint64 employee) {
        data.add(TaskRow{.lot = lot,
                         .category = category,
                         .name = name,
                         .start = on(start),
                         .stop = on(stop),
                         .employee = employee});
    }
    void addTask(const char* name, const char* start, const char* stop) {
        addTask(elmA, framing, name, start, stop, 0);
    }
    /// Two weeks of tasks of both jobs.
    void addTasks() {
        addTask(elmA, framing, "Walls of the first and the second floor", "03/05/24 07:30", "03/05/24 15:00",
                bob);
        addTask(elmA, roofing, "Rafters", "03/05/24 07:30", "03/05/24 12:00", ann);
        addTask(oakA, framing, "Beams", "03/05/24 09:00", "03/05/24 12:00", 0);
        addTask(oakA, framing, "Posts", "03/06/24", "03/07/24", bob);
        addTask(elmA, roofing, "Gutters", "03/10/24 07:30", "03/10/24 15:00", 999);
        addTask(elmA, roofing, "Tiles", "03/11/24 07:30", "03/11/24 15:00", ann);
    }
    /// The texts of that height's column, page by page: "1: 07:30".
    QStringList column(int x) {
        QStringList found;
        for (const PageText& text : pages.textItems())
            if (text.x == x)
                found << QStringLiteral("%1: %2").arg(text.page).arg(text.text);
        return found;
    }
    QStringList headings() { return column(500); }
    QStringList tasks() { return column(8500); }
};

} // namespace

TEST_F(CalendarReport, EachGroupingDrawsItsPages) {
    const struct {
        GroupBy groupBy;
        int mode;
        const char* name;
    } cases[] = {{GroupBy::Category, 0, "calendar-category"}, {GroupBy::Date, 0, "calendar-date"},
                 {GroupBy::Employee, 0, "calendar-employee"}, {GroupBy::Foreman, 0, "calendar-foreman"},
                 {GroupBy::Job, 0, "calendar-job"},           {GroupBy::Date, 1, "calendar-week"},
                 {GroupBy::Job, 1, "calendar-week-job"},      {GroupBy::Job, 2, "calendar-no-days"}};
    addTasks();
    for (const auto& drawn : cases) {
        draw(calendar, allTasks(drawn.groupBy, drawn.mode));
        expectApproved(pages, QString::fromLatin1(drawn.name));
        const int records = drawn.groupBy == GroupBy::Employee ? 4 : 6;
        EXPECT_EQ(watcher.units, records) << drawn.name;
        EXPECT_EQ(watcher.steps, records) << drawn.name;
    }
}

TEST_F(CalendarReport, ASundayBelongsToTheWeekOfTheMondayBefore) {
    addTask("Sunday", "03/10/24", "03/10/24");
    addTask("Monday", "03/11/24", "03/11/24");
    addTask("Sunday after", "03/17/24", "03/17/24");
    draw(calendar, allTasks(GroupBy::Date, 1));
    EXPECT_EQ(tasks(), (QStringList{"1: Task", "1: Sunday", "2: Task", "2: Monday", "2: Sunday after"}));
    EXPECT_EQ(headings(), (QStringList{"1: Sunday: 03/10/24", "2: Monday: 03/11/24", "2: Sunday: 03/17/24"}));
}

TEST_F(CalendarReport, APageThatIsFullGoesOnWithDayAndTimeAgain) {
    for (int i = 0; i < 48; ++i)
        addTask("Walls", "03/05/24 07:30", "03/05/24 15:00");
    draw(calendar, allTasks(GroupBy::Date, 1));
    EXPECT_EQ(pages.pageCount(), 2);
    EXPECT_EQ(headings(), (QStringList{"1: Tuesday: 03/05/24", "2: Tuesday: 03/05/24"}));
    EXPECT_EQ(column(600), (QStringList{"1: Start", "1: 07:30", "2: Start", "2: 07:30"}));
    EXPECT_EQ(pages.texts(2).count("Walls"), 1) << "the 47th row stands at 13,270";
}

TEST_F(CalendarReport, AMissingStartOrStopEndsTheDrawing) {
    for (const auto& [start, stop] :
         {std::pair{on("03/05/24"), Value::null()}, std::pair{Value::null(), on("03/05/24")}}) {
        const qint64 task = data.add(TaskRow{.lot = elmA, .category = framing, .start = start, .stop = stop});
        for (const int mode : {0, 1, 2})
            for (const GroupBy groupBy : {GroupBy::Date, GroupBy::Job})
                EXPECT_EQ(raisedNumber([&] { draw(calendar, allTasks(groupBy, mode)); }),
                          numberOf(Failure::InvalidUseOfNull));
        data.database().run(QStringLiteral("DELETE FROM JobLotTask WHERE JobLotTaskKey=%1").arg(task));
    }
}

// Two digits of the year stand for 1930 to 2029, so the week is looked for a century earlier.
TEST_F(CalendarReport, From2030OnEachTaskOpensAWeek) {
    addTask("Walls", "01/08/2030", "01/08/2030");
    addTask("Beams", "01/08/2030", "01/08/2030");
    draw(calendar, allTasks(GroupBy::Date, 1));
    EXPECT_EQ(tasks(), (QStringList{"1: Task", "1: Walls", "2: Task", "2: Beams"}));
    EXPECT_EQ(headings(), (QStringList{"1: Tuesday: 01/08/30", "2: Tuesday: 01/08/30"}));
}

// The day is counted from Sunday, the list of names begins on the locale's first day.
TEST_F(CalendarReport, WeekdaysAreNamedInTheUsersLanguageFromItsFirstDay) {
    addTask("Walls", "03/05/24", "03/05/24");
    const std::pair<QLocale, const char*> locales[] = {
        {QLocale(QLocale::Spanish, QLocale::Mexico), "1: martes: 03/05/24"},
        {QLocale::c(), "1: Tuesday: 03/05/24"},
        {QLocale(QLocale::German, QLocale::Germany), "1: Mittwoch: 03/05/24"}};
    for (const auto& [locale, heading] : locales) {
        QLocale::setDefault(locale);
        draw(calendar, allTasks(GroupBy::Date));
        EXPECT_EQ(headings(), QStringList{heading});
    }
}

TEST_F(CalendarReport, CancelEndsTheDrawingAfterItsRecord) {
    addTasks();
    watcher.cancelAfter = 2;
    draw(calendar, allTasks(GroupBy::Date));
    EXPECT_EQ(watcher.records, 2);
    EXPECT_EQ(pages.texts().count("Beams"), 0);
}

TEST_F(CalendarReport, EmployeeAndForemanFilterOnlySomeGroupings) {
    addTasks();
    ReportParameters ofBob = allTasks(GroupBy::Employee, 2);
    ofBob.employeeKey = bob;
    draw(calendar, ofBob);
    EXPECT_EQ(tasks(), (QStringList{"1: Task", "1: Walls of the first and the sec", "1: Posts"}));
    ofBob.groupBy = GroupBy::Date;
    EXPECT_EQ(raisedNumber([&] { draw(calendar, ofBob); }), numberOf(Failure::NoSuchColumn))
        << "only the statement by employee has employees";

    ReportParameters ofStone = allTasks(GroupBy::Date, 2);
    ofStone.foreman = "Stone/Sid";
    draw(calendar, ofStone);
    EXPECT_EQ(column(4500).count("1: A-1"), 4);
    EXPECT_EQ(column(4500).count("1: B-2"), 0);
    ofStone.groupBy = GroupBy::Employee;
    EXPECT_EQ(raisedNumber([&] { draw(calendar, ofStone); }), numberOf(Failure::SyntaxError))
        << "jobs and employees both have a foreman: the database asks which one";
}

TEST_F(CalendarReport, WithoutAGroupingThereIsNoStatement) {
    EXPECT_EQ(calendarQuery(allTasks(GroupBy::None)), "");
    EXPECT_EQ(raisedNumber([&] { draw(calendar, allTasks(GroupBy::None)); }), numberOf(Failure::SyntaxError));
}
