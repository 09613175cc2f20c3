#include "timecard/frmPayroll.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/DayArrows.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridBinding.h"
#include "data/recordset/Recordset.h"
#include "frame/ToolbarButtons.h"
#include "master/Categories.h"
#include "master/FastSearch.h"
#include "master/JobLots.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/RecentJobs.h"
#include "runtime/RunTime.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"
#include "timecard/EmployeeLog.h"
#include "timecard/TimeCardJob.h"
#include "timecard/frmTaskNotes.h"

#include <QCheckBox>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QTimer>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Find | Button::Help;
constexpr ButtonMask lotButtons = Button::Exit | Button::Help;

/// A figure that is wider than its place is cut; its tool tip then shows it in full.
void showFigure(QLabel& figure, double amount) {
    const QString text = figureText(amount);
    figure.setText(text);
    figure.setToolTip(figure.fontMetrics().horizontalAdvance(text) > figure.width() ? text : QString());
}

/// Stands on the same half of the same payment again, or where it stood when the payment no longer exists, so
/// that Enter and the arrows go on from there.
void reselect(ListBox& history, int line, qint64 paymentKey) {
    constexpr int linesOfPayment = 2;
    int index = std::min(line, history.ListCount() - 1);
    for (int i = line % linesOfPayment; i < history.ListCount(); i += linesOfPayment)
        if (history.ItemData(i) == paymentKey)
            index = i;
    history.setListIndex(index);
}

} // namespace

frmPayroll::frmPayroll() : Screen("frmPayroll", "Timecards", {Part::Toolbar, Part::StatusBar}) {}

frmPayroll::~frmPayroll() = default;

void frmPayroll::Form_Load() {
    setDesignSize(PayrollControls::designSize);
    ui.build(*canvas());
    for (const auto& [control, name, toolTip] : ui.named())
        nameControl(control, name, toolTip);
    m_tasks = std::make_unique<DetailRows>(
        *ui.jgTasks, DetailRows::Source{.chosen =
                                            [this] {
                                                const Value lot = ui.jgJobLots->value("JobLotKey");
                                                return DetailKeys{.owner = lot.isNoKey() ? 0 : lot.toLong(),
                                                                  .category = chosenKey(*ui.cmbType)};
                                            },
                                        .show = [this](const DetailKeys& keys) { showTasks(keys); },
                                        .reload = [this] { cmbType_Click(); }});
    connectControls();
    ui.setHints(*this);
    JobKey = 0;
    ui.cmbType->setItems(readTaskCategories(connection()));
    if (ui.cmbType->ListCount() > 0)
        ui.cmbType->setListIndex(0);
    ui.cmbEmployees->setItems(readActiveEmployees(connection()));
    ui.cmbEmployees->setListIndex(0);
    ui.rebCompleted->setValue(Today());
    BuildToolbar(*this, builtButtons);
}

void frmPayroll::connectControls() {
    connect(ui.cmbType, &Combo::clicked, this, guarded([this] { cmbType_Click(); }));
    connect(ui.cmbEmployees, &Combo::clicked, this, guarded([this] { LoadEmployeeHistory(); }));
    for (Combo* combo : {ui.cmbType, ui.cmbEmployees})
        connect(combo, &Combo::keyUp, this,
                guarded([combo](int keyCode, int shift) { ComboIncrementalSearch(*combo, keyCode, shift); }));
    connect(ui.jgJobLots, &Grid::rowColChange, this, guarded([this](int, int) { jgJobLots_RowColChange(); }));
    connect(ui.jgTasks, &Grid::rowColChange, this, guarded([this](int, int) { jgTasks_RowColChange(); }));
    connect(ui.lstTaskHistory, &ListBox::doubleClick, this, guarded([this] { lstTaskHistory_DblClick(); }));
    connect(ui.jobNumber, &MaskedBox::ownKeyUp, this,
            guarded([this](int keyCode, int) { MskField_KeyUp(keyCode); }));
    connect(ui.price, &MaskedBox::doubleClick, this, guarded([this] { txtField_DblClick(); }));
    connect(ui.vscrCompleted, &DayArrows::valueChanged, this,
            guarded([this](int) { vscrCompleted_Change(); }));
    connect(ui.cmdApplyTask, &QPushButton::clicked, this, guarded([this] { cmdApplyTask_Click(); }));
    for (const PayrollFocusRule& rule : payrollFocusRules())
        onGotFocus(findChild<QWidget*>(rule.control), [this, &rule] { applyFocusRule(rule); });
}

