#include "master/frmOptionGroupAdd.h"

#include "controls/FormLayout.h"
#include "controls/MaskedBox.h"
#include "runtime/EventGuard.h"
#include "runtime/modErrorRoutines.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(420, 100);
constexpr int nameLength = 50;

} // namespace

frmOptionGroupAdd::frmOptionGroupAdd() : Screen("frmOptionGroupAdd", "Add Option Group", {Part::StatusBar}) {}

void frmOptionGroupAdd::Form_Load() {
    setDesignSize(designSize);
    m_name = new MaskedBox(nameLength, canvas());
    cmdAccept = new QPushButton("&Accept", canvas());
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(m_name, "MskField(0)", "Enter the Option Group Name");
    nameControl(cmdAccept, "cmdAccept");
    nameControl(cmdCancel, "cmdCancel");
    setDefaultButton(cmdAccept);
    setCancelButton(cmdCancel);
    connect(cmdAccept, &QPushButton::clicked, this, guarded([this] { cmdAccept_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { Hide(); }));

    auto* form = filling<QVBoxLayout>(canvas());
    form->addLayout(labelled("Group:", "lblField", m_name));
    form->addStretch(1);
    form->addLayout(buttonRow({cmdAccept, cmdCancel}));
    tabThrough({m_name, cmdAccept, cmdCancel});
}

void frmOptionGroupAdd::Form_Activate() {
    try {
        const bool change = Mode == GroupNameMode::Change;
        setWindowTitle(change ? "Change Option Group" : "Add Option Group");
        m_name->setText(change ? name : QString());
        Cancelled = true;
        SetFocus(m_name);
    } catch (const RunTimeError& error) {
        ErrorHandler(error, {});
    }
}

void frmOptionGroupAdd::cmdAccept_Click() {
    if (m_name->text().isEmpty())
        return;
    name = m_name->text();
    Cancelled = false;
    Hide();
}

} // namespace tarnwell
