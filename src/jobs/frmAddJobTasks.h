#pragma once

#include "frame/Screen.h"
#include "jobs/CurrentLot.h"

class QPushButton;

namespace tarnwell {

class ListBox;

/// Fills a lot with tasks of the plans of the job's builder. It unloads after it was shown; `Cancelled`
/// can still be read then.
class frmAddJobTasks : public Screen {
    Q_OBJECT

public:
    frmAddJobTasks();

    bool Cancelled = true; ///< False when tasks were added, also when none was selected.

    /// Shows the dialog modally; `caller` must outlive the call.
    void fillFor(CurrentLotCaller& caller, QWidget* owner);

protected:
    void Form_Load() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    void closeRequested() override;

private:
    void layOut();
    void chooseLotsPlan();
    void LoadPlanTasks();
    void AddSelectedTasks();
    void cmdSelectAll_Click();

    ListBox* lstPlans = nullptr;
    ListBox* lstTasks = nullptr;
    QPushButton* cmdSelectAll = nullptr;

    CurrentLotCaller* m_caller = nullptr;
    bool SelectAllTasks = false; ///< What the last press of Select All did.
};

} // namespace tarnwell