/// A refusal's own focus move runs the rule of the control that gets it, so the chain leads up to what is
/// missing.
void frmPayroll::applyFocusRule(const PayrollFocusRule& rule) {
    bool refused = false;
    for (const PayrollRefusal& refusal : rule.refusals) {
        if (!isLacking(*this, refusal.lack))
            continue;
        refused = true;
        SetFocus(findChild<QWidget*>(refusal.sendTo));
        if (!refusal.thenGoOn)
            break;
    }
    if (refused)
        return;
    if (rule.mask != 0)
        EnableToolbar(*this, rule.mask, ToolbarMask);
    showToolTip(findChild<QWidget*>(rule.control));
}

void frmPayroll::Form_Unload() {
    const auto held = m_tasks->hold();
    ui.jgTasks->bind(nullptr);
    ui.jgJobLots->bind(nullptr);
    TaskRecordset.reset();
    LotRecordset.reset();
}

void frmPayroll::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Exit")
        Unload();
    else if (caption == "Find" && ActiveControl() == ui.cmbEmployees)
        FindEmployee();
    else if (caption == "Find" && ActiveControl() == ui.jobNumber)
        FindJob();
}

/// Every release searches, also of a key that changed nothing; End and Home find no job and so clear it. The
/// key that brought the focus here does not: a closed job that was picked stays.
void frmPayroll::MskField_KeyUp(int keyCode) {
    if (ui.jobNumber->text().isEmpty())
        return;
    const int caret = ui.jobNumber->SelStart();
    JobKey = LookupKeyByTyping(*ui.jobNumber, keyCode, typedJobLookup, connection());
    LoadJob();
    ui.jobNumber->setSelStart(caret);
}

void frmPayroll::LoadJob() {
    JobHeader header;
    if (JobKey != 0)
        header = readJobHeader(connection(), JobKey).value_or(JobHeader());
    ui.jobNumber->setText(header.jobNumber);
    ui.jobName->setText(header.name);
    ui.builder->setText(header.builder);
    // A name that is wider than its field shows its beginning.
    ui.jobName->setSelStart(0);
    ui.builder->setSelStart(0);
    {
        // The tasks are read once, behind the binding, and typing a job must not take Find away.
        const auto held = m_tasks->hold();
        showRows(connection(), *ui.jgJobLots, LotRecordset, lotsOfJob(JobKey), "PayrollLot.lyt");
    }
    cmbType_Click();
}

void frmPayroll::jgJobLots_RowColChange() {
    if (m_tasks->isHeld())
        return;
    cmbType_Click();
    EnableToolbar(*this, lotButtons, ToolbarMask);
}

void frmPayroll::cmbType_Click() {
    // The first category is chosen before there is a job.
    if (LotRecordset == nullptr)
        return;
    // Whatever fails from here on, the price of the task before must not be paid for another.
    ui.price->clear();
    m_tasks->follow();
    LoadTaskHistory();
}

/// A lot without a category raises InvalidPropertyIndex.
void frmPayroll::showTasks(const DetailKeys& keys) {
    const QString sql = keys.owner == 0
                            ? QString(tasksOfNoLot)
                            : tasksOfLot(keys.owner, ui.cmbType->ItemData(ui.cmbType->ListIndex()));
    showRows(connection(), *ui.jgTasks, TaskRecordset, sql, "PayrollTasks.lyt");
}

/// The note stays, for the next payment of whichever task.
void frmPayroll::jgTasks_RowColChange() {
    if (m_tasks->isHeld())
        return;
    ui.price->clear();
    LoadTaskHistory();
}

