#pragma once

#include "data/recordset/Recordset.h"
#include "frame/Screen.h"

namespace tarnwell {

class Combo;
class Grid;

/// Master codes: the employee types and the master task categories, one list at a time, edited in place.
class frmMasterCodes : public Screen {
    Q_OBJECT

public:
    frmMasterCodes();
    ~frmMasterCodes() override;

protected:
    void Form_Load() override;
    void Form_Unload() override;
    void Toolbar1_ButtonClick(const QString& caption) override;
    void closeRequested() override;

private:
    void makeControls();
    void connectControls();
    void cmbType_Click();
    void showList(int index);
    void keepList();
    void jgCodes_BeforeUpdate();
    void DeleteCode();

    Combo* cmbType = nullptr;
    Grid* jgCodes = nullptr;

    Recordset CodeRecordset;
    qint64 m_list = 0;    ///< `Code1` of the list on screen.
    qint64 m_rowList = 0; ///< The list under which the pending row was begun.
};

} // namespace tarnwell
