#include "timecard/frmPayroll.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/DayArrows.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridRows.h"
#include "data/recordset/Recordset.h"
#include "master/FastSearch.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/RunTime.h"
#include "runtime/modErrorRoutines.h"
#include "timecard/EmployeeLog.h"
#include "timecard/TimeCardJob.h"

#include <QCheckBox>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = 81;
constexpr ButtonMask lotButtons = 17;

frmPayroll::TaskNotes& taskNotes() {
    static frmPayroll::TaskNotes opener;
    return opener;
}

/// A figure that is wider than its place is cut; its tool tip then tells it whole.
void showFigure(QLabel& figure, double amount) {
    const QString text = figureText(amount);
    figure.setText(text);
    figure.setToolTip(figure.fontMetrics().horizontalAdvance(text) > figure.width() ? text : QString());
}

/// Stands on the same half of the same payment again, or where it stood when the payment has gone, so that
/// Enter and the arrows go on from there.
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

void frmPayroll::setTaskNotes(TaskNotes opener) {
    taskNotes() = std::move(opener);
}

void frmPayroll::Form_Load() {
    makeControls();
    connectControls();
    JobKey = 0;
    cmbType->setItems(readCategories(connection()));
    if (cmbType->ListCount() > 0)
        cmbType->setListIndex(0);
    cmbEmployees->setItems(readActiveEmployees(connection()));
    cmbEmployees->setListIndex(0);
    rebCompleted->setValue(Today());
    BuildToolbar(*this, builtButtons);
}

void frmPayroll::connectControls() {
    connect(cmbType, &Combo::clicked, this, guarded([this] { cmbType_Click(); }));
    connect(cmbEmployees, &Combo::clicked, this, guarded([this] { LoadEmployeeHistory(); }));
    for (Combo* combo : {cmbType, cmbEmployees})
        connect(combo, &Combo::keyUp, this,
                guarded([combo](int keyCode, int shift) { ComboIncrementalSearch(*combo, keyCode, shift); }));
    connect(jgJobLots, &Grid::rowColChange, this, guarded([this](int, int) { jgJobLots_RowColChange(); }));
    connect(jgTasks, &Grid::rowColChange, this, guarded([this](int, int) { jgTasks_RowColChange(); }));
    connect(lstTaskHistory, &ListBox::doubleClick, this, guarded([this] { lstTaskHistory_DblClick(); }));
    connect(m_jobNumber, &MaskedBox::ownKeyUp, this,
            guarded([this](int keyCode, int) { MskField_KeyUp(keyCode); }));
    connect(m_price, &MaskedBox::doubleClick, this, guarded([this] { txtField_DblClick(); }));
    connect(vscrCompleted, &DayArrows::valueChanged, this, guarded([this](int) { vscrCompleted_Change(); }));
    connect(cmdApplyTask, &QPushButton::clicked, this, guarded([this] { cmdApplyTask_Click(); }));
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
    m_binding = true;
    jgTasks->bind(nullptr);
    jgJobLots->bind(nullptr);
    TaskRecordset.reset();
    LotRecordset.reset();
}

void frmPayroll::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Exit")
        Unload();
    else if (caption == "Find" && ActiveControl() == cmbEmployees)
        FindEmployee();
    else if (caption == "Find" && ActiveControl() == m_jobNumber)
        FindJob();
}

/// Every release searches, also of a key that changed nothing; End and Home find no job and so clear it. The
/// key that brought the focus here does not: a closed job that was picked stays.
void frmPayroll::MskField_KeyUp(int keyCode) {
    if (m_jobNumber->text().isEmpty())
        return;
    const int caret = m_jobNumber->SelStart();
    JobKey = LookupKeyByTyping(*m_jobNumber, keyCode, typedJobLookup, connection());
    LoadJob();
    m_jobNumber->setSelStart(caret);
}

void frmPayroll::LoadJob() {
    JobHeader header;
    if (JobKey != 0)
        header = readJobHeader(connection(), JobKey).value_or(JobHeader());
    m_jobNumber->setText(header.jobNumber);
    m_jobName->setText(header.name);
    m_builder->setText(header.builder);
    // A name that is wider than its field shows its beginning.
    m_jobName->setSelStart(0);
    m_builder->setSelStart(0);
    {
        // The tasks are read once, behind the binding, and typing a job must not take Find away.
        const QScopedValueRollback binding(m_binding, true);
        showRows(connection(), *jgJobLots, LotRecordset, lotsOfJob(JobKey), "PayrollLot.lyt");
    }
    cmbType_Click();
}

void frmPayroll::jgJobLots_RowColChange() {
    if (m_binding)
        return;
    cmbType_Click();
    EnableToolbar(*this, lotButtons, ToolbarMask);
}

