#pragma once

#include "frame/Screen.h"
#include "timecard/EmployeeControls.h"
#include "timecard/EmployeeRecord.h"

namespace tarnwell {

/// The people who are paid on the time card, one at a time. The record is written whenever it is left: for
/// another record, by Add and by Exit. Until a record is shown the focus stays in the field of the social
/// security number, where a key asks whether to add one.
class frmEmployee : public Screen {
    Q_OBJECT

public:
    frmEmployee();

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;

private:
    void connectControls();
    void setHints();

    void AddRecord();
    void SaveRecord();
    void LoadRecord();
    void LoadEmployeeLog();
    void LoadForemen();
    void FindRecord();

    [[nodiscard]] EmployeeRecord record() const;
    void showRecord(const EmployeeRecord& record);
    void showState();
    void showHeading();

    void MskField_Change();
    void MskField_KeyDown(int& keyCode, int shift);
    void MskField_KeyUp();
    void MskField_LostFocus();
    void lstErrorLog_DblClick();

    EmployeeControls ui;
    qint64 EmployeeKey = 0; ///< The record on the screen; 0 for none.
    bool Busy = false;      ///< The screen itself changes the record: no checks when the focus leaves.
    QString m_telephone;    ///< As stored: its mask is for reading.
};

} // namespace tarnwell
