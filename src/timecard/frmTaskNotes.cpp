#include "timecard/frmTaskNotes.h"

#include "controls/Combo.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"
#include "timecard/TimeCardJob.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(560, 350);
constexpr int priceWidth = 120, buttonGap = 32;

} // namespace

frmTaskNotes::frmTaskNotes() : Screen("frmTaskNotes", "Task Notes", {Part::StatusBar}) {}

void frmTaskNotes::openFor(qint64 paymentKey, const QString& task, QWidget& list) {
    m_paymentKey = paymentKey;
    m_task = task;
    openBeside(list);
    Show(Modality::Modal, list.window());
}

void frmTaskNotes::Form_Load() {
    makeControls();
    layOut();
    cmbEmployees->setItems(readAllEmployees(connection()));
    connect(cmbEmployees, &Combo::keyDown, this,
            guarded([this](int& keyCode, int) { cmbEmployees_KeyDown(keyCode); }));
    connect(cmbEmployees, &Combo::keyUp, this,
            guarded([this](int keyCode, int shift) { cmbEmployees_KeyUp(keyCode, shift); }));
    connect(cmdAccept, &QPushButton::clicked, this, guarded([this] { cmdAccept_Click(); }));
    connect(cmdRemove, &QPushButton::clicked, this, guarded([this] { cmdRemove_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { leave(); }));
    setDefaultButton(cmdAccept);
    setCancelButton(cmdCancel);
}

void frmTaskNotes::makeControls() {
    lblTask = label({}, "lblTask");
    QFont bold = lblTask->font();
    bold.setBold(true);
    lblTask->setFont(bold);
    lblPaidTo = label({}, "lblPaidTo");
    for (QLabel* line : {lblTask, lblPaidTo})
        line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    cmbEmployees = new Combo(canvas());
    nameControl(cmbEmployees, "cmbEmployees", "Select employee to add to task");
    m_price = new MaskedBox(0, canvas());
    m_price->setText("0.00");
    m_price->setAlignment(Qt::AlignRight);
    nameControl(m_price, "txtField(0)", "Enter price for task");
    rchNote = new NoteBox(canvas());
    nameControl(rchNote, "rchNote", "Enter any notes for task");
    cmdRemove = new QPushButton("&Remove", canvas());
    nameControl(cmdRemove, "cmdRemove");
    cmdAccept = new QPushButton("&Accept", canvas());
    nameControl(cmdAccept, "cmdAccept");
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(cmdCancel, "cmdCancel");
}

void frmTaskNotes::layOut() {
    setDesignSize(designSize);
    auto* form = filling<QVBoxLayout>(canvas());
    form->addWidget(lblTask);
    form->addWidget(lblPaidTo);

    auto* fields = spaced<QGridLayout>();
    m_price->setFixedWidth(priceWidth);
    fields->addWidget(fieldLabel(9, "Employee:", cmbEmployees), 0, 0);
    fields->addWidget(cmbEmployees, 0, 1);
    fields->addWidget(fieldLabel(7, "Task Price:", m_price), 1, 0);
    fields->addWidget(m_price, 1, 1, Qt::AlignLeft);
    fields->addWidget(fieldLabel(0, "Notes:", rchNote), 2, 0, Qt::AlignTop);
    fields->addWidget(rchNote, 2, 1);
    fields->setRowStretch(2, 1);
    form->addLayout(fields, 1);

    // The button that takes a payment back stands apart from those that leave.
    auto* buttons = buttonRow({cmdAccept, cmdCancel});
    buttons->insertWidget(0, cmdRemove);
    buttons->insertSpacing(1, buttonGap);
    form->addLayout(buttons);
    tabThrough({cmbEmployees, m_price, rchNote, cmdRemove, cmdAccept, cmdCancel});
}

void frmTaskNotes::Form_Activate() {
    clear();
    lblTask->setText(m_task);
    lblTask->setToolTip(m_task);
    SetFocus(m_price);
    try {
        showPayment();
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
    m_price->selectAll();
}

/// Each value goes to its place as soon as it is there: what comes behind a failure stays empty.
void frmTaskNotes::showPayment() {
    const ShownPayment payment = readPayment(connection(), m_paymentKey);
    m_shown = payment.row;
    m_price->setText(payment.priceText);
    rchNote->setText(payment.note.toText());
    // An employee who is not in the list of the first showing: the walk goes past its end and fails there.
    int index = 0;
    while (cmbEmployees->ItemData(index) != payment.employeeKey)
        ++index;
    cmbEmployees->setListIndex(index);
    lblPaidTo->setText(QStringLiteral("Paid to %1").arg(cmbEmployees->Text()));
}

/// Nothing of the payment before may be left to be saved.
void frmTaskNotes::clear() {
    m_shown = {};
    m_price->clear();
    rchNote->clear();
    lblPaidTo->clear();
    cmbEmployees->setListIndex(-1);
}

void frmTaskNotes::leave() {
    clear();
    Hide();
}

/// Only what was typed is searched for. An entry that stands there was chosen, and another employee may have
/// the same text.
void frmTaskNotes::cmbEmployees_KeyUp(int keyCode, int shift) {
    if (cmbEmployees->ListIndex() < 0)
        ComboIncrementalSearch(*cmbEmployees, keyCode, shift);
}

/// Enter that comes before the release of the key typed last chooses first, so that the user sees whom; the
/// next one accepts.
void frmTaskNotes::cmbEmployees_KeyDown(int& keyCode) {
    if (keyCode != KeyCode::Enter || cmbEmployees->ListIndex() >= 0 || cmbEmployees->Text().isEmpty())
        return;
    ComboIncrementalSearch(*cmbEmployees, keyCode, 0);
    keyCode = 0;
}

void frmTaskNotes::cmdAccept_Click() {
    acceptCorrection(connection(), m_paymentKey, m_shown,
                     {.priceText = m_price->text(),
                      .note = rchNote->text(),
                      .employeeKey = cmbEmployees->ItemData(cmbEmployees->ListIndex())});
    leave();
}

void frmTaskNotes::cmdRemove_Click() {
    if (removePayment(connection(), m_paymentKey, MsgBox))
        leave();
}

} // namespace tarnwell
