#pragma once

#include "controls/grid/DetailRows.h"
#include "data/Value.h"
#include "runtime/MousePointer.h"

#include <QObject>

#include <memory>
#include <optional>

namespace tarnwell {

class Combo;
class Grid;
class Recordset;

/// The lots of a job and, by category, the tasks of the current lot: what the two grids of the jobs screen
/// hold, write, copy and delete. The screen asks before, and sets focus and buttons.
class JobGrids : public QObject {
public:
    /// The controls must outlive the object. Nothing is shown until a category or a job is loaded.
    JobGrids(Grid& jgJobLots, Grid& jgTasks, Combo& cmbType);
    ~JobGrids() override;

    /// Shows the lots of a job (none for 0) with the tasks of the lot whose key is `standOn`, or of the
    /// first. What is pending is written first: raises what is refused.
    void LoadJobLots(qint64 jobKey, const Value& standOn = {});
    /// Shows the tasks of the current lot in the chosen category, after writing what is pending. An error of
    /// the tasks is shown here; one of the employees on offer is raised.
    void cmbType_Click();
    /// The same behind the hourglass, after a dialog wrote tasks.
    void RefreshTasks();
    /// Shows what other workstations wrote to the lots and tasks that are on show, and moves nothing. False
    /// while something is being edited.
    [[nodiscard]] bool showChanges();
    /// The tasks follow when another lot or category was chosen while a task was refused.
    void catchUp() { m_tasks.catchUp(); }
    /// Writes the pending task, then the pending lot. False when one was refused and the message shown.
    [[nodiscard]] bool write();

    /// Copies the current lot with its tasks and stands on the copy; nothing when a pending row was refused.
    void CopyLot();
    /// Deletes the current lot with its tasks, also a pending one. Raises what the database refuses; the lots
    /// are read anew then. The tasks of the lot that is current afterwards are not loaded yet.
    void DeleteLot();
    /// Deletes the current task and repairs its tree. Raises what is refused; the hourglass stays then until
    /// the next task is deleted or tasks are refreshed.
    void DeleteTask();

    /// Empties both grids without reading; pending rows are dropped.
    void empty();
    /// Writes what is pending and lets the rows go. Raises what is refused.
    void close();

    /// 0 for a lot that was not stored yet, and without one.
    [[nodiscard]] qint64 currentLotKey() const;
    /// Rows are being replaced: a change of row is not the user's.
    [[nodiscard]] bool isHeld() const { return m_tasks.isHeld(); }
    /// The hourglass that a refused delete left ends here.
    void endHourGlass() { m_deleting.reset(); }

private:
    void connectRows();
    void showTasks(const DetailKeys& keys);
    void showEmployees();
    void showTasksAt(int row);

    Grid& jgJobLots;
    Grid& jgTasks;
    Combo& cmbType;
    std::shared_ptr<Recordset> rsJobLots;
    std::shared_ptr<Recordset> rsJobLotTasks;
    qint64 m_jobOfLots = 0;
    DetailRows m_tasks;
    std::optional<quint32> m_employeesAsOf; ///< Version of the data that the employees on offer come from.
    std::optional<HourGlass> m_deleting;
};

} // namespace tarnwell
