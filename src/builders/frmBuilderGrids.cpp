#include "builders/PlanCopy.h"
#include "builders/PricePropagation.h"
#include "builders/frmAddMasterTasks.h"
#include "builders/frmBuilder.h"
#include "controls/Combo.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridRows.h"
#include "data/recordset/Recordset.h"
#include "frame/DeleteQuestion.h"
#include "frame/ToolbarButtons.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"

#include <QScopedValueRollback>

#include <algorithm>

// The plans and a plan's tasks.

namespace tarnwell {

namespace {

constexpr ButtonMask newPlanButtons = Button::Exit | Button::Save | Button::Group | Button::Help;
constexpr ButtonMask planButtons =
    Button::Exit | Button::Remove | Button::Save | Button::Group | Button::Copy | Button::Help;
constexpr ButtonMask newTaskButtons = Button::Exit | Button::AddSame | Button::Group;
constexpr ButtonMask taskButtons = Button::Exit | Button::Remove | Button::AddSame | Button::Group;

// Numbers of the grids' columns.
constexpr int planKeyColumn = 1, planBuilderColumn = 2, planNameColumn = 3;
constexpr int masterTaskColumn = 1, taskPlanColumn = 2, taskCategoryColumn = 3, taskKeyColumn = 4,
              addOnColumn = 5, taskNameColumn = 6, taskPriceColumn = 7;

bool isNothing(const Value& value) {
    return value.isEmpty() || value.isNull();
}

} // namespace

void frmBuilder::connectGrids() {
    onGotFocus(jgPlans, [this] { jgPlans_GotFocus(); });
    onLostFocus(jgPlans, [this] { jgPlans_LostFocus(); });
    connect(jgPlans, &Grid::rowColChange, this, guarded([this](int, int) { jgPlans_RowColChange(); }));
    connect(jgPlans, &Grid::beforeUpdate, this, guarded([this](bool&) {
                if (jgPlans->value(planBuilderColumn).isNoKey())
                    jgPlans->setValue(planBuilderColumn, m_builderOfPlans);
            }));
    onGotFocus(jgTasks, [this] { jgTasks_GotFocus(); });
    connect(jgTasks, &Grid::rowColChange, this, guarded([this](int, int) { jgTasks_RowColChange(); }));
    connect(jgTasks, &Grid::givenUp, this, guarded([this] { catchUpWithPlan(); }));
    connect(jgTasks, &Grid::beforeUpdate, this, guarded([this](bool&) { jgTasks_BeforeUpdate(); }));
    connect(jgTasks, &Grid::afterColUpdate, this,
            guarded([this](int column) { jgTasks_AfterColUpdate(column); }));
    connect(jgTasks, &Grid::buttonClick, this, guarded([this](int column) {
                if (column == addOnColumn)
                    AddPlanTasks();
            }));
    connect(jgTasks, &Grid::keyDown, this,
            guarded([this](int& keyCode, int) { walkByEnter(*jgTasks, keyCode); }));
}

void frmBuilder::LoadPlans(int standOn) {
    {
        const QScopedValueRollback binding(m_binding, true);
        showRows(connection(), *jgPlans, rsPlans, plansOfBuilder(ContractorKey), "ContractorPlans.lyt");
        m_builderOfPlans = ContractorKey;
        jgPlans->setRow(std::min(standOn, jgPlans->RowCount()));
    }
    cmbType_Click();
}

void frmBuilder::cmbType_Click(int standOn) {
    try {
        loadPlanTasks(standOn);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

/// The pending task is written before anything changes: it belongs to the plan and category on show. One that
/// can't be is told, and stays on show until it is mended or given up.
void frmBuilder::loadPlanTasks(int standOn) {
    if (cmbType->ListIndex() < 0 || !jgTasks->UpdateOrTell())
        return;
    const qint64 plan = currentPlan();
    const qint64 category = cmbType->ItemData(cmbType->ListIndex());
    const QScopedValueRollback binding(m_binding, true);
    showRows(connection(), *jgTasks, rsPlanTasks, tasksOfPlan(plan, category), "ContractorTasks.lyt");
    jgTasks->setRow(std::min(standOn, jgTasks->RowCount()));
    m_planOfTasks = plan;
    CategoryKey = category;
}

void frmBuilder::CopyPlan() {
    const Value plan = jgPlans->value(planKeyColumn);
    if (plan.isNoKey() || !writeGrids())
        return;
    const qint64 copy =
        copyPlan(connection(), ContractorKey, plan.toLong(), FieldText(jgPlans->value(planNameColumn)));
    LoadPlans();
    for (int row = 1; row <= jgPlans->RowCount(); ++row)
        if (jgPlans->valueAt(row, planKeyColumn) == Value(copy))
            jgPlans->setRow(row);
}

/// Whatever comes of it, the plans are read anew: another seat may have been there before. The place in the
/// list stays, that the next one is near.
void frmBuilder::DeletePlan() {
    if (!isDeleteConfirmed("Delete the " + FieldText(jgPlans->value(planNameColumn)) + " Plan?"))
        return;
    const int row = jgPlans->Row();
    try {
        // The move to the next plan would write a pending task of a plan that is gone.
        const QScopedValueRollback binding(m_binding, true);
        jgPlans->Delete();
    } catch (const RunTimeError&) {
        LoadPlans(row);
        throw;
    }
    jgTasks->CancelUpdate();
    LoadPlans(row);
    SetFocus(jgPlans);
}

void frmBuilder::DeletePlanTask() {
    if (isNothing(jgTasks->value(masterTaskColumn)) ||
        !isDeleteConfirmed("Delete the " + FieldText(jgTasks->value(taskNameColumn)) + " Task?"))
        return;
    const int row = jgTasks->Row();
    try {
        jgTasks->Delete();
    } catch (const RunTimeError&) {
        cmbType_Click(row);
        throw;
    }
    cmbType_Click(row);
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
    if (isNothing(jgPlans->value(planKeyColumn)) || !writeGrids())
        return;
    auto& dialog = theForm<frmAddMasterTasks>();
    dialog.Mode = PickingMode::Plan;
    dialog.pickFor(*this, this);
    cmbType_Click();
}

bool frmBuilder::writeGrids() {
    return jgPlans->UpdateOrTell() && jgTasks->UpdateOrTell();
}

PickingTarget frmBuilder::pickingTarget() const {
    return {.ownerKey = currentPlan()};
}

void frmBuilder::SetPlanToolbar() {
    EnableToolbar(*this, currentPlan() == 0 ? newPlanButtons : planButtons, ToolbarMask);
}

void frmBuilder::SetTaskToolbar() {
    EnableToolbar(*this, jgTasks->value(masterTaskColumn).isNoKey() ? newTaskButtons : taskButtons,
                  ToolbarMask);
}

qint64 frmBuilder::currentPlan() const {
    const Value key = jgPlans->value(planKeyColumn);
    return key.isNoKey() ? 0 : key.toLong();
}

bool frmBuilder::areTasksCurrent() const {
    const int index = cmbType->ListIndex();
    return m_planOfTasks == currentPlan() && (index < 0 || cmbType->ItemData(index) == CategoryKey);
}

void frmBuilder::jgPlans_GotFocus() {
    if (isBuilderNameEmpty()) {
        SetFocus(m_fields[0]);
        return;
    }
    SetPlanToolbar();
    setStatusText(jgPlans->columnTag(jgPlans->Col()));
}

/// A new plan is stored when the grid is left; its tasks, none yet, then take the place of the last plan's.
void frmBuilder::jgPlans_LostFocus() {
    if (jgPlans->value(planBuilderColumn).isNoKey() && !jgPlans->UpdateOrTell())
        return;
    catchUpWithPlan();
}

void frmBuilder::jgPlans_RowColChange() {
    if (m_binding)
        return;
    cmbType_Click();
    SetPlanToolbar();
    if (jgPlans->Col() > 0)
        setStatusText(jgPlans->columnTag(jgPlans->Col()));
}

void frmBuilder::jgTasks_GotFocus() {
    if (isBuilderNameEmpty()) {
        SetFocus(m_fields[0]);
        return;
    }
    if (isNothing(jgPlans->value(planKeyColumn))) {
        SetFocus(jgPlans);
        return;
    }
    catchUpWithPlan();
    SetTaskToolbar();
    showToolTip(jgTasks);
}

/// A task that was refused kept its own rows on show while another plan or category was chosen.
void frmBuilder::catchUpWithPlan() {
    if (!areTasksCurrent() && !jgTasks->isPending())
        cmbType_Click();
}

void frmBuilder::jgTasks_RowColChange() {
    if (m_binding)
        return;
    catchUpWithPlan();
    if (jgTasks->Col() > 0)
        setStatusText(jgTasks->columnTag(jgTasks->Col()));
}

void frmBuilder::jgTasks_BeforeUpdate() {
    if (!jgTasks->value(taskPlanColumn).isNoKey())
        return;
    jgTasks->setValue(taskPlanColumn, m_planOfTasks);
    jgTasks->setValue(taskCategoryColumn, CategoryKey);
}

void frmBuilder::jgTasks_AfterColUpdate(int column) {
    std::vector<qint64> jobs;
    for (int i = 0; i < lstJobs->ListCount(); ++i)
        if (lstJobs->item(i)->isSelected())
            jobs.push_back(lstJobs->ItemData(i));
    propagatePrice(connection(),
                   {.column = column,
                    .planTaskKey = jgTasks->value(taskKeyColumn),
                    .price = jgTasks->value(taskPriceColumn)},
                   jobs);
}

} // namespace tarnwell
