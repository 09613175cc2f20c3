#include "jobs/frmJobs.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/KeyCodes.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "frame/DeleteQuestion.h"
#include "frame/ToolbarButtons.h"
#include "jobs/JobGrids.h"
#include "jobs/JobRecord.h"
#include "jobs/LotDialogs.h"
#include "jobs/frmJobAdd.h"
#include "master/Categories.h"
#include "master/FastSearch.h"
#include "master/Foremen.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/RecentJobs.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"

#include <QScopeGuard>

#include <algorithm>
#include <functional>
#include <utility>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Add | Button::Remove | Button::AddSame |
                                    Button::Find | Button::Group | Button::Copy | Button::Help;
constexpr ButtonMask noJobButtons = Button::Exit | Button::Add | Button::Find | Button::Help;
constexpr ButtonMask jobButtons =
    Button::Exit | Button::Add | Button::Remove | Button::Save | Button::Find | Button::Help;
constexpr ButtonMask nameButtons = ~(Button::Add | Button::Remove | Button::Save | Button::Info);
constexpr ButtonMask categoryButtons =
    Button::Exit | Button::Add | Button::Remove | Button::Save | Button::Help;
constexpr ButtonMask lotButtons = Button::Exit | Button::Remove | Button::Copy | Button::Help;
constexpr ButtonMask newLotButtons = Button::Exit | Button::Help;
constexpr ButtonMask taskButtons =
    Button::Exit | Button::Remove | Button::AddSame | Button::Save | Button::Group | Button::Help;
constexpr int nameField = 1;

} // namespace

frmJobs::frmJobs() : Screen("frmJobs", "Jobs", {Part::Toolbar, Part::StatusBar}) {}

frmJobs::~frmJobs() = default;

void frmJobs::Form_Load() {
    setDesignSize(JobControls::designSize);
    ui.build(*canvas());
    for (const auto& [control, name, toolTip] : ui.named())
        nameControl(control, name, toolTip);
    m_grids = std::make_unique<JobGrids>(*ui.jgJobLots, *ui.jgTasks, *ui.cmbType);
    m_dialogs = std::make_unique<LotDialogs>(*this, *ui.jgJobLots, *ui.jgTasks, *m_grids, [this] {
        return LoadedJob{.jobKey = JobKey, .contractorKey = ContractorKey};
    });
    connectFields();
    connectGrids();
    ui.setHints([this] { return JobKey != 0; });
    ui.cmbForeman->setTexts(readForemen(connection()));
    ui.cmbType->setItems(readTaskCategories(connection()));
    if (ui.cmbType->ListCount() > 0)
        ui.cmbType->setListIndex(0);
    BuildToolbar(*this, builtButtons);
    setToolbarButton("AddSame", "Task", "Add Task");
    ui.showHasJob(false);
}

void frmJobs::connectFields() {
    for (int i = 0; i < static_cast<int>(ui.MskField.size()); ++i) {
        MaskedBox* field = ui.MskField.at(static_cast<std::size_t>(i));
        onGotFocus(field, [this, i] { MskField_GotFocus(i); });
        onLostFocus(field, [this, i] { MskField_LostFocus(i); });
    }
    connect(ui.MskField[0], &MaskedBox::keyDown, this,
            guarded([this](int& keyCode, int shift) { MskField_KeyDown(keyCode, shift); }));
    connect(ui.MskField[0], &MaskedBox::keyUp, this, guarded([this] { MskField_KeyUp(); }));
    connect(ui.rebCompletedDate, &DateBox::changed, this, guarded([this] { rebCompletedDate_Change(); }));
    onGotFocus(ui.cmbType, [this] { cmbType_GotFocus(); });
    connect(ui.cmbType, &Combo::clicked, this, guarded([this] { m_grids->cmbType_Click(); }));
    connect(ui.cmbType, &Combo::keyUp, this,
            guarded([this](int keyCode, int shift) { ComboIncrementalSearch(*ui.cmbType, keyCode, shift); }));
}

void frmJobs::connectGrids() {
    onGotFocus(ui.jgJobLots, [this] { jgJobLots_GotFocus(); });
    connect(ui.jgJobLots, &Grid::rowColChange, this, guarded([this](int, int) { jgJobLots_RowColChange(); }));
    connect(ui.jgJobLots, &Grid::buttonClick, this,
            guarded([this](int column) { jgJobLots_ButtonClick(column); }));
    onGotFocus(ui.jgTasks, [this] { jgTasks_GotFocus(); });
    connect(ui.jgTasks, &Grid::rowColChange, this, guarded([this](int, int) { jgTasks_RowColChange(); }));
    connect(ui.jgTasks, &Grid::buttonClick, this,
            guarded([this](int column) { jgTasks_ButtonClick(column); }));
}

void frmJobs::Form_Unload() {
    SaveRecord();
    m_grids->close();
}

void frmJobs::closeRequested() {
    Toolbar1_ButtonClick("Exit");
}

