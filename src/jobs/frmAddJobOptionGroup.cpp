#include "jobs/frmAddJobOptionGroup.h"

#include "controls/FormLayout.h"
#include "controls/ListBox.h"
#include "data/recordset/Recordset.h"
#include "jobs/JobOptionGroup.h"
#include "master/OptionGroups.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MousePointer.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr QSize designSize(360, 320);
constexpr auto hint = "Select option to add to job";

} // namespace

frmAddJobOptionGroup::frmAddJobOptionGroup()
    : Screen("frmAddJobOptionGroup", "Add Job Option Group", {Part::StatusBar}) {}

frmAddJobOptionGroup::~frmAddJobOptionGroup() = default;

void frmAddJobOptionGroup::applyTo(CurrentLotCaller& caller, QWidget* owner) {
    m_caller = &caller;
    Show(Modality::Modal, owner);
    if (m_error != nullptr)
        std::rethrow_exception(m_error);
}

void frmAddJobOptionGroup::Form_Load() {
    makeControls();
    layOut();
    Cancelled = false;
    setStatusText(hint);
    rsGroupRows = std::make_unique<Recordset>();
    rsGroupRows->Open(optionGroupTasks, connection(), CursorType::Static, LockType::Optimistic);
    rsGroupRows->setFilter("ContractorKey=0");
    LoadGroups();
    if (lstGroups->ListCount() > 0)
        lstGroups->setListIndex(0);
}

void frmAddJobOptionGroup::makeControls() {
    setDesignSize(designSize);
    lstGroups = new ListBox(ListBox::Pitch::Proportional, canvas());
    cmdSelect = new QPushButton("&Select", canvas());
    cmdCancel = new QPushButton("&Cancel", canvas());
    nameControl(lstGroups, "lstGroups", hint);
    nameControl(cmdSelect, "cmdSelect", "Add the options of the selected group to the lot");
    nameControl(cmdCancel, "cmdCancel", "Close and add nothing");
    lstGroups->setAccessibleName("Option groups");
    setDefaultButton(cmdSelect);
    setCancelButton(cmdCancel);
    connect(lstGroups, &ListBox::doubleClick, this, guarded([this] { cmdSelect_Click(); }));
    connect(cmdSelect, &QPushButton::clicked, this, guarded([this] { cmdSelect_Click(); }));
    connect(cmdCancel, &QPushButton::clicked, this, guarded([this] { cmdCancel_Click(); }));
}

void frmAddJobOptionGroup::layOut() {
    auto* form = filling<QVBoxLayout>(canvas());
    form->addWidget(lstGroups, 1);
    form->addLayout(buttonRow({cmdSelect, cmdCancel}));
    tabThrough({lstGroups, cmdSelect, cmdCancel});
}

void frmAddJobOptionGroup::LoadGroups() {
    lstGroups->setItems(readOptionGroups(connection(), m_caller->currentLot().contractorKey));
}

void frmAddJobOptionGroup::Form_Unload() {
    rsGroupRows.reset();
}

void frmAddJobOptionGroup::cmdSelect_Click() {
    if (lstGroups->ListIndex() < 0)
        return;
    try {
        applyChosen();
    } catch (const RunTimeError&) {
        m_error = std::current_exception();
    }
    Unload();
}

void frmAddJobOptionGroup::applyChosen() {
    const HourGlass hourGlass;
    rsGroupRows->setFilter("CodeKey=" + QString::number(lstGroups->ItemData(lstGroups->ListIndex())));
    applyOptionGroup(connection(), *rsGroupRows, lstGroups->currentItem()->text(),
                     m_caller->currentLot().jobLotKey);
}

void frmAddJobOptionGroup::cmdCancel_Click() {
    Cancelled = true;
    Unload();
}

} // namespace tarnwell
