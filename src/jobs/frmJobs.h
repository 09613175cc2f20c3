#pragma once

#include "frame/Screen.h"
#include "jobs/JobControls.h"

#include <functional>
#include <memory>

namespace tarnwell {

class JobGrids;
class LotDialogs;

/// A builder's job with its lots, and a lot's tasks by category. The job's fields are written at fixed
/// moments, changed or not; the grids write through their recordsets, row by row.
class frmJobs : public Screen {
    Q_OBJECT

public:
    frmJobs();
    ~frmJobs() override;

    qint64 ContractorKey = 0; ///< The builder of the loaded job; 0 until one was loaded.
    qint64 JobKey = 0;        ///< The loaded job; 0 for none.

    /// Brings another job onto the loaded screen, as Find does: the one on it is saved before, and stays
    /// when it can't be. What fails is shown.
    void ShowJob(qint64 jobKey);
    [[nodiscard]] bool showChanges() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    /// As Exit: the message says what can't be saved, and the screen stays.
    void closeRequested() override;

private:
    void connectFields();
    void connectGrids();
    void trapped(const std::function<void()>& routine);
    void pressButton(const QString& caption);

    void AddRecord();
    void FindRecord();
    void SaveRecord();
    void letJobGo();
    void DisplayRecord();
    void DeleteRecord();
    void loadJob(qint64 jobKey);
    [[nodiscard]] bool writeAll();

    void deleteActive();
    void DeleteLot();
    void CopyLot();

    void MskField_GotFocus(int index);
    void MskField_LostFocus(int index);
    void MskField_KeyDown(int& keyCode, int shift);
    void MskField_KeyUp();
    void cmbType_GotFocus();
    void rebCompletedDate_Change();
    void jgJobLots_GotFocus();
    void jgJobLots_RowColChange();
    void jgJobLots_ButtonClick(int column);
    void jgTasks_GotFocus();
    void jgTasks_RowColChange();
    void jgTasks_ButtonClick(int column);
    void setLotToolbar();
    void showLotPlace();
    [[nodiscard]] bool isJobNumberEmpty() const;

    JobControls ui;
    std::unique_ptr<JobGrids> m_grids;
    std::unique_ptr<LotDialogs> m_dialogs;
    QString LoadedJobNumber; ///< As it was when the job was loaded; a retyped one is asked about.
    ButtonMask ToolbarMask = 0;
    bool SuppressVerify = false; ///< Add, Find or Exit runs: leaving a field asks nothing.
};

} // namespace tarnwell
