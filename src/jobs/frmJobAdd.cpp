#include "jobs/frmJobAdd.h"

#include "builders/BuilderRecord.h"
#include "controls/Combo.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace tarnwell {

namespace {

constexpr QSize designSize(420, 156);
constexpr int textLength = 30;

} // namespace

frmJobAdd::frmJobAdd() : Screen("frmJobAdd", "Add Job", {Part::StatusBar}) {}

void frmJobAdd::Form_Load() {
    Cancelled = true;
    makeControls();
    layOut();
    cmbContractors->setItems(readBuilders(connection()));
    cmbContractors->setListIndex(0); // A job needs a builder: without one this fails.
}

void frmJobAdd::makeControls() {
    m_number = new MaskedBox(textLength, canvas());
    m_name = new MaskedBox(textLength, canvas());
    cmbContractors = new Combo(canvas());
    cmdAccept = new QPushButton("&Accept", canvas());
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(m_number, "MskField(0)", "Enter the Job Number");
    nameControl(m_name, "MskField(1)", "Enter the Job Name");
    nameControl(cmbContractors, "cmbContractors", "Enter the builder to attach to the new job");
    nameControl(cmdAccept, "cmdAccept");
    nameControl(cmdCancel, "cmdCancel");
    setDefaultButton(cmdAccept);
    setCancelButton(cmdCancel);
    connect(cmbContractors, &Combo::keyUp, this, guarded([this](int keyCode, int shift) {
                ComboIncrementalSearch(*cmbContractors, keyCode, shift);
            }));
    connect(cmdAccept, &QPushButton::clicked, this, guarded([this] { cmdAccept_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { Hide(); }));
}

void frmJobAdd::layOut() {
    struct Row {
        const char* caption;
        const char* name;
        QWidget* field;
    };
    const std::array rows{Row{"Job:", "lblField(0)", m_number}, Row{"Job Name:", "lblField(1)", m_name},
                          Row{"Builder:", "lblField(2)", cmbContractors}};
    setDesignSize(designSize);
    auto* form = filling<QGridLayout>(canvas());
    int line = 0;
    for (const Row& row : rows) {
        form->addWidget(label(row.caption, row.name, row.field), line, 0);
        form->addWidget(row.field, line++, 1);
    }
    form->setColumnStretch(1, 1);
    form->setRowStretch(line++, 1);
    form->addLayout(buttonRow({cmdAccept, cmdCancel}), line, 0, 1, 2);
}

void frmJobAdd::Form_Activate() {
    try {
        SetFocus(m_number);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmJobAdd::cmdAccept_Click() {
    if (m_number->text().isEmpty() || cmbContractors->ListIndex() < 0)
        return;
    Cancelled = false;
    Hide();
}

qint64 frmJobAdd::contractorKey() const {
    return cmbContractors->ItemData(cmbContractors->ListIndex());
}

QString frmJobAdd::jobNumber() const {
    return m_number->text();
}

QString frmJobAdd::jobName() const {
    return m_name->text();
}

} // namespace tarnwell
