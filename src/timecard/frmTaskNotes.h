#pragma once

#include "frame/Screen.h"
#include "timecard/PaymentCorrection.h"

class QLabel;
class QPushButton;

namespace tarnwell {

class Combo;
class MaskedBox;
class NoteBox;

/// Changes or removes a payment. It hides and stays loaded: its employees are those of its first showing, the
/// payment is read at each.
class frmTaskNotes : public Screen {
    Q_OBJECT

public:
    frmTaskNotes();

    /// Shows the payment of that key modally, beside the list that it was chosen in; returns when the dialog
    /// is hidden. `task` names what was paid for. A payment that can't be read is reported, and shows as
    /// empty.
    void openFor(qint64 paymentKey, const QString& task, QWidget& list);

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void closeRequested() override { leave(); }

private:
    void makeControls();
    void layOut();
    void showPayment();
    void clear();
    void leave();
    void cmbEmployees_KeyDown(int& keyCode);
    void cmbEmployees_KeyUp(int keyCode, int shift);
    void cmdAccept_Click();
    void cmdRemove_Click();

    QLabel* lblTask = nullptr;
    QLabel* lblPaidTo = nullptr; ///< Whom the payment belongs to, also while another one is chosen.
    Combo* cmbEmployees = nullptr;
    MaskedBox* m_price = nullptr; // txtField(0)
    NoteBox* rchNote = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdAccept = nullptr;
    QPushButton* cmdCancel = nullptr;

    qint64 m_paymentKey = 0;
    QString m_task;
    RowSnapshot m_shown; ///< Nothing after a failed reading.
};

} // namespace tarnwell
