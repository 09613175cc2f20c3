#pragma once

#include "frame/Screen.h"

class QPushButton;

namespace tarnwell {

class Combo;

/// Chooses a category on which the category of `frmMasterTasks` is to depend; that form must be loaded.
/// Unloads after one addition.
class frmAddDependency : public Screen {
    Q_OBJECT

public:
    frmAddDependency();

protected:
    void Form_Load() override;

private:
    void layOut();
    void cmdAdd_Click();

    Combo* cmbType = nullptr;
    QPushButton* cmdAdd = nullptr;
    QPushButton* cmdCancel = nullptr;
};

} // namespace tarnwell
