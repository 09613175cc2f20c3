#include "builders/frmAddMasterTasks.h"

#include "builders/PickedLines.h"
#include "controls/FormLayout.h"
#include "controls/ListBox.h"
#include "frame/ToolbarButtons.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MousePointer.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons = Button::Exit | Button::Add | Button::Help;
constexpr QSize designSize(460, 520);
constexpr auto hint = "Select Master Tasks to Add";

} // namespace

frmAddMasterTasks::frmAddMasterTasks()
    : Screen("frmAddMasterTasks", "Add Master Tasks", {Part::Toolbar, Part::StatusBar}) {}

void frmAddMasterTasks::pickFor(PickingCaller& caller, QWidget* owner) {
    m_caller = &caller;
    Show(Modality::Modal, owner);
}

void frmAddMasterTasks::Form_Load() {
    layOut();
    Cancelled = false;
    showList();
    BuildToolbar(*this, builtButtons);
    setStatusText(hint);
}

void frmAddMasterTasks::layOut() {
    setDesignSize(designSize);
    lstTasks = new ListBox(ListBox::Pitch::Proportional, canvas());
    lstTasks->setSelectionMode(QAbstractItemView::MultiSelection);
    cmdSelectAll = new QPushButton("Select All/None", canvas());
    nameControl(lstTasks, "lstTasks", hint);
    nameControl(cmdSelectAll, "cmdSelectAll", "Select all tasks or none");
    lstTasks->setAccessibleName(hint);
    connect(cmdSelectAll, &QPushButton::clicked, this, guarded([this] { cmdSelectAll_Click(); }));

    auto* form = filling<QVBoxLayout>(canvas());
    form->addWidget(lstTasks, 1);
    form->addWidget(cmdSelectAll, 0, Qt::AlignRight);
    setTabOrder(lstTasks, cmdSelectAll);
}

void frmAddMasterTasks::showList() {
    const HourGlass hourGlass;
    const PickingList list = readPickingList(connection(), Mode, m_caller->pickingTarget());
    NonLinked = list.nonLinked;
    if (Mode == PickingMode::TaskOptions)
        setWindowTitle(NonLinked ? "Add Non-Linked Options to Task" : "Add Linked Options to Task");
    offerLines(*lstTasks, list.lines);
}

void frmAddMasterTasks::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Add") {
        AddSelected();
        Unload();
    } else if (caption == "Exit") {
        closeRequested();
    }
}

void frmAddMasterTasks::closeRequested() {
    Cancelled = true;
    Unload();
}

void frmAddMasterTasks::cmdSelectAll_Click() {
    SelectAllFlag = !SelectAllFlag;
    selectAllLines(*lstTasks, SelectAllFlag);
}

void frmAddMasterTasks::AddSelected() {
    if (lstTasks->currentRow() < 0)
        return;
    const HourGlass hourGlass;
    const PickingTarget target = m_caller->pickingTarget();
    if (Mode == PickingMode::TaskOptions)
        m_caller->makeTaskParent();
    addPicked(connection(), Mode, target, NonLinked, pickedLines(*lstTasks));
}

} // namespace tarnwell
