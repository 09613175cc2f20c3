#pragma once

#include "frame/Screen.h"

class QLabel;
class QPushButton;

namespace tarnwell {

class ListBox;

/// The version data, the history of changes and the way to the machine's system information.
class frmAbout : public Screen {
    Q_OBJECT

public:
    frmAbout();

protected:
    void Form_Load() override;

private:
    void layOut();

    QLabel* picIcon = nullptr;
    QLabel* lblVersion = nullptr;
    QLabel* lblTitle = nullptr;
    QLabel* lblDescription = nullptr;
    ListBox* lstModifications = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdSysInfo = nullptr;
};

} // namespace tarnwell
