#pragma once

#include "frame/Screen.h"
#include "jobs/CurrentLot.h"

#include <exception>
#include <memory>

class QPushButton;

namespace tarnwell {

class ListBox;
class Recordset;

/// Puts one of the builder's option groups on the current lot of a screen. It unloads after it was shown;
/// `Cancelled` can still be read then.
class frmAddJobOptionGroup : public Screen {
    Q_OBJECT

public:
    frmAddJobOptionGroup();
    ~frmAddJobOptionGroup() override;

    bool Cancelled = false; ///< The user left by Cancel, and nothing was written.

    /// Shows the dialog modally; `caller` must outlive the call. An error that stops the group halfway closes
    /// the dialog and comes back here; the rows before it stay.
    void applyTo(CurrentLotCaller& caller, QWidget* owner);

protected:
    void Form_Load() override;
    void Form_Unload() override;

private:
    void makeControls();
    void layOut();
    void LoadGroups();
    void applyChosen();
    void cmdSelect_Click();
    void cmdCancel_Click();

    ListBox* lstGroups = nullptr;
    QPushButton* cmdSelect = nullptr;
    QPushButton* cmdCancel = nullptr;

    CurrentLotCaller* m_caller = nullptr;
    std::unique_ptr<Recordset> rsGroupRows; ///< All builders' rows; a filter leaves the chosen group's.
    std::exception_ptr m_error;             ///< For the routine that shows the dialog.
};

} // namespace tarnwell
