#include "controls/Combo.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "frame/ChangeWatch.h"
#include "reports/drawing/ReportDatabase.h"
#include "reports/generator/frmReportParameters.h"
#include "reports/output/PrinterDialogs.h"
#include "reports/preview/ctlAHPrintPreview.h"
#include "runtime/modGlobalVariables.h"
#include "support/MessageScript.h"
#include "support/RaisedNumber.h"
#include "support/RememberedSettings.h"
#include "support/ScreenDriver.h"
#include "support/ScreenTest.h"

#include <QAction>
#include <QPrinter>

#include <gtest/gtest.h>

using namespace tarnwell;
using namespace tarnwell::test;

namespace {

constexpr auto oneJobOnly = "You cannot select more than one job per report";
constexpr auto noJob = "You must select at least one job for the report";

class ReportScreen : public ScreenTest {
protected:
    void SetUp() override {
        workOn(data.database());
        gReportDataPath = data.database().folder() + "/Report.mdb";
        foreman = data.add(EmployeeRow{"111-11-1111", "Stone", "Sid", "Foreman"});
        helper = data.add(EmployeeRow{"222-22-2222", "Dunn", "Dee", "Helper"});
        const qint64 framing = data.addCategory("Framing");
        for (int number = 1; number <= 6; ++number) {
            jobs.push_back(data.add(JobRow{.number = QString::number(number), .foreman = "Stone/Sid"}));
            const qint64 lot = data.add(LotRow{.job = jobs.back(), .lotBlock = "A"});
            data.add(TaskRow{.lot = lot,
                             .category = framing,
                             .name = "Walls",
                             .start = on("03/05/24"),
                             .stop = on("03/15/24")});
        }
        data.add(JobRow{.number = "7", .completed = on("03/05/24")});
        m_before = ctlAHPrintPreview::setPreview(
            [this](const ReportPages& report, const QString& title, QWidget* owner) {
                shown << QString("%1 %2 %3").arg(owner->objectName(), title).arg(report.pageCount());
            });
    }
    void TearDown() override {
        ScreenTest::TearDown();
        ctlAHPrintPreview::setPreview(m_before);
        setPrinterDialogs({});
        setCurrentPrinter(nullptr);
    }

    static frmReportParameters& form() { return theForm<frmReportParameters>(); }
    const ScreenDriver& open() { return driver.emplace(form()); }
    [[nodiscard]] bool enabled(const char* name) const { return driver->find(name).isEnabled(); }
    [[nodiscard]] QString text(const char* combo) const { return driver->find<Combo>(combo).Text(); }
    void mark(std::initializer_list<int> lines) {
        driver->click("cmdClear");
        for (const int line : lines)
            driver->clickLine("lstJobs", line);
    }
    [[nodiscard]] std::vector<qint64> marked() const { return form().parameters().markedJobs; }
    /// The one message that pressing the button brings.
    QString messageOf(const char* caption) {
        script.expect(Answer::Ok);
        const std::size_t before = script.shown().size();
        driver->clickToolbar(caption);
        return script.shown().size() == before + 1 ? script.shown().back().text : QString();
    }

    ReportDatabase data;
    qint64 foreman = 0, helper = 0;
    std::vector<qint64> jobs;
    MessageScript script;
    QStringList shown;
    std::optional<ScreenDriver> driver;

private:
    ctlAHPrintPreview::Preview m_before;
};

} // namespace

TEST_F(ReportScreen, JobsOfOthersJoinTheListAndMarksStay) {
    open();
    mark({1, 4});
    const std::vector<qint64> before = marked();
    data.add(JobRow{.number = "0"});
    ChangeWatch().look();
    EXPECT_EQ(driver->find<ListBox>("lstJobs").ListCount(), 7);
    EXPECT_EQ(marked(), before);
}

TEST_F(ReportScreen, OpensOnTheFirstReportWithItsDefaults) {
    open();
    EXPECT_EQ(form().windowTitle(), "Report Generator");
    EXPECT_EQ(driver->focusedName(), "cmbReports");
    EXPECT_EQ(form().statusText(), "Select the foreman to filter report by");
    EXPECT_EQ(text("cmbReports"), "Calendar by Day");
    EXPECT_EQ(text("cmbGroupBy"), "Date");
    EXPECT_EQ(driver->find<ListBox>("lstJobs").ListCount(), 6) << "incomplete jobs only";
    const ReportParameters parameters = form().parameters();
    EXPECT_FALSE(parameters.employeeKey.has_value());
    EXPECT_TRUE(parameters.incomplete);
    EXPECT_EQ(parameters.startDate, "01/01/02");
    EXPECT_EQ(parameters.stopDate, "12/31/29");
    EXPECT_EQ(parameters.detail, DetailLevel::All);
    EXPECT_EQ(parameters.groupBy, GroupBy::Date);
    EXPECT_FALSE(parameters.allJobsMarked || parameters.summary);
    EXPECT_TRUE(parameters.markedJobs.empty());
}

