#include "jobs/frmJobs.h"

#include "controls/Combo.h"
#include "controls/DateBox.h"
#include "controls/KeyCodes.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"
#include "frame/DeleteQuestion.h"
#include "frame/ToolbarButtons.h"
#include "jobs/JobRecord.h"
#include "jobs/frmJobAdd.h"
#include "master/Categories.h"
#include "master/FastSearch.h"
#include "master/Foremen.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
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

constexpr int nameField = 1, builderField = 2;
constexpr int planNameColumn = 4, taskNameColumn = 8;

bool isCopyConfirmed(const QString& question) {
    return MsgBox({.text = question,
                   .title = "Confirm Copy",
                   .buttons = MessageButtons::YesNo,
                   .icon = MessageIcon::Question}) == Answer::Yes;
}

} // namespace

frmJobs::frmJobs() : Screen("frmJobs", "Jobs", {Part::Toolbar, Part::StatusBar}) {}

frmJobs::~frmJobs() = default;

void frmJobs::Form_Load() {
    makeControls();
    connectFields();
    connectGrids();
    cmbForeman->setTexts(readForemen(connection()));
    cmbType->setItems(readTaskCategories(connection()));
    if (cmbType->ListCount() > 0)
        cmbType->setListIndex(0);
    BuildToolbar(*this, builtButtons);
    setToolbarButton("AddSame", "Task", "Add Task");
}

void frmJobs::connectFields() {
    for (int i = 0; i < static_cast<int>(m_fields.size()); ++i) {
        MaskedBox* field = m_fields.at(static_cast<std::size_t>(i));
        onGotFocus(field, [this, i] { MskField_GotFocus(i); });
        onLostFocus(field, [this, i] { MskField_LostFocus(i); });
    }
    connect(m_fields[0], &MaskedBox::keyDown, this,
            guarded([this](int& keyCode, int shift) { MskField_KeyDown(keyCode, shift); }));
    connect(m_fields[0], &MaskedBox::keyUp, this, guarded([this] { MskField_KeyUp(); }));
    connect(rebCompletedDate, &DateBox::changed, this, guarded([this] { rebCompletedDate_Change(); }));
    onGotFocus(cmbType, [this] { cmbType_GotFocus(); });
    connect(cmbType, &Combo::clicked, this, guarded([this] { cmbType_Click(); }));
    connect(cmbType, &Combo::keyUp, this,
            guarded([this](int keyCode, int shift) { ComboIncrementalSearch(*cmbType, keyCode, shift); }));
}

void frmJobs::Form_Unload() {
    SaveRecord();
    closeGrids();
}

void frmJobs::closeRequested() {
    Toolbar1_ButtonClick("Exit");
}

void frmJobs::Toolbar1_ButtonClick(const QString& caption) {
    const auto verifyAgain = qScopeGuard([this] { SuppressVerify = false; });
    try {
        pressButton(caption);
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
             const QString plan = FieldText(jgJobLots->value(planNameColumn));
             if (isCopyConfirmed("Copy the " + plan + " Lot/Block?") && ActiveControl() == jgJobLots)
                 CopyLot();
         }},
        {"Del", [this] { deleteActive(); }},
        {"Exit",
         [this] {
             SuppressVerify = true;
             if (writeGrids())
                 Unload();
         }},
        {"Find",
         [this] {
             SuppressVerify = true;
             FindRecord();
         }},
        {"Group", [this] { ShowGroups(); }},
        {"Task",
         [this] {
             if (jgTasks->UpdateOrTell())
                 pickTasks();
         }},
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
    if (search.selectedKey().isEmpty())
        return;
    if (writeAll())
        loadJob(selectedKeyNumber(search.selectedKey()));
}

/// The job on the screen with its grids: none of it may be left behind, or come under the next job. False
/// when a row was refused, and told.
bool frmJobs::writeAll() {
    SaveRecord();
    return writeGrids();
}

bool frmJobs::writeGrids() {
    return jgTasks->UpdateOrTell() && jgJobLots->UpdateOrTell();
}

/// The buttons of the control that has the focus go by what is loaded, so its routine runs again.
void frmJobs::loadJob(qint64 jobKey) {
    JobKey = jobKey;
    try {
        DisplayRecord();
    } catch (const RunTimeError&) {
        emptyGrids();
        throw;
    }
    LoadedJobNumber = m_fields[0]->text();
    LoadJobLots();
    if (QWidget* active = ActiveControl())
        SetFocus(active);
}

