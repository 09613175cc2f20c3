#include "jobs/LotDialogs.h"

#include "builders/frmAddMasterTasks.h"
#include "controls/grid/Grid.h"
#include "jobs/JobControls.h"
#include "jobs/JobGrids.h"
#include "jobs/frmAddJobOptionGroup.h"
#include "jobs/frmAddJobTasks.h"
#include "runtime/MsgBox.h"

#include <utility>

namespace tarnwell {

LotDialogs::LotDialogs(QWidget& owner, Grid& lots, Grid& tasks, JobGrids& grids,
                       std::function<LoadedJob()> job)
    : m_owner(owner), jgJobLots(lots), jgTasks(tasks), m_grids(grids), m_job(std::move(job)) {}

void LotDialogs::AddLotTasks() {
    const Value lot = jgJobLots.value(LotColumn::JobLotKey);
    auto& dialog = theForm<frmAddJobTasks>();
    dialog.fillFor(*this, &m_owner);
    if (!dialog.Cancelled)
        m_grids.LoadJobLots(m_job().jobKey, lot);
}

void LotDialogs::ShowGroups() {
    if (!jgTasks.UpdateOrTell())
        return;
    auto& dialog = theForm<frmAddJobOptionGroup>();
    dialog.applyTo(*this, &m_owner);
    if (!dialog.Cancelled)
        m_grids.RefreshTasks();
}

void LotDialogs::pickTasks() {
    if (!jgTasks.UpdateOrTell())
        return;
    auto& dialog = theForm<frmAddMasterTasks>();
    dialog.Mode = PickingMode::Lot;
    dialog.pickFor(*this, &m_owner);
    if (!dialog.Cancelled)
        m_grids.RefreshTasks();
}

CurrentLot LotDialogs::currentLot() const {
    const LoadedJob job = m_job();
    return {.jobKey = job.jobKey,
            .contractorKey = job.contractorKey,
            .jobLotKey = jgJobLots.value(LotColumn::JobLotKey),
            .contractorPlanKey = jgJobLots.value(LotColumn::ContractorPlanKey)};
}

PickingTarget LotDialogs::pickingTarget() const {
    return {.ownerKey = jgJobLots.value(LotColumn::JobLotKey)};
}

bool isCopyConfirmed(const QString& plan) {
    return MsgBox({.text = "Copy the " + plan + " Lot/Block?",
                   .title = "Confirm Copy",
                   .buttons = MessageButtons::YesNo,
                   .icon = MessageIcon::Question}) == Answer::Yes;
}

} // namespace tarnwell
