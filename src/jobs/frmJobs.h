#pragma once

#include "builders/TaskPicking.h"
#include "frame/Screen.h"
#include "jobs/CurrentLot.h"
#include "runtime/MousePointer.h"

#include <array>
#include <memory>
#include <optional>

class QLayout;

namespace tarnwell {

class Combo;
class DateBox;
class Grid;
class MaskedBox;
class Recordset;

/// A builder's job with its lots, and a lot's tasks by category. The job's fields are written at fixed
/// moments, changed or not; the grids write through their recordsets, row by row.
class frmJobs : public Screen, private CurrentLotCaller, private PickingCaller {
    Q_OBJECT

public:
    frmJobs();
    ~frmJobs() override;

    qint64 ContractorKey = 0; ///< The builder of the loaded job; 0 until one was loaded.
    qint64 JobKey = 0;        ///< The loaded job; 0 for none.

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    /// As Exit: what can't be saved is told, and the screen stays.
    void closeRequested() override;

private:
    // frmJobsLayout.cpp
    void makeControls();
    void nameControls();
    [[nodiscard]] QWidget* jobFrame();
    void orderTabs();

    // frmJobs.cpp
    void connectFields();
    void pressButton(const QString& caption);
    void AddRecord();
    void FindRecord();
    void SaveRecord();
    void letJobGo();
    void DisplayRecord();
    void DeleteRecord();
    void loadJob(qint64 jobKey);
    [[nodiscard]] bool writeAll();
    [[nodiscard]] bool writeGrids();
    void deleteActive();
    void MskField_GotFocus(int index);
    void MskField_LostFocus(int index);
    void MskField_KeyDown(int& keyCode, int shift);
    void MskField_KeyUp();
    void cmbType_GotFocus();
    void rebCompletedDate_Change();
    [[nodiscard]] bool isJobNumberEmpty() const;

    // frmJobsGrids.cpp
    void connectGrids();
    void LoadJobLots(const Value& standOn = {});
    void cmbType_Click();
    [[nodiscard]] bool showTasks();
    void showTasksAt(int row);
    void catchUpWithLot();
    [[nodiscard]] bool areTasksCurrent() const;
    void showEmployees();
    void RefreshTasks();
    void closeGrids();
    void emptyGrids();
    void DeleteLot();
    void DeleteTask();
    void CopyLot();
    void AddLotTasks();
    void ShowGroups();
    void pickTasks();
    void setLotToolbar();
    void showLotPlace();
    void jgJobLots_GotFocus();
    void jgJobLots_RowColChange();
    void jgJobLots_ButtonClick(int column);
    void jgTasks_GotFocus();
    void jgTasks_RowColChange();
    void jgTasks_BeforeUpdate();
    void jgTasks_ButtonClick(int column);
    [[nodiscard]] qint64 currentLotKey() const;
    [[nodiscard]] CurrentLot currentLot() const override;
    [[nodiscard]] PickingTarget pickingTarget() const override;

    std::array<MaskedBox*, 3> m_fields{}; // MskField(0) to (2)
    Combo* cmbForeman = nullptr;
    DateBox* rebCompletedDate = nullptr;
    Combo* cmbType = nullptr;
    Grid* jgJobLots = nullptr;
    Grid* jgTasks = nullptr;

    std::shared_ptr<Recordset> rsJobLots;
    std::shared_ptr<Recordset> rsJobLotTasks;
    qint64 CategoryKey = 0;                 ///< Of the tasks on show.
    qint64 m_lotOfTasks = 0;                ///< Likewise the lot; 0 for none.
    std::optional<quint32> m_employeesAsOf; ///< Version of the data that the employees on offer come from.
    QString LoadedJobNumber; ///< As it was when the job was loaded; a retyped one is asked about.
    ButtonMask ToolbarMask = 0;
    bool SuppressVerify = false; ///< Add, Find or Exit runs: leaving a field asks nothing.
    bool m_binding = false;      ///< A grid's rows are being replaced: its row change is not the user's.
    std::optional<HourGlass> m_deleting; ///< Stays behind a refused delete of a task until the next work.
};

} // namespace tarnwell
