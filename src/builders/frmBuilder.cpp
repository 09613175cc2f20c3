#include "builders/frmBuilder.h"

#include "builders/GroupPicking.h"
#include "builders/OpenJobs.h"
#include "builders/PlanGrids.h"
#include "builders/PricePropagation.h"
#include "builders/frmAddMasterTasks.h"
#include "controls/Combo.h"
#include "controls/KeyCodes.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "frame/DeleteQuestion.h"
#include "frame/ToolbarButtons.h"
#include "master/Categories.h"
#include "master/FastSearch.h"
#include "master/frmAddOptionGroup.h"
#include "master/frmFastSearch.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MousePointer.h"
#include "runtime/MsgBox.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"

#include <QPushButton>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Add | Button::Remove | Button::AddSame |
                                    Button::Find | Button::Group | Button::Copy | Button::Help;
constexpr ButtonMask emptyButtons = Button::Exit | Button::Add | Button::Save | Button::Find | Button::Help;
constexpr ButtonMask fieldButtons =
    Button::Exit | Button::Add | Button::Remove | Button::Save | Button::Find | Button::Group | Button::Help;
constexpr ButtonMask categoryButtons =
    Button::Exit | Button::Add | Button::Save | Button::Group | Button::Help;
constexpr ButtonMask newPlanButtons = Button::Exit | Button::Save | Button::Group | Button::Help;
constexpr ButtonMask planButtons =
    Button::Exit | Button::Remove | Button::Save | Button::Group | Button::Copy | Button::Help;
constexpr ButtonMask newTaskButtons = Button::Exit | Button::AddSame | Button::Group;
constexpr ButtonMask taskButtons = Button::Exit | Button::Remove | Button::AddSame | Button::Group;

bool isNothing(const Value& value) {
    return value.isEmpty() || value.isNull();
}

} // namespace

frmBuilder::frmBuilder() : Screen("frmBuilder", "Builders", {Part::Toolbar, Part::StatusBar}) {}

frmBuilder::~frmBuilder() = default;

void frmBuilder::Form_Load() {
    setDesignSize(BuilderControls::designSize);
    ui.build(*canvas());
    for (const auto& [control, name, toolTip] : ui.named())
        nameControl(control, name, toolTip);
    m_grids = std::make_unique<PlanGrids>(*ui.jgPlans, *ui.jgTasks, *ui.cmbType);
    connectControls();
    ui.setHints([this] { return ContractorKey != 0; });
    ui.cmbType->setItems(readTaskCategories(connection()));
    if (ui.cmbType->ListCount() > 0)
        ui.cmbType->setListIndex(0);
    DisplayRecord();
    BuildToolbar(*this, builtButtons);
    setToolbarButton("AddSame", "Task", "Add Task");
}

void frmBuilder::connectControls() {
    connectFields();
    connectGrids();
    connect(ui.cmbType, &Combo::clicked, this, guarded([this] { m_grids->cmbType_Click(); }));
    connect(ui.cmbType, &Combo::keyUp, this,
            guarded([this](int keyCode, int shift) { ComboIncrementalSearch(*ui.cmbType, keyCode, shift); }));
    onGotFocus(ui.cmbType, [this] {
        EnableToolbar(*this, categoryButtons, ToolbarMask);
        showToolTip(ui.cmbType);
    });
    connect(ui.cmdSelectAll, &QPushButton::clicked, this, guarded([this] { selectAllJobs(!SelectAllJobs); }));
}

void frmBuilder::connectFields() {
    for (std::size_t i = 0; i < ui.MskField.size(); ++i)
        onGotFocus(ui.MskField.at(i), [this, i] { MskField_GotFocus(static_cast<int>(i)); });
    MaskedBox* name = ui.MskField[0];
    onLostFocus(name, [this] { MskField_LostFocus(); });
    connect(name, &MaskedBox::keyDown, this,
            guarded([this](int& keyCode, int shift) { MskField_KeyDown(keyCode, shift); }));
    connect(name, &MaskedBox::keyUp, this, guarded([this] { MskField_KeyUp(); }));
}

void frmBuilder::connectGrids() {
    onGotFocus(ui.jgPlans, [this] { jgPlans_GotFocus(); });
    onLostFocus(ui.jgPlans, [this] { jgPlans_LostFocus(); });
    connect(ui.jgPlans, &Grid::rowColChange, this, guarded([this](int, int) { jgPlans_RowColChange(); }));
    onGotFocus(ui.jgTasks, [this] { jgTasks_GotFocus(); });
    connect(ui.jgTasks, &Grid::rowColChange, this, guarded([this](int, int) { jgTasks_RowColChange(); }));
    connect(ui.jgTasks, &Grid::afterColUpdate, this,
            guarded([this](int column) { jgTasks_AfterColUpdate(column); }));
    connect(ui.jgTasks, &Grid::buttonClick, this, guarded([this](int column) {
                if (column == PlanTaskColumn::AddonButton)
                    AddPlanTasks();
            }));
}

