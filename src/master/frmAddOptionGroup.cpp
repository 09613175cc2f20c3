#include "master/frmAddOptionGroup.h"

#include "controls/FormLayout.h"
#include "controls/Label.h"
#include "controls/ListBox.h"
#include "controls/MaskedBox.h"
#include "controls/grid/Grid.h"
#include "data/recordset/Recordset.h"
#include "frame/DeleteQuestion.h"
#include "frame/ToolbarButtons.h"
#include "master/OptionGroups.h"
#include "master/frmOptionGroupAdd.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/modGlobalVariables.h"

#include <QVBoxLayout>

#include <algorithm>

namespace tarnwell {

namespace {

constexpr ButtonMask builtButtons =
    Button::Exit | Button::Add | Button::Remove | Button::AddSame | Button::Info | Button::Help;
constexpr ButtonMask noGroupButtons = Button::Exit | Button::Add | Button::Help;
constexpr ButtonMask groupButtons = Button::Exit | Button::Add | Button::Remove | Button::Info | Button::Help;
constexpr ButtonMask noGridButtons = Button::Exit | Button::Help;
constexpr ButtonMask noTaskButtons = Button::Exit | Button::AddSame | Button::Help;
constexpr ButtonMask taskButtons = Button::Exit | Button::Remove | Button::AddSame | Button::Help;
constexpr QSize designSize(760, 460);
constexpr int groupShare = 2, taskShare = 5; // Of the width.
constexpr int onGroups = 0, onTasks = 1;     // Of FocusArea.

constexpr auto groupHint = "Select group to modify, or Add to create group";
constexpr auto taskToolTip = "Enter new tasks, Press Add to include tasks";

std::vector<GridColumn> optionColumns() {
    return {{.key = "OptionGroupKey", .caption = "OptionGroupKey", .visible = false},
            {.key = "ContractorKey", .caption = "ContractorKey", .visible = false},
            {.key = "CodeKey", .caption = "CodeKey", .visible = false},
            {.key = "MasterTaskKey", .caption = "MasterTaskKey", .visible = false},
            {.key = "Name", .caption = "Name", .maxLength = 50, .selectable = false},
            {.key = "MasterPrice", .caption = "Master Price", .format = ColumnFormat::Fixed, .width = 110},
            {.key = "ExcludeDependency",
             .caption = "Exclude",
             .format = ColumnFormat::YesNo,
             .edit = ColumnEdit::CheckBox,
             .width = 80}};
}

} // namespace

frmAddOptionGroup::frmAddOptionGroup()
    : Screen("frmAddOptionGroup", "Maintain Option Groups", {Part::Toolbar, Part::StatusBar}) {}

frmAddOptionGroup::~frmAddOptionGroup() = default;

void frmAddOptionGroup::openFor(OptionGroupBuilder builder, PickTasks pickTasks, QWidget* owner) {
    m_builder = std::move(builder);
    m_pickTasks = std::move(pickTasks);
    Show(Modality::Modal, owner);
}

qint64 frmAddOptionGroup::selectedGroup() const {
    return chosenKey(*lstGroups);
}

void frmAddOptionGroup::Form_Load() {
    makeControls();
    layOut();
    m_tasks = std::make_unique<DetailRows>(
        *jgGroupOptions,
        DetailRows::Source{.chosen = [this] { return DetailKeys{.category = selectedGroup()}; },
                           .show = [this](const DetailKeys& keys) { showGroup(keys.category); },
                           .reload = [this] { FilterGroup(); }});
    connectControls();
    setHints();
    m_builderName->setText(m_builder.name);
    GroupRecordset = std::make_unique<Recordset>();
    GroupRecordset->Open(optionGroupTasks, connection(), CursorType::Static, LockType::Optimistic);
    GroupRecordset->setFilter("ContractorKey=0");
    jgGroupOptions->bind(GroupRecordset.get());
    jgGroupOptions->LoadLayout(gLayoutPath + "GroupOptions.lyt");
    BuildToolbar(*this, builtButtons);
    setToolbarButton("AddSame", "Task", "Add Task");
    LoadGroups();
    FilterGroup();
}

void frmAddOptionGroup::makeControls() {
    setDesignSize(designSize);
    lstGroups = new ListBox(ListBox::Pitch::Proportional, canvas());
    jgGroupOptions = new Grid(canvas());
    jgGroupOptions->setColumns(optionColumns());
    jgGroupOptions->setAllowEdit(true);
    jgGroupOptions->setAllowAdd(false);
    jgGroupOptions->setAllowDelete(true);
    // The first control made is the first to be active.
    m_builderName = new MaskedBox(0, canvas());
    m_builderName->setReadOnly(true);
    nameControl(m_builderName, "txtField(0)");
    nameControl(lstGroups, "lstGroups", groupHint);
    nameControl(jgGroupOptions, "jgGroupOptions", taskToolTip);
}

void frmAddOptionGroup::layOut() {
    auto* form = filling<QVBoxLayout>(canvas());
    form->addLayout(labelled("Builder:", "lblField(0)", m_builderName));
    auto* columns = new QGridLayout;
    columns->setHorizontalSpacing(formColumnGap);
    columns->setVerticalSpacing(formSpacing);
    columns->addWidget(label("Groups:", "lblField(1)", lstGroups), 0, 0);
    columns->addWidget(label("Tasks:", "lblField(2)", jgGroupOptions), 0, 1);
    columns->addWidget(lstGroups, 1, 0);
    columns->addWidget(jgGroupOptions, 1, 1);
    columns->setColumnStretch(0, groupShare);
    columns->setColumnStretch(1, taskShare);
    columns->setRowStretch(1, 1);
    form->addLayout(columns, 1);
    tabThrough({lstGroups, jgGroupOptions, m_builderName});
}

void frmAddOptionGroup::connectControls() {
    connect(lstGroups, &ListBox::clicked, this, guarded([this] { FilterGroup(); }));
    connect(lstGroups, &ListBox::doubleClick, this, guarded([this] { RenameGroup(); }));
    onGotFocus(lstGroups, [this] { lstGroups_GotFocus(); });
    onGotFocus(jgGroupOptions, [this] { jgGroupOptions_GotFocus(); });
}

void frmAddOptionGroup::setHints() {
    lstGroups->setEmptyHint([]() -> QString { return "Press Add to make a group."; });
    jgGroupOptions->setEmptyHint([this]() -> QString {
        return selectedGroup() == 0 ? "Make or choose a group first."
                                    : "Press Task to put tasks into the group.";
    });
}

void frmAddOptionGroup::Form_Unload() {
    jgGroupOptions->Update();
    jgGroupOptions->bind(nullptr);
    GroupRecordset.reset();
}

void frmAddOptionGroup::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Exit") {
        closeRequested();
    } else if (caption == "Add") {
        AddGroup();
    } else if (caption == "Task") {
        AddGroupTask();
    } else if (caption == "Info") {
        RenameGroup();
    } else if (caption == "Del" && FocusArea == onGroups) {
        DeleteGroup();
    } else if (caption == "Del") {
        DeleteGroupTask();
    }
}

