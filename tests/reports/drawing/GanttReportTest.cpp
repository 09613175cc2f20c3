#include "reports/drawing/GanttReport.h"

#include "reports/drawing/ReportTest.h"
#include "support/RaisedNumber.h"

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

const Report gantt{"frmRptGantt", "Gantt Chart", ganttQuery, drawGantt};
const ReportParameters everyTask{.incomplete = false, .allJobsMarked = true};

class GanttReport : public ReportTest {
protected:
    qint64 framing = data.addCategory("Framing and beams");
    qint64 roofing = data.addCategory("Roof");
    qint64 elm = data.add(JobRow{.number = "1001", .foreman = "Stone/Sid"});
    qint64 elmA = data.add(LotRow{.job = elm, .lotBlock = "A-1"});

    qint64 addTask(const char* name, const Value& start, const Value& stop) {
        return data.add(
            TaskRow{.lot = elmA, .category = framing, .name = name, .start = start, .stop = stop});
    }
    /// "x1-x2" of the bars of one page.
    QStringList bars(qint64 page) {
        QStringList found;
        for (const PageLine& line : pages.lineItems())
            if (line.page == page && line.width == 3)
                found << QStringLiteral("%1-%2").arg(line.x1).arg(line.x2);
        return found;
    }
    /// The day labels of one page.
    QStringList days(qint64 page) {
        QStringList found;
        for (const PageText& text : pages.textItems())
            if (text.page == page && text.y == 700)
                found << text.text;
        return found;
    }
};

} // namespace

TEST_F(GanttReport, DrawsJobsLotsTasksAndBarsOnDayPages) {
    const qint64 elmB = data.add(LotRow{.job = elm, .lotBlock = "B-2"});
    const qint64 oak = data.add(JobRow{.number = "1002"});
    const qint64 oakA = data.add(LotRow{.job = oak, .lotBlock = "A-1"});
    addTask("Walls of the first and second floor", on("03/05/24 07:30"), on("03/07/24 15:00"));
    addTask("Beams", on("03/20/24"), on("03/23/24"));
    data.add(TaskRow{.lot = elmB, .category = roofing, .start = on("03/25/24"), .stop = on("03/25/24")});
    data.add(TaskRow{
        .lot = oakA, .category = roofing, .name = "Tiles", .start = on("03/05/24"), .stop = on("03/29/24")});
    draw(gantt, everyTask);
    expectApproved(pages, "gantt");
    EXPECT_EQ(watcher.units, 1);
    EXPECT_EQ(watcher.steps, 1);
    EXPECT_EQ(watcher.records, 8) << "each record once for each day page";
}

TEST_F(GanttReport, ThirtyFiveRecordsFillAPageAndHeadingsStartAgain) {
    for (int i = 0; i < 36; ++i)
        addTask("Walls", on("03/05/24"), on(i == 35 ? "03/22/24" : "03/06/24"));
    draw(gantt, everyTask);
    EXPECT_EQ(pages.pageCount(), 4) << "two pages of tasks, each on two pages of days";
    EXPECT_EQ(watcher.units, 2);
    EXPECT_EQ(watcher.steps, 2);
    EXPECT_EQ(pages.texts(2).count("Framing an: Walls"), 35) << "a task beyond its days keeps its row";
    EXPECT_EQ(pages.texts(3).count("Framing an: Walls"), 1);
    EXPECT_EQ(pages.texts(3).count("Job: 1001  Lot/Block: A-1"), 1);
    EXPECT_EQ(bars(2), QStringList()) << "the last task is the only one on the second page of days";
    EXPECT_EQ(bars(4), QStringList{"3700-4350"}) << "the edges kept while the first page was drawn";
}

TEST_F(GanttReport, TheDaysCoverTheRangeUpToItsLastDay) {
    const struct {
        const char* stop;
        int dayPages;
        QString lastDay;
        const char* why;
    } ranges[] = {
        {"03/02/24", 1, "03/02", "a range of two days"},
        {"03/17/24", 1, "03/17", "17 days fill a page"},
        {"03/18/24", 2, "03/18", "a range of 18 days rounds to two pages"},
        {"04/03/24", 2, "04/03", "34 days fill two pages"},
        {"04/04/24", 2, "04/03", "2.5 rounds to the even 2: the 35th day has no column"},
        {"04/05/24", 3, "04/05", "36 days"},
    };
    const qint64 task = addTask("Walls", on("03/01/24"), on("03/01/24"));
    for (const auto& range : ranges) {
        data.database().run(QStringLiteral("UPDATE JobLotTask SET StopDate=#%1# WHERE JobLotTaskKey=%2")
                                .arg(QLatin1String(range.stop))
                                .arg(task));
        draw(gantt, everyTask);
        EXPECT_EQ(pages.pageCount(), range.dayPages) << range.why;
        EXPECT_EQ(days(range.dayPages).last(), range.lastDay) << range.why;
    }
}

TEST_F(GanttReport, ATaskOnTheLostLastDayHasNoBar) {
    addTask("Walls", on("03/01/24"), on("03/01/24"));
    addTask("Paint", on("04/04/24"), on("04/04/24"));
    draw(gantt, everyTask);
    EXPECT_EQ(bars(1), QStringList{"3700-4350"});
    EXPECT_EQ(bars(2), QStringList());
    EXPECT_TRUE(pages.texts(2).contains("Framing an: Paint"));
}

