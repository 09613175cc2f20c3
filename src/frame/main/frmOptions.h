#pragma once

#include "frame/main/DatabaseTrialRun.h"
#include "runtime/DatabaseSettings.h"

#include <array>
#include <optional>

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
    /// Says what the database is that the fields name; nothing is saved.
    void cmdTest_Click();
    void cmdOK_Click();
    /// While a test runs it ends that alone.
    void cmdCancel_Click();
    [[nodiscard]] DatabaseSettings shownSettings() const;

    QLineEdit* txtReportPath = nullptr;
    QPushButton* cmdReportPath = nullptr;
    std::array<QRadioButton*, 3> optEngine{}; ///< In the order of `DatabaseEngine`.
    QLineEdit* txtFilePath = nullptr;
    QPushButton* cmdDataPath = nullptr;
    QLineEdit* txtServer = nullptr;
    QLineEdit* txtCatalog = nullptr;
    QPushButton* cmdTest = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;
    QWidget* m_page = nullptr; ///< All but the buttons below.
    std::optional<DatabaseTrialRun> m_trial;
};

} // namespace tarnwell
