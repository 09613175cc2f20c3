#pragma once

#include "builders/BuilderRecord.h"
#include "builders/TaskPicking.h"
#include "frame/Screen.h"

#include <array>
#include <functional>
#include <memory>

class QLayout;
class QPushButton;

namespace tarnwell {

class Combo;
class Grid;
class ListBox;
class MaskedBox;
class Recordset;

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
    // frmBuilderLayout.cpp
    void makeControls();
    void nameControls();
    [[nodiscard]] QWidget* recordFrame();
    [[nodiscard]] QLayout* jobColumn();
    [[nodiscard]] QLayout* planHalf();
    void orderTabs();

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
    void LoadPlans(int standOn = 1);
    void DeleteBuilder();
    void DeletePlan();
    void DeletePlanTask();
    void AddPlanTasks();
    [[nodiscard]] bool writeGrids();

    void SetFieldToolbar(int index);
    void SetPlanToolbar();
    void SetTaskToolbar();

    void MskField_GotFocus(int index);
    void MskField_LostFocus();
    void MskField_KeyDown(int& keyCode, int shift);
    void MskField_KeyUp();
    void cmbType_Click(int standOn = 1);
    void jgPlans_GotFocus();
    void jgPlans_LostFocus();
    void jgPlans_RowColChange();
    void jgTasks_GotFocus();
    void jgTasks_RowColChange();
    void jgTasks_BeforeUpdate();
    void jgTasks_AfterColUpdate(int column);

    void loadPlanTasks(int standOn);
    void catchUpWithPlan();
    [[nodiscard]] bool isBuilderNameEmpty() const;
    [[nodiscard]] qint64 currentPlan() const;
    [[nodiscard]] bool areTasksCurrent() const;
    [[nodiscard]] PickingTarget pickingTarget() const override;

    std::array<MaskedBox*, builderFields.size()> m_fields{}; // MskField(0) to (6)
    Combo* cmbType = nullptr;
    ListBox* lstJobs = nullptr;
    QPushButton* cmdSelectAll = nullptr;
    Grid* jgPlans = nullptr;
    Grid* jgTasks = nullptr;

    std::shared_ptr<Recordset> rsPlans;
    std::shared_ptr<Recordset> rsPlanTasks;
    qint64 CategoryKey = 0;      ///< Of the tasks on show.
    qint64 m_planOfTasks = 0;    ///< Likewise the plan; 0 for none.
    qint64 m_builderOfPlans = 0; ///< Of the plans on show.
    ButtonMask ToolbarMask = 0;
    /// The empty name may be left: during Add, Find and Exit, and after a Find without a choice until the
    /// next found or added builder.
    bool SuppressVerify = false;
    bool SelectAllJobs = false;
    bool m_binding = false; ///< A grid's rows are being replaced: its row change is not the user's.
};

} // namespace tarnwell