TEST_F(ReportScreen, TheReportStartedLastIsAPressAwayAfterTheNextStart) {
    const RememberedSettings settings;
    open();
    EXPECT_FALSE(enabled("cmdLast"));
    driver->choose("cmbReports", "Gantt Chart");
    driver->retype("MskField(0)", "030124");
    driver->retype("MskField(1)", "033124");
    mark({0});
    driver->clickToolbar("Prevw");
    EXPECT_EQ(shown.size(), 1);
    form().Unload();
    RememberedSettings::endProgram();
    open();
    EXPECT_EQ(text("cmbReports"), "Calendar by Day") << "it opens as ever";
    EXPECT_EQ(form().parameters().startDate, "01/01/02");
    EXPECT_EQ(driver->find("cmdLast").toolTip(),
              "Press to choose Gantt Chart from 03/01/24 to 03/31/24 again");
    driver->press(Qt::Key_L, Qt::AltModifier);
    EXPECT_EQ(text("cmbReports"), "Gantt Chart");
    EXPECT_EQ(form().parameters().startDate, "03/01/24");
    EXPECT_EQ(form().parameters().stopDate, "03/31/24");
    for (const char* damaged : {"03/01/24 Gantt Chart", "Gantt Chart", "13/45/24 03/31/24 Gantt Chart",
                                "03/01/24 03/31/24 No such report"}) {
        form().Unload();
        remember("Last report", damaged);
        open();
        EXPECT_FALSE(enabled("cmdLast")) << damaged;
    }
}

TEST_F(ReportScreen, EachReportEnablesWhatItsDefinitionAllows) {
    data.database().run("DELETE FROM ReportDefinition");
    const char* const columns[] = {"pEntryDate",  "pForeman", "pSSN",    "pDetailLevel",
                                   "summaryOnly", "groupBy",  "category"};
    const std::vector<std::vector<const char*>> controls = {{"MskField(0)", "MskField(1)"},
                                                            {"cmbForeman"},
                                                            {"cmbSSN"},
                                                            {"optDetail(0)", "optDetail(1)", "optDetail(2)"},
                                                            {"chkSummary"},
                                                            {"cmbGroupBy"},
                                                            {"cmbCategory"}};
    for (const char* only : columns) {
        std::vector<std::pair<QString, Value>> row = {
            {"Name", only}, {"objectName", "frmRptGantt"}, {"multiSelect", true}, {"reportType", 1}};
        for (const char* column : columns)
            row.emplace_back(column, column == only);
        data.database().add("ReportDefinition", row);
    }
    open();
    for (std::size_t chosen = 0; chosen < std::size(columns); ++chosen) {
        driver->choose("cmbReports", columns[chosen]);
        for (std::size_t i = 0; i < controls.size(); ++i)
            for (const char* control : controls[i])
                EXPECT_EQ(enabled(control), i == chosen) << control << " for " << columns[chosen];
        EXPECT_EQ(driver->find<Combo>("cmbGroupBy").ListCount(),
                  QString(columns[chosen]) == "groupBy" ? 5 : 0);
    }
}

