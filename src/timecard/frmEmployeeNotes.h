#pragma once

#include "frame/Screen.h"
#include "timecard/EmployeeLog.h"

class QPushButton;

namespace tarnwell {

class MaskedBox;
class NoteBox;

/// Changes date and text of the log row that is selected on `frmEmployee`; shown modally by that screen only.
/// It hides and stays loaded; the row is read at each showing.
class frmEmployeeNotes : public Screen {
    Q_OBJECT

public:
    frmEmployeeNotes();

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void closeRequested() override { leave(); }

private:
    void layOut();
    void clear();
    void leave();
    void cmdAccept_Click();

    MaskedBox* m_date = nullptr; // mskfield(0)
    NoteBox* m_note = nullptr;   // txtField(0)
    QPushButton* cmdAccept = nullptr;
    QPushButton* cmdCancel = nullptr;

    ShownLogRow m_shown; ///< Nothing after a failed reading.
};

} // namespace tarnwell