void frmPayroll::cmbType_Click() {
    // The first category is chosen before there is a job.
    if (LotRecordset == nullptr)
        return;
    // Whatever fails from here on, the price of the task before must not be paid for another.
    m_price->clear();
    const Value lotKey = jgJobLots->value("JobLotKey");
    const QString sql = lotKey.isNoKey() ? QString(tasksOfNoLot)
                                         : tasksOfLot(lotKey, cmbType->ItemData(cmbType->ListIndex()));
    {
        const QScopedValueRollback binding(m_binding, true);
        showRows(connection(), *jgTasks, TaskRecordset, sql, "PayrollTasks.lyt");
    }
    LoadTaskHistory();
}

/// The note stays: it goes with the next payment, whatever its task.
void frmPayroll::jgTasks_RowColChange() {
    if (m_binding)
        return;
    m_price->clear();
    LoadTaskHistory();
}

void frmPayroll::LoadTaskHistory() {
    try {
        lstTaskHistory->Clear();
        const double left = readTaskHistory(
            connection(), jgTasks->value("JobLotTaskKey"), jgTasks->value("MasterPrice"), m_figures,
            [this](const QString& text, qint64 key) { lstTaskHistory->AddItem(text, key); });
        m_price->setText(priceText(left));
        showFigure(*m_totalPaid, m_figures.TotalPaid);
        showFigure(*m_difference, m_figures.TaskDifference);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

/// Lists what the combo shows, also when the task's own employee was paid. Raises InvalidPropertyIndex
/// without a choice.
void frmPayroll::LoadEmployeeHistory() {
    lstEmployeeHistory->Clear();
    readEmployeeLog(connection(), cmbEmployees->ItemData(cmbEmployees->ListIndex()), wholeLogLine,
                    [this](const QString& text, qint64) { lstEmployeeHistory->AddItem(text); });
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
    while (cmbEmployees->ItemData(index) != key)
        ++index;
    cmbEmployees->setListIndex(index);
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

/// Setting the bar back to its rest fires this again, to no effect. A text that is no date raises
/// TypeMismatch.
void frmPayroll::vscrCompleted_Change() {
    constexpr int upper = 0, rest = 1, lower = 2;
    const int value = vscrCompleted->value();
    if (value == rest)
        return;
    if (value == upper)
        rebCompleted->addDays(1);
    else if (value == lower)
        rebCompleted->addDays(-1);
    vscrCompleted->setValue(rest);
}

qint64 frmPayroll::selectedPaymentKey() const {
    const int line = lstTaskHistory->ListIndex();
    return line < 0 ? 0 : lstTaskHistory->ItemData(line);
}

void frmPayroll::lstTaskHistory_DblClick() {
    const int line = lstTaskHistory->ListIndex();
    if (line < 0 || !taskNotes())
        return;
    const qint64 paymentKey = selectedPaymentKey();
    taskNotes()(*this);
    LoadTaskHistory();
    reselect(*lstTaskHistory, line, paymentKey);
}

PaymentSelection frmPayroll::selection() const {
    const auto cell = [again = runAgain()](const Grid& grid, const char* key) {
        return resumeOnDeletedRow(again, [&] { return grid.value(key); });
    };
    const int employee = cmbEmployees->ListIndex();
    return {.jobLotTaskKey = cell(*jgTasks, "JobLotTaskKey"),
            .codeKey = cell(*jgTasks, "CodeKey"),
            .excludeDependency = cell(*jgTasks, "ExcludeDependency"),
            .taskEmployeeKey = cell(*jgTasks, "EmployeeKey"),
            .jobLotKey = cell(*jgJobLots, "JobLotKey"),
            .excludeDependencyCheck = cell(*jgJobLots, "ExcludeDependencyCheck"),
            .useTaskEmployee = chkUseTaskEmployee->isChecked(),
            .employeeKey = employee < 0 ? std::nullopt : std::optional(cmbEmployees->ItemData(employee)),
            .priceText = m_price->text(),
            .completed = rebCompleted->value(),
            .note = rchNote->text(),
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
        SetFocus(m_price);
        break;
    case PaymentResult::NoTask:
        SetFocus(jgTasks);
        break;
    case PaymentResult::NoEmployee:
        SetFocus(cmbEmployees);
        break;
    case PaymentResult::Refused:
        break;
    case PaymentResult::Paid:
        // Lot, task, employee, tick and date stand, so that the same employee's next task is two keys away.
        LoadTaskHistory();
        rchNote->clear();
        SetFocus(jgTasks);
        break;
    }
}

void frmPayroll::txtField_DblClick() {
    trapped([this] {
        const auto again = runAgain();
        if (resumeOnDeletedRow(again, [this] { return !hasTask(); })) {
            SetFocus(jgTasks);
            return;
        }
        m_price->setText(resumeOnDeletedRow(again, [this] {
            return priceText(remainingPrice(jgTasks->value("MasterPrice"), m_figures.TotalPaid));
        }));
    });
}

/// Runs a routine that has a handler. While a statement of it waits for a deleted row, events are handled:
/// the routine is not entered a second time, and the screen may be closed, which ends it without a word.
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
    return m_jobNumber->text().isEmpty();
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
    return !jgTasks->value("JobLotTaskKey").isNoKey();
}

} // namespace tarnwell