void frmBuilder::Form_Unload() {
    SaveRecord();
    m_grids->close();
}

/// A row that can't be written keeps the form open.
void frmBuilder::closeRequested() {
    if (m_grids->write())
        Unload();
}

void frmBuilder::Toolbar1_ButtonClick(const QString& caption) {
    const struct {
        const char* caption;
        std::function<void()> routine;
    } buttons[] = {
        {"Add",
         [this] {
             if (AddRecord())
                 SetFocus(ui.MskField[0]);
         }},
        {"Copy", [this] { CopyPlan(); }},
        {"Del", [this] { DeleteRecord(); }},
        {"Exit",
         [this] {
             SuppressVerify = true;
             closeRequested();
         }},
        {"Find", [this] { FindRecord(); }},
        {"Group", [this] { ShowGroups(); }},
        {"Task", [this] { AddTask(); }},
    };
    try {
        for (const auto& button : buttons)
            if (caption == QLatin1String(button.caption))
                button.routine();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

bool frmBuilder::AddRecord() {
    SuppressVerify = true;
    const bool written = writeAll();
    if (written) {
        ContractorKey = addBuilder(connection());
        DisplayRecord();
    }
    SuppressVerify = false;
    return written;
}

void frmBuilder::FindRecord() {
    SuppressVerify = true;
    auto& search = theForm<frmFastSearch>();
    search.searchType = SearchType::Builder;
    search.Show(Modality::Modal, this);
    if (search.selectedKey().isEmpty())
        return;
    const bool written = writeAll();
    if (written) {
        ContractorKey = selectedKeyNumber(search.selectedKey());
        DisplayRecord();
    }
    SuppressVerify = false;
    if (written)
        SetFocus(ui.MskField[0]);
}

void frmBuilder::ShowGroups() {
    SaveRecord();
    auto& groups = theForm<frmAddOptionGroup>();
    groups.openFor({.ContractorKey = ContractorKey, .name = ui.MskField[0]->text()}, pickForGroup, this);
}

/// The builder on the screen with its grids: none of it may be left behind, or come under the next builder.
/// False when a row was refused, and its message shown.
bool frmBuilder::writeAll() {
    SaveRecord();
    return m_grids->write();
}

/// Raises what `saveBuilder` raises. A builder that no longer exists leaves the screen then: as long as it
/// stayed, neither another builder nor Exit could be reached.
void frmBuilder::SaveRecord() {
    try {
        saveBuilder(connection(), ContractorKey, ui.texts());
    } catch (const RunTimeError& error) {
        if (error.is(Failure::NoCurrentRecord)) {
            letBuilderGo();
            SuppressVerify = false;
        }
        throw;
    }
}

/// No builder is on the screen from here on. What was pending in the grids no longer has an owner.
void frmBuilder::letBuilderGo() {
    m_grids->dropPending();
    ToolbarMask = 0;
    ContractorKey = 0;
    DisplayRecord();
    SetFocus(ui.MskField[0]);
    SetFieldToolbar(0);
}

void frmBuilder::DisplayRecord() {
    ui.show(readBuilder(connection(), ContractorKey), ContractorKey != 0);
    LoadJobList();
    m_grids->LoadPlans(ContractorKey);
}

void frmBuilder::LoadJobList() {
    ui.lstJobs->setItems(readOpenJobs(connection(), ContractorKey));
    if (ContractorKey != 0)
        selectAllJobs(true);
}

void frmBuilder::selectAllJobs(bool select) {
    SelectAllJobs = select;
    ui.selectAllJobs(select);
}

void frmBuilder::DeleteRecord() {
    const QWidget* active = ActiveControl();
    if (std::find(ui.MskField.begin(), ui.MskField.end(), active) != ui.MskField.end())
        DeleteBuilder();
    else if (active == ui.jgPlans)
        DeletePlan();
    else if (active == ui.jgTasks)
        DeletePlanTask();
}

void frmBuilder::DeleteBuilder() {
    if (!isDeleteConfirmed("Delete Current Builder?"))
        return;
    const HourGlass hourGlass;
    deleteBuilder(connection(), ContractorKey);
    letBuilderGo();
}

void frmBuilder::DeletePlan() {
    if (!isDeleteConfirmed("Delete the " + FieldText(ui.jgPlans->value(PlanColumn::PlanName)) + " Plan?"))
        return;
    m_grids->DeletePlan();
    SetFocus(ui.jgPlans);
}

void frmBuilder::DeletePlanTask() {
    if (!isNothing(ui.jgTasks->value(PlanTaskColumn::MasterTaskKey)) &&
        isDeleteConfirmed("Delete the " + FieldText(ui.jgTasks->value(PlanTaskColumn::Name)) + " Task?"))
        m_grids->DeletePlanTask();
}

void frmBuilder::CopyPlan() {
    m_grids->CopyPlan();
}

void frmBuilder::AddTask() {
    try {
        AddPlanTasks();
        SetTaskToolbar();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmBuilder::AddPlanTasks() {
    if (isNothing(ui.jgPlans->value(PlanColumn::ContractorPlanKey)) || !m_grids->write())
        return;
    auto& dialog = theForm<frmAddMasterTasks>();
    dialog.Mode = PickingMode::Plan;
    dialog.pickFor(*this, this);
    m_grids->cmbType_Click();
}

PickingTarget frmBuilder::pickingTarget() const {
    return {.ownerKey = m_grids->currentPlan()};
}

void frmBuilder::SetFieldToolbar(int index) {
    EnableToolbar(*this, index == 0 && ContractorKey == 0 ? emptyButtons : fieldButtons, ToolbarMask);
}

void frmBuilder::SetPlanToolbar() {
    EnableToolbar(*this, m_grids->currentPlan() == 0 ? newPlanButtons : planButtons, ToolbarMask);
}

void frmBuilder::SetTaskToolbar() {
    EnableToolbar(*this,
                  ui.jgTasks->value(PlanTaskColumn::MasterTaskKey).isNoKey() ? newTaskButtons : taskButtons,
                  ToolbarMask);
}

void frmBuilder::MskField_GotFocus(int index) {
    if (index > 0)
        showToolTip(ui.MskField.at(static_cast<std::size_t>(index)));
    else
        setStatusText(ContractorKey != 0 ? "Enter Builder Name"
                                         : "Press Add to enter new record, Find to get record");
    SetFieldToolbar(index);
}

void frmBuilder::MskField_LostFocus() {
    if (SuppressVerify || (!isBuilderNameEmpty() && ContractorKey != 0))
        return;
    ui.MskField[0]->clear();
    SetFocus(ui.MskField[0]);
}

void frmBuilder::MskField_KeyDown(int& keyCode, int shift) {
    if (ContractorKey != 0 || !isEntryKey(keyCode, shift))
        return;
    const bool add = MsgBox({.text = "Do you want to add a new builder?",
                             .title = "Add Record",
                             .buttons = MessageButtons::YesNo,
                             .icon = MessageIcon::Question,
                             .defaultButton = 2}) == Answer::Yes;
    if (!add) {
        keyCode = 0; // the field stays empty
        return;
    }
    AddRecord();
    MskField_GotFocus(0);
}

void frmBuilder::MskField_KeyUp() {
    if (ContractorKey == 0)
        ui.MskField[0]->clear();
}

void frmBuilder::jgPlans_GotFocus() {
    if (isBuilderNameEmpty()) {
        SetFocus(ui.MskField[0]);
        return;
    }
    SetPlanToolbar();
    setStatusText(ui.jgPlans->columnTag(ui.jgPlans->Col()));
}

/// A new plan is stored when the grid is left; its tasks, none yet, then take the place of the last plan's.
void frmBuilder::jgPlans_LostFocus() {
    if (ui.jgPlans->value(PlanColumn::ContractorKey).isNoKey() && !ui.jgPlans->UpdateOrTell())
        return;
    m_grids->catchUp();
}

void frmBuilder::jgPlans_RowColChange() {
    if (m_grids->isHeld())
        return;
    m_grids->cmbType_Click();
    SetPlanToolbar();
    if (ui.jgPlans->Col() > 0)
        setStatusText(ui.jgPlans->columnTag(ui.jgPlans->Col()));
}

void frmBuilder::jgTasks_GotFocus() {
    if (isBuilderNameEmpty()) {
        SetFocus(ui.MskField[0]);
        return;
    }
    if (isNothing(ui.jgPlans->value(PlanColumn::ContractorPlanKey))) {
        SetFocus(ui.jgPlans);
        return;
    }
    m_grids->catchUp();
    SetTaskToolbar();
    showToolTip(ui.jgTasks);
}

void frmBuilder::jgTasks_RowColChange() {
    if (m_grids->isHeld())
        return;
    m_grids->catchUp();
    if (ui.jgTasks->Col() > 0)
        setStatusText(ui.jgTasks->columnTag(ui.jgTasks->Col()));
}

void frmBuilder::jgTasks_AfterColUpdate(int column) {
    propagatePrice(connection(),
                   {.column = column,
                    .planTaskKey = ui.jgTasks->value(PlanTaskColumn::ContractorPlanTaskKey),
                    .price = ui.jgTasks->value(PlanTaskColumn::MasterPrice)},
                   ui.selectedJobs());
}

bool frmBuilder::isBuilderNameEmpty() const {
    return ui.MskField[0]->text().isEmpty();
}

} // namespace tarnwell
