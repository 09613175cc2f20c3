#pragma once

#include "frame/Screen.h"
#include "timecard/EmployeeLog.h"

class QPushButton;

namespace tarnwell {

class MaskedBox;
class NoteBox;

/// Changes date and text of a row of an employee's log. It hides and stays loaded; the row is read at each
/// showing.
class frmEmployeeNotes : public Screen {
    Q_OBJECT

public:
    frmEmployeeNotes();

    /// Shows the log row of that key modally; returns when the dialog is hidden. A row that can't be read is
    /// reported, and shows as empty.
    void openFor(qint64 logKey, QWidget* owner);

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

    qint64 m_logKey = 0;
    ShownLogRow m_shown; ///< Nothing after a failed reading.
};

} // namespace tarnwell
