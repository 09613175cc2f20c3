#pragma once

#include "builders/TaskPicking.h"
#include "jobs/CurrentLot.h"

#include <functional>

class QWidget;

namespace tarnwell {

class Grid;
class JobGrids;

/// The job on the screen; keys of 0 for none.
struct LoadedJob {
    qint64 jobKey = 0;
    qint64 contractorKey = 0; ///< The job's builder.
};

/// The dialogs that fill the current lot of the jobs screen: from a plan, from an option group and from the
/// catalogue. Each is modal, and the grids show what it wrote. Raises what the dialogs and the grids raise.
class LotDialogs : private CurrentLotCaller, private PickingCaller {
public:
    /// Everything referred to must outlive the object. `owner` is the window behind the dialogs.
    LotDialogs(QWidget& owner, Grid& jgJobLots, Grid& jgTasks, JobGrids& grids,
               std::function<LoadedJob()> job);

    /// Fills the current lot, or a new one, from a plan and comes back to the lot that it started from.
    void AddLotTasks();
    /// Applies an option group to the lot. Nothing when the pending task was refused.
    void ShowGroups();
    /// Picks tasks of the catalogue for the lot. Nothing when the pending task was refused.
    void pickTasks();

private:
    [[nodiscard]] CurrentLot currentLot() const override;
    [[nodiscard]] PickingTarget pickingTarget() const override;

    QWidget& m_owner;
    Grid& jgJobLots;
    Grid& jgTasks;
    JobGrids& m_grids;
    std::function<LoadedJob()> m_job;
};

/// Asks before a lot is copied, by the name of its plan; true for Yes.
[[nodiscard]] bool isCopyConfirmed(const QString& plan);

} // namespace tarnwell
