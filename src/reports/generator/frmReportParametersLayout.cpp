#include "controls/Combo.h"
#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "look/Theme.h"
#include "reports/generator/JobList.h"
#include "reports/generator/frmReportParameters.h"
#include "runtime/EventGuard.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

// Texts, places and tab order of the screen.

namespace tarnwell {

namespace {

constexpr QSize designSize(940, 500);
constexpr int margin = 12, spacing = 8;
constexpr int jobLineCharacters = 46, dateWidth = 96;

/// Several tool tips describe another control; users are used to them.
struct ControlText {
    QWidget* control;
    QString name;
    const char* toolTip;
};

QString indexed(const char* name, std::size_t index) {
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

QGroupBox* frame(const char* caption, const char* name, QWidget* parent) {
    auto* made = new QGroupBox(caption, parent);
    made->setObjectName(name);
    return made;
}

/// Puts options into one row; those of one frame exclude each other.
template <std::size_t count>
void addOptions(QGroupBox* box, const std::array<QRadioButton*, count>& options) {
    auto* row = new QHBoxLayout(box);
    row->setSpacing(2 * spacing);
    for (QRadioButton* option : options)
        row->addWidget(option);
    row->addStretch(1);
}

} // namespace

void frmReportParameters::makeControls() {
    setDesignSize(designSize);
    for (Combo** combo : {&cmbReports, &cmbCategory, &cmbGroupBy, &cmbSSN, &cmbForeman})
        *combo = new Combo(canvas());
    cmbSSN->setFont(fixedPitchFont());
    lstJobs = new JobList(canvas());
    optJobType = {new QRadioButton("All:", canvas()), new QRadioButton("Incomplete:", canvas())};
    optDetail = {new QRadioButton("All:", canvas()), new QRadioButton("Paid Full:", canvas()),
                 new QRadioButton("Unpaid:", canvas())};
    chkSummary = new QCheckBox(canvas());
    for (MaskedBox*& field : MskField) {
        field = new MaskedBox(0, canvas());
        field->setMask("##/##/##");
    }
    cmdLast = new QPushButton("&Last Report", canvas());
    cmdClear = new QPushButton("&Clear", canvas());
    cmdSelectAll = new QPushButton("&Select All", canvas());
    nameControls();
    layOut();
    orderTabs();
    // Not before the options are in their frames: those of one parent all exclude each other.
    optJobType[1]->setChecked(true);
    optDetail[0]->setChecked(true);
}

void frmReportParameters::nameControls() {
    const ControlText texts[] = {
        {cmbReports, "cmbReports", "Select the foreman to filter report by"},
        {lstJobs, "lstJobs", "Select the report to print"},
        {cmdLast, "cmdLast", ""},
        {cmdClear, "cmdClear", ""},
        {cmdSelectAll, "cmdSelectAll", ""},
        {optJobType[0], indexed("optJobType", 0), "Select to add all detail to report"},
        {optJobType[1], indexed("optJobType", 1), "Select to add paid in full detail to report"},
        {cmbCategory, "cmbCategory", "Select Category to Display Tasks"},
        {cmbGroupBy, "cmbGroupBy", "Select how to group the report by"},
        {chkSummary, "chkSummary", "Click to show summary only"},
        {cmbSSN, "cmbSSN", "Select the foreman to filter report by"},
        {optDetail[0], indexed("optDetail", 0), "Select to add all detail to report"},
        {optDetail[1], indexed("optDetail", 1), "Select to add paid in full detail to report"},
        {optDetail[2], indexed("optDetail", 2), "Select to add not paid detail to report"},
        {cmbForeman, "cmbForeman", "Select the foreman to filter report by"},
        {MskField[0], indexed("MskField", 0), "Enter the start payroll entry date to filter report by"},
        {MskField[1], indexed("MskField", 1), "Enter the stop payroll entry date to filter report by"},
    };
    for (const auto& [control, name, toolTip] : texts)
        nameControl(control, name, toolTip);
    lstJobs->setAccessibleName("Jobs");
}

/// The report on top, its parameters on the left, the jobs on the right.
void frmReportParameters::layOut() {
    auto* form = new QVBoxLayout(canvas());
    form->setContentsMargins(margin, margin, margin, margin);
    form->setSpacing(margin);
    auto* report = new QHBoxLayout;
    report->setSpacing(spacing);
    report->addWidget(label("Report:", "lblFieldLabel(0)", cmbReports));
    report->addWidget(cmbReports, 1);
    report->addWidget(cmdLast);
    form->addLayout(report);
    auto* halves = new QHBoxLayout;
    halves->setSpacing(margin);
    halves->addWidget(reportParameters(), 1);
    halves->addWidget(jobs(), 1);
    form->addLayout(halves, 1);
}

QGroupBox* frmReportParameters::reportParameters() {
    auto* box = frame("Parameters", "fraParameters", canvas());
    auto* grid = new QGridLayout(box);
    grid->setSpacing(spacing);
    const struct {
        const char* text;
        QWidget* control;
    } rows[] = {{"&Category:", cmbCategory},
                {"Group By:", cmbGroupBy},
                {"Summary:", chkSummary},
                {"SSN:", cmbSSN},
                {"Foreman:", cmbForeman}};
    int row = 0;
    for (const auto& [text, control] : rows) {
        grid->addWidget(label(text, indexed("lblFieldLabel", static_cast<std::size_t>(row) + 1), control),
                        row, 0);
        grid->addWidget(control, row, 1);
        grid->setRowMinimumHeight(row++, cmbReports->sizeHint().height());
    }
    auto* dates = new QHBoxLayout;
    dates->setSpacing(spacing);
    dates->addWidget(MskField[0]);
    dates->addWidget(label("to", "lblFieldLabel(7)", MskField[1]));
    dates->addWidget(MskField[1]);
    dates->addStretch(1);
    for (MaskedBox* field : MskField)
        field->setFixedWidth(scaledToText(dateWidth, *field));
    grid->addWidget(label("Entry Date:", "lblFieldLabel(6)", MskField[0]), row, 0);
    grid->addLayout(dates, row++, 1);
    MskField[1]->setAccessibleName("Entry Date to");

    auto* detail = frame("Detail", "fraDetail", box);
    addOptions(detail, optDetail);
    grid->addWidget(detail, row++, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(row, 1);
    return box;
}

QGroupBox* frmReportParameters::jobs() {
    auto* box = frame("Jobs", "fraJobSelection", canvas());
    auto* column = new QVBoxLayout(box);
    column->setSpacing(spacing);
    auto* kind = frame("Show", "fraJobs", box);
    addOptions(kind, optJobType);
    lstJobs->setMinimumWidth(jobLineCharacters * lstJobs->fontMetrics().averageCharWidth());
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    buttons->addStretch(1);
    buttons->addWidget(cmdClear);
    buttons->addWidget(cmdSelectAll);
    column->addWidget(kind);
    column->addWidget(lstJobs, 1);
    column->addLayout(buttons);
    return box;
}

void frmReportParameters::orderTabs() {
    const std::array<QWidget*, 17> order{
        cmbReports,    cmdLast,       cmbCategory, cmbGroupBy,   chkSummary,   cmbSSN,
        cmbForeman,    MskField[0],   MskField[1], optDetail[0], optDetail[1], optDetail[2],
        optJobType[0], optJobType[1], lstJobs,     cmdClear,     cmdSelectAll};
    for (std::size_t i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

} // namespace tarnwell
