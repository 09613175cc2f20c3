#include "builders/frmAddMasterTasks.h"
#include "controls/Combo.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridRows.h"
#include "data/recordset/Recordset.h"
#include "frame/ToolbarButtons.h"
#include "jobs/JobRecord.h"
#include "jobs/LotTasks.h"
#include "jobs/TaskTree.h"
#include "jobs/frmAddJobOptionGroup.h"
#include "jobs/frmAddJobTasks.h"
#include "jobs/frmJobs.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"
#include "runtime/modFormatFunctions.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

// The lots of the job and the tasks of the lot.

namespace tarnwell {

namespace {

constexpr ButtonMask lotButtons = Button::Exit | Button::Remove | Button::Copy | Button::Help;
constexpr ButtonMask newLotButtons = Button::Exit | Button::Help;
constexpr ButtonMask taskButtons =
    Button::Exit | Button::Remove | Button::AddSame | Button::Save | Button::Group | Button::Help;

// Numbers of the grids' columns.
constexpr int lotKeyColumn = 1, lotJobColumn = 2, lotBlockColumn = 3, planNameColumn = 4, addressColumn = 5,
              lotPlanColumn = 6;
constexpr int masterTaskColumn = 1, taskLotColumn = 2, taskCategoryColumn = 3, addOnColumn = 4,
              parentColumn = 5, childColumn = 6, employeeColumn = 15;

qint64 numberIn(const Grid& grid, int column) {
    const Value value = grid.value(column);
    return value.isNoKey() ? 0 : value.toLong();
}

} // namespace

void frmJobs::connectGrids() {
    onGotFocus(jgJobLots, [this] { jgJobLots_GotFocus(); });
    connect(jgJobLots, &Grid::rowColChange, this, guarded([this](int, int) { jgJobLots_RowColChange(); }));
    connect(jgJobLots, &Grid::beforeUpdate, this, guarded([this](bool&) {
                if (jgJobLots->value(lotKeyColumn).isNoKey())
                    jgJobLots->setValue(lotJobColumn, JobKey);
            }));
    connect(jgJobLots, &Grid::buttonClick, this,
            guarded([this](int column) { jgJobLots_ButtonClick(column); }));
    connect(jgJobLots, &Grid::keyDown, this,
            guarded([this](int& keyCode, int) { walkByEnter(*jgJobLots, keyCode); }));
    onGotFocus(jgTasks, [this] { jgTasks_GotFocus(); });
    connect(jgTasks, &Grid::rowColChange, this, guarded([this](int, int) { jgTasks_RowColChange(); }));
    connect(jgTasks, &Grid::givenUp, this, guarded([this] { catchUpWithLot(); }));
    connect(jgTasks, &Grid::beforeUpdate, this, guarded([this](bool&) { jgTasks_BeforeUpdate(); }));
    connect(jgTasks, &Grid::buttonClick, this, guarded([this](int column) { jgTasks_ButtonClick(column); }));
    connect(jgTasks, &Grid::keyDown, this,
            guarded([this](int& keyCode, int) { walkByEnter(*jgTasks, keyCode); }));
}

/// Stands on the lot of that key, or on the first one.
void frmJobs::LoadJobLots(const Value& standOn) {
    {
        // The tasks are read once, behind the binding.
        const QScopedValueRollback binding(m_binding, true);
        showRows(connection(), *jgJobLots, rsJobLots, lotRowsOfJob(JobKey), "JobLot.lyt");
        for (int row = 1; row <= jgJobLots->RowCount(); ++row)
            if (jgJobLots->valueAt(row, lotKeyColumn) == standOn) {
                jgJobLots->setRow(row);
                break;
            }
    }
    cmbType_Click();
}

/// The error of the tasks ends here, that of the employees goes on to whoever asked for the tasks.
void frmJobs::cmbType_Click() {
    try {
        if (!showTasks())
            return;
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
        return;
    }
    showEmployees();
}

/// What is pending is written first: a task belongs to the lot and category on show, and a new lot has its
/// key from then on. One that can't be is told, and stays on show until it is mended or given up.
bool frmJobs::showTasks() {
    const QScopedValueRollback binding(m_binding, true);
    if (!writeGrids())
        return false;
    const qint64 lot = currentLotKey();
    const qint64 category = cmbType->ItemData(cmbType->ListIndex());
    showRows(connection(), *jgTasks, rsJobLotTasks, taskRowsOfLot(lot, category), "JobTasks.lyt");
    m_lotOfTasks = lot;
    CategoryKey = category;
    return true;
}

bool frmJobs::areTasksCurrent() const {
    const int index = cmbType->ListIndex();
    return m_lotOfTasks == currentLotKey() && (index < 0 || cmbType->ItemData(index) == CategoryKey);
}

/// A task that was refused kept its own rows on show while another lot or category was chosen.
void frmJobs::catchUpWithLot() {
    if (!areTasksCurrent() && !jgTasks->isPending())
        cmbType_Click();
}

/// Who has no entry shows as an empty cell; the task keeps the key. The many are read again only when
/// something was written since, at whatever seat.
void frmJobs::showEmployees() {
    const quint32 version = connection().dataVersion();
    if (version == m_employeesAsOf)
        return;
    std::vector<ListEntry> entries;
    for (auto& [name, key] : readTaskEmployees(connection()))
        entries.push_back({.value = key, .text = std::move(name)});
    jgTasks->setValueList(employeeColumn, std::move(entries));
    m_employeesAsOf = version;
}

void frmJobs::RefreshTasks() {
    m_deleting.emplace();
    const auto pointerBack = qScopeGuard([this] { m_deleting.reset(); });
    cmbType_Click();
}

void frmJobs::closeGrids() {
    jgJobLots->Update();
    jgTasks->Update();
    m_binding = true;
    jgJobLots->bind(nullptr);
    jgTasks->bind(nullptr);
    rsJobLots.reset();
    rsJobLotTasks.reset();
}

/// Behind a deleted job: what was pending has no owner any more.
void frmJobs::emptyGrids() {
    const QScopedValueRollback binding(m_binding, true);
    const std::pair<Grid*, Recordset*> grids[] = {{jgJobLots, rsJobLots.get()},
                                                  {jgTasks, rsJobLotTasks.get()}};
    for (const auto& [grid, rows] : grids) {
        grid->CancelUpdate();
        if (rows != nullptr)
            rows->setFilter("JobLotKey=0");
        grid->Rebind();
    }
    m_lotOfTasks = 0;
}

/// Whatever comes of it, the lots are read anew: another seat may have been there before.
void frmJobs::DeleteLot() {
    const Value lot = jgJobLots->value(lotKeyColumn);
    try {
        // The move to the next lot would write a pending task of a lot that is gone.
        const QScopedValueRollback binding(m_binding, true);
        jgJobLots->Delete();
    } catch (const RunTimeError&) {
        LoadJobLots(lot);
        throw;
    }
    jgTasks->CancelUpdate();
    jgJobLots_RowColChange();
}

/// Behind a delete, done or refused: a second one is not to meet another task than the user looks at.
void frmJobs::showTasksAt(int row) {
    cmbType_Click();
    jgTasks->setRow(std::min(row, jgTasks->RowCount()));
}

void frmJobs::DeleteTask() {
    m_deleting.emplace();
    const TreePlace place{.parentKey = numberIn(*jgTasks, parentColumn),
                          .child = numberIn(*jgTasks, childColumn)};
    const int row = jgTasks->Row();
    try {
        const QScopedValueRollback binding(m_binding, true);
        jgTasks->Delete();
        repairTreeAfterDelete(connection(), place);
    } catch (const RunTimeError&) {
        showTasksAt(row);
        throw;
    }
    showTasksAt(row);
    m_deleting.reset();
}

void frmJobs::CopyLot() {
    if (!writeGrids())
        return;
    const qint64 copy = copyLot(connection(), {.jobLotKey = jgJobLots->value(lotKeyColumn),
                                               .jobKey = jgJobLots->value(lotJobColumn),
                                               .lotBlock = jgJobLots->value(lotBlockColumn),
                                               .planName = jgJobLots->value(planNameColumn),
                                               .address = jgJobLots->value(addressColumn),
                                               .contractorPlanKey = jgJobLots->value(lotPlanColumn)});
    LoadJobLots(copy);
    showLotPlace();
}

/// Fills the current lot, or a new one, and comes back to the lot that it started from.
void frmJobs::AddLotTasks() {
    const Value lot = jgJobLots->value(lotKeyColumn);
    auto& dialog = theForm<frmAddJobTasks>();
    dialog.fillFor(*this, this);
    if (!dialog.Cancelled)
        LoadJobLots(lot);
    showLotPlace();
}

void frmJobs::ShowGroups() {
    if (!jgTasks->UpdateOrTell())
        return;
    auto& dialog = theForm<frmAddJobOptionGroup>();
    dialog.applyTo(*this, this);
    if (!dialog.Cancelled)
        RefreshTasks();
}

void frmJobs::pickTasks() {
    auto& dialog = theForm<frmAddMasterTasks>();
    dialog.Mode = PickingMode::Lot;
    dialog.pickFor(*this, this);
    if (!dialog.Cancelled)
        RefreshTasks();
}

qint64 frmJobs::currentLotKey() const {
    return numberIn(*jgJobLots, lotKeyColumn);
}

CurrentLot frmJobs::currentLot() const {
    return {.jobKey = JobKey,
            .contractorKey = ContractorKey,
            .jobLotKey = jgJobLots->value(lotKeyColumn),
            .contractorPlanKey = jgJobLots->value(lotPlanColumn)};
}

PickingTarget frmJobs::pickingTarget() const {
    return {.ownerKey = jgJobLots->value(lotKeyColumn)};
}

void frmJobs::setLotToolbar() {
    EnableToolbar(*this, currentLotKey() == 0 ? newLotButtons : lotButtons, ToolbarMask);
}

/// What the row can do and what the column is for.
void frmJobs::showLotPlace() {
    setLotToolbar();
    if (jgJobLots->Col() > 0)
        setStatusText(jgJobLots->columnTag(jgJobLots->Col()));
}

void frmJobs::jgJobLots_GotFocus() {
    if (isJobNumberEmpty()) {
        SetFocus(m_fields[0]);
        return;
    }
    setLotToolbar();
    showToolTip(jgJobLots);
}

void frmJobs::jgJobLots_RowColChange() {
    if (m_binding)
        return;
    // The buttons go by the row as the tasks' load leaves it: a new lot has its key then.
    const auto goOn = qScopeGuard([this] { showLotPlace(); });
    try {
        cmbType_Click();
    } catch (const RunTimeError&) {
        return; // passed over: the employees on offer stay those of before
    }
}

/// What can't be written is told, and no plan is offered for it.
void frmJobs::jgJobLots_ButtonClick(int column) {
    if (column == planNameColumn && jgJobLots->UpdateOrTell())
        AddLotTasks();
}

void frmJobs::jgTasks_GotFocus() {
    if (isJobNumberEmpty() || currentLotKey() == 0) {
        SetFocus(jgJobLots);
        return;
    }
    catchUpWithLot();
    EnableToolbar(*this, taskButtons, ToolbarMask);
    showToolTip(jgTasks);
}

void frmJobs::jgTasks_RowColChange() {
    if (m_binding)
        return;
    catchUpWithLot();
    if (jgTasks->Col() > 0)
        setStatusText(jgTasks->columnTag(jgTasks->Col()));
}

/// A typed task comes from no master task.
void frmJobs::jgTasks_BeforeUpdate() {
    if (!jgTasks->value(taskLotColumn).isNoKey())
        return;
    jgTasks->setValue(masterTaskColumn, 0);
    jgTasks->setValue(taskLotColumn, m_lotOfTasks);
    jgTasks->setValue(taskCategoryColumn, CategoryKey);
}

void frmJobs::jgTasks_ButtonClick(int column) {
    if (column == addOnColumn && !jgJobLots->value(lotKeyColumn).isEmpty() && jgTasks->UpdateOrTell())
        pickTasks();
}

} // namespace tarnwell
