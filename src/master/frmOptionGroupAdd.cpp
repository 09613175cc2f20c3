#include "master/frmOptionGroupAdd.h"

#include "controls/Label.h"
#include "controls/MaskedBox.h"
#include "frame/EventGuard.h"
#include "frame/modErrorRoutines.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(420, 100);
constexpr int margin = 12, spacing = 8, nameLength = 50;

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

    auto* form = new QVBoxLayout(canvas());
    form->setContentsMargins(margin, margin, margin, margin);
    form->setSpacing(spacing);
    auto* entry = new QHBoxLayout;
    entry->setSpacing(spacing);
    entry->addWidget(label("Group:", "lblField", m_name));
    entry->addWidget(m_name, 1);
    form->addLayout(entry);
    form->addStretch(1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(spacing);
    buttons->addStretch(1);
    buttons->addWidget(cmdAccept);
    buttons->addWidget(cmdCancel);
    form->addLayout(buttons);
    setTabOrder(m_name, cmdAccept);
    setTabOrder(cmdAccept, cmdCancel);
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
