#include "reports/output/PrinterDialogs.h"
#include "tour/Chapters.h"

#include <QDir>
#include <QFile>

#include <array>

namespace tarnwell::tour {

namespace {

constexpr std::array groupings{"Category", "Date", "Employee", "Foreman", "Job"};

struct PrintedReport {
    const char* name;
    const char* picture;
    bool oneJob = false;  ///< A job is marked rather than all.
    bool grouped = false; ///< Printed once for each grouping.
};

constexpr std::array<PrintedReport, 7> printed{{
    {"Calendar by Day", "11-calendar", false, true},
    {"Calendar by Week", nullptr, false, true},
    {"Employee Corrections", nullptr},
    {"Employee Paid-out", "12-paid-out"},
    {"Gantt Chart", "13-gantt", true},
    {"Lot Budget", "14-lot-budget"},
    {"Lot Options", nullptr},
}};

/// The open job with the most dated tasks in the shortest time: its chart is the fullest.
constexpr auto jobForChart = R"sql(
SELECT JobNumber FROM Job JOIN JobLot USING (JobKey) JOIN JobLotTask USING (JobLotKey)
WHERE CompletedDate IS NULL AND StartDate IS NOT NULL
GROUP BY JobNumber ORDER BY COUNT(*) DESC, JobNumber LIMIT 1)sql";

QString fileName(const QString& report, const QString& grouping) {
    QString name = report;
    if (!grouping.isEmpty())
        name += u' ' + grouping;
    return name.replace(u' ', u'-').toLower() + QStringLiteral(".pdf");
}

bool isWholePdf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-" &&
           file.readAll().trimmed().endsWith("%%EOF");
}

/// From the generator through the preview to a PDF and back.
void print(Driver& driver, const PrintedReport& report, const QString& grouping) {
    const QString path = QDir(driver.folder()).filePath(fileName(QLatin1String(report.name), grouping));
    QFile::remove(path);
    driver.act([path] {
        PrinterDialogs dialogs;
        dialogs.savePdfAs = [path](const QString&, QWidget*) { return QString(path); };
        setPrinterDialogs(std::move(dialogs));
    });
    if (!grouping.isEmpty())
        driver.choose(QStringLiteral("cmbGroupBy"), grouping);
    driver.clickToolbar(QStringLiteral("Prevw"));
    driver.seeWindow(QStringLiteral("preview"));
    if (report.picture != nullptr && (grouping.isEmpty() || grouping == QStringLiteral("Date")))
        driver.picture(QLatin1String(report.picture));
    driver.press(QKeySequence(QStringLiteral("Ctrl+S")));
    driver.see(path, [path] { return isWholePdf(path); });
    driver.press(QKeySequence(Qt::Key_Escape));
    driver.seeWindow(QStringLiteral("frmReportParameters"));
}

void markJobs(Driver& driver, bool oneJob) {
    driver.click(oneJob ? QStringLiteral("cmdClear") : QStringLiteral("cmdSelectAll"));
    if (!oneJob)
        return;
    const QString job = driver.ask(jobForChart);
    const QStringList lines = driver.textOf(QStringLiteral("lstJobs")).split(u'\n');
    int line = 0;
    while (line < lines.size() && !lines[line].startsWith(job))
        ++line;
    driver.clickLine(QStringLiteral("lstJobs"), line);
}

} // namespace

void printEveryReport(Driver& driver) {
    driver.press(QKeySequence(QStringLiteral("Alt+R")));
    driver.seeWindow(QStringLiteral("frmReportParameters"));
    for (const PrintedReport& report : printed) {
        driver.choose(QStringLiteral("cmbReports"), QLatin1String(report.name));
        driver.seeText(QStringLiteral("cmbReports"), QLatin1String(report.name));
        markJobs(driver, report.oneJob);
        if (!report.grouped)
            print(driver, report, {});
        else
            for (const char* grouping : groupings)
                print(driver, report, QLatin1String(grouping));
    }
    driver.picture(QStringLiteral("15-reports"));
    driver.clickToolbar(QStringLiteral("Exit"));
}

} // namespace tarnwell::tour
