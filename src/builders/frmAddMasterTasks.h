#pragma once

#include "builders/TaskPicking.h"
#include "frame/Screen.h"

class QPushButton;

namespace tarnwell {

class ListBox;

/// The one dialog that puts tasks of the catalogue into plans, lots, option groups and options. Set `Mode`,
/// call `pickFor`. It unloads after it was shown; `Cancelled` can still be read then.
class frmAddMasterTasks : public Screen {
    Q_OBJECT

public:
    frmAddMasterTasks();

    int Mode = PickingMode::Plan; ///< One of `PickingMode`; set before showing.
    bool Cancelled = false;       ///< The user left by Exit or closed the window.

    /// Shows the dialog modally; `caller` must outlive the call.
    void pickFor(PickingCaller& caller, QWidget* owner);

protected:
    void Form_Load() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    void closeRequested() override;

private:
    /// What the next press of Select All does. It outlives the dialog, so that the first press in the next
    /// one goes on from here.
    static inline bool SelectAllFlag = false;

    void layOut();
    void showList();
    void AddSelected();
    void cmdSelectAll_Click();

    ListBox* lstTasks = nullptr;
    QPushButton* cmdSelectAll = nullptr;

    PickingCaller* m_caller = nullptr;
    bool NonLinked = false;
};

} // namespace tarnwell
