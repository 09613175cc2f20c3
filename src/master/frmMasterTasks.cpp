#include "master/frmMasterTasks.h"

#include "controls/Combo.h"
#include "controls/grid/Grid.h"
#include "controls/grid/GridBinding.h"
#include "frame/ToolbarButtons.h"
#include "master/Categories.h"
#include "master/CategoryDependencies.h"
#include "master/MasterTasks.h"
#include "master/frmAddDependency.h"
#include "runtime/DataEnvironment.h"
#include "runtime/EventGuard.h"
#include "runtime/MsgBox.h"
#include "runtime/modGlobalVariables.h"

#include <QCheckBox>
#include <QLineEdit>

namespace tarnwell {

namespace {

constexpr ButtonMask exitOnly = Button::Exit | Button::Help;
constexpr ButtonMask allButtons =
    Button::Exit | Button::Add | Button::Remove | Button::RemoveList | Button::Help;

struct FocusMask {
    const char* control;
    ButtonMask mask;
};

/// The buttons of the controls that choose them; the others leave the toolbar as it is.
constexpr FocusMask focusMasks[] = {
    {"cmbCascade", exitOnly},
    {"cmbType", exitOnly},
    {"jgMasterTasks", Button::Exit | Button::Remove | Button::Help},
    {"jgDependency", Button::Exit | Button::Add | Button::RemoveList | Button::Help}};

/// In the order of `CascadeTarget`.
constexpr const char* cascadeTargets[] = {"No Update", "Update Builder, Jobs", "Update Builder Only",
                                          "Update Jobs Only"};

enum TaskColumn { CodeKey = 1, Name, Price, Custom, Exclude, MasterTaskKey, Deleted };
constexpr int dependencyKeyColumn = 1;

} // namespace

frmMasterTasks::frmMasterTasks()
    : Screen("frmMasterTasks", "Master Tasks", {Part::Toolbar, Part::StatusBar}) {}

frmMasterTasks::~frmMasterTasks() = default;

void frmMasterTasks::Form_Load() {
    makeControls();
    m_tasks = std::make_unique<DetailRows>(
        *jgMasterTasks,
        DetailRows::Source{.chosen = [this] { return DetailKeys{.category = chosenKey(*cmbType)}; },
                           .show = [this](const DetailKeys& keys) { showCategory(keys.category); },
                           .reload = [this] { cmbType_Click(); }});
    connectControls();
    connectGrid();
    setHints();
    TaskRecordset.Open(allMasterTasks, connection(), CursorType::Static, LockType::Optimistic);
    jgMasterTasks->bind(&TaskRecordset);
    jgMasterTasks->LoadLayout(gLayoutPath + "MasterTasks.lyt");
    fillLists();
    const bool hasCategory = cmbType->ListIndex() >= 0;
    BuildToolbar(*this, hasCategory ? allButtons : exitOnly);
    if (hasCategory)
        nameButtons();
    setStatusText("Select Category / Enter Master Tasks");
}

void frmMasterTasks::setHints() {
    jgMasterTasks->setEmptyHint(
        []() -> QString { return "Enter the task categories in Master Codes first."; });
    jgDependency->setEmptyHint([this]() -> QString {
        return cmbType->ListCount() == 0 ? ""
                                         : "Press Add to name a category that is to be paid before this one.";
    });
}

void frmMasterTasks::fillLists() {
    for (const char* target : cascadeTargets)
        cmbCascade->AddItem(target);
    cmbCascade->setListIndex(CascadeTarget::None);
    cmbType->setItems(readTaskCategories(connection()));
    if (cmbType->ListCount() > 0) {
        cmbType->setListIndex(0);
    } else {
        jgMasterTasks->setEnabled(false);
        jgMasterTasks->setHasOwner(false);
        jgMasterTasks->Rebind();
    }
    cmbType->lineEdit()->selectAll(); // The first key replaces it.
}

void frmMasterTasks::nameButtons() {
    setToolbarButton("Add", "Add", "Add Dependancy");
    setToolbarButton("Remove", "Del", "Delete Task");
    setToolbarButton("RemoveList", "Del L", "Remove Dependancy");
}

void frmMasterTasks::connectControls() {
    connect(cmbType, &Combo::clicked, this, guarded([this] { cmbType_Click(); }));
    connect(cmbType, &Combo::keyUp, this, guarded([this](int keyCode, int shift) {
                ComboIncrementalSearch(*cmbType, keyCode, shift, false);
            }));
    for (QWidget* control : std::initializer_list<QWidget*>{cmbType, cmbCascade, jgDependency})
        onGotFocus(control, [this, control] {
            showToolTip(control);
            SetToolbarForControl();
        });
    onGotFocus(jgMasterTasks, [this] { SetToolbarForControl(); });
    onLostFocus(jgMasterTasks, [this] { jgMasterTasks->UpdateOrTell(); });
}

void frmMasterTasks::connectGrid() {
    connect(jgMasterTasks, &Grid::beforeUpdate, this,
            guarded([this] { jgMasterTasks->setValue(CodeKey, categoryKey()); }));
    connect(jgMasterTasks, &Grid::afterUpdate, this, guarded([this] { jgMasterTasks_AfterUpdate(); }));
    connect(jgMasterTasks, &Grid::rowColChange, this, guarded([this] { jgMasterTasks_RowColChange(); }));
    connect(jgMasterTasks, &Grid::keyDown, this,
            guarded([this](int& keyCode, int /*shift*/) { walkByEnter(*jgMasterTasks, keyCode); }));
}

void frmMasterTasks::SetToolbarForControl() {
    const QWidget* active = ActiveControl();
    for (const FocusMask& each : focusMasks)
        if (active != nullptr && active->objectName() == QLatin1String(each.control))
            EnableToolbar(*this, each.mask, m_toolbarMask);
}

/// A row that can't be written stays on screen, and with it the category that it belongs to.
void frmMasterTasks::cmbType_Click() {
    if (cmbType->ListIndex() < 0 || m_tasks->follow())
        return;
    restoreChoice(*cmbType, categoryKey());
    SetFocus(jgMasterTasks);
}

void frmMasterTasks::showCategory(qint64 category) {
    TaskRecordset.setFilter(tasksOfCategory(category));
    jgMasterTasks->Rebind();
    LoadDependencies(category);
}

void frmMasterTasks::LoadDependencies(qint64 category) {
    showRows(connection(), *jgDependency, DependencyRecordset, dependenciesOf(category),
             "CategoryDependency.lyt");
}

void frmMasterTasks::jgMasterTasks_AfterUpdate() {
    // A new row is in no plan and no job yet.
    if (jgMasterTasks->value(MasterTaskKey).isEmpty())
        return;
    applyCascade(connection(),
                 {.masterTaskKey = jgMasterTasks->value(MasterTaskKey),
                  .name = jgMasterTasks->value(Name),
                  .price = jgMasterTasks->value(Price),
                  .excludeDependency = jgMasterTasks->value(Exclude)},
                 cascadeChoice());
}

CascadeChoice frmMasterTasks::cascadeChoice() const {
    return {.target = cmbCascade->ListIndex(),
            .name = chkUpdateName->isChecked(),
            .price = chkUpdatePrice->isChecked(),
            .exclude = chkUpdateExclude->isChecked()};
}

void frmMasterTasks::jgMasterTasks_RowColChange() {
    if (jgMasterTasks->Row() != -1 && jgMasterTasks->Col() != 0)
        setStatusText(jgMasterTasks->columnTag(jgMasterTasks->Col()));
}

void frmMasterTasks::Toolbar1_ButtonClick(const QString& caption) {
    if (caption == "Exit")
        closeRequested();
    else if (caption == "Add")
        AddDependency();
    else if (caption == "Del")
        DeleteTask();
    else if (caption == "Del L")
        RemoveDependency();
}

void frmMasterTasks::AddDependency() {
    theForm<frmAddDependency>().Show(Modality::Modal, this);
    LoadDependencies(categoryKey());
}

void frmMasterTasks::RemoveDependency() {
    const Value key = jgDependency->value(dependencyKeyColumn);
    if (ActiveControl() != jgDependency || key.isEmpty() || !confirmDependencyRemoval(MsgBox))
        return;
    removeDependency(connection(), key);
    LoadDependencies(categoryKey());
}

void frmMasterTasks::DeleteTask() {
    // A pending edit waits for the answer: after No it can be continued or discarded.
    if (jgMasterTasks->value(MasterTaskKey).isEmpty() ||
        !confirmTaskDeletion(MsgBox, jgMasterTasks->value(Name)) || !jgMasterTasks->UpdateOrTell())
        return;
    jgMasterTasks->setValue(Deleted, true);
    jgMasterTasks->Update();
    readWithoutRow(*jgMasterTasks, TaskRecordset);
}

/// What the database refuses is reported, and the form stays open.
void frmMasterTasks::closeRequested() {
    if (jgMasterTasks->UpdateOrTell())
        Unload();
}

void frmMasterTasks::Form_Unload() {
    jgMasterTasks->Update();
    jgMasterTasks->bind(nullptr);
    jgDependency->bind(nullptr);
    DependencyRecordset.reset();
    if (TaskRecordset.State() == ObjectState::Open)
        TaskRecordset.Close();
}

} // namespace tarnwell
