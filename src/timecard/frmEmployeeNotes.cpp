#include "timecard/frmEmployeeNotes.h"

#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "controls/NoteBox.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(520, 240);
constexpr int dateWidth = 120;

} // namespace

frmEmployeeNotes::frmEmployeeNotes() : Screen("frmEmployeeNotes", "Employee Note", {Part::StatusBar}) {}

void frmEmployeeNotes::openFor(qint64 logKey, QWidget* owner) {
    m_logKey = logKey;
    Show(Modality::Modal, owner);
}

void frmEmployeeNotes::Form_Load() {
    m_date = new MaskedBox(0, canvas());
    m_date->setPlaceholderText("mm/dd/yy");
    nameControl(m_date, "mskfield(0)", "Enter Note Date");
    m_note = new NoteBox(canvas());
    nameControl(m_note, "txtField(0)", "Enter employee note");
    cmdAccept = new QPushButton("&Accept", canvas());
    nameControl(cmdAccept, "cmdAccept");
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(cmdCancel, "cmdCancel");
    layOut();
    connect(cmdAccept, &QPushButton::clicked, this, guarded([this] { cmdAccept_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { leave(); }));
    setDefaultButton(cmdAccept);
    setCancelButton(cmdCancel);
}

void frmEmployeeNotes::layOut() {
    setDesignSize(designSize);
    auto* form = filling<QVBoxLayout>(canvas());

    auto* fields = spaced<QGridLayout>();
    m_date->setFixedWidth(dateWidth);
    fields->addWidget(fieldLabel(0, "Date:", m_date), 0, 0);
    fields->addWidget(m_date, 0, 1, Qt::AlignLeft);
    fields->addWidget(fieldLabel(1, "Note:", m_note), 1, 0, Qt::AlignTop);
    fields->addWidget(m_note, 1, 1);
    fields->setRowStretch(1, 1);
    form->addLayout(fields, 1);

    form->addLayout(buttonRow({cmdAccept, cmdCancel}));
    tabThrough({m_date, m_note, cmdAccept, cmdCancel});
}

void frmEmployeeNotes::Form_Activate() {
    clear();
    SetFocus(m_date);
    try {
        m_shown = readLogRow(connection(), m_logKey);
        m_date->setText(m_shown.dateText);
        m_note->setText(m_shown.problem.toText());
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
    m_date->selectAll();
}

void frmEmployeeNotes::clear() {
    m_shown = {};
    m_date->clear();
    m_note->clear();
}

void frmEmployeeNotes::leave() {
    clear();
    Hide();
}

void frmEmployeeNotes::cmdAccept_Click() {
    acceptLogRow(connection(), m_logKey, m_shown, m_date->text(), m_note->text());
    leave();
}

} // namespace tarnwell
