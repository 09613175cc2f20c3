#include "reports/generator/frmReportParameters.h"

#include "controls/Combo.h"
#include "controls/MaskedBox.h"
#include "frame/ToolbarButtons.h"
#include "reports/drawing/ReportList.h"
#include "reports/generator/JobList.h"
#include "reports/generator/LastReport.h"
#include "reports/generator/frmReport.h"
#include "reports/output/PrinterDialogs.h"
#include "reports/preview/ctlAHPrintPreview.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MousePointer.h"
#include "runtime/RunTime.h"
#include "runtime/modErrorRoutines.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Print | Button::PrintPreview;
constexpr std::array firstDates{"01/01/02", "12/31/29"};
constexpr std::size_t incompleteJobs = 1;

/// In the order of `GroupBy`.
constexpr std::array groupings{"Category", "Date", "Employee", "Foreman", "Job"};

} // namespace

frmReportParameters::frmReportParameters()
    : Screen("frmReportParameters", "Report Generator", {Part::Toolbar, Part::StatusBar}) {}

void frmReportParameters::Form_Load() {
    const HourGlass hourGlass;
    makeControls();
    makeMenu();
    connectControls();
    ButtonMask enabledButtons = 0;
    BuildToolbar(*this, builtButtons);
    EnableToolbar(*this, builtButtons, enabledButtons);
    for (std::size_t i = 0; i < MskField.size(); ++i)
        MskField.at(i)->setText(firstDates.at(i));
    ctlAHPrintPreview1 = new ctlAHPrintPreview(this);
    ctlAHPrintPreview1->setObjectName("ctlAHPrintPreview1");
    ctlAHPrintPreview1->setConnectionString(reportConnectionString());
    LoadReports();
    cmbReports->setListIndex(0);
    offerLastReport();
    cmbForeman->setItems(readForemanLines(connection()));
    cmbSSN->setItems(readEmployeeLines(connection()));
    cmbCategory->setItems(readCategoryLines(connection()));
    LoadJobList();
}

void frmReportParameters::makeMenu() {
    QMenu* menu = menuBar()->addMenu("&File");
    menu->setObjectName("mnuFile");
    menu->menuAction()->setObjectName("mnuFile");
    QAction* printSetup = menu->addAction("Print Set&up");
    printSetup->setObjectName("mnuPrintSetup");
    connect(printSetup, &QAction::triggered, this, guarded([this] { mnuPrintSetup_Click(); }));
    menu->addSeparator();
    QAction* exit = menu->addAction("E&xit");
    exit->setObjectName("mnuExit");
    connect(exit, &QAction::triggered, this, guarded([this] { Unload(); }));
}

void frmReportParameters::connectControls() {
    connect(cmbReports, &Combo::clicked, this, guarded([this] { ShowReportParameters(); }));
    connect(cmbReports->lineEdit(), &QLineEdit::textEdited, this, guarded([this] { chooseTypedReport(); }));
    connect(cmdLast, &QPushButton::clicked, this, guarded([this] { chooseLastReport(); }));
    connect(cmdClear, &QPushButton::clicked, this, guarded([this] { lstJobs->clearSelection(); }));
    connect(cmdSelectAll, &QPushButton::clicked, this, guarded([this] { lstJobs->selectAll(); }));
    for (QRadioButton* option : optJobType)
        connect(option, &QRadioButton::toggled, this, guarded([this](bool chosen) {
                    if (chosen)
                        LoadJobList();
                }));
    for (Combo* combo : {cmbGroupBy, cmbSSN})
        connect(combo, &Combo::keyUp, this,
                guarded([combo](int keyCode, int shift) { ComboIncrementalSearch(*combo, keyCode, shift); }));
    connect(cmbGroupBy, &QComboBox::editTextChanged, this, guarded([this] {
                if (ActiveControl() == cmbGroupBy)
                    showToolTip(cmbGroupBy);
            }));
    for (std::size_t i = 0; i < MskField.size(); ++i) {
        MaskedBox* field = MskField.at(i);
        onGotFocus(field, [this, field] {
            m_dateBefore = field->text();
            showToolTip(field);
        });
        onLostFocus(field, [this, i] { MskField_LostFocus(i); });
    }
}

void frmReportParameters::LoadReports() {
    ReportDefinitions read = readReportDefinitions(connection());
    std::vector<ListItem> rows;
    rows.reserve(read.names.size());
    for (std::size_t i = 0; i < read.names.size(); ++i)
        rows.emplace_back(read.names[i], static_cast<qint64>(i));
    m_definitions = std::move(read.definitions);
    cmbReports->setItems(std::move(rows));
}