/// Raises what `saveJob` raises. A job that no longer exists leaves the screen then: as long as it stayed,
/// neither another job nor Exit could be reached.
void frmJobs::SaveRecord() {
    try {
        saveJob(connection(), JobKey,
                {.jobNumber = m_fields[0]->text(),
                 .name = m_fields[nameField]->text(),
                 .foreman = cmbForeman->Text(),
                 .completedDate = rebCompletedDate->value()});
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
    emptyGrids();
    SetFocus(m_fields[0]);
}

void frmJobs::DisplayRecord() {
    for (MaskedBox* field : m_fields)
        field->clear();
    cmbForeman->setText({});
    rebCompletedDate->setText({});
    if (JobKey == 0)
        return;
    // A job that can't be shown must not be saved with the empty fields.
    const qint64 wanted = std::exchange(JobKey, 0);
    const ShownJob job = readJob(connection(), wanted);
    JobKey = wanted;
    m_fields[0]->setText(job.record.jobNumber);
    m_fields[nameField]->setText(job.record.name);
    m_fields[builderField]->setText(job.builderName);
    cmbForeman->setText(job.record.foreman);
    rebCompletedDate->setValue(job.record.completedDate);
    ContractorKey = job.contractorKey;
}

void frmJobs::deleteActive() {
    const QWidget* active = ActiveControl();
    const auto asked = [](const QString& what) { return isDeleteConfirmed("Delete " + what + '?'); };
    if (std::find(m_fields.begin(), m_fields.end(), active) != m_fields.end()) {
        if (asked("Current Job"))
            DeleteRecord();
    } else if (active == jgTasks) {
        if (asked("the " + FieldText(jgTasks->value(taskNameColumn)) + " Task"))
            DeleteTask();
    } else if (active == jgJobLots) {
        if (asked("the " + FieldText(jgJobLots->value(planNameColumn)) + " Lot/Block"))
            DeleteLot();
    }
}

void frmJobs::DeleteRecord() {
    const HourGlass hourGlass;
    deleteJob(connection(), JobKey);
    letJobGo();
    m_deleting.reset();
}

void frmJobs::MskField_GotFocus(int index) {
    const ButtonMask buttons = index == nameField ? nameButtons : JobKey == 0 ? noJobButtons : jobButtons;
    EnableToolbar(*this, buttons, ToolbarMask);
    showToolTip(m_fields.at(static_cast<std::size_t>(index)));
}

/// A number that was kept is asked about again each time: `LoadedJobNumber` stays the old one.
void frmJobs::MskField_LostFocus(int index) {
    if (SuppressVerify)
        return;
    if (JobKey == 0) {
        SetFocus(m_fields[0]);
        return;
    }
    if (index != 0 || m_fields[0]->text() == LoadedJobNumber)
        return;
    if (MsgBox({.text = "Job Number Modified.\nCancel Modification?",
                .title = "Entry Verification",
                .buttons = MessageButtons::YesNo}) == Answer::Yes)
        m_fields[0]->setText(LoadedJobNumber);
}

/// The key itself is dropped: a number that the dialog gave is not to be typed into.
void frmJobs::MskField_KeyDown(int& keyCode, int shift) {
    if (JobKey != 0 || !isEntryKey(keyCode, shift))
        return;
    keyCode = 0;
    const bool add = MsgBox({.text = "Do you want to add a new job?",
                             .title = "Add Record",
                             .buttons = MessageButtons::YesNo,
                             .icon = MessageIcon::Question,
                             .defaultButton = 2}) == Answer::Yes;
    if (!add)
        return;
    const auto verifyAgain = qScopeGuard([this] { SuppressVerify = false; });
    AddRecord();
}

void frmJobs::MskField_KeyUp() {
    if (JobKey == 0)
        m_fields[0]->clear();
}

void frmJobs::cmbType_GotFocus() {
    if (isJobNumberEmpty() || jgJobLots->RowCount() < 1) {
        SetFocus(jgJobLots);
        return;
    }
    EnableToolbar(*this, categoryButtons, ToolbarMask);
    showToolTip(cmbType);
}

/// Only the user's own change: a loaded job tells nothing, nor does a text that is no date yet.
void frmJobs::rebCompletedDate_Change() {
    if (ActiveControl() != rebCompletedDate)
        return;
    const Value date = rebCompletedDate->value();
    if (date.kind() == Value::Kind::Text)
        showToolTip(rebCompletedDate);
    else
        setStatusText(completionHint(!date.isNull()));
}

bool frmJobs::isJobNumberEmpty() const {
    return m_fields[0]->text().isEmpty();
}

} // namespace tarnwell
