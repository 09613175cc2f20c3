#pragma once

#include "frame/Screen.h"

class QPushButton;

namespace tarnwell {

class Combo;
class MaskedBox;

/// Asks for a new job's number, name and builder; it writes nothing. Show it modally, read `Cancelled` and
/// the answers, unload it: it hides and stays loaded, also when its window is closed. Showing it raises
/// InvalidProperty (380) when there are no builders.
class frmJobAdd : public Screen {
    Q_OBJECT

public:
    frmJobAdd();

    bool Cancelled = true; ///< False when the answers were accepted.

    /// The answers, while the dialog is loaded. Accepted ones have a builder and a number; the name may be
    /// empty.
    [[nodiscard]] qint64 contractorKey() const;
    [[nodiscard]] QString jobNumber() const;
    [[nodiscard]] QString jobName() const;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void closeRequested() override { Hide(); }

private:
    void makeControls();
    void layOut();
    void cmdAccept_Click();

    MaskedBox* m_number = nullptr; // MskField(0)
    MaskedBox* m_name = nullptr;   // MskField(1)
    Combo* cmbContractors = nullptr;
    QPushButton* cmdAccept = nullptr;
    QPushButton* cmdCancel = nullptr;
};

} // namespace tarnwell