void frmReportParameters::LoadJobList() {
    const HourGlass hourGlass;
    lstJobs->setItems(readJobLines(connection(), optJobType[incompleteJobs]->isChecked()));
    if (lstJobs->ListCount() > 0)
        lstJobs->setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

bool frmReportParameters::showChanges() {
    lstJobs->showChangedItems(readJobLines(connection(), optJobType[incompleteJobs]->isChecked()));
    return true;
}

const ReportDefinitionRecord* frmReportParameters::chosenReport() const {
    const int index = cmbReports->ListIndex();
    return index < 0 ? nullptr : &m_definitions.at(static_cast<std::size_t>(cmbReports->ItemData(index)));
}

/// A name that is typed whole is chosen; the caret stays, since a longer name may follow.
void frmReportParameters::chooseTypedReport() {
    const QString typed = cmbReports->Text();
    for (int index = 0; index < cmbReports->ListCount(); ++index)
        if (cmbReports->List(index).compare(typed, Qt::CaseInsensitive) == 0) {
            const int caret = cmbReports->SelStart();
            cmbReports->setListIndex(index);
            cmbReports->setSelStart(caret);
            return;
        }
}

void frmReportParameters::ShowReportParameters() {
    const ReportDefinitionRecord* report = chosenReport();
    if (report == nullptr)
        return;
    for (Combo* combo : {cmbForeman, cmbSSN, cmbGroupBy, cmbCategory})
        combo->setText({});
    for (MaskedBox* field : MskField)
        field->setEnabled(report->pEntryDate);
    cmbForeman->setEnabled(report->pForeman);
    cmbSSN->setEnabled(report->pSSN);
    for (QRadioButton* option : optDetail)
        option->setEnabled(report->pDetailLevel);
    chkSummary->setEnabled(report->summaryOnly);
    cmbGroupBy->setEnabled(report->groupBy);
    cmbCategory->setEnabled(report->category);
    cmbGroupBy->Clear();
    if (!report->groupBy)
        return;
    for (const char* grouping : groupings)
        cmbGroupBy->AddItem(grouping);
    cmbGroupBy->setListIndex(static_cast<int>(GroupBy::Date));
}

ReportParameters frmReportParameters::parameters() const {
    ReportParameters read{.incomplete = optJobType[incompleteJobs]->isChecked(),
                          .startDate = MskField[0]->text(),
                          .stopDate = MskField[1]->text(),
                          .markedJobs = lstJobs->markedItemData(),
                          .foreman = cmbForeman->Text(),
                          .category = cmbCategory->Text(),
                          .groupBy = static_cast<GroupBy>(cmbGroupBy->ListIndex()),
                          .summary = chkSummary->isChecked()};
    if (const int index = cmbSSN->ListIndex(); index >= 0)
        read.employeeKey = cmbSSN->ItemData(index);
    read.allJobsMarked = static_cast<int>(read.markedJobs.size()) == lstJobs->ListCount();
    const auto* const detail = std::ranges::find_if(optDetail, &QRadioButton::isChecked);
    read.detail = static_cast<DetailLevel>(detail - optDetail.begin());
    return read;
}

void frmReportParameters::Toolbar1_ButtonClick(const QString& caption) {
    try {
        if (caption == "Exit")
            Unload();
        else if (caption == "Print" || caption == "Prevw")
            startReport(caption == "Prevw");
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmReportParameters::startReport(bool preview) {
    const ReportDefinitionRecord* chosen = chosenReport();
    if (const auto objection = objectionTo(chosen, lstJobs->marks())) {
        MsgBox(*objection);
        return;
    }
    const Report* report = findReport(chosen->objectName);
    if (report == nullptr)
        return;
    rememberReport({.name = cmbReports->List(cmbReports->ListIndex()),
                    .startDate = MskField[0]->text(),
                    .stopDate = MskField[1]->text()});
    offerLastReport();
    auto* form = new frmReport(*report, parameters());
    form->CalendarMode = calendarModeOf(*chosen);
    form->Preview = preview;
    form->Show(Modality::Modal, this);
}

/// The screen always opens on the first report and all dates; the last ones are a press away.
void frmReportParameters::offerLastReport() {
    const std::optional<LastReport> last = lastReport();
    cmdLast->setEnabled(last && cmbReports->findText(last->name) >= 0);
    cmdLast->setToolTip(cmdLast->isEnabled() ? QStringLiteral("Press to choose %1 from %2 to %3 again")
                                                   .arg(last->name, last->startDate, last->stopDate)
                                             : QString());
}

void frmReportParameters::chooseLastReport() {
    const std::optional<LastReport> last = lastReport();
    if (!last)
        return;
    cmbReports->setListIndex(cmbReports->findText(last->name));
    MskField[0]->setText(last->startDate);
    MskField[1]->setText(last->stopDate);
}

void frmReportParameters::MskField_LostFocus(std::size_t index) {
    if (!IsDate(MskField.at(index)->text()))
        MskField.at(index)->setText(m_dateBefore);
}

void frmReportParameters::mnuPrintSetup_Click() {
    try {
        showPrinterSetup(this);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

} // namespace tarnwell
