#pragma once

#include "frame/main/DatabaseTrialRun.h"
#include "frame/main/StartChoices.h"

#include <array>
#include <optional>

class QGridLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace tarnwell {

/// Asks which database a start is to open, where it has none: at the first start, and when the settings name
/// a file that can't be opened. What is chosen is made, stored and read before the form closes.
class frmFirstStart : public Screen {
    Q_OBJECT

public:
    frmFirstStart();

    StartReason Reason = StartReason::FirstStart; ///< Set before the form is shown.
    bool Cancelled = true;                        ///< The user leaves without a choice.

protected:
    void Form_Load() override;
    /// The window keeps its size: a wider one would show no more.
    void Form_Activate() override { setFixedSize(size()); }
    void closeRequested() override { cmdLeave_Click(); }

private:
    static constexpr std::size_t choiceCount = 7;

    void makeControls();
    void layOut();
    void addChoices(QGridLayout& rows);
    /// Shows the fields that the choice needs, the file with the proposed place.
    void optChoice_Click();
    void browse();
    void cmdTest_Click();
    void cmdStart_Click();
    void cmdLeave_Click();
    [[nodiscard]] StartSelection shownSelection() const;
    /// Asks where what exists can't be opened; true to go on with it.
    [[nodiscard]] bool isAccepted(const StartSelection& selection);

    std::array<QRadioButton*, choiceCount>
        optChoice{}; ///< In the order of `StartChoice`; null if not offered.
    QLineEdit* txtFile = nullptr;
    QPushButton* cmdFile = nullptr;
    QLineEdit* txtServer = nullptr;
    QLineEdit* txtCatalog = nullptr;
    QPushButton* cmdTest = nullptr;
    QPushButton* cmdStart = nullptr;
    QPushButton* cmdLeave = nullptr;
    QWidget* m_page = nullptr; ///< All but the buttons below.
    std::optional<DatabaseTrialRun> m_trial;
};

} // namespace tarnwell