void frmJobs::Toolbar1_ButtonClick(const QString& caption) {
    trapped([&] { pressButton(caption); });
}

void frmJobs::ShowJob(qint64 jobKey) {
    trapped([&] {
        SuppressVerify = true;
        if (writeAll())
            loadJob(jobKey);
    });
}

/// Leaving a field is asked about again behind the routine, also when it failed.
void frmJobs::trapped(const std::function<void()>& routine) {
    const auto verifyAgain = qScopeGuard([this] { SuppressVerify = false; });
    try {
        routine();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmJobs::pressButton(const QString& caption) {
    const struct {
        const char* caption;
        std::function<void()> routine;
    } buttons[] = {
        {"Add", [this] { AddRecord(); }},
        {"Copy",
         [this] {
             const QString plan = FieldText(ui.jgJobLots->value(LotColumn::PlanName));
             if (isCopyConfirmed(plan) && ActiveControl() == ui.jgJobLots)
                 CopyLot();
         }},
        {"Del", [this] { deleteActive(); }},
        {"Exit",
         [this] {
             SuppressVerify = true;
             if (m_grids->write())
                 Unload();
         }},
        {"Find",
         [this] {
             SuppressVerify = true;
             FindRecord();
         }},
        {"Group", [this] { m_dialogs->ShowGroups(); }},
        {"Task", [this] { m_dialogs->pickTasks(); }},
    };
    for (const auto& button : buttons)
        if (caption == QLatin1String(button.caption))
            button.routine();
}

void frmJobs::AddRecord() {
    SuppressVerify = true;
    if (!writeAll())
        return;
    auto& dialog = theForm<frmJobAdd>();
    dialog.Show(Modality::Modal, this);
    const auto unload = qScopeGuard([&dialog] { dialog.Unload(); });
    if (!dialog.Cancelled)
        loadJob(addJob(connection(), dialog.contractorKey(), dialog.jobNumber(), dialog.jobName()));
}

void frmJobs::FindRecord() {
    auto& search = theForm<frmFastSearch>();
    search.searchType = SearchType::Job;
    search.Show(Modality::Modal, this);
    if (!search.selectedKey().isEmpty() && writeAll())
        loadJob(selectedKeyNumber(search.selectedKey()));
}

/// The job on the screen with its grids: none of it may be left behind, or come under the next job. False
/// when a row was refused, and its message shown.
bool frmJobs::writeAll() {
    SaveRecord();
    return m_grids->write();
}

/// The buttons of the control that has the focus go by what is loaded, so its routine runs again.
void frmJobs::loadJob(qint64 jobKey) {
    JobKey = jobKey;
    try {
        DisplayRecord();
    } catch (const RunTimeError&) {
        m_grids->empty();
        throw;
    }
    rememberJob(JobKey);
    LoadedJobNumber = ui.MskField[0]->text();
    m_grids->LoadJobLots(JobKey);
    if (QWidget* active = ActiveControl())
        SetFocus(active);
}

/// Raises what `saveJob` raises. A job that no longer exists leaves the screen then: as long as it stayed,
/// neither another job nor Exit could be reached.
void frmJobs::SaveRecord() {
    try {
        saveJob(connection(), JobKey, ui.record());
    } catch (const RunTimeError& error) {
        if (error.is(Failure::NoCurrentRecord))
            letJobGo();
        throw;
    }
}

/// No job is on the screen from here on.
void frmJobs::letJobGo() {
    JobKey = 0;
    DisplayRecord();
    m_grids->empty();
    SetFocus(ui.MskField[0]);
}

void frmJobs::DisplayRecord() {
    ui.clear();
    const auto state = qScopeGuard([this] { ui.showHasJob(JobKey != 0); });
    if (JobKey == 0)
        return;
    // A job that can't be shown must not be saved with the empty fields.
    const qint64 wanted = std::exchange(JobKey, 0);
    const ShownJob job = readJob(connection(), wanted);
    JobKey = wanted;
    ui.show(job);
    ContractorKey = job.contractorKey;
}

void frmJobs::deleteActive() {
    const QWidget* active = ActiveControl();
    if (std::find(ui.MskField.begin(), ui.MskField.end(), active) != ui.MskField.end()) {
        if (isDeleteConfirmed("Delete Current Job?"))
            DeleteRecord();
    } else if (active == ui.jgTasks) {
        if (isDeleteConfirmed("Delete the " + FieldText(ui.jgTasks->value(LotTaskColumn::Name)) + " Task?"))
            m_grids->DeleteTask();
    } else if (active == ui.jgJobLots) {
        if (isDeleteConfirmed("Delete the " + FieldText(ui.jgJobLots->value(LotColumn::PlanName)) +
                              " Lot/Block?"))
            DeleteLot();
    }
}

void frmJobs::DeleteRecord() {
    const HourGlass hourGlass;
    deleteJob(connection(), JobKey);
    letJobGo();
    m_grids->endHourGlass();
}

void frmJobs::DeleteLot() {
    m_grids->DeleteLot();
    jgJobLots_RowColChange();
}

void frmJobs::CopyLot() {
    m_grids->CopyLot();
    showLotPlace();
}

void frmJobs::MskField_GotFocus(int index) {
    const ButtonMask buttons = index == nameField ? nameButtons : JobKey == 0 ? noJobButtons : jobButtons;
    EnableToolbar(*this, buttons, ToolbarMask);
    showToolTip(ui.MskField.at(static_cast<std::size_t>(index)));
}

/// A number that was kept is asked about again each time: `LoadedJobNumber` stays the old one.
void frmJobs::MskField_LostFocus(int index) {
    if (SuppressVerify)
        return;
    if (JobKey == 0) {
        SetFocus(ui.MskField[0]);
        return;
    }
    if (index != 0 || ui.MskField[0]->text() == LoadedJobNumber)
        return;
    if (MsgBox({.text = "Job Number Modified.\nCancel Modification?",
                .title = "Entry Verification",
                .buttons = MessageButtons::YesNo}) == Answer::Yes)
        ui.MskField[0]->setText(LoadedJobNumber);
}

/// The key itself is dropped: it must not be typed into the number that comes from the dialog.
void frmJobs::MskField_KeyDown(int& keyCode, int shift) {
    if (JobKey != 0 || !isEntryKey(keyCode, shift))
        return;
    keyCode = 0;
    if (MsgBox({.text = "Do you want to add a new job?",
                .title = "Add Record",
                .buttons = MessageButtons::YesNo,
                .icon = MessageIcon::Question,
                .defaultButton = 2}) != Answer::Yes)
        return;
    const auto verifyAgain = qScopeGuard([this] { SuppressVerify = false; });
    AddRecord();
}

void frmJobs::MskField_KeyUp() {
    if (JobKey == 0)
        ui.MskField[0]->clear();
}

void frmJobs::cmbType_GotFocus() {
    if (isJobNumberEmpty() || ui.jgJobLots->RowCount() < 1) {
        SetFocus(ui.jgJobLots);
        return;
    }
    EnableToolbar(*this, categoryButtons, ToolbarMask);
    showToolTip(ui.cmbType);
}

/// Only for the user's own change: a loaded job gives no hint, nor does a text that is not yet a date.
void frmJobs::rebCompletedDate_Change() {
    if (ActiveControl() != ui.rebCompletedDate)
        return;
    const Value date = ui.rebCompletedDate->value();
    if (date.kind() == Value::Kind::Text)
        showToolTip(ui.rebCompletedDate);
    else
        setStatusText(completionHint(!date.isNull()));
}

void frmJobs::setLotToolbar() {
    EnableToolbar(*this, m_grids->currentLotKey() == 0 ? newLotButtons : lotButtons, ToolbarMask);
}

/// What the row can do and what the column is for.
void frmJobs::showLotPlace() {
    setLotToolbar();
    if (ui.jgJobLots->Col() > 0)
        setStatusText(ui.jgJobLots->columnTag(ui.jgJobLots->Col()));
}

void frmJobs::jgJobLots_GotFocus() {
    if (isJobNumberEmpty()) {
        SetFocus(ui.MskField[0]);
        return;
    }
    setLotToolbar();
    showToolTip(ui.jgJobLots);
}

void frmJobs::jgJobLots_RowColChange() {
    if (m_grids->isHeld())
        return;
    // The buttons go by the row as the tasks' load leaves it: a new lot has its key then.
    const auto goOn = qScopeGuard([this] { showLotPlace(); });
    try {
        m_grids->cmbType_Click();
    } catch (const RunTimeError&) {
        return; // passed over: the employees on offer stay those of before
    }
}

/// No plan is offered for a lot that can't be written.
void frmJobs::jgJobLots_ButtonClick(int column) {
    if (column != LotColumn::PlanName || !ui.jgJobLots->UpdateOrTell())
        return;
    m_dialogs->AddLotTasks();
    showLotPlace();
}

void frmJobs::jgTasks_GotFocus() {
    if (isJobNumberEmpty() || m_grids->currentLotKey() == 0) {
        SetFocus(ui.jgJobLots);
        return;
    }
    m_grids->catchUp();
    EnableToolbar(*this, taskButtons, ToolbarMask);
    showToolTip(ui.jgTasks);
}

void frmJobs::jgTasks_RowColChange() {
    if (m_grids->isHeld())
        return;
    m_grids->catchUp();
    if (ui.jgTasks->Col() > 0)
        setStatusText(ui.jgTasks->columnTag(ui.jgTasks->Col()));
}

void frmJobs::jgTasks_ButtonClick(int column) {
    if (column == LotTaskColumn::AddOnButton && !ui.jgJobLots->value(LotColumn::JobLotKey).isEmpty())
        m_dialogs->pickTasks();
}

bool frmJobs::showChanges() {
    return m_grids == nullptr || m_grids->showChanges();
}

bool frmJobs::isJobNumberEmpty() const {
    return ui.MskField[0]->text().isEmpty();
}

} // namespace tarnwell
