#include "builders/PlanGrids.h"

#include "builders/BuilderControls.h"
#include "builders/BuilderRecord.h"
#include "builders/PlanCopy.h"
#include "controls/Combo.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridBinding.h"
#include "data/recordset/Recordset.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"

#include <algorithm>

namespace tarnwell {

PlanGrids::PlanGrids(Grid& plans, Grid& tasks, Combo& category)
    : jgPlans(plans), jgTasks(tasks), cmbType(category),
      m_tasks(tasks, {.chosen =
                          [this] {
                              return DetailKeys{currentPlan(), chosenKey(cmbType)};
                          },
                      .show =
                          [this](const DetailKeys& keys) {
                              jgTasks.setHasOwner(keys.owner != 0);
                              showRows(connection(), jgTasks, rsPlanTasks,
                                       tasksOfPlan(keys.owner, keys.category), "ContractorTasks.lyt");
                          },
                      .reload = [this] { cmbType_Click(); }}) {
    connectRows();
}

PlanGrids::~PlanGrids() = default;

/// A new plan belongs to the builder of the plans on show, a new task to the plan and category of its rows.
void PlanGrids::connectRows() {
    connect(&jgPlans, &Grid::beforeUpdate, this, guarded([this](bool&) {
        if (jgPlans.value(PlanColumn::ContractorKey).isNoKey())
            jgPlans.setValue(PlanColumn::ContractorKey, m_builderOfPlans);
    }));
    connect(&jgTasks, &Grid::beforeUpdate, this, guarded([this](bool&) {
        if (!jgTasks.value(PlanTaskColumn::ContractorPlanKey).isNoKey())
            return;
        jgTasks.setValue(PlanTaskColumn::ContractorPlanKey, m_tasks.keys().owner);
        jgTasks.setValue(PlanTaskColumn::CodeKey, m_tasks.keys().category);
    }));
    connect(&jgTasks, &Grid::keyDown, this,
            guarded([this](int& keyCode, int) { walkByEnter(jgTasks, keyCode); }));
}

qint64 PlanGrids::currentPlan() const {
    const Value key = jgPlans.value(PlanColumn::ContractorPlanKey);
    return key.isNoKey() ? 0 : key.toLong();
}

void PlanGrids::LoadPlans(qint64 builderKey, int standOn) {
    {
        // The tasks are read once, after the binding.
        const auto held = m_tasks.hold();
        jgPlans.setHasOwner(builderKey != 0);
        showRows(connection(), jgPlans, rsPlans, plansOfBuilder(builderKey), "ContractorPlans.lyt");
        m_builderOfPlans = builderKey;
        jgPlans.setRow(std::min(standOn, jgPlans.RowCount()));
    }
    cmbType_Click();
}

void PlanGrids::cmbType_Click(int standOn) {
    if (cmbType.ListIndex() < 0)
        return;
    try {
        m_tasks.follow(standOn);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

bool PlanGrids::write() {
    return jgPlans.UpdateOrTell() && jgTasks.UpdateOrTell();
}

void PlanGrids::CopyPlan() {
    const qint64 plan = currentPlan();
    if (plan == 0 || !write())
        return;
    const Value copy =
        copyPlan(connection(), m_builderOfPlans, plan, FieldText(jgPlans.value(PlanColumn::PlanName)));
    LoadPlans(m_builderOfPlans);
    for (int row = 1; row <= jgPlans.RowCount(); ++row)
        if (jgPlans.valueAt(row, PlanColumn::ContractorPlanKey) == copy)
            jgPlans.setRow(row);
}

/// Somebody else may have deleted the plan before: the plans are read anew in any case. The place in the list
/// stays, so that the next one is near.
void PlanGrids::DeletePlan() {
    const int row = jgPlans.Row();
    try {
        // The move to the next plan would write a pending task of a plan that no longer exists.
        const auto held = m_tasks.hold();
        jgPlans.Delete();
    } catch (const RunTimeError&) {
        LoadPlans(m_builderOfPlans, row);
        throw;
    }
    jgTasks.CancelUpdate();
    LoadPlans(m_builderOfPlans, row);
}

void PlanGrids::DeletePlanTask() {
    const int row = jgTasks.Row();
    try {
        jgTasks.Delete();
    } catch (const RunTimeError&) {
        cmbType_Click(row);
        throw;
    }
    cmbType_Click(row);
}

void PlanGrids::dropPending() {
    jgTasks.CancelUpdate();
    jgPlans.CancelUpdate();
}

void PlanGrids::close() {
    jgPlans.Update();
    jgTasks.Update();
    const auto held = m_tasks.hold();
    jgTasks.bind(nullptr);
    jgPlans.bind(nullptr);
    rsPlanTasks.reset();
    rsPlans.reset();
}

} // namespace tarnwell
