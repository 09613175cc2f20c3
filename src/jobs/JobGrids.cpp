#include "jobs/JobGrids.h"

#include "controls/Combo.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridBinding.h"
#include "data/recordset/Recordset.h"
#include "jobs/JobControls.h"
#include "jobs/LotTasks.h"
#include "jobs/TaskTree.h"
#include "master/JobLots.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"

#include <QScopeGuard>

#include <algorithm>

namespace tarnwell {

namespace {

qint64 numberIn(const Grid& grid, int column) {
    const Value value = grid.value(column);
    return value.isNoKey() ? 0 : value.toLong();
}

} // namespace

JobGrids::JobGrids(Grid& lots, Grid& tasks, Combo& category)
    : jgJobLots(lots), jgTasks(tasks), cmbType(category),
      m_tasks(tasks, {.chosen =
                          [this] {
                              return DetailKeys{currentLotKey(), chosenKey(cmbType)};
                          },
                      .show = [this](const DetailKeys& keys) { showTasks(keys); },
                      .write = [this] { return write(); },
                      .reload = [this] { cmbType_Click(); }}) {
    connectRows();
}

JobGrids::~JobGrids() = default;

/// A new lot belongs to the job of the lots on show, a new task to the lot and category of its rows. A typed
/// task comes from no master task.
void JobGrids::connectRows() {
    connect(&jgJobLots, &Grid::beforeUpdate, this, guarded([this](bool&) {
        if (jgJobLots.value(LotColumn::JobLotKey).isNoKey())
            jgJobLots.setValue(LotColumn::JobKey, m_jobOfLots);
    }));
    connect(&jgTasks, &Grid::beforeUpdate, this, guarded([this](bool&) {
        if (!jgTasks.value(LotTaskColumn::JobLotKey).isNoKey())
            return;
        jgTasks.setValue(LotTaskColumn::MasterTaskKey, 0);
        jgTasks.setValue(LotTaskColumn::JobLotKey, m_tasks.keys().owner);
        jgTasks.setValue(LotTaskColumn::CodeKey, m_tasks.keys().category);
    }));
    for (Grid* grid : {&jgJobLots, &jgTasks})
        connect(grid, &Grid::keyDown, this,
                guarded([grid](int& keyCode, int) { walkByEnter(*grid, keyCode); }));
}

qint64 JobGrids::currentLotKey() const {
    return numberIn(jgJobLots, LotColumn::JobLotKey);
}

void JobGrids::LoadJobLots(qint64 jobKey, const Value& standOn) {
    {
        // The tasks are read once, after the binding.
        const auto held = m_tasks.hold();
        jgJobLots.setHasOwner(jobKey != 0);
        showRows(connection(), jgJobLots, rsJobLots, lotsOfJob(jobKey), "JobLot.lyt");
        m_jobOfLots = jobKey;
        for (int row = 1; row <= jgJobLots.RowCount(); ++row)
            if (jgJobLots.valueAt(row, LotColumn::JobLotKey) == standOn) {
                jgJobLots.setRow(row);
                break;
            }
    }
    cmbType_Click();
}

void JobGrids::cmbType_Click() {
    try {
        if (!m_tasks.follow())
            return;
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        return;
    }
    showEmployees();
}

/// Without a category this raises InvalidPropertyIndex.
void JobGrids::showTasks(const DetailKeys& keys) {
    const qint64 category = cmbType.ItemData(cmbType.ListIndex());
    jgTasks.setHasOwner(keys.owner != 0);
    showRows(connection(), jgTasks, rsJobLotTasks, taskRowsOfLot(keys.owner, category), "JobTasks.lyt");
}

/// An employee without an entry shows as an empty cell; the task keeps the key. The list is long: it is read
/// again only when something was written since, at whatever workstation.
void JobGrids::showEmployees() {
    const quint32 version = connection().dataVersion();
    if (version == m_employeesAsOf)
        return;
    std::vector<ListEntry> entries;
    for (auto& [name, key] : readTaskEmployees(connection()))
        entries.push_back({.value = key, .text = std::move(name)});
    jgTasks.setValueList(LotTaskColumn::EmployeeKey, std::move(entries));
    m_employeesAsOf = version;
}

bool JobGrids::showChanges() {
    if (rsJobLots == nullptr || m_tasks.isHeld() || jgTasks.isPending())
        return rsJobLots == nullptr;
    if (!showChangedRows(connection(), jgJobLots, rsJobLots, lotsOfJob(m_jobOfLots), "JobLotKey"))
        return false;
    const auto [lot, category] = m_tasks.keys();
    return rsJobLotTasks == nullptr || showChangedRows(connection(), jgTasks, rsJobLotTasks,
                                                       taskRowsOfLot(lot, category), "JobLotTaskKey");
}

void JobGrids::RefreshTasks() {
    m_deleting.emplace();
    const auto pointerBack = qScopeGuard([this] { m_deleting.reset(); });
    cmbType_Click();
}

bool JobGrids::write() {
    return jgTasks.UpdateOrTell() && jgJobLots.UpdateOrTell();
}

void JobGrids::CopyLot() {
    if (!write())
        return;
    const qint64 copy =
        copyLot(connection(), {.jobLotKey = jgJobLots.value(LotColumn::JobLotKey),
                               .jobKey = jgJobLots.value(LotColumn::JobKey),
                               .lotBlock = jgJobLots.value(LotColumn::LotBlock),
                               .planName = jgJobLots.value(LotColumn::PlanName),
                               .address = jgJobLots.value(LotColumn::Address),
                               .contractorPlanKey = jgJobLots.value(LotColumn::ContractorPlanKey)});
    LoadJobLots(m_jobOfLots, copy);
}

void JobGrids::DeleteLot() {
    const Value lot = jgJobLots.value(LotColumn::JobLotKey);
    try {
        // The move to the next lot would write a pending task of a lot that no longer exists.
        const auto held = m_tasks.hold();
        jgJobLots.Delete();
    } catch (const RunTimeError&) {
        LoadJobLots(m_jobOfLots, lot); // somebody else may have deleted it before
        throw;
    }
    jgTasks.CancelUpdate();
}

void JobGrids::DeleteTask() {
    m_deleting.emplace();
    const TreePlace place{.parentKey = numberIn(jgTasks, LotTaskColumn::ParentKey),
                          .child = numberIn(jgTasks, LotTaskColumn::Child)};
    const int row = jgTasks.Row();
    try {
        const auto held = m_tasks.hold();
        deleteFromTree(connection(), place, [this] { jgTasks.Delete(); });
    } catch (const RunTimeError&) {
        showTasksAt(row);
        throw;
    }
    showTasksAt(row);
    m_deleting.reset();
}

/// After a delete, done or refused: a second one must not reach another task than the user looks at.
void JobGrids::showTasksAt(int row) {
    cmbType_Click();
    jgTasks.setRow(std::min(row, jgTasks.RowCount()));
}

void JobGrids::empty() {
    const auto held = m_tasks.hold();
    const std::pair<Grid*, Recordset*> grids[] = {{&jgJobLots, rsJobLots.get()},
                                                  {&jgTasks, rsJobLotTasks.get()}};
    for (const auto& [grid, rows] : grids) {
        grid->CancelUpdate();
        grid->setHasOwner(false);
        if (rows != nullptr)
            rows->setFilter("JobLotKey=0");
        grid->Rebind();
    }
    m_tasks.forgetOwner();
    m_jobOfLots = 0;
}

void JobGrids::close() {
    jgJobLots.Update();
    jgTasks.Update();
    const auto held = m_tasks.hold();
    jgJobLots.bind(nullptr);
    jgTasks.bind(nullptr);
    rsJobLots.reset();
    rsJobLotTasks.reset();
}

} // namespace tarnwell
