#pragma once

#include "frame/Screen.h"

#include <array>

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tarnwell {

/// Where the database and the report database are. What is saved counts from the next start on.
class frmOptions : public Screen {
    Q_OBJECT

public:
    frmOptions();

protected:
    void Form_Load() override;
    /// The window keeps its size: a wider one would show no more.
    void Form_Activate() override { setFixedSize(size()); }
    void closeRequested() override { cmdCancel_Click(); }

private:
    void makeControls();
    void layOut();
    void optEngine_Click();
    /// Lets the user look for a file; the field stays as it was when the dialog is cancelled.
    void browse(QLineEdit* field, const QString& title);
    void cmdOK_Click();
    void cmdCancel_Click();

    QLineEdit* txtReportPath = nullptr;
    QPushButton* cmdReportPath = nullptr;
    std::array<QRadioButton*, 2> optEngine{}; ///< A database file; a server.
    QLineEdit* txtFilePath = nullptr;
    QPushButton* cmdDataPath = nullptr;
    QLineEdit* txtServer = nullptr;
    QLineEdit* txtCatalog = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
};

} // namespace tarnwell