TEST_F(ReportScreen, AnotherReportClearsTheCombosAndKeepsTheRest) {
    open();
    driver->choose("cmbReports", "Employee Paid-out");
    driver->click("chkSummary");
    driver->choose("cmbSSN", "222-22-2222|Dunn, Dee         ");
    EXPECT_EQ(form().parameters().employeeKey, helper);
    driver->choose("cmbReports", "Lot Budget");
    EXPECT_EQ(text("cmbSSN"), "");
    driver->choose("cmbForeman", "Stone/Sid");
    driver->click("optDetail(2)");
    driver->choose("cmbReports", "Calendar by Week");
    driver->choose("cmbCategory", "Framing");
    driver->choose("cmbGroupBy", "Job");
    driver->focus("MskField(0)");
    driver->press(Qt::Key_Home);
    driver->type("020304");
    mark({2});
    EXPECT_EQ(form().parameters().category, "Framing");
    EXPECT_EQ(form().parameters().groupBy, GroupBy::Job);
    driver->choose("cmbReports", "Lot Options");
    // Now disabled, and read all the same.
    const ReportParameters parameters = form().parameters();
    EXPECT_EQ(parameters.foreman + parameters.category, "");
    EXPECT_EQ(parameters.groupBy, GroupBy::None);
    EXPECT_FALSE(parameters.employeeKey.has_value());
    EXPECT_TRUE(parameters.summary);
    EXPECT_EQ(parameters.detail, DetailLevel::Unpaid);
    EXPECT_EQ(parameters.startDate, "02/03/04");
    EXPECT_EQ(parameters.markedJobs, std::vector{jobs[2]});
}

TEST_F(ReportScreen, TypingSearchesEmployeeAndGrouping) {
    open();
    driver->retype("cmbGroupBy", "e");
    EXPECT_EQ(text("cmbGroupBy"), "Employee");
    EXPECT_EQ(form().statusText(), "Select how to group the report by");
    driver->choose("cmbReports", "Employee Paid-out");
    driver->focus("cmbSSN");
    driver->type("2");
    EXPECT_EQ(form().parameters().employeeKey, helper);
}

TEST_F(ReportScreen, AReportNameThatIsTypedWholeIsChosen) {
    open();
    driver->retype("cmbReports", "lot budge");
    EXPECT_TRUE(enabled("cmbGroupBy")) << "still the calendar's settings";
    driver->type("t");
    EXPECT_EQ(text("cmbReports"), "Lot Budget");
    EXPECT_FALSE(enabled("cmbGroupBy"));
    EXPECT_TRUE(enabled("chkSummary"));
    mark({1});
    driver->clickToolbar("Prevw");
    EXPECT_EQ(shown, QStringList{"frmRptLotBudget Lot Budget 1"});
}

TEST_F(ReportScreen, AClickOnTheWordTicksSummary) {
    open();
    driver->click("lblFieldLabel(3)");
    EXPECT_FALSE(form().parameters().summary) << "it is greyed";
    driver->choose("cmbReports", "Lot Budget");
    driver->click("lblFieldLabel(3)");
    EXPECT_TRUE(form().parameters().summary);
    EXPECT_EQ(driver->focusedName(), "chkSummary");
    driver->click("lblFieldLabel(3)");
    EXPECT_FALSE(form().parameters().summary);
}

TEST_F(ReportScreen, MarksTurnByClickSpaceAndShift) {
    open();
    mark({1, 3});
    EXPECT_EQ(marked(), (std::vector{jobs[1], jobs[3]}));
    driver->clickLine("lstJobs", 1);
    EXPECT_EQ(marked(), std::vector{jobs[3]});
    driver->press(Qt::Key_Down);
    driver->press(Qt::Key_Space);
    driver->press(Qt::Key_Down, Qt::ShiftModifier, 3);
    EXPECT_EQ(marked(), (std::vector{jobs[2], jobs[3], jobs[4], jobs[5]}));
    driver->click("cmdClear");
    driver->focus("lstJobs");
    driver->type("5");
    EXPECT_TRUE(marked().empty()) << "searching for a job marks none";
    driver->press(Qt::Key_Space);
    EXPECT_EQ(marked(), std::vector{jobs[4]});
    driver->press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(form().parameters().allJobsMarked);
    driver->clickLine("lstJobs", 2);
    EXPECT_FALSE(form().parameters().allJobsMarked) << "all but one";
    driver->press(Qt::Key_C, Qt::AltModifier); // It is Category's letter too, so it presses nothing.
    driver->click("cmdClear");
    driver->click("cmdSelectAll");
    EXPECT_EQ(marked(), jobs);
}