void frmPayroll::LoadTaskHistory() {
    try {
        ui.lstTaskHistory->Clear();
        const double left = readTaskHistory(
            connection(), ui.jgTasks->value("JobLotTaskKey"), ui.jgTasks->value("MasterPrice"), m_figures,
            [this](const QString& text, qint64 key) { ui.lstTaskHistory->AddItem(text, key); });
        offerPrice(left);
        showFigures();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmPayroll::offerPrice(double left) {
    m_offeredPrice = priceText(left);
    ui.price->setText(m_offeredPrice);
}

void frmPayroll::showFigures() const {
    showFigure(*ui.totalPaid, m_figures.TotalPaid);
    showFigure(*ui.difference, m_figures.TaskDifference);
}

/// A price that was typed, or is about to be, stays.
bool frmPayroll::showChanges() {
    if (m_trapped || TaskRecordset == nullptr || m_tasks->isHeld())
        return TaskRecordset == nullptr;
    std::vector<ListItem> lines;
    PaymentFigures figures = m_figures;
    const double left =
        readTaskHistory(connection(), ui.jgTasks->value("JobLotTaskKey"), ui.jgTasks->value("MasterPrice"),
                        figures, [&](const QString& text, qint64 key) { lines.emplace_back(text, key); });
    m_figures = figures;
    ui.lstTaskHistory->showChangedItems(lines);
    if (ui.price->text() == m_offeredPrice && !ui.price->hasFocus())
        offerPrice(left);
    showFigures();
    return true;
}

/// Lists what the combo shows, also when the task's own employee was paid. Raises InvalidPropertyIndex
/// without a choice.
void frmPayroll::LoadEmployeeHistory() {
    ui.lstEmployeeHistory->Clear();
    readEmployeeLog(connection(), ui.cmbEmployees->ItemData(ui.cmbEmployees->ListIndex()), wholeLogLine,
                    [this](const QString& text, qint64) { ui.lstEmployeeHistory->AddItem(text); });
}

void frmPayroll::FindEmployee() {
    auto& search = theForm<frmFastSearch>();
    search.searchType = SearchType::Employee;
    search.Show(Modality::Modal, this);
    if (search.selectedKey().isEmpty())
        return;
    const qint64 key = selectedKeyNumber(search.selectedKey());
    // An inactive employee is not in the list: the walk goes past its end and fails there.
    int index = 0;
    while (ui.cmbEmployees->ItemData(index) != key)
        ++index;
    ui.cmbEmployees->setListIndex(index);
    LoadEmployeeHistory();
}

void frmPayroll::FindJob() {
    auto& search = theForm<frmFastSearch>();
    search.searchType = SearchType::Job;
    search.Show(Modality::Modal, this);
    if (search.selectedKey().isEmpty())
        return;
    JobKey = selectedKeyNumber(search.selectedKey());
    LoadJob();
}

/// Setting the bar back to its rest fires this again, to no effect. A text that is not a date raises
/// TypeMismatch.
void frmPayroll::vscrCompleted_Change() {
    const int value = ui.vscrCompleted->value();
    if (value == DayArrows::Rest)
        return;
    if (value == DayArrows::Upper)
        ui.rebCompleted->addDays(1);
    else if (value == DayArrows::Lower)
        ui.rebCompleted->addDays(-1);
    ui.vscrCompleted->setValue(DayArrows::Rest);
}

QString frmPayroll::chosenTask() const {
    return QStringLiteral("%1, lot %2 of job %3")
        .arg(FieldText(ui.jgTasks->value("Name")), FieldText(ui.jgJobLots->value("LotBlock")),
             ui.jobNumber->text());
}

void frmPayroll::lstTaskHistory_DblClick() {
    const int line = ui.lstTaskHistory->ListIndex();
    if (line < 0)
        return;
    const qint64 paymentKey = ui.lstTaskHistory->ItemData(line);
    theForm<frmTaskNotes>().openFor(paymentKey, chosenTask(), *ui.lstTaskHistory);
    LoadTaskHistory();
    reselect(*ui.lstTaskHistory, line, paymentKey);
}

PaymentSelection frmPayroll::selection() const {
    const auto cell = [again = runAgain()](const Grid& grid, const char* key) {
        return resumeOnDeletedRow(again, [&] { return grid.value(key); });
    };
    const int employee = ui.cmbEmployees->ListIndex();
    return {.jobLotTaskKey = cell(*ui.jgTasks, "JobLotTaskKey"),
            .codeKey = cell(*ui.jgTasks, "CodeKey"),
            .excludeDependency = cell(*ui.jgTasks, "ExcludeDependency"),
            .taskEmployeeKey = cell(*ui.jgTasks, "EmployeeKey"),
            .jobLotKey = cell(*ui.jgJobLots, "JobLotKey"),
            .excludeDependencyCheck = cell(*ui.jgJobLots, "ExcludeDependencyCheck"),
            .useTaskEmployee = ui.chkUseTaskEmployee->isChecked(),
            .employeeKey = employee < 0 ? std::nullopt : std::optional(ui.cmbEmployees->ItemData(employee)),
            .priceText = ui.price->text(),
            .completed = ui.rebCompleted->value(),
            .note = ui.rchNote->text(),
            .taskDifference = m_figures.TaskDifference};
}

void frmPayroll::cmdApplyTask_Click() {
    trapped([this] {
        showPayment(applyPayment(
            connection(), selection(),
            {.ask = MsgBox, .logged = [this] { LoadEmployeeHistory(); }, .rowDeleted = runAgain()}));
    });
}

void frmPayroll::showPayment(PaymentResult result) {
    switch (result) {
    case PaymentResult::NoPrice:
        SetFocus(ui.price);
        break;
    case PaymentResult::NoTask:
        SetFocus(ui.jgTasks);
        break;
    case PaymentResult::NoEmployee:
        SetFocus(ui.cmbEmployees);
        break;
    case PaymentResult::Refused:
        break;
    case PaymentResult::Paid:
        rememberJob(JobKey);
        // Lot, task, employee, tick and date stand, so that the same employee's next task is two keys away.
        LoadTaskHistory();
        ui.rchNote->clear();
        SetFocus(ui.jgTasks);
        break;
    }
}

void frmPayroll::txtField_DblClick() {
    trapped([this] {
        const auto again = runAgain();
        if (resumeOnDeletedRow(again, [this] { return !hasTask(); })) {
            SetFocus(ui.jgTasks);
            return;
        }
        ui.price->setText(resumeOnDeletedRow(again, [this] {
            return priceText(remainingPrice(ui.jgTasks->value("MasterPrice"), m_figures.TotalPaid));
        }));
    });
}

/// Runs a routine that has a handler. While a statement of it waits for a deleted row, events are handled:
/// the routine is not entered a second time, and the screen may be closed, which ends the routine silently.
void frmPayroll::trapped(const std::function<void()>& routine) {
    if (m_trapped)
        return;
    const QPointer<frmPayroll> self(this);
    m_trapped = true;
    const auto done = qScopeGuard([&self] {
        if (!self.isNull())
            self->m_trapped = false;
    });
    try {
        routine();
    } catch (const RunTimeError& error) {
        if (!self.isNull() && self->isLoaded())
            ErrorHandler(error, {});
    }
}

std::function<bool()> frmPayroll::runAgain() const {
    return [self = QPointer(this)] {
        constexpr int pauseMs = 10;
        QEventLoop pause;
        QTimer alarm;
        connect(&alarm, &QTimer::timeout, &pause, &QEventLoop::quit);
        alarm.start(pauseMs);
        pause.exec();
        return !self.isNull() && self->isLoaded();
    };
}

bool frmPayroll::isJobEmpty() const {
    return ui.jobNumber->text().isEmpty();
}

bool frmPayroll::areLotsEmpty() const {
    return LotRecordset == nullptr || LotRecordset->RecordCount() == 0;
}

bool frmPayroll::areTasksOpen() const {
    return TaskRecordset != nullptr;
}

bool frmPayroll::areTasksEmpty() const {
    if (TaskRecordset == nullptr)
        tarnwell::raise(Failure::ObjectClosed);
    return TaskRecordset->RecordCount() == 0;
}

bool frmPayroll::hasTask() const {
    return !ui.jgTasks->value("JobLotTaskKey").isNoKey();
}

} // namespace tarnwell