/// What can't be written is reported, and the form stays open.
void frmAddOptionGroup::closeRequested() {
    if (jgGroupOptions->UpdateOrTell())
        Unload();
}

void frmAddOptionGroup::LoadGroups() {
    // A price that was typed belongs to the group on show.
    jgGroupOptions->UpdateOrTell();
    lstGroups->setItems(readOptionGroups(connection(), m_builder.ContractorKey));
    if (lstGroups->ListCount() > 0)
        lstGroups->setListIndex(0);
}

/// A row that can't be written stays on screen, and with it the group that it belongs to.
void frmAddOptionGroup::FilterGroup() {
    try {
        if (m_tasks->follow())
            return;
    } catch (const RunTimeError&) {
        return; // passed over: the rows stay as they are
    }
    restoreChoice(*lstGroups, m_tasks->keys().category);
    if (ActiveControl() != jgGroupOptions) // An open editor has the focus already.
        SetFocus(jgGroupOptions);
}

/// Without a group the rows stay.
void frmAddOptionGroup::showGroup(qint64 group) {
    if (group == 0)
        return;
    GroupRecordset->setFilter("CodeKey=" + QString::number(group));
    jgGroupOptions->Rebind();
}

void frmAddOptionGroup::readGroupTasks() {
    GroupRecordset->Requery();
    jgGroupOptions->Rebind();
    FilterGroup();
}

bool frmAddOptionGroup::askName(int mode, QString& name) {
    auto& dialog = theForm<frmOptionGroupAdd>();
    dialog.Mode = mode;
    dialog.name = name;
    dialog.Cancelled = true;
    dialog.Show(Modality::Modal, this);
    name = dialog.name;
    return !dialog.Cancelled;
}

void frmAddOptionGroup::AddGroup() {
    QString name;
    if (!askName(GroupNameMode::Add, name))
        return;
    addOptionGroup(connection(), m_builder.ContractorKey, name);
    LoadGroups();
    FilterGroup();
    SetGroupToolbar();
}

void frmAddOptionGroup::RenameGroup() {
    const qint64 group = selectedGroup();
    if (group == 0)
        return;
    QString name = lstGroups->currentItem()->text();
    if (!askName(GroupNameMode::Change, name))
        return;
    renameOptionGroup(connection(), group, name);
    LoadGroups();
    FilterGroup();
}

void frmAddOptionGroup::AddGroupTask() {
    if (selectedGroup() == 0 || !m_pickTasks || !jgGroupOptions->UpdateOrTell())
        return;
    m_pickTasks(*this);
    readGroupTasks();
    jgGroupOptions_GotFocus(); // The first task of a group can be deleted at once.
}

void frmAddOptionGroup::DeleteGroup() {
    const qint64 group = selectedGroup();
    if (group == 0 || !isDeleteConfirmed("Delete Current Group?"))
        return;
    jgGroupOptions->CancelUpdate();
    deleteOptionGroup(connection(), group);
    LoadGroups();
    readGroupTasks();
    SetFocus(jgGroupOptions);
}

void frmAddOptionGroup::DeleteGroupTask() {
    if (!isDeleteConfirmed("Delete Current Task?"))
        return;
    const Value task = jgGroupOptions->value("OptionGroupKey");
    const int row = jgGroupOptions->Row();
    jgGroupOptions->CancelUpdate();
    deleteOptionGroupTask(connection(), task.toLong());
    readGroupTasks();
    jgGroupOptions->setRow(std::min(row, jgGroupOptions->RowCount()));
    jgGroupOptions_GotFocus();
    SetFocus(jgGroupOptions);
}

void frmAddOptionGroup::SetGroupToolbar() {
    EnableToolbar(*this, lstGroups->ListCount() == 0 ? noGroupButtons : groupButtons, ToolbarMask);
}

void frmAddOptionGroup::lstGroups_GotFocus() {
    FocusArea = onGroups;
    SetGroupToolbar();
    setStatusText(groupHint);
}

void frmAddOptionGroup::jgGroupOptions_GotFocus() {
    FocusArea = onTasks;
    showToolTip(jgGroupOptions);
    if (lstGroups->ListCount() == 0)
        EnableToolbar(*this, noGridButtons, ToolbarMask);
    else
        EnableToolbar(*this, jgGroupOptions->value("OptionGroupKey").isNoKey() ? noTaskButtons : taskButtons,
                      ToolbarMask);
}

} // namespace tarnwell
