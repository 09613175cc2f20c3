#pragma once

#include "controls/grid/DetailRows.h"
#include "data/recordset/Recordset.h"
#include "frame/Screen.h"

#include <memory>

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
    void showList(qint64 list);
    void jgCodes_BeforeUpdate();
    void DeleteCode();

    Combo* cmbType = nullptr;
    Grid* jgCodes = nullptr;

    Recordset CodeRecordset;
    std::unique_ptr<DetailRows> m_codes; ///< From `Form_Load` on; the category is the list's `Code1`.
};

} // namespace tarnwell