TEST_F(ReportScreen, MarksAreLostWhenTheListIsLoadedAgain) {
    open();
    driver->click("cmdSelectAll");
    driver->click("optJobType(0)");
    EXPECT_EQ(driver->find<ListBox>("lstJobs").ListCount(), 7);
    EXPECT_FALSE(form().parameters().incomplete);
    EXPECT_EQ(messageOf("Prevw"), noJob);
    mark({6});
    driver->click("optJobType(1)");
    EXPECT_EQ(messageOf("Print"), noJob);
    EXPECT_EQ(script.shown().back().icon, MessageIcon::Exclamation);
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(ReportScreen, AReportOfOneJobRefusesMoreButForTheFirst) {
    data.database().run("UPDATE ReportDefinition SET multiSelect=0");
    open();
    driver->choose("cmbReports", "Gantt Chart");
    mark({4, 5});
    driver->focus("cmbForeman");
    EXPECT_EQ(messageOf("Prevw"), oneJobOnly);
    EXPECT_EQ(driver->focusedName(), "cmbForeman");
    EXPECT_EQ(marked(), (std::vector{jobs[4], jobs[5]})) << "nothing is lost";
    mark({0, 5});
    driver->clickToolbar("Prevw");
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(ReportScreen, WithoutAReportNothingStarts) {
    open();
    driver->click("cmdSelectAll");
    driver->focus("cmbReports");
    driver->type("x");
    EXPECT_EQ(messageOf("Prevw"), "You must select report / file name to print.");
    EXPECT_EQ(script.shown().back().title, "Selection Error");
}

TEST_F(ReportScreen, AnInvalidDateIsRestoredWithoutAMessage) {
    open();
    driver->focus("MskField(0)");
    EXPECT_EQ(form().statusText(), "Enter the start payroll entry date to filter report by");
    driver->press(Qt::Key_Home);
    driver->type("134502");
    EXPECT_EQ(driver->find<MaskedBox>("MskField(0)").text(), "13/45/02");
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(driver->focusedName(), "MskField(1)");
    EXPECT_EQ(form().parameters().startDate, "01/01/02");
    driver->type("022904");
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(form().parameters().stopDate, "02/29/04");
    driver->retype("MskField(1)", "");
    driver->press(Qt::Key_Tab);
    EXPECT_EQ(form().parameters().stopDate, "02/29/04");
}

TEST_F(ReportScreen, RunsTheReportOfTheDefinitionsName) {
    open();
    driver->choose("cmbReports", "Gantt Chart");
    mark({0, 1});
    driver->clickToolbar("Prevw");
    EXPECT_EQ(shown, QStringList{"frmRptGantt Gantt Chart 1"});
    EXPECT_EQ(marked(), (std::vector{jobs[0], jobs[1]})) << "marks stay between runs";
    data.database().run("UPDATE JobLotTask SET StartDate=#01/01/01#");
    EXPECT_EQ(messageOf("Prevw"), "Nothing to print with given parameters.");
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(ReportScreen, AnyOtherSpellingOfAFormDoesNothing) {
    data.database().run("UPDATE ReportDefinition SET objectName='frmrptgantt'");
    open();
    driver->click("cmdSelectAll");
    driver->clickToolbar("Prevw");
    driver->clickToolbar("Print");
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_TRUE(form().isVisible());
}

TEST_F(ReportScreen, AnInvalidDateInTheStatementIsReported) {
    open();
    driver->choose("cmbReports", "Gantt Chart");
    mark({1});
    driver->focus("MskField(0)");
    driver->press(Qt::Key_Home);
    driver->type("134502");
    EXPECT_EQ(messageOf("Prevw").left(8), "Error # ") << "the toolbar takes no focus";
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(ReportScreen, PrintSetupIsTheSystemsDialog) {
    int asked = 0;
    setCurrentPrinter(std::make_unique<QPrinter>());
    PrinterDialogs dialogs;
    dialogs.setUp = [&](QPrinter&, QWidget* owner) {
        EXPECT_EQ(owner, &form());
        return ++asked > 0;
    };
    setPrinterDialogs(dialogs);
    open();
    form().findChild<QAction*>("mnuPrintSetup")->trigger();
    EXPECT_EQ(asked, 1);
    dialogs.setUp = [](QPrinter&, QWidget*) -> bool { raise(Failure::FileAccess); };
    setPrinterDialogs(dialogs);
    script.expect(Answer::Ok);
    form().findChild<QAction*>("mnuPrintSetup")->trigger();
    EXPECT_EQ(script.shown().back().title, "Error");
    form().findChild<QAction*>("mnuExit")->trigger();
    EXPECT_FALSE(form().isVisible());
}

TEST_F(ReportScreen, WithoutAnyDefinitionItCannotOpen) {
    data.database().run("DELETE FROM ReportDefinition");
    EXPECT_EQ(raisedNumber([] { form().Load(); }), numberOf(Failure::InvalidProperty));
}
