#include "reports/drawing/ReportList.h"
#include "reports/drawing/ReportTest.h"

#include <QRegularExpression>

#include <array>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

/// Tasks t1 to t8, which each report puts into an order of its own. Two jobs have one number, two employees
/// one last name and two one SSN.
class ReportOrder : public ReportTest {
protected:
    ReportOrder() {
        const std::array jobs{addJob("1002", "Ash"), addJob("1001", "Birch"), addJob("1001", "Ash")};
        const std::array lots{addLot(jobs[0], "B"), addLot(jobs[0], "A"), addLot(jobs[1], "B"),
                              addLot(jobs[1], "A"), addLot(jobs[2], "AB")};
        const std::array categories{data.addCategory("Roof"), data.addCategory("Frame")};
        const std::array employees{addEmployee("2", "Archer", "Bea"), addEmployee("1", "Archer", "Ann"),
                                   addEmployee("1", "Moss", "Mo")};
        const struct {
            std::size_t lot, category;
            const char* day;
            std::size_t employee;
            bool isParent;
        } tasks[] = {{2, 0, "03/07/24", 0, true},  {0, 0, "03/05/24", 2, true},  {4, 0, "03/07/24", 1, true},
                     {3, 0, "03/07/24", 2, true},  {4, 0, "03/05/24", 2, false}, {1, 0, "03/06/24", 0, true},
                     {3, 0, "03/06/24", 2, false}, {1, 1, "03/05/24", 2, false}};
        int number = 0;
        for (const auto& [lot, category, day, employee, isParent] : tasks) {
            const QString name = QStringLiteral("t%1").arg(++number);
            const qint64 task = data.add(TaskRow{.lot = lots.at(lot),
                                                 .category = categories.at(category),
                                                 .name = name,
                                                 .start = on(day),
                                                 .stop = on(day),
                                                 .employee = employees.at(employee)});
            if (isParent)
                data.makeParent(task);
            data.add(PaymentRow{task, employees.at(employee), 1, on(day)});
            const QString logged = QStringLiteral("02/%1/24").arg(20 - number);
            data.add(LogRow{task, employees.at(employee), on(qPrintable(logged)), name});
        }
    }
    qint64 addJob(const char* number, const char* foreman) {
        return data.add(JobRow{.number = number, .foreman = foreman});
    }
    qint64 addLot(qint64 job, const char* lotBlock) {
        return data.add(LotRow{.job = job, .lotBlock = lotBlock});
    }
    qint64 addEmployee(const char* ssn, const char* lastName, const char* firstName) {
        return data.add(EmployeeRow{.SSN = ssn, .lastName = lastName, .firstName = firstName});
    }
    /// The tasks' numbers in the order of the pages.
    [[nodiscard]] QString order() const {
        QString numbers;
        for (const QString& text : pages.texts().filter(QRegularExpression("\\bt[1-8]$")))
            numbers += text.back();
        return numbers;
    }
};

} // namespace

TEST_F(ReportOrder, EachReportHasItsOwnAndKeepsPeopleAndJobsOfOneNameApart) {
    constexpr auto noGroup = GroupBy::None;
    const struct {
        const char* objectName;
        GroupBy groupBy;
        const char* tasks;
        const char* heading;
        int headings;
    } cases[] = {{"frmRptGantt", noGroup, "74531862", "Job: ", 2}, // which goes by the number
                 {"frmRptCalendar", GroupBy::Category, "85276431", "Group: ", 2},
                 {"frmRptCalendar", GroupBy::Date, "58276431", "Group: ", 0},
                 {"frmRptCalendar", GroupBy::Employee, "61358274", "Group: ", 3},
                 {"frmRptCalendar", GroupBy::Foreman, "58263741", "Group: ", 2},
                 {"frmRptCalendar", GroupBy::Job, "57431826", "Group: ", 2},
                 {"frmRptEmployeePaidout", noGroup, "37458216", "Job#: ", 6},
                 {"frmRptEmployeeCorrections", noGroup, "38754261", "Archer, ", 2},
                 {"frmRptLotBudget", noGroup, "47135682", "Job#: ", 3},
                 {"frmRptLotOptions", noGroup, "41362", "Job#: ", 3}};
    for (const auto& [objectName, groupBy, tasks, heading, headings] : cases) {
        draw(*findReport(objectName), {.incomplete = false,
                                       .startDate = "01/01/24",
                                       .stopDate = "12/31/24",
                                       .allJobsMarked = true,
                                       .groupBy = groupBy,
                                       .calendarMode = 2});
        EXPECT_EQ(order(), tasks) << objectName << ' ' << static_cast<int>(groupBy);
        EXPECT_EQ(pages.texts().filter(QRegularExpression("^" + QString(heading))).size(), headings)
            << objectName << ' ' << static_cast<int>(groupBy);
    }
}