TEST_F(GanttReport, ASingleDayHasNoPageToPutItsDateOn) {
    addTask("Walls", on("03/05/24 07:30"), on("03/05/24 15:00"));
    EXPECT_EQ(raisedNumber([&] { draw(gantt, everyTask); }), numberOf(Failure::SubscriptOutOfRange));
    EXPECT_EQ(pages.lines(), QStringList());
}

TEST_F(GanttReport, MoreDayPagesThanAnIntegerCountsAreNone) {
    addTask("Walls", DateTime{QDate(1000, 1, 1)}, DateTime{QDate(2600, 1, 1)});
    EXPECT_EQ(raisedNumber([&] { draw(gantt, everyTask); }), numberOf(Failure::SubscriptOutOfRange));
}

TEST_F(GanttReport, AMissingDateEndsTheDrawingWhereItIsMet) {
    addTask("Walls", on("03/05/24"), on("03/08/24"));
    addTask("Beams", on("03/06/24"), Value::null());
    addTask("Tiles", on("03/07/24"), on("03/07/24"));
    EXPECT_EQ(raisedNumber([&] { draw(gantt, everyTask); }), numberOf(Failure::TypeMismatch));
    EXPECT_TRUE(pages.texts().contains("Framing an: Beams")) << "what was drawn by then stays";
    EXPECT_FALSE(pages.texts().contains("Framing an: Tiles"));
}

TEST_F(GanttReport, WithoutAnyDateThereIsNoRange) {
    addTask("Walls", Value::null(), Value::null());
    EXPECT_EQ(raisedNumber([&] { draw(gantt, everyTask); }), numberOf(Failure::InvalidUseOfNull));
}

// Two digits of the year stand for 1930 to 2029.
TEST_F(GanttReport, DatesFrom2030OnComeBackACenturyEarlier) {
    addTask("Walls", on("12/30/2029"), on("01/02/2030"));
    addTask("Beams", on("12/31/2029"), on("12/31/2029"));
    draw(gantt, everyTask);
    EXPECT_EQ(days(1).size(), 17) << "1930 is no day of the range, so the days run on";
    EXPECT_EQ(bars(1), QStringList{"4350-5000"}) << "the task that stops in 1930 has no bar";
}

TEST_F(GanttReport, AnEmptyJobNumberHasNoHeadingOfItsOwn) {
    const qint64 bare = data.add(JobRow{.number = ""});
    const qint64 lot = data.add(LotRow{.job = bare, .lotBlock = "C"});
    data.add(TaskRow{.lot = lot, .category = roofing, .start = on("03/05/24"), .stop = on("03/06/24")});
    draw(gantt, everyTask);
    EXPECT_TRUE(pages.texts().contains("Lot/Block: C"));
    EXPECT_FALSE(pages.texts().contains("Job:   Lot/Block: C"));
}

// The last lot is not forgotten at a new page, where a job without a number doesn't take it anew.
TEST_F(GanttReport, AMissingLotBlockDiffersFromNoOther) {
    const qint64 bare = data.add(JobRow{.number = ""});
    for (const char* lotBlock : {"gone", "C"})
        data.add(TaskRow{.lot = data.add(LotRow{.job = bare, .lotBlock = lotBlock}),
                         .category = roofing,
                         .start = on("03/01/24"),
                         .stop = on("03/18/24")});
    data.database().run("UPDATE JobLot SET LotBlock=Null WHERE LotBlock='gone'");
    draw(gantt, everyTask);
    EXPECT_EQ(pages.texts(1).filter("Lot/Block"), QStringList{"Lot/Block: C"});
    EXPECT_EQ(pages.texts(2).filter("Lot/Block"), QStringList());
}

TEST_F(GanttReport, TheFilterHoldsForTheRowsAndForTheirDays) {
    const qint64 oak = data.add(JobRow{.number = "1002"});
    const qint64 oakA = data.add(LotRow{.job = oak, .lotBlock = "A-1"});
    addTask("Walls", on("03/05/24"), on("03/06/24"));
    data.add(TaskRow{
        .lot = oakA, .category = roofing, .name = "Tiles", .start = on("01/01/24"), .stop = on("12/31/24")});
    ReportParameters dates{.startDate = "02/01/24", .stopDate = "03/31/24", .allJobsMarked = true};
    ReportParameters foreman = everyTask;
    foreman.foreman = "stone/sid";
    ReportParameters category = everyTask;
    category.category = "Framing and beams";
    for (const ReportParameters& parameters :
         {dates, ReportParameters{.incomplete = false, .markedJobs = {elm}}, foreman, category}) {
        draw(gantt, parameters);
        EXPECT_EQ(days(1), (QStringList{"03/05", "03/06"})) << ganttQuery(parameters).toStdString();
        EXPECT_FALSE(pages.texts().contains("Roof: Tiles"));
    }
}

TEST_F(GanttReport, AnEmployeeIsNoPartOfTheStatement) {
    addTask("Walls", on("03/05/24"), on("03/06/24"));
    ReportParameters ofEmployee = everyTask;
    ofEmployee.employeeKey = 1;
    EXPECT_EQ(raisedNumber([&] { draw(gantt, ofEmployee); }), numberOf(Failure::NoSuchColumn));
}

TEST_F(GanttReport, CancelEndsAllItsLoops) {
    for (int i = 0; i < 36; ++i)
        addTask("Walls", on("03/05/24"), on("04/30/24"));
    watcher.cancelAfter = 2;
    draw(gantt, everyTask);
    EXPECT_EQ(watcher.records, 2);
    EXPECT_EQ(pages.pageCount(), 1);
}
