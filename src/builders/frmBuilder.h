#pragma once

#include "builders/BuilderControls.h"
#include "builders/TaskPicking.h"
#include "frame/Screen.h"

#include <memory>

namespace tarnwell {

class PlanGrids;

/// The builders with their plans, a plan's tasks by category, and the open jobs that a price may be carried
/// into. A builder's fields are written at fixed moments, the grids write through their recordsets.
class frmBuilder : public Screen, private PickingCaller {
    Q_OBJECT

public:
    frmBuilder();
    ~frmBuilder() override;

    qint64 ContractorKey = 0; ///< The loaded builder; 0 for none.

    /// Saves the loaded builder with its grids, adds an empty one and loads it. False when a grid's row was
    /// refused, and its message shown: the loaded builder stays then.
    bool AddRecord();
    /// Deletes what the active control shows: the builder, a plan or a plan's task. Asks first. Raises what
    /// the database refuses; the screen then shows what is stored.
    void DeleteRecord();
    /// Copies the current plan with its tasks and stands on the copy.
    void CopyPlan();
    /// Picks tasks of the catalogue for the current plan.
    void AddTask();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    void closeRequested() override;

private:
    void connectControls();
    void connectFields();
    void connectGrids();

    void FindRecord();
    void ShowGroups();
    [[nodiscard]] bool writeAll();
    void SaveRecord();
    void letBuilderGo();
    void DisplayRecord();
    void LoadJobList();
    void selectAllJobs(bool select);
    void DeleteBuilder();
    void DeletePlan();
    void DeletePlanTask();
    void AddPlanTasks();
    [[nodiscard]] PickingTarget pickingTarget() const override;

    void SetFieldToolbar(int index);
    void SetPlanToolbar();
    void SetTaskToolbar();

    void MskField_GotFocus(int index);
    void MskField_LostFocus();
    void MskField_KeyDown(int& keyCode, int shift);
    void MskField_KeyUp();
    void jgPlans_GotFocus();
    void jgPlans_LostFocus();
    void jgPlans_RowColChange();
    void jgTasks_GotFocus();
    void jgTasks_RowColChange();
    void jgTasks_AfterColUpdate(int column);
    [[nodiscard]] bool isBuilderNameEmpty() const;

    BuilderControls ui;
    std::unique_ptr<PlanGrids> m_grids;
    ButtonMask ToolbarMask = 0;
    /// The empty name may be left: during Add, Find and Exit, and after a Find without a choice until the
    /// next found or added builder.
    bool SuppressVerify = false;
    bool SelectAllJobs = false;
};

} // namespace tarnwell
