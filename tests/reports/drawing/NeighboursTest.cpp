#include "reports/drawing/ReportList.h"
#include "reports/drawing/ReportTest.h"
#include "reports/pages/PagePainter.h"

#include <algorithm>
#include <cmath>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

/// Texts as long as people write them, in every place that has a neighbour.
class Neighbours : public ReportTest {
protected:
    Neighbours() {
        const qint64 category = data.addCategory("Waterproofing membranes");
        const qint64 employee = data.add(EmployeeRow{.SSN = "111-11-1111",
                                                     .lastName = "Wolfeschlegelstein",
                                                     .firstName = "Hubertus",
                                                     .type = "Foreman of waterproofing"});
        const qint64 job = data.add(JobRow{.number = "24-100 NORTHWEST",
                                           .name = "Commonwealth Meadows Phase Two, West Wing",
                                           .foreman = "Wolfeschlegelstein/Hubertus"});
        const qint64 lot =
            data.add(LotRow{.job = job,
                            .lotBlock = "104-B Phase II",
                            .plan = "Westminster Manor with Porch",
                            .address = "4711 Commonwealth Avenue Northwest, Upper Marlborough"});
        for (const char* day : {"03/05/24", "03/06/24"}) {
            const qint64 task = data.add(TaskRow{.lot = lot,
                                                 .category = category,
                                                 .name = "Membranes of all walls and windows below ground",
                                                 .price = 123456.75,
                                                 .start = on(day),
                                                 .stop = on(day),
                                                 .employee = employee});
            data.makeParent(task);
            pay(task, employee);
            pay(data.addOption(task, "Membranes of all walls and windows", 23456.5), employee);
        }
        data.database().run("UPDATE JobLotTask SET StartDate=#03/05/24#, StopDate=#03/06/24# WHERE "
                            "isnull(StartDate)=-1"); // of the options
    }
    void pay(qint64 task, qint64 employee) {
        data.add(PaymentRow{task, employee, 12345.25, on("03/05/24"), "Windows without membranes"});
        data.add(LogRow{task, employee, on("03/05/24"), "Paid twice"});
    }

    /// Where the next text on the same row begins; `end` for the last one.
    [[nodiscard]] double nextOf(const PageText& text, int end) const {
        int next = end;
        for (const PageText& other : pages.textItems())
            if (other.page == text.page && other.y == text.y && other.x > text.x)
                next = std::min<int>(next, other.x);
        return next;
    }
    /// Of each weekday's thick rule: how far below the letters it begins, in twips.
    [[nodiscard]] std::vector<double> gapsAboveDayRules() {
        constexpr double halfRule = 22.5;
        std::vector<double> gaps;
        for (const PageText& text : pages.textItems())
            for (const PageLine& line : pages.lineItems())
                if (text.text.contains("day: ") && line.page == text.page && line.width == 3 &&
                    std::abs(line.y1 - text.y) < 400)
                    gaps.push_back(line.y1 - halfRule - m_painter.textBox(text, 1).bottom());
        return gaps;
    }

    PagePainter m_painter;
};

} // namespace

TEST_F(Neighbours, NoTextReachesTheOneOnItsRight) {
    const struct {
        const char* objectName;
        int end; ///< Of a row's texts: the first bar, the right column, the paper's edge.
    } reports[] = {
        {"frmRptCalendar", 12240},        {"frmRptGantt", 3700},     {"frmRptEmployeeCorrections", 12240},
        {"frmRptEmployeePaidout", 12240}, {"frmRptLotBudget", 5700}, {"frmRptLotOptions", 12240}};
    constexpr int paperRight = 12240 + 3600; // of landscape
    constexpr int firstRowY = 850;           // below the page's header
    for (const auto& [objectName, end] : reports) {
        draw(*findReport(objectName), {.incomplete = false,
                                       .startDate = "01/01/24",
                                       .stopDate = "12/31/24",
                                       .allJobsMarked = true,
                                       .groupBy = GroupBy::Category});
        for (const PageText& text : pages.textItems())
            EXPECT_LE(m_painter.textBox(text, 1).right(), nextOf(text, text.y < firstRowY ? paperRight : end))
                << objectName << ": " << text.text.toStdString();
    }
}

TEST_F(Neighbours, TheThickRuleBelowADayKeepsClearOfItsLetters) {
    constexpr double screenDot = 15; // twips
    for (const int mode : {0, 1}) {
        draw(*findReport("frmRptCalendar"),
             {.incomplete = false, .allJobsMarked = true, .groupBy = GroupBy::Date, .calendarMode = mode});
        const std::vector<double> gaps = gapsAboveDayRules();
        EXPECT_EQ(gaps.size(), 2U) << "two days";
        EXPECT_GE(std::ranges::min(gaps), screenDot) << mode;
    }
}
