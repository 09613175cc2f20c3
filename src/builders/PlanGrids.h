#pragma once

#include "controls/grid/DetailRows.h"

#include <QObject>

#include <memory>

namespace tarnwell {

class Combo;
class Grid;
class Recordset;

/// The plans of a builder and, by category, the tasks of the current plan: what the two grids of the builders
/// screen hold, write, copy and delete. The screen asks before, and sets focus and buttons.
class PlanGrids : public QObject {
public:
    /// The controls must outlive the object. Nothing is shown until a builder or a category is loaded.
    PlanGrids(Grid& jgPlans, Grid& jgTasks, Combo& cmbType);
    ~PlanGrids() override;

    /// Shows the plans of a builder (none for 0) with the tasks of the plan in row `standOn`, or of the last.
    /// What is pending is written first: raises what is refused.
    void LoadPlans(qint64 builderKey, int standOn = 1);
    /// Shows the tasks of the current plan in the chosen category and stands on row `standOn`, after writing
    /// the pending task. Nothing without a category. An error is shown here.
    void cmbType_Click(int standOn = 1);
    /// The tasks follow when another plan or category was chosen while a task was refused, and when a new
    /// plan has got its key.
    void catchUp() { m_tasks.catchUp(); }
    /// Writes the pending plan, then the pending task. False when one was refused and the message shown.
    [[nodiscard]] bool write();

    /// Copies the current plan with its tasks and stands on the copy. Nothing for a plan that was not stored
    /// yet, and when a pending row was refused.
    void CopyPlan();
    /// Deletes the current plan with its tasks, also a pending one, and reads the plans anew. Raises what the
    /// database refuses, after reading.
    void DeletePlan();
    /// The same for the current task.
    void DeletePlanTask();

    /// Drops what is pending, since its owner no longer exists.
    void dropPending();
    /// Writes what is pending and lets the rows go. Raises what is refused.
    void close();

    /// 0 for a plan that was not stored yet, and without one.
    [[nodiscard]] qint64 currentPlan() const;
    /// Rows are being replaced: a change of row is not the user's.
    [[nodiscard]] bool isHeld() const { return m_tasks.isHeld(); }

private:
    void connectRows();

    Grid& jgPlans;
    Grid& jgTasks;
    Combo& cmbType;
    std::shared_ptr<Recordset> rsPlans;
    std::shared_ptr<Recordset> rsPlanTasks;
    qint64 m_builderOfPlans = 0;
    DetailRows m_tasks;
};

} // namespace tarnwell
