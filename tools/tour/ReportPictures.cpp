#include "tour/ReportPictures.h"

#include "tour/Steps.h"

#include <array>

namespace tarnwell::tour {

namespace {

struct PicturedReport {
    const char* name;
    const char* job; ///< Null: all of them are marked.
    const char* firstDay;
    const char* lastDay;
    const char* picture;
};

/// A chart takes one job. The days are those with the most to show.
constexpr std::array<PicturedReport, 6> reports{{
    {"Lot Budget", nullptr, nullptr, nullptr, "frmRptLotBudget"},
    {"Lot Options", nullptr, nullptr, nullptr, "frmRptLotOptions"},
    {"Employee Paid-out", nullptr, "01/01/26", "10/31/26", "frmRptEmployeePaidout"},
    {"Employee Corrections", nullptr, "01/01/26", "10/31/26", "frmRptEmployeeCorrections"},
    {"Calendar by Week", nullptr, "08/31/26", "09/06/26", "frmRptCalendar"},
    {"Gantt Chart", "26-1003", "04/13/26", "04/29/26", "frmRptGantt"},
}};

constexpr std::array generator{
    Step{Do::Press, "Alt+R"},
    Step{Do::See, "frmReportParameters"},
    Step{Do::Choose, "cmbReports", "Lot Budget"},
    Step{Do::Line, "lstJobs", "26-1003"},
    Step{Do::Line, "lstJobs", "26-1022"},
    Step{Do::Picture, "frmReportParameters"},
};

constexpr std::array toPreview{
    Step{Do::Toolbar, "Prevw"},
    Step{Do::See, "preview"},
    Step{Do::Size, "960x660"},
};

constexpr std::array fromPreview{
    Step{Do::Press, "Esc"},
    Step{Do::See, "frmReportParameters"},
};

void mark(Driver& driver, const char* job) {
    driver.click(QStringLiteral("cmdClear"));
    if (job != nullptr)
        take(driver, std::array{Step{Do::Line, "lstJobs", job}});
    else
        driver.click(QStringLiteral("cmdSelectAll"));
}

void enterDates(Driver& driver, const PicturedReport& report) {
    if (report.firstDay == nullptr)
        return;
    driver.fill(QStringLiteral("MskField(0)"), QLatin1String(report.firstDay));
    driver.fill(QStringLiteral("MskField(1)"), QLatin1String(report.lastDay));
    driver.press(QKeySequence(Qt::Key_Tab));
}

} // namespace

void takeReportPictures(Driver& driver) {
    take(driver, generator);
    for (const PicturedReport& report : reports) {
        take(driver, std::array{Step{Do::Choose, "cmbReports", report.name}});
        mark(driver, report.job);
        enterDates(driver, report);
        take(driver, toPreview);
        take(driver, std::array{Step{Do::PicturePart, "pages", report.picture}});
        if (&report == reports.data())
            driver.windowPicture(QStringLiteral("preview"));
        take(driver, fromPreview);
    }
    driver.clickToolbar(QStringLiteral("Exit"));
}

} // namespace tarnwell::tour
