#include "jobs/frmAddJobTasks.h"

#include "builders/PickedLines.h"
#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "frame/ToolbarButtons.h"
#include "jobs/PlanTasks.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modFormatFunctions.h"

#include <QGridLayout>
#include <QPushButton>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Add | Button::Help;
constexpr QSize designSize(780, 520);
constexpr int planShare = 2, taskShare = 5;
constexpr auto hint = "Select Master Tasks to Add";

} // namespace

frmAddJobTasks::frmAddJobTasks()
    : Screen("frmAddJobTasks", "Add Plan/Job Tasks", {Part::Toolbar, Part::StatusBar}) {}

void frmAddJobTasks::fillFor(CurrentLotCaller& caller, QWidget* owner) {
    m_caller = &caller;
    Show(Modality::Modal, owner);
}

void frmAddJobTasks::Form_Load() {
    Cancelled = true;
    layOut();
    lstPlans->setItems(readPlans(connection(), m_caller->currentLot().contractorKey));
    chooseLotsPlan();
    BuildToolbar(*this, builtButtons);
    setStatusText(hint);
}

void frmAddJobTasks::layOut() {
    setDesignSize(designSize);
    lstPlans = new ListBox(ListBox::Pitch::Fixed, canvas());
    lstTasks = new ListBox(ListBox::Pitch::Fixed, canvas());
    lstTasks->setSelectionMode(QAbstractItemView::MultiSelection);
    cmdSelectAll = new QPushButton("Select All/None", canvas());
    nameControl(lstPlans, "lstPlans");
    nameControl(lstTasks, "lstTasks");
    nameControl(cmdSelectAll, "cmdSelectAll");
    // The hint stays, whichever control has the focus.
    for (QWidget* control : std::initializer_list<QWidget*>{lstPlans, lstTasks, cmdSelectAll})
        onGotFocus(control, [] {});
    connect(lstPlans, &ListBox::clicked, this, guarded([this] { LoadPlanTasks(); }));
    connect(lstPlans, &ListBox::keyUp, this, guarded([this] { LoadPlanTasks(); }));
    connect(cmdSelectAll, &QPushButton::clicked, this, guarded([this] { cmdSelectAll_Click(); }));

    auto* form = filling<QGridLayout>(canvas());
    form->addWidget(label("Plans", "lblField(0)", lstPlans), 0, 0);
    form->addWidget(label("Tasks", "lblField(1)", lstTasks), 0, 1);
    form->addWidget(lstPlans, 1, 0);
    form->addWidget(lstTasks, 1, 1);
    form->addWidget(cmdSelectAll, 2, 1, Qt::AlignRight);
    form->setColumnStretch(0, planShare);
    form->setColumnStretch(1, taskShare);
    form->setRowStretch(1, 1);
}

/// A lot from no plan, or from one that no longer exists, starts with none
/// chosen.
void frmAddJobTasks::chooseLotsPlan() {
    const CurrentLot lot = m_caller->currentLot();
    if (lot.jobLotKey.isNoKey())
        return;
    const qint64 planKey = NullToZero(lot.contractorPlanKey).toLong();
    for (int i = 0; i < lstPlans->ListCount(); ++i)
        if (lstPlans->ItemData(i) == planKey)
            return lstPlans->setListIndex(i);
}

void frmAddJobTasks::LoadPlanTasks() {
    SelectAllTasks = false;
    lstTasks->Clear();
    const int plan = lstPlans->ListIndex();
    if (plan < 0)
        return;
    offerLines(*lstTasks,
               readPlanTasks(connection(), lstPlans->ItemData(plan), m_caller->currentLot().jobLotKey));
}

void frmAddJobTasks::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Add") {
        AddSelectedTasks();
        Unload();
    } else if (caption == "Exit") {
        closeRequested();
    }
}

void frmAddJobTasks::closeRequested() {
    Cancelled = true;
    Unload();
}

void frmAddJobTasks::cmdSelectAll_Click() {
    SelectAllTasks = !SelectAllTasks;
    selectAllLines(*lstTasks, SelectAllTasks);
}

void frmAddJobTasks::AddSelectedTasks() {
    const int plan = lstPlans->ListIndex();
    if (lstTasks->currentRow() < 0 || plan < 0)
        return;
    addPlanTasks(connection(), m_caller->currentLot(),
                 {lstPlans->item(plan)->text(), lstPlans->ItemData(plan)}, pickedLines(*lstTasks));
    Cancelled = false;
}

} // namespace tarnwell
