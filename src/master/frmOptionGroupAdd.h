#pragma once

#include "frame/Screen.h"

class QPushButton;

namespace tarnwell {

class MaskedBox;

namespace GroupNameMode {
inline constexpr int Add = 1, Change = 2;
}

/// Asks for an option group's name. Set `Mode` (and `name` for a change), show it modally, read `Cancelled`
/// and `name`. It hides and stays loaded.
class frmOptionGroupAdd : public Screen {
    Q_OBJECT

public:
    frmOptionGroupAdd();

    int Mode = GroupNameMode::Add; ///< One of `GroupNameMode`; set before showing.
    bool Cancelled = true;         ///< False when a name was accepted.
    QString name;                  ///< The name to change; the name that was accepted.

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void closeRequested() override { Hide(); }

private:
    void cmdAccept_Click();

    MaskedBox* m_name = nullptr; // MskField(0)
    QPushButton* cmdAccept = nullptr;
    QPushButton* cmdCancel = nullptr;
};

} // namespace tarnwell
